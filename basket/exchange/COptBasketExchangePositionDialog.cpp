#include "COptBasketExchangePositionDialog.h"

#include "CExChangeBasketTable.h"
#include "CExchangePositionAccountTreeWidget.h"
#include "CExchangePositionTable.h"
#include "COpBasketsExchangePositionWidget.h"

#include "CAccountData.h"
#include "CPushButton.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "TradeUnits.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace TC {
namespace {

constexpr int kLong = 48;
constexpr int kShort = 49;

CPositionParam lineOf(const CBasketStockData &row, const COptBasketExchangePositionDialog::CExchangeTarget &to)
{
    CPositionParam line;
    line.m_account = to.m_account;
    line.m_market = row.m_market;
    line.m_stockCode = row.m_stockCode;
    line.m_stockName = row.m_stockName;
    line.m_positionAttr = to.m_positionAttr;
    line.m_positionId = to.m_positionId;
    line.m_extraKey = to.m_extraKey;
    return line;
}

int minUnitOf(const CBasketStockData &row)
{
    // A unit of 0 from the instrument service would stop every division: trade single units.
    return std::max(1, ttservice::getTradeMinUnit(row.m_market.toStdString(), row.m_stockCode.toStdString()));
}

int64_t roundDown(int64_t volume, int unit)
{
    return (volume / unit) * unit;
}

// The index of row in target, sorted by basketStockLessThan, by bisection; -1 if it is not there.
int findSorted(const QVector<CBasketStockData> &target, const CBasketStockData &row)
{
    int low = 0;
    int high = target.size() - 1;
    while (low < high) {
        const int mid = (low + high) / 2;
        const int c = CBasketStockCompareTraits::compare(target.at(mid), row);
        if (c > 0)
            high = mid - 1;
        else if (c < 0)
            low = mid + 1;
        else
            return mid;
    }
    if (low == high && CBasketStockCompareTraits::compare(target.at(low), row) == 0)
        return low;
    return -1;
}

void addFutureLine(QVector<CPositionParam> &lines, const CBasketStockData &row, const QString &code, int64_t volume,
                   int operation, const COptBasketExchangePositionDialog::CExchangeTarget &to)
{
    if (volume == 0)
        return;
    CPositionParam line = lineOf(row, to);
    line.m_stockCode = code;
    line.m_volume = volume;
    line.m_oneKeyOperation = operation;
    lines.push_back(line);
}

int openOperation(int side)
{
    return side == ttservice::OT_BUY ? ttservice::OT_OPEN_LONG : 3;
}

int closeOperation(int direction)
{
    return direction == kShort ? 15 : 14;
}

} // namespace

COptBasketExchangePositionDialog::COptBasketExchangePositionDialog(QWidget *parent, quint64 word)
    : WK::CCommonDialog(parent)
    , m_tradeOpType(word)
{
    createUi();
    setTitle(QStringLiteral("调仓"));
    resize(1300, 500);
}

COptBasketExchangePositionDialog::~COptBasketExchangePositionDialog() = default;

void COptBasketExchangePositionDialog::createUi()
{
    auto *content = new WK::CBaseWidget(QStringLiteral("exchange_position_widget"), false, this);
    m_exchangeWidget = new COpBasketsExchangePositionWidget(content, m_tradeOpType);

    auto *row = new WK::CWidgetList(Qt::Horizontal, content);
    row->setMargin(0, 0, 0, 0);
    row->setSpacing(0);
    auto *okButton = new WK::CPushButton(OK_ID, QStringLiteral("确定"), row);
    auto *cancelButton = new WK::CPushButton(CANCEL_ID, QStringLiteral("取消"), row);
    for (WK::CPushButton *button : {okButton, cancelButton}) {
        button->setImageKey(QStringLiteral("img_btn_small_normal"));
        button->setFixedSize(60, 23);
        // Return ends an edit in the tables and cells; it must not confirm the exchange too.
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    row->addStretchSpace(1);
    row->addFixedWidget(okButton, 0, 0);
    row->addFixedSpace(5);
    row->addFixedWidget(cancelButton, 0, 0);
    row->addFixedSpace(5);

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_exchangeWidget, 1);
    layout->addSpacing(5);
    layout->addWidget(row);
    layout->addSpacing(8);
    setInnerWidget(content);

    connect(m_exchangeWidget, &COpBasketsExchangePositionWidget::sig_bascketChange, this,
            &COptBasketExchangePositionDialog::sig_bascketChange);
}

