#pragma once

#include "BasketServicesExport.h"
#include "IData.h"

#include <string>

namespace ttservice {

// A product (fund) that accounts belong to, as CUserConfig::getAccountProduct gives it.
class BASKET_SERVICES_EXPORT CProductInfo : public IData
{
public:
    int m_productId = 0;
    std::string m_productName;

    std::string getKey() const override { return std::to_string(m_productId); }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
