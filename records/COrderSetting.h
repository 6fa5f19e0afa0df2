#pragma once

#include "BasketRecordsExport.h"
#include "IData.h"

#include <ctime>
#include <string>

namespace ttservice {

// Price step, validity, price type and order type of an order, as the parameter tables keep them per
// operation.
class BASKET_RECORDS_EXPORT COrderSetting : public IData
{
public:
    bool m_stepIsAbsolute = true;
    double m_stepValue = 0.0;
    double m_stepRate = 0.0;
    bool m_keepValidTime = false;
    int m_validSeconds = 0;
    int m_stepFlag = 0;
    time_t m_startTime = 0;
    time_t m_endTime = 0;
    // ttservice::EPriceType; -1 leaves the table's price type as it is.
    int m_priceType = -1;
    // ttservice::EOrderType the table showed. Only the blocks that keep a setting per operation
    // (credit, futures) bring it back; -1 (texts written before it was kept) brings back none.
    int m_orderType = -1;
    // The fixed price the table showed; below 0 (texts written before it was kept) leaves the
    // table's as it is.
    double m_fixedPrice = -1.0;

    std::string getKey() const override { return std::string(); }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
