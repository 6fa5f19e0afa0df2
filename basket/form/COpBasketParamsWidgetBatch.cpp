// Lists that other panels hand over (positions to buy more of, to sell, or either per row), the
// positions of whole accounts, the custom group, and the money of a one-key order.
#include "COpBasketParamsWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"

#include "AccountHelpers.h"
#include "CAccount.h"
#include "CAccountData.h"
#include "CGlobalOrderParamTable.h"
#include "COpAccountsWidget.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "CQueryDataReq.h"
#include "CQuoteClient.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "IDataCenter.h"
#include "OperationHelpers.h"
#include "TradeUnits.h"
#include "TraderCenter.h"

#include "DoubleCompare.h"
#include "StockKey.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int64_t kNoVolume = std::numeric_limits<int64_t>::max();
constexpr int kQueryAccountSlo = 13904;
constexpr int kCreditAccountType = 3;

ttservice::CStockInfo stockInfoOf(const QString &market, const QString &code, const QString &name)
{
    ttservice::CStockInfo info;
    info.m_market = market.toStdString();
    info.m_stockCode = code.toStdString();
    info.m_exchangeId = info.m_stockCode;
    info.m_stockName = name.toStdString();
    return info;
}

QString keyOf(const ttservice::CStockInfo &info)
{
    return QString::fromStdString(utils::vqStockKey(info.m_market, info.m_stockCode));
}

CBasketStockData rowOf(const QString &market, const QString &code)
{
    CBasketStockData row;
    row.m_market = market;
    row.m_stockCode = code;
    return row;
}

} // namespace

// --- handing over ---

void COpBasketParamsWidget::batchPositions(const QVector<CPositionParam> &positions, QFlags<ETempBatchOrderFlag> flags)
{
    const int flag = static_cast<int>(flags);
    if (!m_commandKey.empty())
        forgetCommand();
    if (m_tabGroup) {
        const quint64 tab = flag == BATCH_BUY_SELL ? m_tradeOpType : flag == BATCH_BUY ? TOT_BUY : TOT_SELL;
        m_tabGroup->setCheckedByID(static_cast<int>(tab));
    }
    if (m_replaceToolBar)
        m_replaceToolBar->setShowReplace(flag == BATCH_BUY);

    switch (flag) {
    case BATCH_BUY:
        setCurrentOperationType(TOT_BUY);
        updateBasketSetting();
        m_batchBuyPositions = positions;
        break;
    case BATCH_SELL:
        setCurrentOperationType(TOT_SELL);
        updateBasketSetting();
        m_batchSellPositions = positions;
        break;
    default:
        setCurrentOperationType(m_tradeOpType);
        updateBasketSetting();
        m_batchBuySellPositions[m_tradeOpType] = positions;
        break;
    }

    if ((flag == BATCH_BUY || flag == BATCH_SELL) && m_accountsWidget) {
        // The picker shows exactly the accounts of the rows, each once.
        m_accountsWidget->clearCheckStatus();
        std::set<std::string> keys;
        for (const CPositionParam &position : positions) {
            if (position.m_account)
                keys.insert(position.m_account->getKey());
        }
        for (const std::string &key : keys)
            m_accountsWidget->setSelectedAccount(QString::fromStdString(key), true);
    }

    int choice = flag;
    if (choice == 64 && !isShowSystemBasket(m_tradeOpType))
        choice = 0;
    setBatchOp(ETempBatchOrderFlags(QFlag(choice)), true);
}

QSet<QString> COpBasketParamsWidget::getSelectedAccounts() const
{
    return m_accountsWidget ? m_accountsWidget->getSelectedAccounts() : QSet<QString>();
}

QVector<boost::shared_ptr<CAccount>> COpBasketParamsWidget::getAccounts() const
{
    QVector<boost::shared_ptr<CAccount>> accounts;
    if (!m_accountsWidget)
        return accounts;
    for (const QString &key : m_accountsWidget->getSelectedAccounts()) {
        if (auto account = getUserConfig()->getAccountData(key))
            accounts.push_back(account);
    }
    return accounts;
}

