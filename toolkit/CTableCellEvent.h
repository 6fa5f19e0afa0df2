#pragma once

#include "BasketToolkitExport.h"

#include <QString>

namespace WK {

// Event numbers the tables deliver upward through the event bus.
enum ETableEvent {
    TE_ROW_SELECTED = 42,  // id and value: the row id that became current
    TE_VALIDATE_EDIT = 46, // id: row id, value: column, text: the proposed text; data: CTableCellEvent
    TE_CELL_EDITED = 47,   // id: row id, value: column, text: the stored text; data: CTableCellEvent
    TE_ITEM_CHECKED = 48,  // id: row id, value: 1 ticked / 0 not, text: the column; data: CTableCellEvent
    TE_CELL_CLICKED = 49,  // id: row id, value: column, text: the column; data: CTableCellEvent
    TE_ROWS_DELETED = 53,  // value: number of rows; data: const std::set<int>* of the deleted row ids
};

// The cell an event is about. For TE_VALIDATE_EDIT a handler may rewrite m_text and clear
// m_accept to refuse the edit.
struct BASKET_TOOLKIT_EXPORT CTableCellEvent
{
    CTableCellEvent() = default;
    CTableCellEvent(int rowId, int column, const QString &text);

    int m_rowId = -1;
    int m_column = -1;
    bool m_accept = true;
    bool m_checked = false;
    QString m_text;
};

} // namespace WK
