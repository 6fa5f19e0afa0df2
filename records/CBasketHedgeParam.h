#pragma once

#include "BasketRecordsExport.h"
#include "DoubleCompare.h"
#include "IData.h"

#include <string>

namespace ttservice {

// The hedge of a basket with index futures, carried as BSON.
class BASKET_RECORDS_EXPORT CBasketHedgeParam : public IData
{
public:
    bool m_enabled = false;
    int m_hedgeType = -1;          // -1: no automatic hedge
    std::string m_contractCode;    // the futures contract that hedges
    std::string m_contractMarket;
    double m_hedgeRatio = 100.0;   // percent of the basket's value
    int m_contractVolume = 0;      // lots, when fixed by the user

    std::string getKey() const override { return m_contractCode; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
