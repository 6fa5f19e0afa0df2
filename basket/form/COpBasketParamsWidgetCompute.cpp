// The computing side of the parameter form: from the picker's rows to the order list.
#include "COpBasketParamsWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketOrder.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "PriceLimits.h"

#include "CAccountData.h"
#include "CBlackAndWhiteListService.h"
#include "CExchangeClient.h"
#include "CGlobalOrderParamTable.h"
#include "CInstrumentRun.h"
#include "CLogCenter.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CParameterCell.h"
#include "CPriceDataHelper.h"
#include "CProductNetValue.h"
#include "CQuoteClient.h"
#include "CQuoteRequest.h"
#include "CTimeService.h"
#include "CTradeClient.h"
#include "CMsgService.h"
#include "CUserConfig.h"
#include "ICalculator.h"
#include "IDataCenter.h"
#include "LuaModuleCtrl.h"
#include "StockTypeCenter.h"
#include "TradeUnits.h"
#include "TraderCenter.h"

#include "DoubleCompare.h"
#include "StockKey.h"

#include <boost/bind/bind.hpp>
#include <boost/format.hpp>

#include <QComboBox>
#include <QDateTime>

#include <climits>
#include <cmath>
#include <limits>
#include <iterator>
#include <memory>
#include <string>
#include <unordered_map>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kTraderRole = 200;
constexpr int kTypeShNotTradable = 126;
constexpr int kTypeSzNotTradable = 100017;
constexpr int kQuoteTypes[] = {100003, 100016, 100004};


bool needsQuote(const CBasketStockData &row)
{
    for (int type : kQuoteTypes) {
        if (ttservice::StockTypeCenter::isTypedStock(type, row.m_market, row.m_stockCode))
            return true;
    }
    return ttservice::isFutureMarket(row.m_market.toStdString());
}

// A sum over accounts treats a missing value as nothing to add.
double valueOrZero(double value)
{
    return ttservice::hasValue(value) ? value : 0.0;
}

// The accounts ticked in the picker, in the order it shows them (so that the remainder of a
// split always goes to the same account), with their weights and the sums the money modes
// size by.
struct TickedAccounts
{
    std::vector<boost::shared_ptr<ttservice::CAccountInfo>> accounts;
    std::vector<double> weights;
    QStringList keys;
    double available = 0.0;
    double totalAsset = 0.0;
    double netValue = 0.0;
};

TickedAccounts tickedAccounts(const COpAccountsWidget *picker)
{
    TickedAccounts ticked;
    if (!picker)
        return ticked;
    const QSet<QString> selected = picker->getSelectedAccounts();
    for (const QString &key : picker->getDisplayedAccounts()) {
        if (!selected.contains(key))
            continue;
        const auto account = getUserConfig()->getAccountData(key);
        if (!account)
            continue;
        ticked.accounts.push_back(account);
        ticked.weights.push_back(picker->getAccountWeight(key));
        ticked.keys << key;
        const auto data = ttservice::TraderCenter::instance()->getDataCenter()->getAccountData(account->getKey());
        const auto detail = data ? data->getAccountDetail() : boost::shared_ptr<ttservice::CAccountDetail>();
        if (!detail)
            continue;
        ticked.available += valueOrZero(detail->m_available);
        ticked.totalAsset += valueOrZero(detail->m_totalAsset);
        const auto product = getUserConfig()->getAccountProduct(*account);
        if (!product)
            continue;
        const auto record = boost::dynamic_pointer_cast<ttservice::CProductNetValue>(
            data->getData(ttservice::DATA_TYPE_PRODUCT_NET_VALUE, ttservice::CProductNetValue::genKey(product->m_productId)));
        if (record)
            ticked.netValue += valueOrZero(record->m_netValue);
    }
    return ticked;
}

// The money each account's lines aim at, shared as the volumes are split: by the positive
// weights, evenly when there are none.
QMap<QString, double> aimedMoneyOf(const TickedAccounts &ticked, double totalMoney)
{
    QMap<QString, double> aimed;
    if (!ttservice::hasValue(totalMoney) || totalMoney <= 0.0 || ticked.accounts.empty())
        return aimed;
    double sum = 0.0;
    for (const double weight : ticked.weights)
        sum += ttservice::hasValue(weight) && weight > 0.0 ? weight : 0.0;
    for (size_t k = 0; k < ticked.accounts.size(); ++k) {
        const double weight = ttservice::hasValue(ticked.weights[k]) && ticked.weights[k] > 0.0 ? ticked.weights[k] : 0.0;
        const double share = sum > 0.0 ? weight / sum : 1.0 / static_cast<double>(ticked.accounts.size());
        aimed.insert(accountDisplayIDQs(*ticked.accounts[k]), totalMoney * share);
    }
    return aimed;
}