std::vector<boost::shared_ptr<ttservice::CPositionDetail>> COpBasketParamsWidget::getAccoutPositions(const QString &accountKey)
{
    std::vector<boost::shared_ptr<ttservice::CPositionDetail>> positions;
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    const auto data = center ? center->getAccountData(accountKey.toStdString()) : boost::shared_ptr<ttservice::CAccountData>();
    if (!data)
        return positions;
    // One read under the lock: the positions must agree with each other.
    ttservice::CAccountData::Lock lock(data);
    for (const boost::shared_ptr<ttservice::IData> &item : data->getVector(ttservice::DATA_TYPE_POSITION_DETAIL))
        positions.push_back(boost::dynamic_pointer_cast<ttservice::CPositionDetail>(item));
    return positions;
}

int64_t COpBasketParamsWidget::sellRatioVolume(int64_t held, double ratio, int unit)
{
    if (std::abs(ratio - 1.0) <= ttservice::DOUBLE_EPSILON || held <= unit || unit <= 0)
        return held;
    const int64_t wanted = static_cast<int64_t>(static_cast<double>(held) * ratio) + unit / 2;
    const int64_t rounded = wanted - wanted % unit;
    return std::min(rounded, held);
}

CCodeOrderParam COpBasketParamsWidget::batchLine(const ttservice::CStockInfo &stock, int operation) const
{
    CCodeOrderParam line;
    line.m_stockInfo = stock;
    line.m_operationType = static_cast<ttservice::EOperationType>(operation);
    line.m_userId = getUserConfig()->getUserId();
    line.m_hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION;
    return line;
}

CCodeOrderParam COpBasketParamsWidget::positionLine(const CPositionParam &position, int operation) const
{
    CCodeOrderParam line = batchLine(stockInfoOf(position.m_market, position.m_stockCode, position.m_stockName), operation);
    if (position.m_account)
        line.m_account = boost::make_shared<ttservice::CAccountInfo>(*position.m_account);
    line.m_positionAttr = position.m_positionAttr;
    line.m_positionId = position.m_positionId.toStdString();
    line.m_extraKey = position.m_extraKey;
    return line;
}

void COpBasketParamsWidget::requestPositionQuotes(const QVector<CPositionParam> &positions)
{
    // The filter's marks do not act on these lines: the rows only decide which quotes to ask for.
    QList<CBasketStockData> rows;
    for (const CPositionParam &position : positions)
        rows.push_back(rowOf(position.m_market, position.m_stockCode));
    filterStockParam(rows);
    requestQuotes(rows);
}

// --- the fillers ---

void COpBasketParamsWidget::getBatchBuyStockList(QList<CBasketStockData> &rows) const
{
    for (const CPositionParam &position : m_batchBuyPositions) {
        CBasketStockData row = rowOf(position.m_market, position.m_stockCode);
        row.m_stockName = position.m_stockName;
        row.m_volume = position.m_volume;
        // Weighed by market value; by volume where there is no price to value it with.
        row.m_weight = static_cast<double>(position.m_volume);
        const auto quote = CQuoteClient::instance()->getStockPrice(row.key());
        if (quote && ttservice::hasValue(quote->m_lastPrice))
            row.m_weight *= quote->m_lastPrice;
        rows.push_back(row);
    }
}

bool COpBasketParamsWidget::fillBatchBuyParam(std::vector<CCodeOrderParam> &params, QString &error)
{
    QList<CBasketStockData> rows;
    getBatchBuyStockList(rows);
    filterStockParam(rows);
    requestQuotes(rows);
    return fillParamByStocks(rows, params, error, true);
}

bool COpBasketParamsWidget::fillBatchSellParam(std::vector<CCodeOrderParam> &params, QString &)
{
    // A batch sell has its accounts in its rows: nothing is split over the picker's accounts.
    requestPositionQuotes(m_batchSellPositions);

    params.clear();
    const double ratio = m_sellRatioCell ? m_sellRatioCell->toDouble() / 100 : 1.0;
    const int operation = m_operationType == -1 ? ttservice::OT_SELL : m_operationType;
    for (const CPositionParam &position : qAsConst(m_batchSellPositions)) {
        if (!position.m_account)
            continue; // a position of no account has nothing to sell from
        CCodeOrderParam line = positionLine(position, operation);
        line.m_volume = sellRatioVolume(position.m_volume, ratio,
                                        ttservice::getTradeMinUnit(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode));
        // The block sees the whole holding; the line keeps the ratio's volume. The block is the
        // one on view for the line's side: the tab's own, not the stock tab's.
        if (const COpBasketStockParamsWidget *block = getParamWidget(operation))
            block->fillParams(keyOf(line.m_stockInfo), static_cast<int>(position.m_volume), line, ttservice::NO_VALUE);
        if (line.m_volume < kNoVolume)
            params.push_back(line);
    }
    return true;
}

