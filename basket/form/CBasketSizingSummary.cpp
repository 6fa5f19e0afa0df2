#include "CBasketSizingSummary.h"

#include "COpBasketConfirmWidget.h"

#include "CBasketSetting.h"
#include "CCodeOrderParam.h"
#include "CUserConfig.h"
#include "StockKey.h"

#include "COrderParamTable.h"
#include "CTableModel.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QLocale>
#include <QPointer>
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

constexpr int kMargin = 2;

double cents(double value)
{
    return std::round(value * 100.0) / 100.0;
}

// A shown value in whole cents; beyond what a line of any account holds, the cap keeps the sums
// from overflowing.
qint64 centsOf(double value)
{
    if (!std::isfinite(value))
        return 0;
    const double capped = std::max(-1e15, std::min(1e15, value * 100.0));
    return static_cast<qint64>(capped < 0.0 ? capped - 0.5 : capped + 0.5);
}

QString moneyText(double value)
{
    return QLocale(QLocale::Chinese, QLocale::China).toString(value, 'f', 2);
}

QString percent(double value)
{
    return QString::number(value, 'f', 2) + QLatin1Char('%');
}

const QString &noQuoteReason()
{
    static const QString reason = QStringLiteral("无行情");
    return reason;
}

const QString &tooLittleReason()
{
    static const QString reason = QStringLiteral("不足一手或资金不足");
    return reason;
}

} // namespace

struct CBasketSizingSummary::Lines
{
    QVector<Account> m_accounts; // names, line counts and aims; no money, no lines at 0 yet
    // The ticked rows in the order of the table, with their account and their entry.
    std::vector<int> m_ticked;
    std::vector<int> m_tickedAccount;
    std::vector<int> m_tickedEntry; // -1 without drift
    // The rows at 0 of a trading instrument: whether they have a quote, which one may bring,
    // says why. The others' reasons (suspended, limits) are in m_accounts already.
    std::vector<int> m_zero;
    std::vector<int> m_zeroAccount;
    // With drift: one entry per stock key of the ticked rows and of the basket, with the
    // basket's weight of it.
    bool m_withDrift = false;
    std::vector<std::string> m_entryKeys;
    std::vector<double> m_entryWeights;
    double m_weights = 0.0;

    // The sums, in cents as the rows show them: counted once after the gathering, then moved
    // by each row a quote tick changes, so that a tick costs the rows it changed.
    std::vector<int> m_tickOfRow; // row id -> index in m_ticked, -1 when not ticked
    std::vector<qint64> m_tickedCents;
    std::vector<qint64> m_accountCents;
    std::vector<qint64> m_entryCents;
    qint64 m_totalCents = 0;
};

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

    // No layout: the label has a fixed size, set here when the strip's width or the text's line
    // count changes, so that a new text every quote tick does not lay the whole window out anew.
    m_toggle->move(kMargin, 0);
    m_toggle->resize(m_toggle->sizeHint());

    connect(m_toggle, &QToolButton::clicked, this, [this] { setCollapsed(!m_collapsed); });
    connect(m_refreshTimer, &QTimer::timeout, this, &CBasketSizingSummary::refresh);

    refresh();
}

CBasketSizingSummary::~CBasketSizingSummary() = default;

void CBasketSizingSummary::setTable(COpBasketConfirmWidget *table)
{
    m_table = table;
    m_lines.reset();
    if (!table || !table->table())
        return;
    // Quote ticks and reloads reach the strip as changes of the table's model; many changes in
    // one pass of the event loop make one refresh.
    // The strip may go before the table, or follow another table later.
    table->setCostListener([strip = QPointer<CBasketSizingSummary>(this), table](const COpBasketConfirmWidget::CostMoves &moves) {
        if (strip && strip->m_table == table)
            strip->costsMoved(moves);
    });
    const QAbstractItemModel *model = table->table()->model();
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles) {
                // A flash that ends or a row's colour changes no value: a live market would
                // otherwise read every line twice a tick.
                const bool coloursOnly = !roles.isEmpty() && std::all_of(roles.begin(), roles.end(), [](int role) {
                    return role == Qt::BackgroundRole || role == Qt::ForegroundRole;
                });
                // The totals line, last of all rows, is the table's own sum, not a line.
                if (coloursOnly || topLeft.data(WK::CTableModel::TotalsLineRole).toBool())
                    return;
                // A quote tick moves the value columns alone: the lines stay as gathered.
                if (topLeft.column() >= W::COL_LAST_PRICE && bottomRight.column() <= W::COL_COST)
                    scheduleRefresh();
                else
                    linesChanged();
            });
    connect(model, &QAbstractItemModel::modelReset, this, &CBasketSizingSummary::linesChanged);
    connect(model, &QAbstractItemModel::rowsInserted, this, &CBasketSizingSummary::linesChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &CBasketSizingSummary::linesChanged);
    connect(model, &QAbstractItemModel::layoutChanged, this, &CBasketSizingSummary::linesChanged);
    linesChanged();
}

