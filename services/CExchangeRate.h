#pragma once

#include "BasketServicesExport.h"
#include "DoubleCompare.h"
#include "IData.h"

#include <string>

namespace ttservice {

// The exchange rates of a connect account (Hong Kong dollars to yuan), kept in the account data
// under data type DATA_TYPE_EXCHANGE_RATE. A trade is priced at the rate raised by its float:
// buy parity = (1 + buy float) x buy rate, and the same for the sell side.
class BASKET_SERVICES_EXPORT CExchangeRate : public IData
{
public:
    double m_buyRate = NO_VALUE;
    double m_sellRate = NO_VALUE;
    double m_buyFloat = 0.0;
    double m_sellFloat = 0.0;

    std::string getKey() const override { return "exchange_rate"; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
