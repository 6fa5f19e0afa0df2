#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"
#include "CTableColumn.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <functional>
#include <set>
#include <vector>

class QAbstractItemDelegate;
class QAction;
class QMenu;
class QTableView;
class QValidator;

namespace WK {

class CTableColumnFilterPopup;
class CTableItemDelegate;
class CTableModel;

// The table widget of the toolkit: a CTableModel of row records shown by a QTableView.
//
// Rows are addressed by row id (see CTableModel), columns by column number; the user may drag
// columns into another order without changing their numbers. Visual rows (what rowID maps) are
// the rows as the user sees them, filtered and sorted, without the totals line.
//
// Upward events (ETableEvent in CTableCellEvent.h): 46 before an edit is stored, 47 after it,
// 48 when the user ticks or unticks a check box, 49 on a click in a cell, 53 after the user
// deleted rows, 42 when another row becomes current. Loads of many rows belong between
// beginUpdate and endUpdate (or addRowBegin and addRowEnd): the view then hears of them once.
class BASKET_TOOLKIT_EXPORT CBaseNormalTable : public CBaseWidget
{
    Q_OBJECT

public:
    // Switches of flag().
    enum ETableFlag {
        TF_GRID_LINES = 0x2,
        TF_SORTABLE = 0x8,         // a header click sorts
        TF_COLUMN_MOVABLE = 0x10,  // columns can be dragged into another order
        TF_COLUMN_RESIZABLE = 0x20,
        TF_TOTALS_LINE = 0x200,    // shows the totals line
        TF_COLUMN_FILTER = 0x400,  // a right click on a filterable column's header opens its filter
        TF_CONTEXT_MENU = 0x2000,  // a right click on the rows opens the context menu
        TF_DELETE_ROWS = 0x8000,   // the Delete key and the menu entry "删除" delete the selected rows
        TF_COPY_ROWS = 0x10000,    // Ctrl+C and the menu entry "复制" copy the selected rows as text
    };
    static constexpr int DefaultFlags = TF_GRID_LINES | TF_SORTABLE | TF_COLUMN_MOVABLE | TF_COLUMN_RESIZABLE
                                        | TF_CONTEXT_MENU;

    enum ESelectType {
        ST_NONE = 0,
        ST_SINGLE_CELL = 1,
        ST_MULTI_ROW = 2,
        ST_SINGLE_ROW = 3,
    };

    CBaseNormalTable(const QString &name, int selectType, QWidget *parent);
    ~CBaseNormalTable() override;

    int flag() const { return m_flag; }
    void setFlag(int flag);

    // Columns.
    int addColumn(const QString &title, int width = 80, Qt::Alignment alignment = Qt::AlignRight | Qt::AlignVCenter);
    int addColumn(const CTableColumn &column);
    void removeColumn(int column);
    // Moves a column to this visual position; its number stays.
    void moveColumn(int column, int visualIndex);
    void clearColumns();
    void setColumnCount(int count);
    int columnCount() const;
    CTableColumn column(int column) const;
    void setColumn(int column, const CTableColumn &description);
    void setColumnTitle(int column, const QString &title);
    void setColumnTitles(const QStringList &titles);
    QString columnTitle(int column) const;
    void setColumnWidth(int column, int width);
    int columnWidth(int column) const;
    void setColumnVisible(int column, bool visible);
    bool isColumnVisible(int column) const;
    void setColumnAlignment(int column, Qt::Alignment alignment);
    void setColumnFormat(int column, EColumnFormat format, int precision = 2, int numberFlags = NF_NONE);
    void setColumnEditable(int column, bool editable);
    // The validator of typed text (the table owns it); an int or double validator turns a text
    // column into one of that kind of number.
    void setColumnValidator(int column, QValidator *validator);
    void setColumnIntValidator(int column, qint64 bottom, qint64 top);
    void setColumnDoubleValidator(int column, double bottom, double top, int decimals);
    QValidator *columnValidator(int column) const;
    void setColumnBoldFont(int column, bool bold);
    void setColumnFlashChange(int column, bool flash);
    // Values the owner keeps itself (CTableColumn::m_source); a null source stores cells again.
    void setColumnSource(int column, std::function<CSourcedValue(int rowId)> source);
    void setColumnFilterable(int column, bool filterable);
    void setColumnCheckable(int column, bool checkable);
    void setColumnSummed(int column, bool summed);
    void setColumnColorKey(int column, const QString &key);
    // A delegate of its own for the column, such as CBaseTableColumnPushButtonDelegate; the
    // table owns it.
    void setColumnDelegate(int column, QAbstractItemDelegate *delegate);
    // The visual order of the columns, by column number.
    QVector<int> visualColumnOrder() const;

    // Rows.
    void setRowCount(int count);
    int rowCount() const;     // visual rows, without the totals line
    int dataRowCount() const; // all rows, hidden ones too
    int addRowBegin();
    void addRowEnd(bool update = true);
    int appendRow(const QVector<QVariant> &values = QVector<QVariant>());
    int appendRow(const QStringList &texts);
    bool updateRow(int rowId, const QVector<QVariant> &values);
    bool removeRow(int rowId);
    int removeRows(const std::set<int> &rowIds);
    void clear();
    void beginUpdate();
    void endUpdate();
    void recalcAndUpdate();
    int rowID(int visualRow) const; // -1 outside the rows
    int visualRow(int rowId) const; // -1 for a hidden or unknown row
    bool hasRow(int rowId) const;
    QVector<int> rowIds() const;