ttservice::CStockInfo stockInfoOf(const QString &key)
{
    ttservice::CStockInfo stockInfo;
    if (const auto info = CExchangeClient::instance()->getCodeInfo(key)) {
        stockInfo.m_market = info->m_market;
        stockInfo.m_exchangeId = info->m_stockCode;
        stockInfo.m_stockCode = info->m_stockCode;
        stockInfo.m_stockName = info->m_stockName;
    }
    return stockInfo;
}

// What every account's line of a row starts from.
CCodeOrderParam lineTemplate(const CBasketStockData &row, const ttservice::CStockInfo &stockInfo, const std::string &userId,
                             ttservice::EHedge_Flag_Type hedgeFlag, bool touchModule)
{
    CCodeOrderParam line;
    line.m_userId = userId;
    line.m_hedgeFlag = hedgeFlag;
    line.m_stockInfo = stockInfo;
    line.m_touchPrice = row.m_touchPrice;
    if (touchModule)
        line.m_touchType = row.m_touchType;
    return line;
}

// What one account may buy of a row with the money the one-key rule leaves it, in whole lots.
int oneKeyBuyVolume(const ttservice::CAccountInfo &account, double money, const std::string &market,
                    const std::string &code, double price, int volume)
{
    if (volume <= 0 || money <= ttservice::DOUBLE_EPSILON)
        return 0;
    std::string calcError;
    const auto data = ttservice::TraderCenter::instance()->getDataCenter()->getAccountData(account.getKey());
    long long canBuy = ttservice::TraderCenter::instance()->getCalculator()->calcBuyVolume(data, money, market, code, price,
                                                                                            calcError, volume);
    if (canBuy == ttservice::ICalculator::NO_VOLUME)
        canBuy = 0;
    if (canBuy > 0) {
        const int unit = std::max(1, ttservice::getTradeMinUnit(market, code));
        canBuy = canBuy / unit * unit;
    }
    return static_cast<int>(canBuy);
}

// The operation a line leaves with: the form's, or where the form sizes each row by its own
// side (operation -1), the row's side as the tab words it.
ttservice::EOperationType lineOperationOf(int formOperation, quint64 tab, int rowOperation,
                                          ttservice::EOperationType futuresOperation)
{
    if (formOperation != -1)
        return static_cast<ttservice::EOperationType>(formOperation);
    switch (tab) {
    case TOT_ALL:
    case TOT_HGT:
    case TOT_SGT:
        return static_cast<ttservice::EOperationType>(rowOperation);
    case TOT_CREDIT:
        return rowOperation == ttservice::OT_BUY ? ttservice::EOperationType(20) : ttservice::EOperationType(21);
    case TOT_ONEKEY_FUTURE:
        return futuresOperation;
    default:
        return static_cast<ttservice::EOperationType>(formOperation);
    }
}

} // namespace

// --- the outer loop ---

COpBasketOrder *COpBasketParamsWidget::createOrder(QString &error)
{
    std::vector<CCodeOrderParam> lines;
    if (!fillOrder(lines, error))
        return nullptr;
    std::unique_ptr<COpBasketOrder> order(new COpBasketOrder);
    order->m_params.reserve(static_cast<int>(lines.size()));
    for (CCodeOrderParam &line : lines)
        order->m_params.push_back(std::move(line));
    return order.release();
}

// Sizes the picker's source of rows into lines. The form sizes straight into its own list, whose
// memory stays from one choice to the next: a whole-market basket is 100,000 lines, and a fresh
// list of them on every choice cost more in page faults than the sizing itself.
bool COpBasketParamsWidget::fillOrder(std::vector<CCodeOrderParam> &lines, QString &error)
{
    m_aimedMoney.clear();
    lines.clear();
    if (!m_basketsCombo)
        return false;
    switch (static_cast<int>(m_basketsCombo->batchOp())) {
    case BATCH_NONE:
        return fillBasketOrderParam(lines, error);
    case BATCH_BUY:
        return fillBatchBuyParam(lines, error);
    case BATCH_SELL:
        return fillBatchSellParam(lines, error);
    case BATCH_POSITION_SELL:
        return fillPositionSellParam(lines, error);
    case BATCH_CLIPBOARD:
        return fillClipboard(lines, error);
    case BATCH_BUY_SELL:
        return fillBatchBuySellParam(lines, error);
    case BATCH_CUSTOM_GROUP:
        return fillCustomGroupParam(lines, error);
    default:
        return true;
    }
}

