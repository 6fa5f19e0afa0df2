#pragma once

#include "BasketRecordsExport.h"
#include "CCodeOrderParam.h"
#include "IData.h"
#include "TradeEnums.h"

#include <string>
#include <vector>

namespace ttservice {

// A manager's instruction: the lines a trader is asked to execute.
class BASKET_RECORDS_EXPORT COrderCommand : public IData
{
public:
    std::string m_commandKey;
    EVqTraderType m_traderType = VQ_TRADER_BASKET;
    EVqHedgeType m_hedgeType = VQ_NOT_HEDGED;
    EVqStopLossType m_stopLossType = VQ_STOP_LOSS_NONE;
    std::vector<CCodeOrderParam> m_orders;
    bson::BSONObj m_hedgeBson; // hedge parameters; an object smaller than 6 bytes holds none
    int m_commandId = 0;
    // Only an instruction in state 0 (new) or 2 (partly executed) may still be executed.
    int m_commandState = 0;
    // User ids of those who held the instruction, in order; the last is the trader in charge.
    std::vector<std::string> m_holderIds;
    // The algorithm table the manager filled (an order type) and, per line in line order, that
    // table's settings as text, the lines' texts joined by "@".
    int m_tableType = 0;
    std::string m_tableSettings;
    // The basket the instruction was made from, shown to the trader in the basket row.
    std::string m_basketName;

    bool hasHedgeParam() const { return m_hedgeBson.objsize() >= 6; }

    std::string getKey() const override { return m_commandKey; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
