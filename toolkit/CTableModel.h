#pragma once

#include "BasketToolkitExport.h"
#include "CTableColumn.h"

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QTimer>
#include <QVariant>
#include <QVector>

#include <cstring>
#include <functional>
#include <initializer_list>
#include <set>
#include <vector>

namespace WK {

// The rows of a table as records, shown through Qt's model/view.
//
// Every row has a row id that stays with it: deleting other rows, sorting and filtering change
// the visual order, never the ids. Row ids are handed out in increasing order from 0 and start
// again at 0 only after clearRows. Cell values are numbers (qint64 or double, formatted by
// their column when shown) or texts. The model presents the rows that pass the column filters,
// in the order of the active sort, followed by an optional totals line.
//
// Batches: between beginUpdate and endUpdate nothing is announced to the views; endUpdate
// publishes everything at once: a single reset when rows were removed, cleared or loaded into
// an empty table, one insertion for rows appended to a filled one, one dataChanged for the
// values that changed. Sorting and filtering are applied once, at that moment.
//
// A value changed outside a batch emits dataChanged for its cell only; updateRow emits one
// dataChanged for the changed cells of its row. A changed value does not move or hide its row
// by itself (rows that jump under the user's pointer help nobody); recalcAndUpdate re-applies
// the sort and the filters.
//
// User-interface thread only.
class BASKET_TOOLKIT_EXPORT CTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum ERole {
        RowIdRole = Qt::UserRole + 1, // int; -1 on the totals line
        TotalsLineRole,               // bool
        BoldRole,                     // bool: the column is bold, or the totals line
        NumberRole,                   // the number of the cell (qint64 or double), else invalid
    };

    // Takes the typed text of a user's edit; answers whether it was stored.
    using EditHandler = std::function<bool(int rowId, int column, const QString &text)>;
    // Told after the user ticked or unticked a check box.
    using CheckHandler = std::function<void(int rowId, int column, bool checked)>;

    explicit CTableModel(QObject *parent = nullptr);
    ~CTableModel() override;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    // Columns. A column number outside the table makes a setter a no-op.
    int addTableColumn(const CTableColumn &column);
    bool removeTableColumn(int column);
    void clearTableColumns();
    void setTableColumnCount(int count);
    const CTableColumn &tableColumn(int column) const; // an empty description when out of range
    void setTableColumn(int column, const CTableColumn &description);
    // Width and visibility belong to the view; recording them here announces nothing.
    void setColumnLayout(int column, int width, bool visible);

    // Rows.
    int dataRowCount() const { return static_cast<int>(m_rows.size()); }
    int visibleRowCount() const { return static_cast<int>(m_visible.size()); }
    bool hasRow(int rowId) const { return storageIndexOf(rowId) >= 0; }
    int rowIdAt(int visualRow) const; // -1 for the totals line and outside the table
    int visualRowOf(int rowId) const; // -1 for an unknown, hidden or not yet published row
    QVector<int> rowIds() const;      // in the order the rows were added
    QVector<int> visibleRowIds() const;
    // Changes whenever the set or the order of the visible rows may have changed: an owner that
    // keeps a figure over the visible rows knows when to count it again.
    quint64 visibleRowsVersion() const { return m_visibleVersion; }

    // Appends a row with these values (see setItemValue) and returns its id.
    int appendRow(const QVector<QVariant> &values = QVector<QVariant>());
    // addRowBegin appends an empty row, returns its id and opens a batch that addRowEnd closes.
    // With update false the row shows at the end of the table and the sort, the filters and the
    // totals wait for the next recalcAndUpdate.
    int addRowBegin();
    void addRowEnd(bool update = true);
    // Grows (with empty rows) or shrinks (from the end) the table to this many rows.
    void resizeRows(int count);
    bool removeRowById(int rowId);
    int removeRowsById(const std::set<int> &rowIds);
    void clearRows();

    void beginUpdate();
    void endUpdate();
    bool isUpdating() const { return m_updateDepth > 0; }
    // Publishes what is pending, re-applies filters and sort and recomputes the totals.
    void recalcAndUpdate();

    // Cells. Setters answer false for an unknown row or column.
    // Without a precision or number flags (-1) a number takes its column's.
    bool setItemText(int rowId, int column, const QString &text);
    bool setItemInt(int rowId, int column, qint64 value);
    bool setItemDouble(int rowId, int column, double value, int precision = -1, int numberFlags = -1);
    // Several doubles of one row at once, as setItemDouble would set them one by one; the row
    // is found and announced once.
    struct DoubleCell
    {
        int m_column;
        double m_value;
        int m_precision;
        int m_numberFlags;
    };
    bool setItemDoubles(int rowId, std::initializer_list<DoubleCell> cells);
    // A QString sets a text, an integral type an integer, a floating type a double; an invalid
    // QVariant leaves the cell as it is.
    bool setItemValue(int rowId, int column, const QVariant &value);
    // Text as typed: by the column's format, or the kind of number the cell holds, it is stored
    // as a number when it parses as one (thousands separators allowed), else as text.
    bool setItemFromText(int rowId, int column, const QString &text);
    // Sets the row's cells from the front (setItemValue rules), keeping each cell's precision and
    // number flags; one dataChanged for the cells that changed.
    bool updateRow(int rowId, const QVector<QVariant> &values);

