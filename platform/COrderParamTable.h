#pragma once

#include "BasketPlatformExport.h"
#include "COddEvenRowTable.h"
#include "CTableColumn.h"

#include <QMap>
#include <QPair>
#include <QSet>
#include <QString>

#include <functional>

namespace TC {

// The client's table of order lines: a toolkit table whose column filters are applied by its
// owner. The filter menu of a column lists the values the owner gives for it (getTableItems);
// when the user applies a filter, the owner receives the chosen values of every filtered column
// with the column's filter type (filterData) and rebuilds the rows itself. The table never
// hides a row on its own.
class BASKET_PLATFORM_EXPORT COrderParamTable : public WK::COddEvenRowTable
{
    Q_OBJECT

public:
    // Table column to filter type and chosen values.
    using FilterMap = QMap<int, QPair<WK::EFilterType, QSet<QString>>>;
    using TableItemsFunc = std::function<QSet<QString>(int column)>;
    using FilterDataFunc = std::function<void(const FilterMap &filters)>;

    // tableType: the kind of list the table shows, kept for its owner (0 for order lines).
    // Either function may be empty: then the menu lists the column's shown texts, or the
    // chosen filters go nowhere.
    COrderParamTable(int tableType, TableItemsFunc getTableItems, FilterDataFunc filterData, QWidget *parent);
    ~COrderParamTable() override;

    int tableType() const { return m_tableType; }

    // How the chosen values of a column are compared; FT_EQUAL unless set, since the menu
    // offers the column's own values.
    void setColumnFilterType(int column, WK::EFilterType type);
    WK::EFilterType columnFilterType(int column) const;

    // Sets the filter of one column as the menu would, with a filter type of its own, and hands
    // all filters to the owner. An empty set removes the column's filter.
    using WK::COddEvenRowTable::setColumnFilter;
    void setColumnFilter(int column, WK::EFilterType type, const QSet<QString> &values);

    // The filters as the owner last received them.
    FilterMap filters() const;

    // The column layout as text. The text travels inside the panel's parameter string, whose
    // levels are split at "|" and "/", so it holds neither; the toolkit's own form is read too.
    bool loadConfigStr(const QString &text);
    QString saveConfigStr() const;

private:
    FilterMap typedFilters(const QMap<int, QSet<QString>> &filters) const;

    int m_tableType = 0;
    FilterDataFunc m_filterData;
    QMap<int, WK::EFilterType> m_filterTypes;
};

} // namespace TC
