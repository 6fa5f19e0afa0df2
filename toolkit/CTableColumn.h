#pragma once

#include "BasketToolkitExport.h"
#include "TextHelpers.h"

#include <QString>
#include <QVariant>
#include <Qt>

#include <functional>

namespace WK {

// How a column stores the text the user types into it, and how its numbers are shown.
enum EColumnFormat {
    CF_TEXT = 0,   // typed text stays text; numbers set by the program keep their kind
    CF_INT = 1,    // typed text becomes a whole number
    CF_DOUBLE = 2, // typed text becomes a decimal number
};

// How a column filter compares a row's value with the values the user chose.
enum EFilterType {
    FT_EQUAL = 0,   // the value equals one of them, exactly
    FT_CONTAIN = 1, // the value contains one of them, whatever the case
};

// A row's value in a column whose numbers the owner of the rows keeps (CTableColumn::m_source).
struct CSourcedValue
{
    bool m_known = false; // false: the cell shows m_text
    double m_value = 0.0;
    int m_precision = -1; // -1: the column's
    QString m_text;
};

// The description of one table column. A column is addressed by its number (its id), which
// stays the same whatever order the user drags the columns into.
struct BASKET_TOOLKIT_EXPORT CTableColumn
{
    CTableColumn() = default;
    explicit CTableColumn(const QString &title, int width = 80,
                          Qt::Alignment alignment = Qt::AlignRight | Qt::AlignVCenter);

    // The text of a number in this column: an integer through formatIntNumber, a double
    // through formatDoubleNumber with this precision (a negative one takes the column's).
    // The no-value mark and non-finite doubles show as m_invalidText.
    QString formatNumber(const QVariant &value, int precision = -1, int numberFlags = -1) const;

    QString m_title;
    int m_width = 80;
    Qt::Alignment m_alignment = Qt::AlignRight | Qt::AlignVCenter;
    EColumnFormat m_format = CF_TEXT;
    int m_precision = 2;
    int m_numberFlags = NF_NONE;                // ENumberFormatFlag bits
    QString m_invalidText = QStringLiteral("-");
    QString m_colorKey;                         // text colour of cells without their own key
    bool m_visible = true;
    bool m_editable = false;
    bool m_bold = false;
    bool m_flashChange = false;                 // a changed value lights its cell up briefly
    bool m_filterable = false;                  // offers the filter menu on its header
    bool m_checkable = false;                   // every cell carries a check box
    bool m_summed = false;                      // the totals line shows its sum
    // Set when the owner of the rows keeps the column's values itself: the model asks the
    // source for a row's value whenever it shows, sorts, filters or sums the column, and
    // ignores the numbers and texts stored in its cells (their colours, check boxes and
    // editability still count). A column that a live market moves on every row then costs
    // what is read, not a stored cell per row per tick. The owner says what changed with
    // CTableModel::sourcedValuesChanged.
    std::function<CSourcedValue(int rowId)> m_source;
};

} // namespace WK
