#pragma once

#include "BasketServicesExport.h"
#include "Bson.h"
#include "CCodeOrderParam.h"
#include "TTError.h"
#include "TradeEnums.h"

#include <boost/function.hpp>

#include <QMap>
#include <QPair>
#include <QString>

#include <map>
#include <string>
#include <vector>

namespace TC {

// One recorded call of CTradeClient::placeCommands: every argument, in the order of the call.
// Field comments give the argument's number and what the basket panel puts there.
struct BASKET_SERVICES_EXPORT CPlaceCommandsCall
{
    ttservice::EVqTraderType m_traderType = ttservice::VQ_TRADER_NONE;         // 1: 4, the basket trader
    ttservice::EVqHedgeType m_hedgeType = ttservice::VQ_HEDGE_NONE;            // 2: 1 plain, 2 hedged
    ttservice::EFtSpecBtnBarType m_specBtnBarType = ttservice::FT_SPEC_BTN_BAR_NONE; // 3
    std::vector<ttservice::CCodeOrderParam> m_orders;                          // 4: the order list
    std::map<std::string, double> m_valueMap;                                  // 5
    ttservice::EVqStopLossType m_stopLossType = ttservice::VQ_STOP_LOSS_NONE;  // 6
    bool m_firstFlag = false;                                                  // 7
    bool m_secondFlag = false;                                                 // 8
    bool m_createPortfolio = false;                                            // 9
    boost::function<void(utils::TTError, int)> m_resultCallback;               // 10: may be empty
    bson::BSONObj m_hedgeBson;                                                 // 11: the hedge's parameters
    std::string m_commandText;                                                 // 12
    ttservice::ETradePlatform m_tradePlatform = ttservice::TRADE_PLATFORM_NONE; // 13
    std::string m_paramString;                                                 // 14: algorithm parameters
    ttservice::EVqLimitedPriceType m_limitedPriceType = ttservice::VQ_LIMITED_PRICE_NONE; // 15
    std::string m_basketName;                                                  // 16
    QString m_remark;                                                          // 17
    ttservice::EOrderStrategyType m_strategyType = ttservice::ORDER_STRATEGY_NONE; // 18
    bool m_firstExtraFlag = false;                                             // 19
    bool m_secondExtraFlag = false;                                            // 20
    int m_extraInt = 0;                                                        // 21
    std::string m_extraText;                                                   // 22
    QMap<QString, QPair<int, int>> m_pairMap;                                  // 23
    ttservice::EtfHedgeStatus m_etfHedgeStatus = ttservice::ETF_HEDGE_NONE;    // 24
    std::string m_commandLog;                                                  // 25
    bson::BSONObj m_extraBson;                                                 // 26

    // The call as one BSON object: "call": "placeCommands", each argument under its field name
    // without "m_", the order lines in their BSON form, and for the callback only whether one
    // was given.
    bson::BSONObj toBson() const;
    // toBson() as JSON text on one line, for the demo host's order log.
    std::string jsonString() const;
};

} // namespace TC
