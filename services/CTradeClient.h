#pragma once

#include "BasketServicesExport.h"
#include "Bson.h"
#include "CAccountInfo.h"
#include "CAutoPriceParam.h"
#include "CCodeOrderParam.h"
#include "COrderCommand.h"
#include "CPlaceCommandsCall.h"
#include "CPlaceTasksCall.h"
#include "IOrderRoute.h"
#include "TTError.h"
#include "TradeEnums.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QMap>
#include <QPair>
#include <QString>

#include <functional>
#include <map>
#include <string>
#include <vector>

class QWidget;

namespace TC {

// The client's order service: everything that leaves the panel as an order goes through it.
//
// Here no order is sent anywhere. Each outward call is recorded with all its arguments and
// returns at once; tests read the records, and a demo host may watch the calls through the
// observers. User-interface thread only.
class BASKET_SERVICES_EXPORT CTradeClient final
{
public:
    // One confirmTask call.
    struct CConfirmTaskCall
    {
        QWidget *m_parent = nullptr;
        std::vector<ttservice::CCodeOrderParam> m_orders;
        bool m_flag = false;
    };
    // One splitEntrusts call, with its arguments.
    struct CSplitEntrustsCall
    {
        int m_volume = 0;
        double m_price = 0.0;
        ttservice::EPriceType m_priceType = ttservice::PRICE_TYPE_NONE;
        std::vector<boost::shared_ptr<ttservice::CAccountInfo>> m_accounts;
        std::vector<double> m_weights;
        int m_splitType = 0;
        std::string m_market;
        std::string m_stockCode;
        ttservice::EOperationType m_operation = ttservice::OT_NONE;
        ttservice::EHedge_Flag_Type m_hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION;
        ttservice::EOrderType m_orderType = ttservice::ORDER_TYPE_NONE;
    };

    // The one instance in the process, created on first use; never null, never freed.
    static CTradeClient *instance();

    // Sends a basket as new orders, or as an instruction to traders. The arguments, in order:
    // trader type, hedge type, special button bar type, the order lines, a map of named values,
    // stop loss type, three flags (the third: create a portfolio of the lines), a result
    // callback (may be empty), the hedge parameters as BSON, a text, the trade platform, the
    // algorithm parameter string, the limited price type, the basket name, a remark, the
    // strategy type, two flags, an integer, a text, a map of texts to pairs, the ETF hedge
    // status, the command log, a BSON object. See CPlaceCommandsCall for the recorded form.
    // Returns whether the orders were accepted for sending (scripted here, true by default).
    bool placeCommands(ttservice::EVqTraderType traderType, ttservice::EVqHedgeType hedgeType,
                       ttservice::EFtSpecBtnBarType specBtnBarType, std::vector<ttservice::CCodeOrderParam> &orders,
                       std::map<std::string, double> valueMap, ttservice::EVqStopLossType stopLossType,
                       bool firstFlag, bool secondFlag, bool createPortfolio,
                       boost::function<void(utils::TTError, int)> resultCallback, bson::BSONObj hedgeBson,
                       std::string commandText, ttservice::ETradePlatform tradePlatform, std::string paramString,
                       ttservice::EVqLimitedPriceType limitedPriceType, std::string basketName, const QString &remark,
                       ttservice::EOrderStrategyType strategyType, bool firstExtraFlag, bool secondExtraFlag,
                       int extraInt, std::string extraText, QMap<QString, QPair<int, int>> pairMap,
                       ttservice::EtfHedgeStatus etfHedgeStatus, std::string commandLog, bson::BSONObj extraBson);

    // Executes lines of an instruction as tasks. The arguments, in order: trader type, hedge
    // type, the instruction, the lines, stop loss type, a flag, a text, the callback that gets
    // the created tasks and their tag (may be empty), an integer, the algorithm parameter
    // string, an automatic price (may be null), a text, the sub-instruction id. See
    // CPlaceTasksCall. Returns whether the tasks were accepted (scripted, true by default).
    // The callback is not called here; a test calls the recorded one to play the service's part.
    bool placeTasks(ttservice::EVqTraderType traderType, ttservice::EVqHedgeType hedgeType,
                    boost::shared_ptr<ttservice::COrderCommand> command, std::vector<ttservice::CCodeOrderParam> &orders,
                    ttservice::EVqStopLossType stopLossType, bool flag, std::string text, PlaceTasksCallback callback,
                    int intValue, std::string paramString, boost::shared_ptr<ttservice::CAutoPriceParam> autoPrice,
                    const std::string &extraText, int subCommandId);

    // Asks the user to confirm the lines (a modal dialog over parent in the client); false
    // cancels. Here the answer of the confirm handler if one is set, else the scripted answer
    // (true by default); never modal.
    bool confirmTask(QWidget *parent, const std::vector<ttservice::CCodeOrderParam> &orders, bool flag);

