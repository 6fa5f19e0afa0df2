#pragma once

#include "BasketRecordsExport.h"
#include "CSubCommandRecord.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace ttservice {

// One item of a split: the sub-instructions it was divided into.
class BASKET_RECORDS_EXPORT CCommandSplitItem
{
public:
    std::vector<boost::shared_ptr<CSubCommandRecord>> m_records;
    ESubCommandStatus m_status = SUB_COMMAND_NONE;
};

} // namespace ttservice
