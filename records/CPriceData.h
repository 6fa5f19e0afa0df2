#pragma once

#include "BasketRecordsExport.h"
#include "CAutoPriceParam.h"
#include "DoubleCompare.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace TC {

// The last quote of one instrument. Prices that never came carry NO_VALUE.
class BASKET_RECORDS_EXPORT CPriceData
{
public:
    std::string m_market;
    std::string m_stockCode;
    double m_lastPrice = ttservice::NO_VALUE;
    double m_lastClose = ttservice::NO_VALUE;
    double m_upStopPrice = ttservice::NO_VALUE;   // rise limit of the day
    double m_downStopPrice = ttservice::NO_VALUE; // fall limit of the day
    double m_bidPrice1 = ttservice::NO_VALUE;
    double m_askPrice1 = ttservice::NO_VALUE;
    long long m_time = 0;                         // milliseconds of the day the quote was made

    // Price for an order. The rule of this implementation:
    //  - price type 0: the last price; 1: the best bid; 2: the best ask;
    //    3: the rise limit; 4: the fall limit;
    //  - any other type (a fixed price, 11, included): the opposite side's best price, that is the
    //    best ask for a buy and the best bid for a sell, so that the order can trade at once;
    //  - a side price that is missing falls back to the last price, and that to the last close;
    //  - an automatic price parameter adds its ticks of 0.01 (towards the market for its side).
    // NO_VALUE when none of these is known.
    double getPriceForOrder(ttservice::EPriceType priceType, ttservice::EOperationType op,
                            ttservice::EOrderType orderType, int reserved,
                            boost::shared_ptr<ttservice::CAutoPriceParam> autoPrice) const;

    // Price for sizing: as for an order, except that the last price comes before a side price,
    // so that a basket is sized on what the market last paid.
    double getPriceForCalc(ttservice::EPriceType priceType, ttservice::EOperationType op,
                           ttservice::EOrderType orderType, int reserved,
                           boost::shared_ptr<ttservice::CAutoPriceParam> autoPrice) const;

    // Last price if it is known and not zero, else the last close, else NO_VALUE.
    double referencePrice() const;
};

} // namespace TC