    // The instruction with this key, null for an unknown key.
    boost::shared_ptr<ttservice::COrderCommand> getCommandByKey(std::string key) const;

    // The login state of the account with this key. 0 means logged in and able to trade
    // (ttservice::isLoginStatusReady); an account whose state was never set counts as logged in.
    ttservice::EBROKER_LOGIN_STATUS getLoginStatus(const std::string &accountKey) const;

    // Divides a total volume over accounts. The rule of this library:
    //   - no accounts: an empty result; weights of another length than accounts: an empty
    //     result and a text in error;
    //   - otherwise one volume per account, in the order of accounts: the account's weight
    //     share of volume, rounded down to the trade unit (ttservice::getTradeMinUnit of market
    //     and code, at least 1). The whole units that rounding leaves over go one unit at a time
    //     to the accounts of a weight above 0, in order (first, second, ..., first again). What
    //     is left below one unit is dropped on a buy (isBuyOperation), which may never carry an
    //     odd lot, and goes to the first account on any other operation, which then adds up to
    //     volume. Weights that are negative or without a value count as 0; when no weight is
    //     above 0 every account weighs the same;
    //   - a volume of 0 or less gives 0 to every account.
    // price, price type, split type, operation, hedge flag and order type do not change the rule
    // here. A test may script the answer with setSplitEntrustsHandler.
    std::vector<int> splitEntrusts(int volume, double price, ttservice::EPriceType priceType,
                                   const std::vector<boost::shared_ptr<ttservice::CAccountInfo>> &accounts,
                                   const std::vector<double> &weights, int splitType, std::string market,
                                   std::string code, ttservice::EOperationType operation,
                                   ttservice::EHedge_Flag_Type hedgeFlag, utils::TTError &error,
                                   ttservice::EOrderType orderType);

    // --- control surface (tests and the demo host) ---
    const std::vector<CPlaceCommandsCall> &placedCommands() const { return m_placeCommandsCalls; }
    const std::vector<CPlaceTasksCall> &placedTasks() const { return m_placeTasksCalls; }
    const std::vector<CConfirmTaskCall> &confirmedTasks() const { return m_confirmCalls; }
    const std::vector<CSplitEntrustsCall> &splitCalls() const { return m_splitCalls; }

    // Adds or replaces an instruction under its m_commandKey.
    void addCommand(boost::shared_ptr<ttservice::COrderCommand> command);
    void removeCommand(const std::string &key);
    void setLoginStatus(const std::string &accountKey, ttservice::EBROKER_LOGIN_STATUS status);
    void setPlaceResult(bool accepted) { m_placeResult = accepted; }
    void setConfirmTaskResult(bool confirmed) { m_confirmResult = confirmed; }
    // Answers confirmTask in place of the scripted answer (a demo host shows a real dialog).
    void setConfirmTaskHandler(std::function<bool(const CConfirmTaskCall &)> handler);
    // Answers splitEntrusts in place of the rule above.
    void setSplitEntrustsHandler(std::function<std::vector<int>(const CSplitEntrustsCall &)> handler);
    // Called after each recorded placeCommands / placeTasks call.
    void setPlaceCommandsObserver(std::function<void(const CPlaceCommandsCall &)> observer);
    void setPlaceTasksObserver(std::function<void(const CPlaceTasksCall &)> observer);
    // Carries every recorded placeCommands / placeTasks call on to a counterparty (null: none).
    // A call the route refuses answers false. Not owned.
    void setRoute(IOrderRoute *route) { m_route = route; }
    IOrderRoute *route() const { return m_route; }
    // Adds what a counterparty reports filled to the traded volume of the instruction's line with
    // this key (CCodeOrderParam::getKey), so that the next sizing takes only what is left.
    // False when no instruction or line has these keys.
    bool addTradedVolume(const std::string &commandKey, const std::string &lineKey, double volume);
    // No recorded calls, no instructions, every account logged in, scripted answers true, no
    // handlers, no observers and no route.
    void reset();

private:
    CTradeClient() = default;

    std::vector<CPlaceCommandsCall> m_placeCommandsCalls;
    std::vector<CPlaceTasksCall> m_placeTasksCalls;
    std::vector<CConfirmTaskCall> m_confirmCalls;
    std::vector<CSplitEntrustsCall> m_splitCalls;
    std::map<std::string, boost::shared_ptr<ttservice::COrderCommand>> m_commands;
    std::map<std::string, ttservice::EBROKER_LOGIN_STATUS> m_loginStatus;
    bool m_placeResult = true;
    bool m_confirmResult = true;
    std::function<bool(const CConfirmTaskCall &)> m_confirmHandler;
    std::function<std::vector<int>(const CSplitEntrustsCall &)> m_splitHandler;
    std::function<void(const CPlaceCommandsCall &)> m_placeCommandsObserver;
    std::function<void(const CPlaceTasksCall &)> m_placeTasksObserver;
    IOrderRoute *m_route = nullptr;
};

} // namespace TC
