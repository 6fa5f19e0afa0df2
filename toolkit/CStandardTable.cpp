#include "CStandardTable.h"

namespace WK {

CStandardTable::CStandardTable(QWidget *parent, int selectType)
    : CBaseNormalTable(QStringLiteral("standard_table"), selectType, parent)
{
}

CStandardTable::~CStandardTable() = default;

} // namespace WK