    // A sourced column's values of one row changed, from column left to right: announced as
    // a stored cell's change is (see CTableColumn::m_source).
    void sourcedValuesChanged(int rowId, int left, int right);
    // The same for every row at once: one announcement, however many rows a market round moved.
    void sourcedColumnsChanged(int left, int right);
    // Lights a cell of a flashing column up as a changed value does: direction 1 rose, -1
    // fell, 0 changed. For sourced columns, whose changes the model does not see.
    void flashCell(int rowId, int column, int direction);

    QString itemText(int rowId, int column) const; // as shown
    QVariant itemValue(int rowId, int column) const; // the number, or the text
    // The cell as an editor shows it: numbers plain, without separators or percent sign.
    QString itemEditText(int rowId, int column) const;
    // The number of a cell; a text cell is read as a number, 0 when it is none.
    qint64 itemInt(int rowId, int column) const;
    double itemDouble(int rowId, int column) const;

    void setItemColorKey(int rowId, int column, const QString &key);
    void setRowColorKey(int rowId, const QString &key);
    QString itemColorKey(int rowId, int column) const;
    void setItemEditable(int rowId, int column, bool editable);
    bool isItemEditable(int rowId, int column) const;
    // The check state of the row in a checkable column. Set by the program, no handler is told.
    void setItemChecked(int rowId, int column, bool checked);
    bool isItemChecked(int rowId, int column) const;
    void setAllChecked(int column, bool checked);
    void setRowUserData(int rowId, const QVariant &data);
    QVariant rowUserData(int rowId) const;

    // Sorting: stable, numbers before texts before empty cells, descending the exact reverse.
    // A negative column shows the rows in the order they were added.
    void sortByColumn(int column, Qt::SortOrder order);
    void clearSort() { sortByColumn(-1, Qt::AscendingOrder); }
    int sortColumn() const { return m_sortColumn; }
    Qt::SortOrder sortOrder() const { return m_sortOrder; }

    // Column filters: a row shows when, in every filtered column, its shown text passes the
    // column's set of accepted texts (textPassesFilter). An empty set removes the filter.
    void setColumnFilter(int column, const QSet<QString> &accepted);
    void clearFilter(int column = -1); // -1: all columns
    QMap<int, QSet<QString>> columnFilters() const { return m_filters; }
    // The shown texts of a column over all rows, hidden ones included.
    QSet<QString> distinctTexts(int column) const;
    // A member matches a text containing it, case-insensitively; the empty member matches the
    // empty text only.
    static bool textPassesFilter(const QSet<QString> &accepted, const QString &text);

    // The totals line: the last row, bold, showing per column either the text given by
    // setStatText or, for a summed column, the sum over the visible rows.
    void setTotalsVisible(bool visible);
    bool totalsVisible() const { return m_totalsVisible; }
    void setStatText(int column, const QString &text);
    void clearStatTexts();
    QString statText(int column) const; // what the totals line shows
    double columnSum(int column) const;  // over the visible rows; texts that are no number add 0
    qint64 columnIntSum(int column) const; // the same, each cell read as itemInt reads it

    // Flashing of changed values in flashing columns.
    void setFlashDuration(int msec) { m_flashDuration = msec; }
    int flashDuration() const { return m_flashDuration; }
    bool isFlashing(int rowId, int column) const;
    int flashingCellCount() const { return static_cast<int>(m_flashing.size()); }

    void setEditHandler(EditHandler handler) { m_editHandler = std::move(handler); }
    void setCheckHandler(CheckHandler handler) { m_checkHandler = std::move(handler); }

private:
    // A cell's number: a whole number, a double, or none for a text cell. Plain data rather
    // than a QVariant: a market tick compares and stores tens of thousands of them.
    struct CellNumber
    {
        enum Kind : qint8 { None, Int, Double };
        Kind m_kind = None;
        union {
            qint64 m_int = 0;
            double m_double;
        };

