#include "CTableView.h"

#include <QHeaderView>

#include <algorithm>

namespace WK {

CTableView::CTableView(QWidget *parent)
    : QTableView(parent)
{
}

QRect CTableView::changedRect(const QModelIndex &topLeft, const QModelIndex &bottomRight) const
{
    const QRect area = viewport()->rect();
    // Rows keep their order on screen; columns may have been dragged, so the covered band is
    // that of the visible columns of the range, wherever they stand.
    int left = area.right() + 1;
    int right = -1;
    for (int column = topLeft.column(); column <= bottomRight.column(); ++column) {
        if (isColumnHidden(column))
            continue;
        const int x = columnViewportPosition(column);
        left = std::min(left, x);
        right = std::max(right, x + columnWidth(column) - 1);
    }
    if (right < left)
        return QRect();
    const int top = rowViewportPosition(topLeft.row());
    const int bottom = rowViewportPosition(bottomRight.row()) + rowHeight(bottomRight.row()) - 1;
    // The grid line under and right of a cell belongs to it.
    return QRect(QPoint(left, top), QPoint(right + 1, bottom + 1)).intersected(area);
}

void CTableView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles)
{
    // An open editor and a single cell take Qt's own road.
    if (state() == EditingState || topLeft == bottomRight || !topLeft.isValid() || !bottomRight.isValid()
        || topLeft.row() > bottomRight.row() || topLeft.column() > bottomRight.column()) {
        QTableView::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    if (!isVisible())
        return;
    const QRect rect = changedRect(topLeft, bottomRight);
    if (!rect.isEmpty())
        viewport()->update(rect);
}

} // namespace WK