void COpBasketParamsWidget::genOperation()
{
    // An instruction handed on since it was loaded leaves its old list on the form as it was:
    // neither emptied nor replaced by a stored basket of the same name.
    if (isCommandHandedOn() && m_commandOpType == m_tradeOpType) {
        keepHandedOnList();
        return;
    }
    const bool keep = getUserConfig()->getRole() == kTraderRole && updateParamsByCmd(false);

    QString error;
    // A kept list (an instruction's) is sized aside and dropped: the run still asks for the
    // quotes and aims the strip shows.
    std::vector<CCodeOrderParam> aside;
    if (!fillOrder(keep ? aside : m_orderParams, error) && !keep) {
        m_orderParams.clear();
        m_orderRowsLog.clear();
        return;
    }

    QStringList requestKeys;
    for (const QString &key : qAsConst(m_pendingQuotes)) {
        if (!m_quoteRequests.contains(key))
            requestKeys << key;
    }

    // A list sized without all its prices must not look sized. Position sells, handed-over lines
    // (a position exchange among them) and futures carry volumes that do not depend on the
    // price, so they keep theirs.
    const bool fixedVolumes = m_basketsCombo
        && (m_basketsCombo->batchOp() == ETempBatchOrderFlags(BATCH_POSITION_SELL)
            || m_basketsCombo->batchOp() == ETempBatchOrderFlags(BATCH_BUY_SELL));
    if (!requestKeys.isEmpty() && !fixedVolumes && m_tradeOpType != TOT_FUTURE && m_tradeOpType != TOT_ONEKEY_FUTURE) {
        for (CCodeOrderParam &line : m_orderParams)
            line.m_volume = 0;
    }

    bool touchOrders = false;
    for (const CCodeOrderParam &line : m_orderParams) {
        if (line.m_touchType == 1 || line.m_touchType == 2) {
            touchOrders = true;
            break;
        }
    }
    updateEntrustVisible(touchOrders);

    for (const QString &key : qAsConst(requestKeys)) {
        // Replacing a request releases the old one after the new one is live, so the quote
        // service never sees the key without a subscriber in between.
        m_quoteRequests.insert(key, CQuoteRequest::makeRequest(
            key, boost::bind(&COpBasketParamsWidget::recalcOperationParams, this, boost::placeholders::_1)));
    }
    m_lastGenTime = static_cast<quint32>(getTimeService()->currentTime());
}

void COpBasketParamsWidget::deliverListChanged(int value)
{
    const QString firstItem = m_basketsCombo && m_basketsCombo->count() > 0 ? m_basketsCombo->itemText(0) : QString();
    deliverEvent(1070, static_cast<int>(m_tradeOpType), value, firstItem, nullptr);
}

void COpBasketParamsWidget::recalculate(int value)
{
    genOperation();
    deliverListChanged(value);
}

void COpBasketParamsWidget::updateBasketConfirmData()
{
    recalculate(0);
}

void COpBasketParamsWidget::recalcOperationParams(boost::shared_ptr<CPriceData> quote)
{
    if (!quote)
        return;
    Q_EMIT sigRecalcOperationParam(QString::fromStdString(utils::vqStockKey(quote->m_market, quote->m_stockCode)));
}

void COpBasketParamsWidget::slotRecalcOperationParam(QString stockKey)
{
    if (!m_pendingQuotes.remove(stockKey))
        return;

    if (m_basketsCombo && m_basketsCombo->batchOp() == ETempBatchOrderFlags(BATCH_CLIPBOARD) && !m_clipboardHasWeight) {
        // Pasted rows without a weight column weigh by price.
        QList<CBasketStockData> &rows = m_clipboardStocks[m_tradeOpType];
        for (CBasketStockData &row : rows) {
            if (row.key() != stockKey)
                continue;
            const auto quote = CQuoteClient::instance()->getStockPrice(stockKey);
            if (quote && !ttservice::isEqual(quote->m_lastPrice, ttservice::NO_VALUE))
                row.m_weight = quote->m_lastPrice;
            break;
        }
    }
    if (!m_pendingQuotes.isEmpty())
        return;

    bool fromCommand = false;
    if (getUserConfig()->getRole() == kTraderRole) {
        for (const CCodeOrderParam &line : m_orderParams) {
            if (line.m_orderType == ttservice::ORDER_TYPE_INSTRUCTION) {
                fromCommand = true;
                break;
            }
        }
    }

    QString error;
    std::vector<CCodeOrderParam> aside;
    const bool filled = fillOrder(fromCommand ? aside : m_orderParams, error);
    m_pendingQuotes.clear();
    if (fromCommand) {
        updateParamsByCmd(false);
    } else if (!filled) {
        m_orderParams.clear();
        return;
    }
    deliverListChanged(0);
}