        static CellNumber ofInt(qint64 value)
        {
            CellNumber number;
            number.m_kind = Int;
            number.m_int = value;
            return number;
        }
        static CellNumber ofDouble(double value)
        {
            CellNumber number;
            number.m_kind = Double;
            number.m_double = value;
            return number;
        }
        bool isValid() const { return m_kind != None; }
        bool isDouble() const { return m_kind == Double; }
        double toDouble() const { return m_kind == Double ? m_double : static_cast<double>(m_int); }
        QVariant toVariant() const
        {
            return m_kind == None ? QVariant() : (m_kind == Double ? QVariant(m_double) : QVariant(m_int));
        }
        bool operator==(const CellNumber &other) const
        {
            // The same bits are the same value, a NaN or the no-value mark included.
            if (m_kind != other.m_kind)
                return false;
            if (m_kind == Double)
                return std::memcmp(&m_double, &other.m_double, sizeof(double)) == 0;
            return m_kind == None || m_int == other.m_int;
        }
    };

    struct Cell
    {
        CellNumber m_number; // invalid for a text cell
        QString m_text;
        QString m_colorKey;
        qint32 m_numberFlags = -1; // -1: the column's
        qint8 m_precision = -1;    // -1: the column's
        qint8 m_editable = -1;     // -1: the column's
        bool m_checked = false;
    };
    struct Row
    {
        int m_id = 0;
        std::vector<Cell> m_cells;
        QVariant m_userData;
    };
    struct Flash
    {
        qint64 m_start = -1; // -1: not flashing
        int m_direction = 0; // 1 rose, -1 fell, 0 changed
    };

    int storageIndexOf(int rowId) const
    {
        return rowId >= 0 && static_cast<size_t>(rowId) < m_indexById.size() ? m_indexById[static_cast<size_t>(rowId)] : -1;
    }
    Cell *cell(int rowId, int column);
    const Cell *cell(int rowId, int column) const;
    // The cell of a row as shown: the stored one, or, in a sourced column, one holding the
    // source's value (in scratch).
    const Cell &shownCell(const Row &row, int column, Cell &scratch) const;
    const Cell *shownCell(int rowId, int column, Cell &scratch) const;
    QString cellText(const Cell &cell, int column) const;
    QString editText(const Cell &cell, int column) const;
    bool storeCell(int rowId, int column, Cell &target, const CellNumber &number, const QString &text,
                   int precision, int numberFlags);
    void cellChanged(int rowId, int column);
    void announceRowChange(int rowId, int left, int right, bool summed);
    void announce(int top, int bottom, int left, int right, const QVector<int> &roles = QVector<int>());
    void noteFlash(int rowId, int column, const Cell &before, const CellNumber &number, const QString &text);
    void recordFlash(int rowId, int column, int direction);
    const Flash *flashOf(int rowId, int column) const;
    void clearFlashes();
    void onFlashTimer();

    int createRow();
    void eraseRowsAt(const std::vector<int> &storageIndexes); // ascending
    void rebuildIndex(int from);
    void ensureReset();
    void publish(bool resort);
    void rebuildVisible();
    void rebuildVisualPos();
    bool rowPassesFilters(int storageIndex) const;
    void sortIndexes(std::vector<int> &indexes) const;
    bool lessThan(int a, int b) const;
    void relayout();
    void markTotalsDirty();
    void recomputeTotals() const;

    std::vector<CTableColumn> m_columns;
    std::vector<Row> m_rows;
    // Row id -> index in m_rows, -1 once removed. Ids are handed out densely from 0, so a
    // vector finds a cell without hashing: a load of many rows reads and writes cells by id.
    std::vector<int> m_indexById;
    std::vector<int> m_visible;   // visual row -> index in m_rows
    std::vector<int> m_visualPos; // index in m_rows -> visual row, -1 hidden
    quint64 m_visibleVersion = 0;
    int m_nextId = 0;

    int m_updateDepth = 0;
    bool m_resetStarted = false;
    bool m_relayoutPending = false;
    int m_firstUnpublished = 0; // rows from here on are not yet shown
    int m_dirtyTop = -1;        // visual rows and columns changed within a batch
    int m_dirtyBottom = -1;
    int m_dirtyLeft = -1;
    int m_dirtyRight = -1;

    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    QMap<int, QSet<QString>> m_filters;

    bool m_totalsVisible = false;
    QMap<int, QString> m_statTexts;
    mutable QVector<QString> m_totalsCache;
    mutable bool m_totalsDirty = true;
    mutable bool m_totalsAnnounced = false;

    // Column -> row id -> when the cell changed; allocated for flashing columns only. A market
    // round flashes a cell of every row: slots by id cost no allocation and no hashing per cell.
    std::vector<std::vector<Flash>> m_flashes;
    std::vector<quint64> m_flashing; // (row id << 32 | column) of the cells flashing now
    QTimer m_flashTimer;
    QElapsedTimer m_clock;
    qint64 m_batchClock = -1; // when the open batch first lit a cell up, -1 before
    int m_flashDuration = 800;

    EditHandler m_editHandler;
    CheckHandler m_checkHandler;
};

} // namespace WK