bool COpBasketParamsWidget::fillBatchBuySellParam(std::vector<CCodeOrderParam> &params, QString &)
{
    const QVector<CPositionParam> positions = m_batchBuySellPositions.value(m_tradeOpType);
    requestPositionQuotes(positions);

    params.clear();
    const bool oneKey = m_tradeOpType == TOT_ONEKEY_FUTURE;
    auto rowOperation = [](const CPositionParam &position) {
        return position.m_operationType == -1 ? int(ttservice::OT_SELL) : position.m_operationType;
    };
    for (const CPositionParam &position : positions) {
        const int operation = oneKey ? position.m_oneKeyOperation : rowOperation(position);
        CCodeOrderParam line = positionLine(position, operation);

        const COpBasketStockParamsWidget *block = nullptr;
        if (oneKey && m_ftrOneKeyWidget) {
            if (operation == ttservice::OT_OPEN_LONG || operation == 15)
                block = m_ftrOneKeyWidget->getBuyParam();
            else if (operation == 14 || operation == 3)
                block = m_ftrOneKeyWidget->getSellParam();
        } else if (!oneKey && m_buySellWidget) {
            if (operation == ttservice::OT_BUY)
                block = m_buySellWidget->getBuyParam();
            else if (operation == ttservice::OT_SELL)
                block = m_buySellWidget->getSellParam();
        }
        if (block)
            block->fillParams(keyOf(line.m_stockInfo), static_cast<int>(position.m_volume), line, ttservice::NO_VALUE);

        if (!oneKey)
            line.m_operationType = static_cast<ttservice::EOperationType>(operation);
        else if (m_operationType == -1 && m_buttonsBar)
            line.m_operationType =
                m_buttonsBar->getFutureOptType(static_cast<ttservice::EOperationType>(position.m_oneKeyOperation));
        // Rows of a position exchange trade as handed over: the sell ratio does not apply here.
        line.m_volume = position.m_volume;
        if (line.m_volume < kNoVolume)
            params.push_back(line);
    }
    return true;
}

bool COpBasketParamsWidget::fillPositionSellParam(std::vector<CCodeOrderParam> &params, QString &)
{
    std::vector<boost::shared_ptr<ttservice::CAccountInfo>> accounts;
    if (m_accountsWidget) {
        const QSet<QString> selected = m_accountsWidget->getSelectedAccounts();
        for (const QString &key : m_accountsWidget->getDisplayedAccounts()) {
            if (!selected.contains(key))
                continue;
            if (const auto account = getUserConfig()->getAccountData(key))
                accounts.push_back(account);
        }
    }

    std::vector<std::vector<boost::shared_ptr<ttservice::CPositionDetail>>> held;
    QList<CBasketStockData> rows;
    for (const auto &account : accounts) {
        held.push_back(getAccoutPositions(QString::fromStdString(account->getKey())));
        for (const auto &position : held.back()) {
            if (position)
                rows.push_back(rowOf(QString::fromStdString(position->m_market), QString::fromStdString(position->m_stockCode)));
        }
    }
    filterStockParam(rows);
    requestQuotes(rows);

    params.clear();
    const double ratio = m_sellRatioCell ? m_sellRatioCell->toDouble() / 100 : 1.0;
    const int operation = m_operationType == -1 ? ttservice::OT_SELL : m_operationType;
    for (size_t k = 0; k < accounts.size(); ++k) {
        for (const auto &position : held[k]) {
            if (!position)
                continue;
            ttservice::CStockInfo stock;
            stock.m_market = position->m_market;
            stock.m_stockCode = position->m_stockCode;
            stock.m_exchangeId = position->m_stockCode;
            stock.m_stockName = position->m_stockName;
            CCodeOrderParam line = batchLine(stock, operation);
            const int64_t volume = sellRatioVolume(position->m_sellableVolume, ratio,
                                                   ttservice::getTradeMinUnit(stock.m_market, stock.m_stockCode));
            // Priced by the block on view for the line's side, whichever tab holds the list.
            if (const COpBasketStockParamsWidget *block = getParamWidget(operation))
                block->fillParams(keyOf(stock), static_cast<int>(volume), line, ttservice::NO_VALUE);
            line.m_account = accounts[k];
            line.m_volume = volume;
            if (line.m_volume < kNoVolume)
                params.push_back(line);
        }
    }
    return true;
}

