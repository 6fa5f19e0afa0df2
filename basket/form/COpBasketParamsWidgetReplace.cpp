// The engines that rewrite a finished list: the money of suspended stocks into a substitute
// basket, black stocks into the white stocks the list service names.
#include "COpBasketParamsWidget.h"

#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketStockParamsWidget.h"

#include "AccountHelpers.h"
#include "CBlackAndWhiteListService.h"
#include "CExchangeClient.h"
#include "CGlobalOrderParamTable.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "CQuoteClient.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "OperationHelpers.h"
#include "StockTypeCenter.h"
#include "TradeUnits.h"

#include "DoubleCompare.h"
#include "StockKey.h"

#include <QStringList>

#include <climits>
#include <cmath>
#include <unordered_map>

namespace TC {
namespace {

using ttservice::CCodeOrderParam;

constexpr int kWhiteQuoteTypes[] = {100003, 100016, 100004};

// A volume computed from money and prices, truncated; -1 when it is no volume at all (a price
// that is missing or 0 on the wrong side gives an infinite or undefined quotient).
int truncatedVolume(double volume)
{
    if (!std::isfinite(volume) || volume < 0.0 || volume > static_cast<double>(INT_MAX))
        return -1;
    return static_cast<int>(volume);
}

double lastPriceOf(const QString &key)
{
    const auto quote = CQuoteClient::instance()->getStockPrice(key);
    return quote && ttservice::hasValue(quote->m_lastPrice) && quote->m_lastPrice > 0.0 ? quote->m_lastPrice
                                                                                      : ttservice::NO_VALUE;
}

std::string lineKey(const CCodeOrderParam &line)
{
    return utils::vqStockKey(line.m_stockInfo.m_market, line.m_stockInfo.m_stockCode);
}

// Suspended stocks' lines are left unsized; returns one line per stock key, the last in list
// order (indices stay valid while lines are added).
std::unordered_map<std::string, int> unsizeStoppedAndIndex(std::vector<CCodeOrderParam> &params)
{
    std::unordered_map<std::string, int> lineOfKey;
    for (int i = 0; i < static_cast<int>(params.size()); ++i) {
        CCodeOrderParam &line = params[static_cast<size_t>(i)];
        const std::string key = lineKey(line);
        if (CQuoteClient::instance()->isStoppedStock(QString::fromStdString(key)))
            line.m_volume = 0;
        lineOfKey[key] = i;
    }
    return lineOfKey;
}

CCodeOrderParam replacementTemplate(const CBasketStockData &row, const std::string &userId)
{
    CCodeOrderParam line;
    line.m_userId = userId;
    line.m_hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION;
    line.m_stockInfo.m_market = row.m_market.toStdString();
    line.m_stockInfo.m_stockCode = row.m_stockCode.toStdString();
    line.m_stockInfo.m_exchangeId = line.m_stockInfo.m_stockCode;
    line.m_stockInfo.m_stockName = row.m_stockName.toStdString();
    return line;
}

} // namespace

void COpBasketParamsWidget::calcReplaceEtf(double stoppedMoney,
                                           const std::vector<boost::shared_ptr<ttservice::CAccountInfo>> &accounts,
                                           std::vector<CCodeOrderParam> &params, const std::vector<double> &weights)
{
    // Only a plain buy moves money; the one-key tab's mixed list does not qualify.
    if (!m_replaceToolBar || !m_replaceToolBar->isReplaceETF() || m_operationType != ttservice::OT_BUY
        || ttservice::isZero(stoppedMoney))
        return;
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto substitute = baskets.constFind(m_replaceToolBar->basket());
    if (substitute == baskets.constEnd())
        return;

    QList<CBasketStockData> rows = substitute->m_stocks;
    requestQuotes(rows);
    for (auto it = rows.begin(); it != rows.end();) {
        if (CQuoteClient::instance()->isStoppedStock(it->key()))
            it = rows.erase(it);
        else
            ++it;
    }
    double sumWeight = 0.0;
    for (const CBasketStockData &row : qAsConst(rows))
        sumWeight += row.m_weight;
    const int rowCount = rows.size();

    const std::unordered_map<std::string, int> lineOfKey = unsizeStoppedAndIndex(params);

    const std::string userId = getUserConfig()->getUserId();
    const ttservice::EPriceType priceType = m_stockParams ? m_stockParams->getPriceType() : ttservice::PRICE_TYPE_NONE;
    const ttservice::EOrderType orderType = m_stockParams ? m_stockParams->getOrderType() : ttservice::ORDER_TYPE_NORMAL;
    for (const CBasketStockData &row : qAsConst(rows)) {
        const QString key = row.key();
        const double last = lastPriceOf(key);
        const int volume = truncatedVolume(ttservice::isZero(sumWeight) ? stoppedMoney / last / rowCount
                                                                        : stoppedMoney * row.m_weight / last / sumWeight);
        if (volume < 0)
            continue;

        const auto quote = CQuoteClient::instance()->getStockPrice(key);
        double price = quote ? quote->getPriceForCalc(priceType, static_cast<ttservice::EOperationType>(m_operationType),
                                                      orderType, 0, nullptr)
                             : ttservice::NO_VALUE;
        if (ttservice::isZero(price))
            price = ttservice::NO_VALUE;
        utils::TTError splitError;
        std::vector<int> split = CTradeClient::instance()->splitEntrusts(
            volume, price, priceType, accounts, weights, m_accountsWidget ? m_accountsWidget->splitType() : 0,
            row.m_market.toStdString(), row.m_stockCode.toStdString(), ttservice::OT_BUY,
            ttservice::HEDGE_FLAG_SPECULATION, splitError, static_cast<ttservice::EOrderType>(-1));
        if (split.empty())
            split.assign(accounts.size(), 0);
        if (split.size() != accounts.size())
            continue;

        const CCodeOrderParam templateLine = replacementTemplate(row, userId);
        const auto known = lineOfKey.find(key.toStdString());
        for (size_t k = 0; k < accounts.size(); ++k) {
            CCodeOrderParam line = templateLine;
            if (m_stockParams && m_stockParams->table())
                m_stockParams->table()->fillOrderParam(key, split[k], line, ttservice::NO_VALUE);
            line.m_operationType = ttservice::OT_BUY;
            line.m_account = accounts[k];
            line.m_volume = split[k];
            if (line.m_volume < 0)
                continue;
            // A stock the list has already takes the extra volume of every account on its one
            // line; a new stock gets a line per account.
            if (known != lineOfKey.end())
                params[static_cast<size_t>(known->second)].m_volume += line.m_volume;
            else
                params.push_back(line);
        }
    }
}

void COpBasketParamsWidget::calcReplaceBlacklist(std::vector<CCodeOrderParam> &params)
{
    if (!m_replaceToolBar || !m_replaceToolBar->isReplaceBlacklist() || m_tradeOpType == TOT_FUTURE)
        return;
    const CBlackAndWhiteListService *lists = CBlackAndWhiteListService::instance();
    std::vector<CCodeOrderParam> replacements;
    for (size_t i = 0; i < params.size();) {
        const CCodeOrderParam &old = params[i];
        // Only buys are replaced: selling a black stock is what the list wants.
        if (!isBuy(old.m_operationType)) {
            ++i;
            continue;
        }
        const QString oldKey = QString::fromStdString(lineKey(old));
        const QString white = lists->getWhiteStock(accountDisplayIDQs(old.m_account), oldKey);
        const auto record = white.isEmpty() ? boost::shared_ptr<ttservice::CInstrumentDetail>()
                                            : CExchangeClient::instance()->getCodeInfo(white);
        if (!record) {
            ++i;
            continue;
        }
        CCodeOrderParam line;
        line.m_stockInfo.m_market = record->m_market;
        line.m_stockInfo.m_stockCode = record->m_stockCode;
        line.m_stockInfo.m_exchangeId = record->m_stockCode;
        line.m_stockInfo.m_stockName = record->m_stockName;
        const QString whiteKey = QString::fromStdString(lineKey(line));
        for (int type : kWhiteQuoteTypes) {
            if (ttservice::StockTypeCenter::isTypedStock(type, QString::fromStdString(record->m_market),
                                                         QString::fromStdString(record->m_stockCode))) {
                m_pendingQuotes.insert(whiteKey);
                break;
            }
        }
        line.m_userId = old.m_userId;
        line.m_hedgeFlag = old.m_hedgeFlag;
        line.m_operationType = old.m_operationType;
        line.m_account = old.m_account;

        // The money of the line is kept; a price missing on either side gives no volume.
        int volume = truncatedVolume(static_cast<double>(old.m_volume) * lastPriceOf(oldKey) / lastPriceOf(whiteKey));
        const int unit = ttservice::getTradeMinUnit(record->m_market, record->m_stockCode);
        if (volume > 0 && unit > 0)
            volume -= volume % unit;
        if (const COpBasketStockParamsWidget *block = getParamWidget(old.m_operationType))
            block->fillParams(whiteKey, volume, line, ttservice::NO_VALUE);
        line.m_volume = volume;
        if (volume < 0) {
            ++i;
            continue;
        }
        replacements.push_back(line);
        params.erase(params.begin() + static_cast<std::ptrdiff_t>(i));
    }

    // Two black stocks with one white stock in one account end as one line.
    for (const CCodeOrderParam &line : qAsConst(replacements)) {
        const std::string account = line.m_account ? line.m_account->getKey() : std::string();
        bool merged = false;
        for (CCodeOrderParam &present : params) {
            if (present.m_stockInfo.m_stockCode == line.m_stockInfo.m_stockCode
                && (present.m_account ? present.m_account->getKey() : std::string()) == account) {
                present.m_volume += line.m_volume;
                merged = true;
                break;
            }
        }
        if (!merged)
            params.push_back(line);
    }
}

void COpBasketParamsWidget::keepBlackStocksUnbought(std::vector<CCodeOrderParam> &params)
{
    // While a blacklist box is ticked no account buys a stock on its own black list: what the
    // replacement could not exchange keeps its line, with nothing to buy.
    const bool filter = m_replaceToolBar && m_replaceToolBar->isFilterBlacklist();
    const bool replace = m_replaceToolBar && m_replaceToolBar->isReplaceBlacklist();
    QStringList unreplaced;
    if (filter || replace) {
        const CBlackAndWhiteListService *lists = CBlackAndWhiteListService::instance();
        std::unordered_map<const ttservice::CAccountInfo *, QString> displayIds;
        for (CCodeOrderParam &line : params) {
            if (!isBuy(line.m_operationType) || !line.m_account)
                continue;
            auto id = displayIds.find(line.m_account.get());
            if (id == displayIds.end())
                id = displayIds.emplace(line.m_account.get(), accountDisplayIDQs(line.m_account)).first;
            const QString key = QString::fromStdString(lineKey(line));
            if (!lists->isBlackStock(id->second, key))
                continue;
            if (replace && !filter && line.m_volume > 0)
                unreplaced << id->second + QLatin1Char(' ') + key;
            line.m_volume = 0;
        }
    }
    // A trader who asked for replacement hears why a line stays at 0; the same outcome of a
    // later recalculation is not told again.
    const QString note = unreplaced.join(QStringLiteral("、"));
    if (note == m_unreplacedBlackNote)
        return;
    m_unreplacedBlackNote = note;
    if (note.isEmpty())
        return;
    const CMsgSetting setting = getUserConfig()->msgSetting(1);
    getMsgService()->showMsg(QStringLiteral("黑名单股票没有可替换的白名单股票, 不买入: ") + note, EMsgTypeDef(1),
                             ttservice::MsgLevel(1), setting.m_showPopup, setting.m_playSound, QString());
}

} // namespace TC
