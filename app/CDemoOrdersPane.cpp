#include "CDemoOrdersPane.h"

#include <QHeaderView>

QString CDemoOrdersPane::statusText(TC::EOrderLineStatus status)
{
    switch (status) {
    case TC::EOrderLineStatus::Sent: return QStringLiteral("已发送");
    case TC::EOrderLineStatus::Unknown: return QStringLiteral("状态未知");
    case TC::EOrderLineStatus::Acknowledged: return QStringLiteral("已报");
    case TC::EOrderLineStatus::PartlyFilled: return QStringLiteral("部分成交");
    case TC::EOrderLineStatus::Filled: return QStringLiteral("全部成交");
    case TC::EOrderLineStatus::Rejected: return QStringLiteral("废单");
    case TC::EOrderLineStatus::Cancelled: return QStringLiteral("已撤");
    }
    return QString();
}

CDemoOrdersPane::CDemoOrdersPane(QWidget *parent)
    : QTableWidget(0, 10, parent)
{
    setObjectName(QStringLiteral("orders_pane"));
    setHorizontalHeaderLabels({QStringLiteral("委托号"), QStringLiteral("账户"), QStringLiteral("代码"),
                               QStringLiteral("方向"), QStringLiteral("数量"), QStringLiteral("价格"),
                               QStringLiteral("状态"), QStringLiteral("成交量"), QStringLiteral("成交均价"),
                               QStringLiteral("说明")});
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
}

void CDemoOrdersPane::showLines(const std::vector<TC::COrderLineState> &lines)
{
    setUpdatesEnabled(false);
    for (const TC::COrderLineState &line : lines) {
        const QString id = QString::fromStdString(line.m_clOrdId);
        auto found = m_rows.constFind(id);
        int row = 0;
        if (found == m_rows.constEnd()) {
            row = rowCount();
            insertRow(row);
            m_rows.insert(id, row);
        } else {
            row = found.value();
        }
        const QString cells[] = {
            id,
            QString::fromStdString(line.m_accountKey),
            QString::fromStdString(line.m_market + "." + line.m_code),
            line.m_buy ? QStringLiteral("买") : QStringLiteral("卖"),
            QString::number(line.m_orderQty, 'f', 0),
            line.m_price > 0 ? QString::number(line.m_price, 'f', 3) : QStringLiteral("市价"),
            statusText(line.m_status),
            QString::number(line.m_cumQty, 'f', 0),
            line.m_cumQty > 0 ? QString::number(line.m_avgPx, 'f', 3) : QString(),
            QString::fromStdString(line.m_text),
        };
        for (int column = 0; column < 10; ++column) {
            QTableWidgetItem *cell = item(row, column);
            if (!cell)
                setItem(row, column, new QTableWidgetItem(cells[column]));
            else if (cell->text() != cells[column])
                cell->setText(cells[column]);
        }
    }
    setUpdatesEnabled(true);
}