std::unique_ptr<CBasketSizingSummary::Lines> CBasketSizingSummary::gather(const COpBasketConfirmWidget &widget,
                                                                          const QString &basketName,
                                                                          const QMap<QString, double> &aimed)
{
    auto lines = std::make_unique<Lines>();
    const WK::CBaseNormalTable *table = widget.table();
    if (!table)
        return lines;
    const CUserConfig *config = getUserConfig();
    const auto basket = config ? config->baskets().constFind(basketName) : QMap<QString, CBasketSetting>::const_iterator();
    lines->m_withDrift = config && basket != config->baskets().constEnd();
    std::map<const ttservice::CAccountInfo *, int> accountIndex;
    std::map<std::string, int> accountOfKey;
    std::unordered_map<std::string, int> entryOfKey;
    auto entryOf = [&lines, &entryOfKey](const std::string &key) {
        const auto found = entryOfKey.emplace(key, static_cast<int>(lines->m_entryKeys.size()));
        if (found.second) {
            lines->m_entryKeys.push_back(key);
            lines->m_entryWeights.push_back(0.0);
        }
        return found.first->second;
    };
    // Stock keys are made once per instrument of the table, not once per line.
    std::vector<int> entryOfInstrument(lines->m_withDrift ? static_cast<size_t>(widget.instrumentCount()) : 0, -1);
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
                byKey = accountOfKey.emplace(key, lines->m_accounts.size()).first;
                lines->m_accounts.push_back(Account());
                lines->m_accounts.back().m_account = table->itemText(rowId, W::COL_ACCOUNT);
                lines->m_accounts.back().m_aimed = aimed.value(lines->m_accounts.back().m_account, -1.0);
            }
            found = accountIndex.emplace(param->m_account.get(), byKey->second).first;
        }
        const int account = found->second;
        ++lines->m_accounts[account].m_lines;
        if (param->m_volume == 0 && !(ttservice::hasValue(param->m_money) && param->m_money > 0.0)) {
            const QString status = table->itemText(rowId, W::COL_STATUS);
            if (status != W::getStatusString(W::OCFS_NORMAL)) {
                ++lines->m_accounts[account].m_zeroLines[status];
            } else {
                lines->m_zero.push_back(rowId);
                lines->m_zeroAccount.push_back(account);
            }
        }
        if (!table->isItemChecked(rowId, W::COL_CHECK))
            continue;
        int entry = -1;
        if (lines->m_withDrift) {
            const int instrument = widget.instrumentOfRow(rowId, *param);
            if (instrument >= 0 && static_cast<size_t>(instrument) < entryOfInstrument.size()) {
                int &known = entryOfInstrument[static_cast<size_t>(instrument)];
                if (known < 0)
                    known = entryOf(widget.instrumentKey(instrument));
                entry = known;
            } else {
                entry = entryOf(utils::vqStockKey(param->m_stockInfo.m_market, param->m_stockInfo.m_stockCode));
            }
        }
        lines->m_ticked.push_back(rowId);
        lines->m_tickedAccount.push_back(account);
        lines->m_tickedEntry.push_back(entry);
    }
    if (lines->m_withDrift) {
        for (const CBasketStockData &row : basket->m_stocks) {
            const int entry = entryOf(utils::vqStockKey(row.m_market.toStdString(), row.m_stockCode.toStdString()));
            lines->m_entryWeights[static_cast<size_t>(entry)] += row.m_weight;
            lines->m_weights += row.m_weight;
        }
    }
    return lines;
}

CBasketSizingSummary::Summary CBasketSizingSummary::sum(const COpBasketConfirmWidget &widget, const Lines &lines)
{
    Summary summary;
    summary.m_accounts = lines.m_accounts;
    const WK::CBaseNormalTable *table = widget.table();
    if (!table)
        return summary;
    std::vector<std::pair<int, int>> quoted(static_cast<size_t>(summary.m_accounts.size())); // no quote, quote
    for (size_t i = 0; i < lines.m_zero.size(); ++i) {
        std::pair<int, int> &count = quoted[static_cast<size_t>(lines.m_zeroAccount[i])];
        ++(widget.showsPrice(lines.m_zero[i]) ? count.second : count.first);
    }
    for (int account = 0; account < summary.m_accounts.size(); ++account) {
        const std::pair<int, int> &count = quoted[static_cast<size_t>(account)];
        if (count.first > 0)
            summary.m_accounts[account].m_zeroLines[noQuoteReason()] += count.first;
        if (count.second > 0)
            summary.m_accounts[account].m_zeroLines[tooLittleReason()] += count.second;
    }

    for (int account = 0; account < summary.m_accounts.size(); ++account)
        summary.m_accounts[account].m_money = static_cast<double>(lines.m_accountCents[static_cast<size_t>(account)]) / 100.0;
    const double total = static_cast<double>(lines.m_totalCents) / 100.0;
    if (!lines.m_withDrift || total <= 0.0 || lines.m_weights <= 0.0)
        return summary;

    // How far the sized values are from the basket's weights: half the sum of absolute
    // differences, and the largest single one.
    double drifts = 0.0;
    const std::string *largest = nullptr;
    for (size_t entry = 0; entry < lines.m_entryCents.size(); ++entry) {
        const double value = static_cast<double>(lines.m_entryCents[entry]) / 100.0;
        const double drift = std::fabs(value / total - lines.m_entryWeights[entry] / lines.m_weights) * 100.0;
        drifts += drift;
        const std::string &key = lines.m_entryKeys[entry];
        if (!largest || drift > summary.m_largestDrift || (drift == summary.m_largestDrift && key < *largest)) {
            summary.m_largestDrift = drift;
            largest = &key;
        }
    }
    summary.m_largestKey = largest ? QString::fromStdString(*largest) : QString();
    summary.m_hasDrift = true;
    summary.m_drift = drifts / 2.0;
    return summary;
}

