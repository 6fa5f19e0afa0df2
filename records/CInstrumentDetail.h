#pragma once

#include "BasketRecordsExport.h"
#include "IData.h"

#include <string>

namespace ttservice {

// What the instrument service knows of a code.
class BASKET_RECORDS_EXPORT CInstrumentDetail : public IData
{
public:
    std::string m_market;
    std::string m_stockCode;
    std::string m_stockName;
    double m_priceTick = 0.01;
    int m_volumeMultiple = 0x7fffffff; // contract multiple; 0x7fffffff or 0: none
    int m_tradeUnit = 100;             // smallest lot that may be traded

    std::string getKey() const override;
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
