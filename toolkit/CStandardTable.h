#pragma once

#include "BasketToolkitExport.h"
#include "CBaseNormalTable.h"

namespace WK {

// The table with plain rows on one background.
class BASKET_TOOLKIT_EXPORT CStandardTable : public CBaseNormalTable
{
    Q_OBJECT

public:
    // selectType: CBaseNormalTable::ESelectType.
    explicit CStandardTable(QWidget *parent = nullptr, int selectType = ST_MULTI_ROW);
    ~CStandardTable() override;
};

} // namespace WK
