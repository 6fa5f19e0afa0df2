#pragma once

#include "BasketRecordsExport.h"
#include "DoubleCompare.h"
#include "IData.h"

#include <string>

namespace ttservice {

// One position of an account in one instrument.
class BASKET_RECORDS_EXPORT CPositionStatics : public IData
{
public:
    std::string m_market;
    std::string m_stockCode;
    std::string m_stockName;
    double m_volume = 0;       // held now
    double m_canUseVolume = 0; // may be sold now
    double m_cost = NO_VALUE;  // average cost price

    std::string getKey() const override;
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