std::vector<CCodeOrderParam> *COpBasketParamsWidget::getCodeOrderParams()
{
    if (m_stockParams) {
        for (CCodeOrderParam &line : m_orderParams) {
            const COpBasketStockParamsWidget *block = getParamWidget(line.m_operationType);
            if (block && block->table())
                block->table()->transferTimePeriod(&line);
        }
        if (m_tradeOpType == TOT_BUY || m_tradeOpType == TOT_SELL)
            m_stockParams->updateSingleCodeOrderParam(m_orderParams);
    }
    fillOrderParamPrice();
    return &m_orderParams;
}

void COpBasketParamsWidget::updateCodeOrderParam()
{
    const quint32 now = static_cast<quint32>(getTimeService()->currentTime());
    if (now - m_lastGenTime < 30)
        return;
    if (m_stockParams && (m_tradeOpType == TOT_BUY || m_tradeOpType == TOT_SELL))
        m_stockParams->updateSingleCodeOrderParam(m_orderParams);
}

COpBasketStockParamsWidget *COpBasketParamsWidget::blockForRow(int rowOperation) const
{
    const bool buy = rowOperation == ttservice::OT_BUY;
    const bool sell = rowOperation == ttservice::OT_SELL;
    switch (m_tradeOpType) {
    case TOT_ALL:
        if (m_buySellWidget && (buy || sell))
            return buy ? m_buySellWidget->getBuyParam() : m_buySellWidget->getSellParam();
        return buy || sell ? nullptr : m_stockParams;
    case TOT_HGT:
    case TOT_SGT:
        return m_ggtWidget ? (buy ? m_ggtWidget->getBuyParam() : m_ggtWidget->getSellParam()) : nullptr;
    case TOT_FUTURE:
        return m_ftrWidget ? m_ftrWidget->getParamWidget() : nullptr;
    case TOT_CREDIT:
        return m_crdWidget ? m_crdWidget->getParamWidget() : nullptr;
    case TOT_ONEKEY_FUTURE:
        if (m_ftrOneKeyWidget && (buy || sell))
            return buy ? m_ftrOneKeyWidget->getBuyParam() : m_ftrOneKeyWidget->getSellParam();
        return buy || sell ? nullptr : m_stockParams;
    default:
        return m_stockParams;
    }
}

void COpBasketParamsWidget::orderTypesForRow(int rowOperation, ttservice::EPriceType &priceType,
                                             ttservice::EOrderType &orderType) const
{
    if (m_tradeOpType != TOT_ONEKEY_FUTURE) {
        priceType = static_cast<ttservice::EPriceType>(getPriceType(m_operationType));
        orderType = static_cast<ttservice::EOrderType>(getOrderType(m_operationType));
        return;
    }
    // A one-key futures row takes its side's block; without one the previous row's types stay.
    const COpBasketStockParamsWidget *block = nullptr;
    if (m_ftrOneKeyWidget && rowOperation == ttservice::OT_BUY)
        block = m_ftrOneKeyWidget->getBuyParam();
    else if (m_ftrOneKeyWidget && rowOperation == ttservice::OT_SELL)
        block = m_ftrOneKeyWidget->getSellParam();
    if (block) {
        priceType = block->getPriceType();
        orderType = block->getOrderType();
    }
}

// --- filters and prices ---

