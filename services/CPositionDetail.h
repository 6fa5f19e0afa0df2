#pragma once

#include "BasketServicesExport.h"
#include "IData.h"

#include <cstdint>
#include <string>

namespace ttservice {

// One position of an account as the position query of the data centre lists it (data type 545
// of CAccountData::getVector).
class BASKET_SERVICES_EXPORT CPositionDetail : public IData
{
public:
    std::string m_market;
    std::string m_stockCode;
    std::string m_stockName;
    int64_t m_volume = 0;         // held now
    int64_t m_sellableVolume = 0; // may be sold now

    std::string getKey() const override;
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