    // Cells.
    bool setItemText(int rowId, int column, const QString &text);
    bool setItemInt(int rowId, int column, qint64 value);
    bool setItemDouble(int rowId, int column, double value, int precision = -1, int numberFlags = -1);
    bool setItemValue(int rowId, int column, const QVariant &value);
    QString itemText(int rowId, int column) const;
    QVariant itemValue(int rowId, int column) const;
    int itemInt(int rowId, int column) const;
    qint64 itemLonglong(int rowId, int column) const;
    double itemDouble(int rowId, int column) const;
    void setItemColorKey(int rowId, int column, const QString &key);
    void setRowColorKey(int rowId, const QString &key);
    void setItemEditable(int rowId, int column, bool editable);
    void setItemChecked(int rowId, int column, bool checked);
    bool isItemChecked(int rowId, int column) const;
    void setAllChecked(int column, bool checked);
    void setRowUserData(int rowId, const QVariant &data);
    QVariant rowUserData(int rowId) const;
    void setRowUserPointer(int rowId, void *pointer);
    void *rowUserPointer(int rowId) const;
    // A widget shown in a cell, for tables of a few rows: it lives while its row is shown and
    // goes with a reset, a filter that hides the row, or a new widget in the cell.
    void setItemWidget(int rowId, int column, QWidget *widget);
    QWidget *itemWidget(int rowId, int column) const;

    // Sort and filters.
    void sortByColumn(int column, Qt::SortOrder order);
    void clearSort();
    void setColumnFilter(int column, const QSet<QString> &accepted);
    void clearFilter(int column = -1);
    QMap<int, QSet<QString>> columnFilters() const;
    // With this function the filter menu lists its values instead of the column's shown texts.
    void setFilterItemsFunc(std::function<QSet<QString>(int column)> func);
    // With this function the table no longer filters by itself: the chosen filters of all
    // columns go to the function, which may rebuild the rows.
    void setFilterDataFunc(std::function<void(const QMap<int, QSet<QString>> &filters)> func);
    // Opens the filter of a column below its header; null when the column cannot filter.
    CTableColumnFilterPopup *showFilterPopup(int column);

    // The totals line.
    void setTotalsLineVisible(bool visible);
    void setStatText(int column, const QString &text);
    QString statText(int column) const;

    // Edits and their checks.
    // Called before event 46 with the typed text; false refuses the edit, and a changed text
    // then stands in the cell.
    void setValidateFunc(std::function<bool(int rowId, int column, QString &text)> func);
    // The whole road of a user's edit: editability, the column's validator, the validate
    // function, event 46, storing, event 47. Answers whether the text was stored.
    bool submitEdit(int rowId, int column, const QString &text);

    // Selection.
    std::set<int> selectedRows() const;
    void selectRow(int rowId);
    int currentRowId() const;
    // Deletes the selected rows and delivers event 53; the number deleted.
    int deleteSelectedRows();
    // The selected rows as tab-separated text of the visible columns, in view order.
    QString selectedRowsText() const;

    // Context menu and paste.
    QAction *addMenuAction(const QString &text, std::function<void()> func);
    void addMenuSeparator();
    // The context menu as it would open now; the caller owns it.
    QMenu *createContextMenu();
    void setPasteDataFunc(const QString &hint, std::function<void()> func);
    QString pasteHint() const { return m_pasteHint; }
    // Calls the paste function, as Ctrl+V over the table does; false without one.
    bool paste();

    // Column layout as text: order, widths and visibility.
    bool loadConfigStr(const QString &text);
    QString saveConfigStr() const;
    QString configStr() const { return saveConfigStr(); }

    int itemHeight() const;
    void setItemHeight(int height);
    // Fits the visible columns to the rows in view and their titles.
    void adjustVisibleRowsColumnWidth();

    QTableView *view() const { return m_view; }
    CTableModel *model() const { return m_model; }

    void themeChanged() override;

Q_SIGNALS:
    void sigCellEdited(int rowId, int column, const QString &text);
    void sigItemChecked(int rowId, int column, bool checked);
    void sigCellClicked(int rowId, int column);
    void sigRowsDeleted(const std::set<int> &rowIds);
    void sigCurrentRowChanged(int rowId);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    // Palette and grid from the user-interface resources; subclasses add their look.
    virtual void applyLook();

private:
    bool validColumn(int column) const;
    void applyColumnToView(int column);
    void applyAllColumns();
    template <typename Change>
    void changeColumn(int column, Change change);
    void applyFlags();
    void applyGridLines();
    void applyColumnFilter(int column, const QSet<QString> &accepted);
    void onHeaderClicked(int column);
    void onHeaderMenu(const QPoint &pos);
    void onContextMenu(const QPoint &pos);
    void onCheckToggled(int rowId, int column, bool checked);
    void onCellClicked(const QModelIndex &index);
    void onCurrentRowChanged(const QModelIndex &current);
    void copySelectedRows();

    CTableModel *m_model = nullptr;
    QTableView *m_view = nullptr;
    CTableItemDelegate *m_delegate = nullptr;
    int m_flag = DefaultFlags;
    int m_selectType = ST_MULTI_ROW;
    std::vector<QAction *> m_menuEntries; // null for a separator
    QString m_pasteHint;
    std::function<void()> m_pasteFunc;
    std::function<bool(int, int, QString &)> m_validateFunc;
    std::function<QSet<QString>(int)> m_filterItemsFunc;
    std::function<void(const QMap<int, QSet<QString>> &)> m_filterDataFunc;
    QMap<int, QSet<QString>> m_externalFilters; // the chosen filters while the owner applies them
    int m_appliedColumnCount = 0;
};

} // namespace WK
