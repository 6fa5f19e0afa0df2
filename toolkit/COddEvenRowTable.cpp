#include "COddEvenRowTable.h"

#include "CUiResource.h"

#include <QTableView>

namespace WK {

COddEvenRowTable::COddEvenRowTable(QWidget *parent, int selectType)
    : CBaseNormalTable(QStringLiteral("odd_even_row_table"), selectType, parent)
{
    view()->setAlternatingRowColors(true);
    applyLook();
}

COddEvenRowTable::~COddEvenRowTable() = default;

void COddEvenRowTable::applyLook()
{
    CBaseNormalTable::applyLook();
    QTableView *table = view();
    QPalette palette = table->palette();
    const QColor base = palette.color(QPalette::Base);
    QColor alternate = CUiResource::instance()->getColor(QStringLiteral("clr_table_alternate_row_background"));
    // A theme without its own colour for the second rows gets a shade of the first.
    if (alternate == base)
        alternate = base.darker(104);
    palette.setColor(QPalette::AlternateBase, alternate);
    table->setPalette(palette);
}

} // namespace WK