void COptBasketExchangePositionDialog::setAccount(const QSet<QString> &accounts, const QSet<QString> &selected)
{
    if (!accounts.isEmpty())
        m_exchangeWidget->getAccountTree()->setAccounts(accounts, selected);
}

void COptBasketExchangePositionDialog::setTradeOperationType(quint64 word)
{
    m_tradeOpType = word;
    m_exchangeWidget->setTradeOperationType(word);
}

void COptBasketExchangePositionDialog::setBrokerType(ttservice::EVQBrokerType type)
{
    m_exchangeWidget->setBrokerType(type);
}

void COptBasketExchangePositionDialog::setBasketStockList(const QList<CBasketStockData> &list, int flag)
{
    m_exchangeWidget->getBasketTable()->setBasketStockList(list, flag);
}

void COptBasketExchangePositionDialog::addOneBascketData(const ttservice::CStockInfo &stock)
{
    ttservice::CStockInfo row;
    row.m_market = stock.m_market;
    row.m_stockCode = stock.m_stockCode;
    row.m_stockName = stock.m_stockName;
    m_exchangeWidget->getBasketTable()->addOneBascketData(row);
}

void COptBasketExchangePositionDialog::getExchangePositionParam(QVector<CPositionParam> &result) const
{
    result.clear();
    // The account whose positions the tables show, so that every line is the one the user saw.
    const auto account = m_exchangeWidget->account();
    const auto info = account ? account->getAccountInfo() : boost::shared_ptr<ttservice::CAccountInfo>();
    if (!info)
        return;
    CExchangeTarget to;
    to.m_account = info.get();
    QString name;
    QString code;
    m_exchangeWidget->getPositionTable()->getPortfolioData(to.m_positionAttr, name, code);
    to.m_positionId = name;
    to.m_extraKey = code.toStdString();

    const CExchangePositionTable *positions = m_exchangeWidget->getPositionTable();
    const CExChangeBasketTable *basket = m_exchangeWidget->getBasketTable();
    if (m_tradeOpType != 16384) {
        QVector<CBasketStockData> held;
        QVector<CBasketStockData> target;
        positions->getBasketStockParam(held);
        basket->getBasketStockParam(target);
        result = calcStockExchange(held, target, to);
        return;
    }
    QMap<QString, QMap<int, CBasketStockData>> heldMap;
    QMap<QString, QMap<int, CBasketStockData>> targetMap;
    positions->getBasketStockParam(heldMap);
    basket->getBasketStockParam(targetMap);
    result = calcFutureExchange(heldMap, targetMap, to);
}

QVector<CPositionParam> COptBasketExchangePositionDialog::calcStockExchange(const QVector<CBasketStockData> &held,
                                                                            QVector<CBasketStockData> target,
                                                                            const CExchangeTarget &to)
{
    QVector<CPositionParam> lines;
    std::sort(target.begin(), target.end(), basketStockLessThan);
    for (const CBasketStockData &row : held) {
        CPositionParam line = lineOf(row, to);
        const int unit = minUnitOf(row);
        const int found = findSorted(target, row);
        if (found < 0) {
            // Not in the target: all of it goes.
            line.m_operationType = ttservice::OT_SELL;
            line.m_volume = row.m_volume;
        } else {
            const int64_t diff = row.m_volume - target.at(found).m_volume;
            target.remove(found);
            if (diff < 0) {
                line.m_operationType = ttservice::OT_BUY;
                line.m_directionText = QStringLiteral("买");
                line.m_volume = roundDown(std::llabs(diff), unit);
            } else if (diff > 0) {
                line.m_operationType = ttservice::OT_SELL;
                line.m_directionText = QStringLiteral("卖");
                // An odd lot can only be sold with the whole holding.
                line.m_volume = row.m_volume > unit ? std::min(roundDown(diff, unit), row.m_volume) : row.m_volume;
            }
        }
        if (line.m_volume > 0)
            lines.push_back(line);
    }
    for (const CBasketStockData &row : qAsConst(target)) {
        CPositionParam line = lineOf(row, to);
        line.m_operationType = ttservice::OT_BUY;
        line.m_directionText = QStringLiteral("买");
        line.m_volume = row.m_volume > 0 ? roundDown(row.m_volume, minUnitOf(row)) : 0;
        if (line.m_volume > 0)
            lines.push_back(line);
    }
    return lines;
}