void COpBasketParamsWidget::filterStockParam(QList<CBasketStockData> &rows)
{
    for (auto it = rows.begin(); it != rows.end();) {
        if (ttservice::StockTypeCenter::isTypedStock(kTypeShNotTradable, QStringLiteral("SH"), it->m_stockCode)
            || ttservice::StockTypeCenter::isTypedStock(kTypeSzNotTradable, QStringLiteral("SZ"), it->m_stockCode)) {
            it = rows.erase(it);
            continue;
        }
        it->m_filtered = false;
        ++it;
    }
    if (!m_replaceToolBar)
        return;

    if (m_replaceToolBar->isFilter()) {
        for (CBasketStockData &row : rows) {
            if (isStoppedStock(row.m_market, row.m_stockCode))
                row.m_filtered = true;
        }
    }

    const bool filterBlack = m_replaceToolBar->isFilterBlacklist();
    const bool replaceBlack = m_replaceToolBar->isReplaceBlacklist();
    if ((filterBlack || replaceBlack) && m_accountsWidget) {
        const CBlackAndWhiteListService *lists = CBlackAndWhiteListService::instance();
        QStringList displayIds;
        for (const QString &key : m_accountsWidget->getSelectedAccounts()) {
            if (const auto account = getUserConfig()->getAccountData(key))
                displayIds << accountDisplayIDQs(*account);
        }
        // One account with the stock on its black list filters the row for all accounts; a
        // black stock with a white replacement stays for the replacement engine.
        for (const QString &displayId : qAsConst(displayIds)) {
            for (CBasketStockData &row : rows) {
                const QString key = row.key();
                if (!lists->isBlackStock(displayId, key))
                    continue;
                if (filterBlack || lists->getWhiteStock(displayId, key).isEmpty())
                    row.m_filtered = true;
            }
        }
    }

    const bool rise = m_replaceToolBar->isFilterZhangTing();
    const bool fall = m_replaceToolBar->isFilterDieTing();
    if (rise || fall) {
        for (CBasketStockData &row : rows) {
            const auto quote = CQuoteClient::instance()->getStockPrice(row.key());
            if (!quote)
                continue;
            if (rise && isUpperLimitStock(row.m_market, row.m_stockCode, quote->m_lastPrice, quote->m_upStopPrice))
                row.m_filtered = true;
            if (fall && isLowerLimitStock(row.m_market, row.m_stockCode, quote->m_lastPrice, quote->m_downStopPrice))
                row.m_filtered = true;
        }
    }
}

void COpBasketParamsWidget::requestQuotes(const QList<CBasketStockData> &rows)
{
    if (rows.isEmpty())
        return;
    QSet<QString> allKeys;
    QSet<QString> newKeys;
    for (const CBasketStockData &row : rows) {
        if (!needsQuote(row))
            continue;
        const QString key = row.key();
        allKeys.insert(key);
        if (!m_quoteRequests.contains(key))
            newKeys.insert(key);
    }
    if (!newKeys.isEmpty())
        m_pendingQuotes = newKeys;

    for (auto it = m_quoteRequests.begin(); it != m_quoteRequests.end();) {
        if (allKeys.contains(it.key()))
            ++it;
        else
            it = m_quoteRequests.erase(it);
    }
}

void COpBasketParamsWidget::fillOrderParamPrice()
{
    // One quote per instrument for the lines of every account.
    CInstrumentRun<boost::shared_ptr<CPriceData>> quotes;
    for (CCodeOrderParam &line : m_orderParams) {
        const boost::shared_ptr<CPriceData> &quote = quotes.of(line, [](const CCodeOrderParam &first) {
            return CQuoteClient::instance()->getStockPrice(
                QString::fromStdString(utils::vqStockKey(first.m_stockInfo.m_market, first.m_stockInfo.m_stockCode)));
        });
        if (!quote || line.m_priceType == ttservice::PRICE_TYPE_FIXED)
            continue;
        line.m_price = ttservice::CPriceDataHelper::getPriceForOrder(quote, line.m_priceType, line.m_operationType,
                                                                     line.m_orderType, 0, nullptr);
    }
}

// --- sizing ---

bool COpBasketParamsWidget::fillBasketOrderParam(std::vector<CCodeOrderParam> &params, QString &error)
{
    const QString name = currentBasketName();
    if (name.isEmpty())
        return false;
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto it = baskets.constFind(name);
    if (it == baskets.constEnd())
        return false;
    QList<CBasketStockData> rows = it->m_stocks;
    filterStockParam(rows);
    requestQuotes(rows);
    return fillParamByStocks(rows, params, error, true);
}

double COpBasketParamsWidget::getTotalMoney(double available, double totalAsset, double netValue) const
{
    switch (getCurrentVolumnType()) {
    case VT_MONEY:
        return m_moneyCell ? m_moneyCell->toDouble() : ttservice::NO_VALUE;
    case VT_AVAILABLE:
        return m_ratioCell ? m_ratioCell->toDouble() / 100 * available : ttservice::NO_VALUE;
    case VT_NET_VALUE:
        return m_ratioCell ? m_ratioCell->toDouble() / 100 * netValue : ttservice::NO_VALUE;
    case VT_ASSET_RATIO:
        return m_assetRatioCell ? m_assetRatioCell->toDouble() / 100 * totalAsset : ttservice::NO_VALUE;
    case VT_FUTURE_VALUE: {
        if (!m_hedgeWidget)
            return ttservice::NO_VALUE;
        const double lots = m_contractCell ? m_contractCell->toDouble() : 0.0;
        const QString code = m_hedgeWidget->getHedgeStockCode();
        if (code.isEmpty())
            return 0.0;
        const auto info = CExchangeClient::instance()->getCodeInfo(code);
        if (!info)
            return 0.0;
        const auto quote = CQuoteClient::instance()->getStockPrice(
            QString::fromStdString(utils::vqStockKey(info->m_market, info->m_stockCode)));
        if (!quote || !ttservice::hasValue(quote->m_lastPrice))
            return 0.0;
        return info->m_volumeMultiple * lots * quote->m_lastPrice;
    }
    default:
        return ttservice::NO_VALUE;
    }
}

