#pragma once

#include "BasketServicesExport.h"
#include "Bson.h"
#include "CAutoPriceParam.h"
#include "CCodeOrderParam.h"
#include "COrderCommand.h"
#include "CVqOrderTag.h"
#include "TaskImp.h"
#include "TradeEnums.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QVector>

#include <string>
#include <vector>

namespace TC {

// Called by the order service with the tasks it made of an instruction's lines and the tag under
// which it grouped them.
using PlaceTasksCallback = boost::function<void(const QVector<boost::shared_ptr<ttservice::TaskImp>> &,
                                                 boost::shared_ptr<ttservice::CVqOrderTag>)>;

// One recorded call of CTradeClient::placeTasks: every argument, in the order of the call.
struct BASKET_SERVICES_EXPORT CPlaceTasksCall
{
    ttservice::EVqTraderType m_traderType = ttservice::VQ_TRADER_NONE;        // 1
    ttservice::EVqHedgeType m_hedgeType = ttservice::VQ_HEDGE_NONE;           // 2
    boost::shared_ptr<ttservice::COrderCommand> m_command;                    // 3: the instruction
    std::vector<ttservice::CCodeOrderParam> m_orders;                         // 4: the lines to execute
    ttservice::EVqStopLossType m_stopLossType = ttservice::VQ_STOP_LOSS_NONE; // 5
    bool m_flag = false;                                                      // 6
    std::string m_text;                                                       // 7
    PlaceTasksCallback m_callback;                                            // 8: may be empty
    int m_intValue = 0;                                                       // 9
    std::string m_paramString;                                                // 10: algorithm parameters
    boost::shared_ptr<ttservice::CAutoPriceParam> m_autoPrice;                // 11: may be null
    std::string m_extraText;                                                  // 12
    int m_subCommandId = 0;                                                   // 13: the sub-instruction id

    // The call as one BSON object: "call": "placeTasks", each argument under its field name
    // without "m_", the instruction and the lines in their BSON forms, for the callback only
    // whether one was given, the automatic price as its tick offset or null.
    bson::BSONObj toBson() const;
    // toBson() as JSON text on one line, for the demo host's order log.
    std::string jsonString() const;
};

} // namespace TC
