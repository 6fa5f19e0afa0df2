#pragma once

#include "BasketRecordsExport.h"
#include "CAutoPriceParam.h"
#include "CPriceData.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

namespace ttservice {

class BASKET_RECORDS_EXPORT CPriceDataHelper
{
public:
    // CPriceData::getPriceForOrder of the record; NO_VALUE for a null record.
    static double getPriceForOrder(const boost::shared_ptr<TC::CPriceData> &record, EPriceType priceType,
                                   EOperationType op, EOrderType orderType, int reserved,
                                   boost::shared_ptr<CAutoPriceParam> autoPrice);
};

} // namespace ttservice
