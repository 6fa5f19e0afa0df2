#pragma once

#include "BasketRecordsExport.h"
#include "CMainCommandSplitRecord.h"
#include "CSubCommandRecord.h"

#include <boost/shared_ptr.hpp>

namespace TC {

// Which part of a split instruction the panel is given: the whole split or one sub-record.
struct BASKET_RECORDS_EXPORT sSplitCmdInfo
{
    sSplitCmdInfo() = default;
    sSplitCmdInfo(bool isMain, boost::shared_ptr<ttservice::CMainCommandSplitRecord> mainRecord,
                  boost::shared_ptr<ttservice::CSubCommandRecord> subRecord)
        : m_isMain(isMain), m_mainRecord(std::move(mainRecord)), m_subRecord(std::move(subRecord))
    {
    }

    bool m_isMain = true;
    boost::shared_ptr<ttservice::CMainCommandSplitRecord> m_mainRecord;
    boost::shared_ptr<ttservice::CSubCommandRecord> m_subRecord;
};

} // namespace TC
