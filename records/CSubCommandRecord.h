#pragma once

#include "BasketRecordsExport.h"
#include "CCodeOrderParam.h"
#include "TradeEnums.h"

#include <string>
#include <vector>

namespace ttservice {

// One part of a split instruction: the lines meant for one trader.
class BASKET_RECORDS_EXPORT CSubCommandRecord
{
public:
    int m_subCommandId = 0;
    ESubCommandStatus m_status = SUB_COMMAND_NONE;
    std::vector<CCodeOrderParam> m_orders;
    std::string m_userId; // the trader this part is meant for
};

} // namespace ttservice
