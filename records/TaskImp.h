#pragma once

#include "BasketRecordsExport.h"

namespace ttservice {

// A task that the order service made from an instruction's lines.
class BASKET_RECORDS_EXPORT TaskImp
{
public:
    int m_taskId = 0;
};

} // namespace ttservice
