#include "CTradeClient.h"

#include "DoubleCompare.h"
#include "OperationSide.h"
#include "TradeUnits.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace TC {

CTradeClient *CTradeClient::instance()
{
    static CTradeClient client;
    return &client;
}

bool CTradeClient::placeCommands(
    ttservice::EVqTraderType traderType, ttservice::EVqHedgeType hedgeType,
    ttservice::EFtSpecBtnBarType specBtnBarType, std::vector<ttservice::CCodeOrderParam> &orders,
    std::map<std::string, double> valueMap, ttservice::EVqStopLossType stopLossType, bool firstFlag,
    bool secondFlag, bool createPortfolio, boost::function<void(utils::TTError, int)> resultCallback,
    bson::BSONObj hedgeBson, std::string commandText, ttservice::ETradePlatform tradePlatform,
    std::string paramString, ttservice::EVqLimitedPriceType limitedPriceType, std::string basketName,
    const QString &remark, ttservice::EOrderStrategyType strategyType, bool firstExtraFlag, bool secondExtraFlag,
    int extraInt, std::string extraText, QMap<QString, QPair<int, int>> pairMap,
    ttservice::EtfHedgeStatus etfHedgeStatus, std::string commandLog, bson::BSONObj extraBson)
{
    CPlaceCommandsCall call;
    call.m_traderType = traderType;
    call.m_hedgeType = hedgeType;
    call.m_specBtnBarType = specBtnBarType;
    call.m_orders = orders;
    call.m_valueMap = std::move(valueMap);
    call.m_stopLossType = stopLossType;
    call.m_firstFlag = firstFlag;
    call.m_secondFlag = secondFlag;
    call.m_createPortfolio = createPortfolio;
    call.m_resultCallback = std::move(resultCallback);
    // Owned copies: the caller's objects may point into buffers that go away after the call.
    call.m_hedgeBson = hedgeBson.getOwned();
    call.m_commandText = std::move(commandText);
    call.m_tradePlatform = tradePlatform;
    call.m_paramString = std::move(paramString);
    call.m_limitedPriceType = limitedPriceType;
    call.m_basketName = std::move(basketName);
    call.m_remark = remark;
    call.m_strategyType = strategyType;
    call.m_firstExtraFlag = firstExtraFlag;
    call.m_secondExtraFlag = secondExtraFlag;
    call.m_extraInt = extraInt;
    call.m_extraText = std::move(extraText);
    call.m_pairMap = std::move(pairMap);
    call.m_etfHedgeStatus = etfHedgeStatus;
    call.m_commandLog = std::move(commandLog);
    call.m_extraBson = extraBson.getOwned();
    // Moved, not copied: a basket may hold twenty thousand lines, and this runs on the press.
    m_placeCommandsCalls.push_back(std::move(call));
    const size_t at = m_placeCommandsCalls.size() - 1; // an observer may record more calls
    if (m_placeCommandsObserver)
        m_placeCommandsObserver(m_placeCommandsCalls[at]);
    if (m_placeResult && m_route)
        return m_route->routeCommands(m_placeCommandsCalls[at]);
    return m_placeResult;
}

bool CTradeClient::placeTasks(ttservice::EVqTraderType traderType, ttservice::EVqHedgeType hedgeType,
                              boost::shared_ptr<ttservice::COrderCommand> command,
                              std::vector<ttservice::CCodeOrderParam> &orders, ttservice::EVqStopLossType stopLossType,
                              bool flag, std::string text, PlaceTasksCallback callback, int intValue,
                              std::string paramString, boost::shared_ptr<ttservice::CAutoPriceParam> autoPrice,
                              const std::string &extraText, int subCommandId)
{
    CPlaceTasksCall call;
    call.m_traderType = traderType;
    call.m_hedgeType = hedgeType;
    call.m_command = std::move(command);
    call.m_orders = orders;
    call.m_stopLossType = stopLossType;
    call.m_flag = flag;
    call.m_text = std::move(text);
    call.m_callback = std::move(callback);
    call.m_intValue = intValue;
    call.m_paramString = std::move(paramString);
    call.m_autoPrice = std::move(autoPrice);
    call.m_extraText = extraText;
    call.m_subCommandId = subCommandId;
    m_placeTasksCalls.push_back(std::move(call));
    const size_t at = m_placeTasksCalls.size() - 1;
    if (m_placeTasksObserver)
        m_placeTasksObserver(m_placeTasksCalls[at]);
    if (m_placeResult && m_route)
        return m_route->routeTasks(m_placeTasksCalls[at]);
    return m_placeResult;
}

bool CTradeClient::confirmTask(QWidget *parent, const std::vector<ttservice::CCodeOrderParam> &orders, bool flag)
{
    const CConfirmTaskCall call{parent, orders, flag};
    m_confirmCalls.push_back(call);
    return m_confirmHandler ? m_confirmHandler(call) : m_confirmResult;
}

boost::shared_ptr<ttservice::COrderCommand> CTradeClient::getCommandByKey(std::string key) const
{
    const auto it = m_commands.find(key);
    return it == m_commands.end() ? boost::shared_ptr<ttservice::COrderCommand>() : it->second;
}

