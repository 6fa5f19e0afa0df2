#pragma once

#include "BasketRecordsExport.h"
#include "DoubleCompare.h"
#include "IData.h"

#include <cstdint>
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
    // The side of a futures position: 48 long, 49 short (EEntrustBS); a stock position is long.
    int m_direction = 48;
    // Not held back by open orders or freezes, as the position lists show it; m_canUseVolume
    // also holds back what may not be sold today.
    int64_t m_availableVolume = 0;
    double m_lastPrice = NO_VALUE;   // as the trading service last valued the position
    double m_marketValue = NO_VALUE; // volume x last price (x contract multiple)

    std::string getKey() const override;
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
