#pragma once

#include "BasketRecordsExport.h"
#include "IData.h"

#include <string>

namespace ttservice {

// An instrument as an order line names it.
class BASKET_RECORDS_EXPORT CStockInfo : public IData
{
public:
    std::string m_market;     // "SH", "SZ", "CFFEX" ...
    std::string m_exchangeId; // the exchange's own id of the instrument
    std::string m_stockCode;
    std::string m_stockName;

    CStockInfo() = default;
    CStockInfo(std::string market, std::string code, std::string name = std::string());

    std::string getKey() const override;
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
