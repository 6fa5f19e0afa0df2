#include "CBasketSizingSummary.h"

#include "COpBasketConfirmWidget.h"

#include "CBasketSetting.h"
#include "CCodeOrderParam.h"
#include "CUserConfig.h"
#include "StockKey.h"

#include "COrderParamTable.h"
#include "CTableModel.h"

#include <QAbstractItemModel>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace TC {
namespace {

using W = COpBasketConfirmWidget;

double cents(double value)
{
    return std::round(value * 100.0) / 100.0;
}

QString moneyText(double value)
{
    return QLocale(QLocale::Chinese, QLocale::China).toString(value, 'f', 2);
}

QString percent(double value)
{
    return QString::number(value, 'f', 2) + QLatin1Char('%');
}

// Why a line came out at 0, as the table's status and price columns show it.
QString zeroReason(const WK::CBaseNormalTable &table, int rowId)
{
    const QString status = table.itemText(rowId, W::COL_STATUS);
    if (status != W::getStatusString(W::OCFS_NORMAL))
        return status;
    const QString last = table.itemText(rowId, W::COL_LAST_PRICE);
    if (last.isEmpty() || last == QStringLiteral("-"))
        return QStringLiteral("无行情");
    return QStringLiteral("不足一手或资金不足");
}

// How far the sized values (first of each pair, of the total) are from the basket's weights:
// half the sum of absolute differences, and the largest single one.
void settleDrift(CBasketSizingSummary::Summary &summary, std::unordered_map<std::string, std::pair<double, double>> &byKey,
                 double total, const QList<CBasketStockData> &stocks)
{
    double weights = 0.0;
    for (const CBasketStockData &row : stocks) {
        byKey[utils::vqStockKey(row.m_market.toStdString(), row.m_stockCode.toStdString())].second += row.m_weight;
        weights += row.m_weight;
    }
    if (weights <= 0.0)
        return;
    double sum = 0.0;
    const std::string *largest = nullptr;
    for (const auto &entry : byKey) {
        const double drift = std::fabs(entry.second.first / total - entry.second.second / weights) * 100.0;
        sum += drift;
        if (!largest || drift > summary.m_largestDrift || (drift == summary.m_largestDrift && entry.first < *largest)) {
            summary.m_largestDrift = drift;
            largest = &entry.first;
        }
    }
    summary.m_largestKey = largest ? QString::fromStdString(*largest) : QString();
    summary.m_hasDrift = true;
    summary.m_drift = sum / 2.0;
}

} // namespace

CBasketSizingSummary::CBasketSizingSummary(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("basket_sizing_summary"));
    m_toggle = new QToolButton(this);
    m_label = new QLabel(this);
    m_refreshTimer = new QTimer(this);

    m_toggle->setArrowType(Qt::RightArrow);
    m_toggle->setAutoRaise(true);
    m_toggle->setToolTip(QStringLiteral("展开或收起"));
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_refreshTimer->setSingleShot(true);
    m_refreshTimer->setInterval(0);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(2, 0, 2, 0);
    row->setSpacing(2);
    row->addWidget(m_toggle, 0, Qt::AlignTop);
    row->addWidget(m_label, 1);

    connect(m_toggle, &QToolButton::clicked, this, [this] { setCollapsed(!m_collapsed); });
    connect(m_refreshTimer, &QTimer::timeout, this, &CBasketSizingSummary::refresh);

    refresh();
}

CBasketSizingSummary::~CBasketSizingSummary() = default;

void CBasketSizingSummary::setTable(COpBasketConfirmWidget *table)
{
    m_table = table;
    if (!table || !table->table())
        return;
    // Quote ticks and reloads reach the strip as changes of the table's model; many changes in
    // one pass of the event loop make one refresh.
    const QAbstractItemModel *model = table->table()->model();
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                // A flash that ends or a row's colour changes no value: a live market would
                // otherwise read every line twice a tick.
                const bool coloursOnly = !roles.isEmpty() && std::all_of(roles.begin(), roles.end(), [](int role) {
                    return role == Qt::BackgroundRole || role == Qt::ForegroundRole;
                });
                if (!coloursOnly)
                    scheduleRefresh();
            });
    connect(model, &QAbstractItemModel::modelReset, this, &CBasketSizingSummary::scheduleRefresh);
    connect(model, &QAbstractItemModel::rowsInserted, this, &CBasketSizingSummary::scheduleRefresh);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &CBasketSizingSummary::scheduleRefresh);
    connect(model, &QAbstractItemModel::layoutChanged, this, &CBasketSizingSummary::scheduleRefresh);
    scheduleRefresh();
}

