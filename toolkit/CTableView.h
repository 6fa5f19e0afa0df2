#pragma once

#include "BasketToolkitExport.h"

#include <QTableView>

namespace WK {

// The view of the toolkit's tables. A change of many cells repaints only the part of the
// viewport those cells cover: Qt's own view repaints the whole viewport for any change of more
// than one cell, so a market that moves one column of every row would repaint every column.
class BASKET_TOOLKIT_EXPORT CTableView final : public QTableView
{
    Q_OBJECT

public:
    explicit CTableView(QWidget *parent = nullptr);

    // The viewport rectangle that the cells from topLeft to bottomRight cover, cut to the
    // viewport; empty when none of them is in view.
    QRect changedRect(const QModelIndex &topLeft, const QModelIndex &bottomRight) const;

protected:
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
};

} // namespace WK
