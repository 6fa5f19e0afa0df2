#pragma once

#include "BasketServicesExport.h"
#include "DoubleCompare.h"
#include "IData.h"

#include <string>

namespace ttservice {

// The net value of a product, kept in the account data under data type 580 and the key
// genKey(product id): CAccountData::getData(580, CProductNetValue::genKey(id)).
class BASKET_SERVICES_EXPORT CProductNetValue : public IData
{
public:
    int m_productId = 0;
    double m_netValue = NO_VALUE;

    static std::string genKey(int productId);

    std::string getKey() const override { return genKey(m_productId); }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