CBasketSizingSummary::Summary CBasketSizingSummary::compute(const COpBasketConfirmWidget &widget, const QString &basketName,
                                                            const QMap<QString, double> &aimed)
{
    Summary summary;
    const WK::CBaseNormalTable *table = widget.table();
    if (!table)
        return summary;
    const CUserConfig *config = getUserConfig();
    const bool withDrift = config && config->baskets().contains(basketName);
    // Read at every tick over every line: the line gives its account and instrument without
    // making text, the table the cells that change (tick, value, status).
    std::map<const ttservice::CAccountInfo *, int> accountIndex;
    std::map<std::string, int> accountOfKey;
    // By the table's instrument, the sized value of its ticked lines and whether it has any; lines
    // without an instrument of the table by their key. Stock keys are made once per instrument,
    // not once per line at every tick.
    const size_t instruments = withDrift ? static_cast<size_t>(widget.instrumentCount()) : 0;
    std::vector<double> byInstrument(instruments, 0.0);
    std::vector<char> instrumentTicked(instruments, 0);
    // By stock key: the sized value, then the basket's weight.
    std::unordered_map<std::string, std::pair<double, double>> byKey;
    double total = 0.0;
    for (int visual = 0; visual < table->rowCount(); ++visual) {
        const int rowId = table->rowID(visual);
        const ttservice::CCodeOrderParam *param = widget.getParamByRowIndex(visual);
        if (!param)
            continue;
        auto found = accountIndex.find(param->m_account.get());
        if (found == accountIndex.end()) {
            // Lines of one account may carry copies of its record (a position list, an
            // instruction): the account is one by its key, not by the record it came with.
            const std::string key = param->m_account ? param->m_account->getKey() : std::string();
            auto byKey = accountOfKey.find(key);
            if (byKey == accountOfKey.end()) {
                byKey = accountOfKey.emplace(key, summary.m_accounts.size()).first;
                summary.m_accounts.push_back(Account());
                summary.m_accounts.back().m_account = table->itemText(rowId, W::COL_ACCOUNT);
                summary.m_accounts.back().m_aimed = aimed.value(summary.m_accounts.back().m_account, -1.0);
            }
            found = accountIndex.emplace(param->m_account.get(), byKey->second).first;
        }
        Account &line = summary.m_accounts[found->second];
        ++line.m_lines;
        if (param->m_volume == 0 && !(ttservice::hasValue(param->m_money) && param->m_money > 0.0))
            ++line.m_zeroLines[zeroReason(*table, rowId)];
        if (!table->isItemChecked(rowId, W::COL_CHECK))
            continue;
        // A value not known yet shows "-" and reads as 0.
        const double value = cents(table->itemDouble(rowId, W::COL_COST));
        line.m_money = cents(line.m_money + value);
        total += value;
        if (!withDrift)
            continue;
        const int instrument = widget.instrumentOfRow(rowId, *param);
        if (instrument >= 0 && static_cast<size_t>(instrument) < instruments) {
            byInstrument[static_cast<size_t>(instrument)] += value;
            instrumentTicked[static_cast<size_t>(instrument)] = 1;
        } else {
            byKey[utils::vqStockKey(param->m_stockInfo.m_market, param->m_stockInfo.m_stockCode)].first += value;
        }
    }
    for (size_t instrument = 0; instrument < instruments; ++instrument) {
        if (instrumentTicked[instrument])
            byKey[widget.instrumentKey(static_cast<int>(instrument))].first += byInstrument[instrument];
    }

    if (withDrift && total > 0.0)
        settleDrift(summary, byKey, total, config->baskets().constFind(basketName)->m_stocks);
    return summary;
}

QString CBasketSizingSummary::lineText(const Summary &summary)
{
    if (summary.m_accounts.isEmpty())
        return QStringLiteral("无委托");
    double money = 0.0;
    int zero = 0;
    for (const Account &account : summary.m_accounts) {
        money += account.m_money;
        for (const int count : account.m_zeroLines)
            zero += count;
    }
    QString text = QStringLiteral("%1 个账户，勾选市值 %2 元，数量为 0 的 %3 行")
                       .arg(summary.m_accounts.size())
                       .arg(moneyText(cents(money)))
                       .arg(zero);
    if (summary.m_hasDrift)
        text += QStringLiteral("；与篮子权重偏离 %1（最大 %2 %3）")
                    .arg(percent(summary.m_drift), summary.m_largestKey, percent(summary.m_largestDrift));
    return text;
}

QStringList CBasketSizingSummary::detailTexts(const Summary &summary)
{
    QStringList lines;
    for (const Account &account : summary.m_accounts) {
        QStringList reasons;
        for (auto it = account.m_zeroLines.cbegin(); it != account.m_zeroLines.cend(); ++it)
            reasons << QStringLiteral("%1 %2 行").arg(it.key()).arg(it.value());
        // What the sizing meant for the account beside what its lines come to: the rest is the
        // money whole lots and the lines at 0 left unspent (negative where the lines cost more).
        const QString aimed = account.m_aimed < 0.0
            ? QString()
            : QStringLiteral("，目标 %1 元，剩余 %2 元")
                  .arg(moneyText(cents(account.m_aimed)), moneyText(cents(account.m_aimed - account.m_money)));
        lines << QStringLiteral("%1：%2 行，勾选市值 %3 元%4%5")
                     .arg(account.m_account.isEmpty() ? QStringLiteral("-") : account.m_account)
                     .arg(account.m_lines)
                     .arg(moneyText(account.m_money), aimed)
                     .arg(reasons.isEmpty() ? QString() : QStringLiteral("；数量为 0：") + reasons.join(QStringLiteral("，")));
    }
    return lines;
}

void CBasketSizingSummary::setBasketName(const QString &name)
{
    m_basketName = name;
    scheduleRefresh();
}

void CBasketSizingSummary::setAimedMoney(const QMap<QString, double> &aimed)
{
    m_aimed = aimed;
    scheduleRefresh();
}

void CBasketSizingSummary::setCollapsed(bool collapsed)
{
    m_collapsed = collapsed;
    m_toggle->setArrowType(collapsed ? Qt::RightArrow : Qt::DownArrow);
    refresh();
}

QString CBasketSizingSummary::text() const
{
    return m_label->text();
}

void CBasketSizingSummary::refresh()
{
    const Summary summary = m_table ? compute(*m_table, m_basketName, m_aimed) : Summary();
    QString text = lineText(summary);
    if (!m_collapsed) {
        const QStringList details = detailTexts(summary);
        if (!details.isEmpty())
            text += QLatin1Char('\n') + details.join(QLatin1Char('\n'));
    }
    m_label->setText(text);
}

void CBasketSizingSummary::scheduleRefresh()
{
    m_refreshTimer->start();
}

} // namespace TC