namespace {

// A row total as an int, or -1 where it lies beyond what an int (and so an order) can hold: an
// amount that large must be refused, never wrapped round into some other volume.
int volumeOrTooLarge(double volume)
{
    if (std::isnan(volume) || volume >= static_cast<double>(std::numeric_limits<int>::max()))
        return -1;
    return volume <= 0.0 ? 0 : static_cast<int>(volume);
}

} // namespace

int COpBasketParamsWidget::getTotalVolume(const CBasketStockData &stock, double sumWeight, double totalMoney,
                                          int /*minUnit*/, double indexValue, int indexCount) const
{
    // The row total is a raw number of units: lots are rounded where it is divided over accounts.
    if (!m_basketsCombo)
        return 0;
    if (m_basketsCombo->batchOp() == ETempBatchOrderFlags(BATCH_CUSTOM_GROUP))
        return static_cast<int>(stock.m_volume);

    const auto quote = CQuoteClient::instance()->getStockPrice(stock.key());
    const double last = quote ? quote->m_lastPrice : ttservice::NO_VALUE;
    const double w = stock.m_weight;

    switch (getCurrentVolumnType()) {
    case VT_COPIES:
        return volumeOrTooLarge(double(stock.m_volume) * (m_copiesCell ? m_copiesCell->toDouble() : 0.0));
    case VT_MONEY: {
        if (!ttservice::hasValue(last) || ttservice::isZero(last) || ttservice::isZero(sumWeight))
            return 0;
        int volume = volumeOrTooLarge((m_moneyCell ? m_moneyCell->toDouble() : 0.0) * w / last / sumWeight);
        if (m_tradeOpType == TOT_FUTURE || m_tradeOpType == TOT_ONEKEY_FUTURE) {
            // Contracts are looked up by code alone: futures codes are unique across exchanges.
            const auto info = CExchangeClient::instance()->getCodeInfo(stock.m_stockCode);
            if (volume > 0 && info && info->m_volumeMultiple != 0x7fffffff && info->m_volumeMultiple != 0)
                volume /= info->m_volumeMultiple;
        }
        return volume;
    }
    case VT_NET_VALUE:
    case VT_AVAILABLE:
    case VT_ASSET_RATIO:
    case VT_FUTURE_VALUE:
        if (ttservice::isZero(last) || ttservice::isZero(sumWeight))
            return 0;
        return volumeOrTooLarge(totalMoney * w / last / sumWeight);
    case VT_INDEX_UNIT: {
        if (!m_totalLotsCell || !ttservice::hasValue(last) || ttservice::isZero(last))
            return 0;
        const int lots = m_totalLotsCell->toInt();
        return volumeOrTooLarge(double(lots) * indexValue * indexCount * (w / sumWeight) / last);
    }
    default:
        return 0;
    }
}

void COpBasketParamsWidget::getIndexDataByBasket(double &indexValue, int &indexCount) const
{
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto it = baskets.constFind(currentBasketName());
    if (it == baskets.constEnd())
        return;
    indexCount = getIndexVolume(it->m_indexMarket, it->m_indexCode);
    const QString key = QString::fromStdString(
        utils::vqStockKey(it->m_indexMarket.toStdString(), it->m_indexCode.toStdString()));
    // A subscription made and dropped at once asks the quote service to hold the index.
    CQuoteRequest::makeRequest(key, CQuoteRequest::Callback()).reset();
    const auto quote = CQuoteClient::instance()->getStockPrice(key);
    if (quote && ttservice::hasValue(quote->m_lastPrice))
        indexValue = quote->m_lastPrice;
}