CBasketSizingSummary::Summary CBasketSizingSummary::compute(const COpBasketConfirmWidget &widget, const QString &basketName,
                                                            const QMap<QString, double> &aimed)
{
    const std::unique_ptr<Lines> lines = gather(widget, basketName, aimed);
    count(widget, *lines);
    return sum(widget, *lines);
}

void CBasketSizingSummary::count(const COpBasketConfirmWidget &widget, Lines &lines)
{
    lines.m_tickedCents.assign(lines.m_ticked.size(), 0);
    lines.m_accountCents.assign(static_cast<size_t>(lines.m_accounts.size()), 0);
    lines.m_entryCents.assign(lines.m_entryKeys.size(), 0);
    lines.m_totalCents = 0;
    lines.m_tickOfRow.clear();
    for (size_t i = 0; i < lines.m_ticked.size(); ++i) {
        const size_t row = static_cast<size_t>(lines.m_ticked[i]);
        if (row >= lines.m_tickOfRow.size())
            lines.m_tickOfRow.resize(row + 1, -1);
        lines.m_tickOfRow[row] = static_cast<int>(i);
        move(lines, i, widget.shownCost(lines.m_ticked[i]));
    }
}

void CBasketSizingSummary::move(Lines &lines, size_t ticked, double value)
{
    const qint64 now = centsOf(value);
    const qint64 change = now - lines.m_tickedCents[ticked];
    lines.m_tickedCents[ticked] = now;
    lines.m_accountCents[static_cast<size_t>(lines.m_tickedAccount[ticked])] += change;
    if (lines.m_tickedEntry[ticked] >= 0)
        lines.m_entryCents[static_cast<size_t>(lines.m_tickedEntry[ticked])] += change;
    lines.m_totalCents += change;
}

void CBasketSizingSummary::costsMoved(const COpBasketConfirmWidget::CostMoves &moves)
{
    if (!m_lines)
        return;
    const std::vector<int> &tickOfRow = m_lines->m_tickOfRow;
    for (const std::pair<int, double> &moved : moves) {
        const size_t row = static_cast<size_t>(moved.first);
        if (row < tickOfRow.size() && tickOfRow[row] >= 0)
            move(*m_lines, static_cast<size_t>(tickOfRow[row]), moved.second);
    }
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
    linesChanged();
}

void CBasketSizingSummary::setAimedMoney(const QMap<QString, double> &aimed)
{
    m_aimed = aimed;
    linesChanged();
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
    if (m_table && !m_lines) {
        m_lines = gather(*m_table, m_basketName, m_aimed);
        count(*m_table, *m_lines);
    }
    const Summary summary = m_table ? sum(*m_table, *m_lines) : Summary();
    QString text = lineText(summary);
    if (!m_collapsed) {
        const QStringList details = detailTexts(summary);
        if (!details.isEmpty())
            text += QLatin1Char('\n') + details.join(QLatin1Char('\n'));
    }
    m_label->setText(text);
    // The text's height changes with its line count alone; measuring it at every tick would lay
    // the text out twice.
    const int lineCount = text.count(QLatin1Char('\n')) + 1;
    if (lineCount != m_labelLines) {
        m_labelLines = lineCount;
        // The label's own measure, which its fixed size would hold up.
        m_label->setMinimumSize(0, 0);
        m_label->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        m_labelHeight = m_label->sizeHint().height();
        placeLabel();
        updateGeometry();
    }
}

void CBasketSizingSummary::placeLabel()
{
    const int left = kMargin + m_toggle->width() + kMargin;
    m_label->setFixedSize(std::max(0, width() - left - kMargin), m_labelHeight);
    m_label->move(left, 0);
}

QSize CBasketSizingSummary::sizeHint() const
{
    return QSize(kMargin + m_toggle->width() + kMargin + m_label->sizeHint().width() + kMargin, minimumSizeHint().height());
}

QSize CBasketSizingSummary::minimumSizeHint() const
{
    return QSize(kMargin + m_toggle->width() + kMargin, std::max(m_toggle->height(), m_labelHeight));
}

void CBasketSizingSummary::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeLabel();
}

void CBasketSizingSummary::linesChanged()
{
    m_lines.reset();
    scheduleRefresh();
}

void CBasketSizingSummary::scheduleRefresh()
{
    m_refreshTimer->start();
}

} // namespace TC