bool COpBasketParamsWidget::fillCustomGroupParam(std::vector<CCodeOrderParam> &params, QString &error)
{
    CTabBasket &entry = m_tabBaskets[m_tradeOpType];
    QList<CBasketStockData> rows;
    if (m_customGroupMode == 8) {
        rows = entry.m_pasteList;
    } else if (m_customGroupMode == 0) {
        // The group is the form's own; it does not enter the stored baskets.
        rows = entry.m_basketList;
    } else {
        return false;
    }
    filterStockParam(rows);
    requestQuotes(rows);
    // The group states volumes, not money to share: every account gets its row's volume.
    return fillParamByStocks(rows, params, error, false);
}

// --- one-key money and account limits ---

double COpBasketParamsWidget::calcOneKeyAvailableMoney(const QList<CBasketStockData> &rows, const QString &accountKey,
                                                       double sumWeight, double totalMoney) const
{
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    const auto data = center ? center->getAccountData(accountKey.toStdString()) : boost::shared_ptr<ttservice::CAccountData>();
    const auto detail = data ? data->getAccountDetail() : boost::shared_ptr<ttservice::CAccountDetail>();
    if (!detail)
        return 0.0;
    const double available = detail->m_available;
    double buyMoney = 0.0;
    double sellMoney = 0.0;
    for (const CBasketStockData &row : rows) {
        const int volume = getTotalVolume(row, sumWeight, totalMoney, 2, 0.0, 1);
        if (volume < 0)
            return 0.0; // an amount beyond any order: nothing is sized
        const auto quote = CQuoteClient::instance()->getStockPrice(row.key());
        const double last = quote && ttservice::hasValue(quote->m_lastPrice) ? quote->m_lastPrice : 0.0;
        if (isBuy(row.m_operationType)) {
            buyMoney += volume * last;
            continue;
        }
        // A sell brings in only what can be sold now.
        const auto position = data->getPositionStatic(row.m_market.toStdString(), row.m_stockCode.toStdString());
        const double sellable = position ? position->m_canUseVolume : 0.0;
        sellMoney += std::min(static_cast<double>(volume), sellable) * last;
    }
    if (!ttservice::isGreater(buyMoney - available, 0.0))
        return available; // the cash covers the buys
    if (ttservice::isLess(buyMoney - (sellMoney + available), 0.0))
        return sellMoney + available; // the sells cover the rest
    return 0.0;
}

void COpBasketParamsWidget::updateAccountsSlo()
{
    for (const boost::shared_ptr<CAccount> &account : getUserConfig()->getAccounts()) {
        if (!account || account->m_accountType != kCreditAccountType)
            continue;
        if (ttservice::isLoginStatusReady(CTradeClient::instance()->getLoginStatus(account->getKey())))
            updateAccountSlo(*account);
    }
}

void COpBasketParamsWidget::updateAccountSlo(const ttservice::CAccountInfo &account)
{
    // Nothing waits for the answer: it lands in the account's data, where later reads find it.
    auto request = boost::make_shared<ttservice::CQueryDataReq>();
    request->m_account = boost::make_shared<ttservice::CAccountInfo>(account);
    request->m_dataType = kQueryAccountSlo;
    if (const auto center = ttservice::TraderCenter::instance()->getDataCenter())
        center->queryData(request, ttservice::IDataCenter::QueryCallback(), 0);
}

} // namespace TC
