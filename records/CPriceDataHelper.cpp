#include "CPriceDataHelper.h"

namespace ttservice {

double CPriceDataHelper::getPriceForOrder(const boost::shared_ptr<TC::CPriceData> &record, EPriceType priceType,
                                          EOperationType op, EOrderType orderType, int reserved,
                                          boost::shared_ptr<CAutoPriceParam> autoPrice)
{
    if (!record)
        return NO_VALUE;
    return record->getPriceForOrder(priceType, op, orderType, reserved, autoPrice);
}

} // namespace ttservice
