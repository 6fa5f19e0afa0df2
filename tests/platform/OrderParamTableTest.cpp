#include "COrderParamTable.h"

#include "CTableColumnFilterPopup.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <memory>
#include <vector>

using TC::COrderParamTable;

namespace {

// An owner that lists its own values for the filter menu and keeps every filter it receives.
struct Owner
{
    COrderParamTable::FilterMap last;
    int calls = 0;
    std::vector<int> askedColumns;

    COrderParamTable *makeTable()
    {
        auto *table = new COrderParamTable(
            0,
            [this](int column) {
                askedColumns.push_back(column);
                return QSet<QString>{QStringLiteral("SH"), QStringLiteral("SZ")};
            },
            [this](const COrderParamTable::FilterMap &filters) {
                last = filters;
                ++calls;
            },
            nullptr);
        table->setColumnCount(3);
        table->setFlag(table->flag() | WK::CBaseNormalTable::TF_COLUMN_FILTER);
        for (int column = 0; column < 3; ++column)
            table->setColumnFilterable(column, true);
        table->appendRow(QStringList{QStringLiteral("SH"), QStringLiteral("600000"), QStringLiteral("x")});
        table->appendRow(QStringList{QStringLiteral("SZ"), QStringLiteral("000001"), QStringLiteral("y")});
        return table;
    }
};

TEST(OrderParamTable, TheMenuListsTheOwnersValuesAndHandsOverTypedFilters)
{
    Owner owner;
    std::unique_ptr<COrderParamTable> table(owner.makeTable());

    WK::CTableColumnFilterPopup *popup = table->showFilterPopup(0);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(owner.askedColumns, std::vector<int>{0});
    EXPECT_EQ(popup->values(), (QStringList{QStringLiteral("SH"), QStringLiteral("SZ")}));
    popup->setValueChecked(QStringLiteral("SH"), false);
    popup->accept();

    ASSERT_EQ(owner.calls, 1);
    ASSERT_EQ(owner.last.size(), 1);
    EXPECT_EQ(owner.last.value(0).first, WK::FT_EQUAL);
    EXPECT_EQ(owner.last.value(0).second, QSet<QString>{QStringLiteral("SZ")});
    // The owner rebuilds the rows; the table hides none by itself.
    EXPECT_EQ(table->rowCount(), 2);
}

TEST(OrderParamTable, EveryCallCarriesAllFiltersWithTheirColumnTypes)
{
    Owner owner;
    std::unique_ptr<COrderParamTable> table(owner.makeTable());
    table->setColumnFilterType(2, WK::FT_CONTAIN);

    table->setColumnFilter(0, QSet<QString>{QStringLiteral("SH")});
    table->setColumnFilter(2, QSet<QString>{QStringLiteral("X")});
    ASSERT_EQ(owner.last.size(), 2);
    EXPECT_EQ(owner.last.value(0).first, WK::FT_EQUAL);
    EXPECT_EQ(owner.last.value(2).first, WK::FT_CONTAIN);
    EXPECT_EQ(table->filters(), owner.last);

    table->setColumnFilter(1, WK::FT_CONTAIN, QSet<QString>{QStringLiteral("600")});
    EXPECT_EQ(owner.last.value(1), qMakePair(WK::FT_CONTAIN, QSet<QString>{QStringLiteral("600")}));

    // An empty choice removes the column's filter; the owner's own clearing is not reported back.
    table->setColumnFilter(0, QSet<QString>());
    EXPECT_EQ(owner.last.keys(), (QList<int>{1, 2}));
    const int calls = owner.calls;
    table->clearFilter();
    EXPECT_EQ(owner.calls, calls);
    EXPECT_TRUE(table->filters().isEmpty());
}

TEST(OrderParamTable, WithoutAnOwnerItFiltersNothingAndItsLayoutTextFitsThePanelsString)
{
    COrderParamTable table(0, nullptr, nullptr, nullptr);
    table.setColumnCount(3);
    table.setColumnFilterable(0, true);
    table.appendRow(QStringList{QStringLiteral("SH")});
    table.appendRow(QStringList{QStringLiteral("SZ")});
    WK::CTableColumnFilterPopup *popup = table.showFilterPopup(0);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->values(), (QStringList{QStringLiteral("SH"), QStringLiteral("SZ")}));
    table.setColumnFilter(0, QSet<QString>{QStringLiteral("SH")});
    EXPECT_EQ(table.rowCount(), 2);

    table.setColumnVisible(1, false);
    table.moveColumn(2, 0);
    const QString text = table.saveConfigStr();
    EXPECT_FALSE(text.contains(QLatin1Char('|')) || text.contains(QLatin1Char('/'))) << text.toStdString();
    COrderParamTable other(0, nullptr, nullptr, nullptr);
    other.setColumnCount(3);
    ASSERT_TRUE(other.loadConfigStr(text));
    EXPECT_EQ(other.visualColumnOrder(), (QVector<int>{2, 0, 1}));
    EXPECT_FALSE(other.isColumnVisible(1));
    EXPECT_TRUE(other.loadConfigStr(other.WK::CBaseNormalTable::saveConfigStr())) << "the toolkit's form";
}

} // namespace
