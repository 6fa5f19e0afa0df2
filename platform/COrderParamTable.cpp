#include "COrderParamTable.h"

#include <utility>

namespace TC {

COrderParamTable::COrderParamTable(int tableType, TableItemsFunc getTableItems, FilterDataFunc filterData,
                                   QWidget *parent)
    : WK::COddEvenRowTable(parent, ST_MULTI_ROW)
    , m_tableType(tableType)
    , m_filterData(std::move(filterData))
{
    setObjectName(QStringLiteral("order_param_table"));
    if (getTableItems)
        setFilterItemsFunc(std::move(getTableItems));
    // Installed even without an owner's function: the rows of this table are the owner's, and
    // the table must not hide any of them by itself.
    setFilterDataFunc([this](const QMap<int, QSet<QString>> &chosen) {
        if (m_filterData)
            m_filterData(typedFilters(chosen));
    });
}

COrderParamTable::~COrderParamTable() = default;

void COrderParamTable::setColumnFilterType(int column, WK::EFilterType type)
{
    if (column < 0 || column >= columnCount())
        return;
    m_filterTypes.insert(column, type);
}

WK::EFilterType COrderParamTable::columnFilterType(int column) const
{
    return m_filterTypes.value(column, WK::FT_EQUAL);
}

void COrderParamTable::setColumnFilter(int column, WK::EFilterType type, const QSet<QString> &values)
{
    if (column < 0 || column >= columnCount())
        return;
    setColumnFilterType(column, type);
    setColumnFilter(column, values);
}

COrderParamTable::FilterMap COrderParamTable::filters() const
{
    return typedFilters(columnFilters());
}

bool COrderParamTable::loadConfigStr(const QString &text)
{
    QString layout = text;
    return WK::COddEvenRowTable::loadConfigStr(layout.replace(QLatin1Char(';'), QLatin1Char('|')));
}

QString COrderParamTable::saveConfigStr() const
{
    QString layout = WK::COddEvenRowTable::saveConfigStr();
    return layout.replace(QLatin1Char('|'), QLatin1Char(';'));
}

COrderParamTable::FilterMap COrderParamTable::typedFilters(const QMap<int, QSet<QString>> &filters) const
{
    FilterMap typed;
    for (auto it = filters.cbegin(); it != filters.cend(); ++it)
        typed.insert(it.key(), qMakePair(columnFilterType(it.key()), it.value()));
    return typed;
}

} // namespace TC
