#pragma once

#include "COrderLineState.h"

#include <QHash>
#include <QTableWidget>

// The demo's orders pane: one row per order line sent over the route, updated in place as its
// acknowledgement, fills or reject come back.
class CDemoOrdersPane final : public QTableWidget
{
    Q_OBJECT

public:
    explicit CDemoOrdersPane(QWidget *parent = nullptr);

    // The state as the pane and the order log word it.
    static QString statusText(TC::EOrderLineStatus status);

public Q_SLOTS:
    void showLines(const std::vector<TC::COrderLineState> &lines);

private:
    QHash<QString, int> m_rows; // by ClOrdID
};
