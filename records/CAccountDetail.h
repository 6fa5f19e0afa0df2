#pragma once

#include "BasketRecordsExport.h"
#include "DoubleCompare.h"
#include "IData.h"

#include <string>

namespace ttservice {

// The money of an account.
class BASKET_RECORDS_EXPORT CAccountDetail : public IData
{
public:
    std::string m_accountKey;
    double m_available = NO_VALUE;  // money that can be used now
    double m_totalAsset = NO_VALUE; // money and positions at market value
    double m_marketValue = NO_VALUE;

    std::string getKey() const override { return m_accountKey; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
