#pragma once

#include "BasketRecordsExport.h"

namespace ttservice {

// Parameters of an automatic price: ticks added to the chosen price.
class BASKET_RECORDS_EXPORT CAutoPriceParam
{
public:
    int m_tickOffset = 0;
};

} // namespace ttservice
