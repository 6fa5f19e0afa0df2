#pragma once

#include "BasketRecordsExport.h"
#include "CCommandSplitItem.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace ttservice {

// All the parts into which an instruction was split.
class BASKET_RECORDS_EXPORT CMainCommandSplitRecord
{
public:
    std::vector<boost::shared_ptr<CCommandSplitItem>> m_splitItems;
};

} // namespace ttservice