// What every row of one sizing shares.
struct COpBasketParamsWidget::CSizingContext
{
    std::vector<boost::shared_ptr<ttservice::CAccountInfo>> accounts;
    std::vector<double> weights;
    double sumWeight = 0.0;
    double totalMoney = 0.0;
    double indexValue = 0.0;
    int indexCount = 1;
    bool useSplit = true;
    bool fixedPrice = false;
    // One account on the one-key tab buys with what its sells free as well.
    bool oneAccountAll = false;
    double oneKeyMoney = 0.0;
    bool touchModule = false;
    std::string userId;
    ttservice::EHedge_Flag_Type hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION;
    // What the rows found on the way: the money of suspended rows, and a row too large to size.
    double stoppedMoney = 0.0;
    bool tooLarge = false;
};

bool COpBasketParamsWidget::fillParamByStocks(const QList<CBasketStockData> &stocks, std::vector<CCodeOrderParam> &params,
                                              QString &error, bool useSplit)
{
    params.clear();
    QList<CBasketStockData> rows = stocks;

    const TickedAccounts ticked = tickedAccounts(m_accountsWidget);
    CSizingContext context;
    context.accounts = ticked.accounts;
    context.weights = ticked.weights;
    context.useSplit = useSplit;
    for (const CBasketStockData &row : qAsConst(rows)) {
        if (!row.m_filtered)
            context.sumWeight += row.m_weight;
    }
    context.fixedPrice = !rows.isEmpty() && rows.first().m_useFixedPrice;
    context.totalMoney = getTotalMoney(ticked.available, ticked.totalAsset, ticked.netValue);
    // One account on the one-key tab buys with what its sells free as well: its lines aim at
    // no single sum the strip could set them against.
    context.oneAccountAll = m_tradeOpType == TOT_ALL && ticked.accounts.size() == 1;
    m_aimedMoney = context.oneAccountAll ? QMap<QString, double>() : aimedMoneyOf(ticked, context.totalMoney);

    if (context.oneAccountAll) {
        context.oneKeyMoney = calcOneKeyAvailableMoney(rows, ticked.keys.first(), context.sumWeight, context.totalMoney);
        if (context.oneKeyMoney <= 0) {
            for (CBasketStockData &row : rows)
                row.m_volume = 0;
        }
    }
    if (getCurrentVolumnType() == VT_INDEX_UNIT)
        getIndexDataByBasket(context.indexValue, context.indexCount);
    context.touchModule = luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_market_if_touched"});
    context.userId = getUserConfig()->getUserId();
    context.hedgeFlag = m_buttonsBar ? m_buttonsBar->getHedgeFlag() : ttservice::HEDGE_FLAG_SPECULATION;

    QStringList rowsLog;
    // One line per row and account: grown once, not copied at every doubling.
    params.reserve(params.size() + rows.size() * static_cast<int>(context.accounts.size()));
    rowsLog.reserve(rows.size() * static_cast<int>(context.accounts.size()));
    for (const CBasketStockData &row : qAsConst(rows))
        sizeRow(row, context, params, rowsLog);

    calcReplaceEtf(context.stoppedMoney, context.accounts, params, context.weights);
    calcReplaceBlacklist(params);
    keepBlackStocksUnbought(params);
    if (context.tooLarge) {
        // The basket keeps its shape: every line stays, none sized, and the trader is told why.
        for (CCodeOrderParam &line : params)
            line.m_volume = 0;
        const CMsgSetting setting = getUserConfig()->msgSetting(1);
        getMsgService()->showMsg(QStringLiteral("数量超出可下单范围, 未计算数量: 请减小金额、份数或比例"), EMsgTypeDef(1),
                                 ttservice::MsgLevel(1), setting.m_showPopup, setting.m_playSound, QString());
    }
    m_orderRowsLog = rowsLog.join(QLatin1Char('|')).toStdString();
    Q_UNUSED(error);
    return true;
}