QVector<CPositionParam> COptBasketExchangePositionDialog::calcFutureExchange(QMap<QString, QMap<int, CBasketStockData>> heldMap,
                                                                             QMap<QString, QMap<int, CBasketStockData>> targetMap,
                                                                             const CExchangeTarget &to)
{
    QVector<CPositionParam> lines;
    for (auto held = heldMap.begin(); held != heldMap.end(); ++held) {
        const QString &code = held.key();
        QMap<int, CBasketStockData> &sides = held.value();
        auto targets = targetMap.find(code);
        if (targets == targetMap.end()) {
            // Not in the target: closed here, once.
            for (auto p = sides.cbegin(); p != sides.cend(); ++p)
                addFutureLine(lines, p.value(), code, p.value().m_volume, closeOperation(p.key()), to);
            sides.clear();
            continue;
        }
        for (const CBasketStockData &t : qAsConst(targets.value())) {
            const int side = getBuyOrSellType(t.m_operationType);
            const int direction = side != ttservice::OT_BUY ? kShort : kLong;
            const auto p = sides.constFind(direction);
            if (p == sides.constEnd()) {
                addFutureLine(lines, t, code, t.m_volume, openOperation(side), to);
                continue;
            }
            const int64_t diff = t.m_volume - p.value().m_volume;
            const int operation = diff < 0 ? closeOperation(direction) : openOperation(side);
            addFutureLine(lines, t, code, std::llabs(diff), operation, to);
            sides.remove(direction);
        }
        targetMap.erase(targets);
    }
    for (auto targets = targetMap.cbegin(); targets != targetMap.cend(); ++targets) {
        for (const CBasketStockData &t : targets.value())
            addFutureLine(lines, t, targets.key(), t.m_volume, openOperation(getBuyOrSellType(t.m_operationType)), to);
    }
    for (auto held = heldMap.cbegin(); held != heldMap.cend(); ++held) {
        for (auto p = held.value().cbegin(); p != held.value().cend(); ++p)
            addFutureLine(lines, p.value(), held.key(), p.value().m_volume, closeOperation(p.key()), to);
    }
    return lines;
}

bool COptBasketExchangePositionDialog::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 5 && id == OK_ID) {
        deliverEvent(EVENT_EXCHANGE_CONFIRMED, 0, 0, QString(), this);
        close();
    } else if (event == 5 && id == CANCEL_ID) {
        close();
    } else if (event == 1149) {
        // The positions as a whole were chosen again: the form hands the tree its accounts.
        return deliverEvent(event, id, value, text, this);
    }
    return WK::CCommonDialog::handleEvent(event, id, value, text, data);
}

void COptBasketExchangePositionDialog::showEvent(QShowEvent *event)
{
    WK::CCommonDialog::showEvent(event);
    if (!event->spontaneous())
        m_exchangeWidget->getBasketTable()->resumeQuotes();
}

void COptBasketExchangePositionDialog::hideEvent(QHideEvent *event)
{
    WK::CCommonDialog::hideEvent(event);
    // Quotes are followed only while the dialog is seen; closing, Escape and "取消" all hide it.
    if (!event->spontaneous())
        m_exchangeWidget->unrequestAll();
}

} // namespace TC
