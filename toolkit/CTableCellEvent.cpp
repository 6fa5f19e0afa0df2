#include "CTableCellEvent.h"

namespace WK {

CTableCellEvent::CTableCellEvent(int rowId, int column, const QString &text)
    : m_rowId(rowId)
    , m_column(column)
    , m_text(text)
{
}

} // namespace WK