void COpBasketParamsWidget::sizeRow(const CBasketStockData &row, CSizingContext &context, std::vector<CCodeOrderParam> &params,
                                    QStringList &rowsLog)
{
    const QString key = row.key();
    const std::string market = row.m_market.toStdString();
    const std::string code = row.m_stockCode.toStdString();
    const auto quote = CQuoteClient::instance()->getStockPrice(key);
    const double refPrice = quote && ttservice::hasValue(quote->m_lastPrice) ? quote->m_lastClose : ttservice::NO_VALUE;

    int volume = getTotalVolume(row, context.sumWeight, context.totalMoney, ttservice::getTradeMinUnit(market, code),
                                context.indexValue, context.indexCount);
    if (volume < 0) {
        // Dropping the row would leave the others to take all the money: the whole list is
        // left unsized instead.
        context.tooLarge = true;
        volume = 0;
    }

    const ttservice::CStockInfo stockInfo = stockInfoOf(key);
    if (!row.m_filtered && CQuoteClient::instance()->isStoppedStock(
            QString::fromStdString(utils::vqStockKey(stockInfo.m_market, stockInfo.m_stockCode))))
        context.stoppedMoney += volume * refPrice;

    auto priceType = ttservice::PRICE_TYPE_NONE;
    auto orderType = ttservice::ORDER_TYPE_NORMAL;
    orderTypesForRow(row.m_operationType, priceType, orderType);
    const double calcPrice = quote ? quote->getPriceForCalc(priceType, static_cast<ttservice::EOperationType>(m_operationType),
                                                            orderType, 0, nullptr)
                                   : ttservice::NO_VALUE;
    const double price = ttservice::isZero(calcPrice) ? ttservice::NO_VALUE : calcPrice;

    auto operation = static_cast<ttservice::EOperationType>(m_operationType);
    if (m_operationType == -1)
        operation = m_tradeOpType == TOT_ONEKEY_FUTURE && m_buttonsBar ? m_buttonsBar->getFutureOptType(row.m_operationType)
                                                                     : row.m_operationType;

    std::vector<int> split;
    if (context.oneAccountAll && isBuy(operation)) {
        split.push_back(oneKeyBuyVolume(*context.accounts.front(), context.oneKeyMoney, market, code, price, volume));
    } else {
        utils::TTError splitError;
        split = CTradeClient::instance()->splitEntrusts(volume, price, priceType, context.accounts, context.weights,
                                                        m_accountsWidget ? m_accountsWidget->splitType() : 0, market,
                                                        code, operation, ttservice::HEDGE_FLAG_SPECULATION, splitError,
                                                        orderType);
    }
    if (split.empty())
        split.assign(context.accounts.size(), 0);
    if (split.size() != context.accounts.size())
        return;

    CCodeOrderParam templateLine = lineTemplate(row, stockInfo, context.userId, context.hedgeFlag, context.touchModule);
    // The block's order parameters and the row's price are the same for every account.
    if (const COpBasketStockParamsWidget *block = blockForRow(row.m_operationType))
        block->fillParams(key, volume, templateLine, ttservice::NO_VALUE);
    // The connect, credit and one-key futures blocks price their lines themselves; a one-key
    // row of neither direction falls to the plain stock block, which takes it.
    const bool directed = row.m_operationType == ttservice::OT_BUY || row.m_operationType == ttservice::OT_SELL;
    const bool rowPriceApplied = m_tradeOpType != TOT_HGT && m_tradeOpType != TOT_SGT && m_tradeOpType != TOT_CREDIT
        && !(m_tradeOpType == TOT_ONEKEY_FUTURE && directed);
    if (rowPriceApplied && context.fixedPrice) {
        templateLine.m_priceType = ttservice::PRICE_TYPE_FIXED;
        templateLine.m_price = row.m_price;
    }

    // The row's text is the same for every account (the account is not part of it).
    const QString rowText = row.toString();
    for (size_t k = 0; k < context.accounts.size(); ++k) {
        const boost::shared_ptr<ttservice::CAccountInfo> &account = context.accounts[k];
        if (!row.m_accountKey.empty() && row.m_accountKey != account->getKey())
            continue;
        const int64_t lineVolume = context.useSplit ? split[k] : volume;
        if (lineVolume < 0)
            continue;
        CCodeOrderParam line = templateLine;
        line.m_operationType = lineOperationOf(m_operationType, m_tradeOpType, row.m_operationType, operation);
        line.m_account = account;
        line.m_volume = lineVolume;
        params.push_back(std::move(line));
        rowsLog << rowText;
    }
}

void COpBasketParamsWidget::fillCompParams(CCodeOrderParam *param, ttservice::EOperationType operation)
{
    // A line switched to the other direction takes the order parameters of that side's block.
    const COpBasketStockParamsWidget *block = getParamWidget(operation);
    if (!param || !block)
        return;
    const QString key = QString::fromStdString(utils::vqStockKey(param->m_stockInfo.m_market, param->m_stockInfo.m_stockCode));
    block->fillParams(key, static_cast<int>(param->m_volume), *param, ttservice::NO_VALUE);
}

bool COpBasketParamsWidget::fillClipboard(std::vector<CCodeOrderParam> &params, QString &error)
{
    QList<CBasketStockData> rows = m_clipboardStocks.value(m_tradeOpType);
    filterStockParam(rows);
    requestQuotes(rows);
    return fillParamByStocks(rows, params, error, true);
}

} // namespace TC
