#pragma once

#include "BasketToolkitExport.h"
#include "CBaseNormalTable.h"

namespace WK {

// The table whose rows alternate between two backgrounds, for long lists read across.
class BASKET_TOOLKIT_EXPORT COddEvenRowTable : public CBaseNormalTable
{
    Q_OBJECT

public:
    // selectType: CBaseNormalTable::ESelectType.
    explicit COddEvenRowTable(QWidget *parent = nullptr, int selectType = ST_MULTI_ROW);
    ~COddEvenRowTable() override;

protected:
    void applyLook() override;
};

} // namespace WK
