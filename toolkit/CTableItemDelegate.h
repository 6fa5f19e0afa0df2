#pragma once

#include "BasketToolkitExport.h"

#include <QColor>
#include <QHash>
#include <QPointer>
#include <QStyledItemDelegate>

class QValidator;

namespace WK {

// Draws and edits the cells of a CTableModel: bold columns and the totals line in bold, colour
// keys kept on selected rows, a check box alone in its cell drawn in the middle and toggled by
// a click anywhere in the cell, and a line edit with the column's validator as editor.
class BASKET_TOOLKIT_EXPORT CTableItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CTableItemDelegate(QObject *parent = nullptr);
    ~CTableItemDelegate() override;

    // The delegate owns the validator; null removes the column's validator.
    void setColumnValidator(int column, QValidator *validator);
    QValidator *columnValidator(int column) const;
    // Keeps the validators with their columns when a column is removed.
    void columnRemoved(int column);
    void clearValidators();

    // Grid lines under and right of every cell, drawn with the cell. Cheaper than the view's
    // own grid, which costs more than the text of a column when a tick repaints it.
    void setGridLines(bool on, const QColor &color);
    bool gridLines() const { return m_gridLines; }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

private:
    static bool isLoneCheckBox(const QModelIndex &index);
    void paintCell(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintText(QPainter *painter, const QStyleOptionViewItem &opt) const;

    QHash<int, QPointer<QValidator>> m_validators;
    bool m_gridLines = false;
    QColor m_gridColor;
};

} // namespace WK
