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

    bool hasHedgeParam() const { return m_hedgeBson.objsize() >= 6; }

    std::string getKey() const override { return m_commandKey; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