ttservice::EBROKER_LOGIN_STATUS CTradeClient::getLoginStatus(const std::string &accountKey) const
{
    const auto it = m_loginStatus.find(accountKey);
    return it == m_loginStatus.end() ? ttservice::LOGIN_STATUS_READY : it->second;
}

std::vector<int> CTradeClient::splitEntrusts(int volume, double price, ttservice::EPriceType priceType,
                                             const std::vector<boost::shared_ptr<ttservice::CAccountInfo>> &accounts,
                                             const std::vector<double> &weights, int splitType, std::string market,
                                             std::string code, ttservice::EOperationType operation,
                                             ttservice::EHedge_Flag_Type hedgeFlag, utils::TTError &error,
                                             ttservice::EOrderType orderType)
{
    CSplitEntrustsCall call{volume,   price,  priceType, accounts, weights, splitType,
                            market,   code,   operation, hedgeFlag, orderType};
    m_splitCalls.push_back(call);
    if (m_splitHandler)
        return m_splitHandler(call);

    if (accounts.empty())
        return {};
    if (weights.size() != accounts.size()) {
        error.set(1, "one weight per account is needed to split a volume");
        return {};
    }
    std::vector<int> shares(accounts.size(), 0);
    if (volume <= 0)
        return shares;

    const int unit = std::max(1, ttservice::getTradeMinUnit(market, code));
    std::vector<double> usable(weights.size(), 0.0);
    double sum = 0.0;
    for (size_t i = 0; i < weights.size(); ++i) {
        if (ttservice::hasValue(weights[i]) && weights[i] > 0.0)
            usable[i] = weights[i];
        sum += usable[i];
    }
    if (!ttservice::isGreater(sum, 0.0)) {
        std::fill(usable.begin(), usable.end(), 1.0);
        sum = static_cast<double>(usable.size());
    }
    long long given = 0;
    for (size_t i = 0; i < usable.size(); ++i) {
        const double share = static_cast<double>(volume) * usable[i] / sum;
        // A share within the comparison tolerance of a whole lot counts as that lot.
        const long long lots = static_cast<long long>(std::floor(share / unit + ttservice::DOUBLE_EPSILON));
        shares[i] = static_cast<int>(lots * unit);
        given += shares[i];
    }
    // Whole units that rounding left over go one at a time to the accounts that take part, in
    // order, so that no account's share ever holds an odd lot.
    long long leftoverUnits = (volume - given) / unit;
    for (size_t i = 0; leftoverUnits > 0; i = (i + 1) % usable.size()) {
        if (usable[i] <= 0.0)
            continue;
        shares[i] += unit;
        given += unit;
        --leftoverUnits;
    }
    // Below one unit: a buy may not carry an odd lot, so it is left out; a sell may clear an odd
    // holding, so the first account sells it.
    if (!ttservice::isBuyOperation(operation))
        shares[0] += static_cast<int>(volume - given);
    return shares;
}

void CTradeClient::addCommand(boost::shared_ptr<ttservice::COrderCommand> command)
{
    if (command)
        m_commands[command->getKey()] = std::move(command);
}

bool CTradeClient::addTradedVolume(const std::string &commandKey, const std::string &lineKey, double volume)
{
    const auto it = m_commands.find(commandKey);
    if (it == m_commands.end() || !it->second)
        return false;
    for (ttservice::CCodeOrderParam &line : it->second->m_orders) {
        if (line.getKey() != lineKey)
            continue;
        line.m_tradedVolume = (ttservice::hasValue(line.m_tradedVolume) ? line.m_tradedVolume : 0.0) + volume;
        return true;
    }
    return false;
}

void CTradeClient::removeCommand(const std::string &key)
{
    m_commands.erase(key);
}

void CTradeClient::setLoginStatus(const std::string &accountKey, ttservice::EBROKER_LOGIN_STATUS status)
{
    m_loginStatus[accountKey] = status;
}

void CTradeClient::setConfirmTaskHandler(std::function<bool(const CConfirmTaskCall &)> handler)
{
    m_confirmHandler = std::move(handler);
}

void CTradeClient::setSplitEntrustsHandler(std::function<std::vector<int>(const CSplitEntrustsCall &)> handler)
{
    m_splitHandler = std::move(handler);
}

void CTradeClient::setPlaceCommandsObserver(std::function<void(const CPlaceCommandsCall &)> observer)
{
    m_placeCommandsObserver = std::move(observer);
}

void CTradeClient::setPlaceTasksObserver(std::function<void(const CPlaceTasksCall &)> observer)
{
    m_placeTasksObserver = std::move(observer);
}

void CTradeClient::reset()
{
    m_placeCommandsCalls.clear();
    m_placeTasksCalls.clear();
    m_confirmCalls.clear();
    m_splitCalls.clear();
    m_commands.clear();
    m_loginStatus.clear();
    m_placeResult = true;
    m_confirmResult = true;
    m_confirmHandler = nullptr;
    m_splitHandler = nullptr;
    m_placeCommandsObserver = nullptr;
    m_placeTasksObserver = nullptr;
    m_route = nullptr;
}

} // namespace TC
