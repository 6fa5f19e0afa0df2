#include "CTableModel.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRect>

#include <cfloat>
#include <memory>
#include <vector>

namespace {

using WK::CTableColumn;
using WK::CTableModel;

std::unique_ptr<CTableModel> makeModel(int columns, std::initializer_list<QVector<QVariant>> rows = {})
{
    auto model = std::make_unique<CTableModel>();
    for (int column = 0; column < columns; ++column)
        model->addTableColumn(CTableColumn(QStringLiteral("c%1").arg(column)));
    for (const QVector<QVariant> &row : rows)
        model->appendRow(row);
    return model;
}

QVector<int> ids(std::initializer_list<int> list)
{
    return QVector<int>(list);
}

// What the model announced to its views: changed rectangles (visual), insertions, resets.
struct Announced {
    explicit Announced(CTableModel &model)
    {
        QObject::connect(&model, &CTableModel::dataChanged, [this](const QModelIndex &from, const QModelIndex &to) {
            changes.push_back(QRect(QPoint(from.column(), from.row()), QPoint(to.column(), to.row())));
        });
        QObject::connect(&model, &CTableModel::rowsInserted,
                         [this](const QModelIndex &, int first, int last) { inserted.emplace_back(first, last); });
        QObject::connect(&model, &CTableModel::modelReset, [this] { ++resets; });
    }
    std::vector<QRect> changes; // x: columns, y: rows
    std::vector<std::pair<int, int>> inserted;
    int resets = 0;
};

TEST(TableModelRows, idsSurviveDeletionAndNewRowsNeverReuseThem)
{
    auto model = makeModel(2, {{"a", 1}, {"b", 1}, {"c", 1}, {"d", 1}, {"e", 1}});
    ASSERT_TRUE(model->removeRowById(1));
    ASSERT_EQ(model->removeRowsById({3, 42}), 1);

    EXPECT_EQ(model->rowIds(), ids({0, 2, 4}));
    EXPECT_EQ(model->itemText(4, 0), QStringLiteral("e"));
    EXPECT_EQ(model->visualRowOf(4), 2);
    EXPECT_FALSE(model->setItemText(3, 0, QStringLiteral("gone")));
    EXPECT_EQ(model->appendRow({QStringLiteral("f")}), 5);

    // After a clear, ids start from zero again.
    model->clearRows();
    model->resizeRows(3);
    EXPECT_EQ(model->rowIds(), ids({0, 1, 2}));
    model->resizeRows(1);
    EXPECT_EQ(model->rowIds(), ids({0}));
}

TEST(TableModelRows, sortingChangesTheVisualOrderNotTheIds)
{
    auto model = makeModel(2, {{"x", 30}, {"y", 10}, {"z", 20}});
    model->sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({1, 2, 0}));
    EXPECT_EQ(model->rowIdAt(0), 1);
    EXPECT_EQ(model->itemText(0, 0), QStringLiteral("x"));
    model->sortByColumn(1, Qt::DescendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({0, 2, 1}));
    model->clearSort();
    EXPECT_EQ(model->visibleRowIds(), ids({0, 1, 2}));

    // Stable, numbers before texts before empty cells; no value sorts with the empty cells.
    auto mixed = makeModel(1, {{1}, {"-"}, {1}, {QString()}, {DBL_MAX}, {0.5}});
    mixed->sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(mixed->visibleRowIds(), ids({5, 0, 2, 1, 3, 4}));
    mixed->sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(mixed->visibleRowIds(), ids({3, 4, 1, 0, 2, 5}));
}

TEST(TableModelUpdates, eachChangeAnnouncesOnlyTheCellsItChangedAndABatchOnce)
{
    auto model = makeModel(5, {{0, 0, 0, 0, 0}, {1, 1, 1, 1, 1}, {2, 2, 2, 2, 2}, {3, 3, 3, 3, 3}});
    model->sortByColumn(0, Qt::DescendingOrder); // row id 0 goes last, to visual row 3
    Announced announced(*model);

    model->setItemInt(0, 2, 7);
    model->setItemInt(0, 2, 7);
    EXPECT_EQ(announced.changes, std::vector<QRect>{QRect(QPoint(2, 3), QPoint(2, 3))})
        << "one cell, once: an unchanged value is not announced";

    announced.changes.clear();
    model->updateRow(2, {QVariant(), 5, 2, 9, QVariant()}); // column 2 keeps its value: visual row 1
    model->updateRow(2, {QVariant(), 5, 2, 9});
    EXPECT_EQ(announced.changes, std::vector<QRect>{QRect(QPoint(1, 1), QPoint(3, 1))});
    EXPECT_EQ(model->itemInt(2, 1), 5);
    EXPECT_EQ(model->itemInt(2, 4), 2);

    announced.changes.clear();
    model->beginUpdate();
    model->setItemDouble(1, 2, 1.5); // visual row 2
    model->updateRow(3, {QVariant(), 8}); // visual row 0
    EXPECT_TRUE(announced.changes.empty());
    model->endUpdate();
    EXPECT_EQ(announced.changes, std::vector<QRect>{QRect(QPoint(1, 0), QPoint(2, 2))});
}

// Loading into an empty table resets it once: the table's scale test.
TEST(TableModelUpdates, rowsAddedToAFilledTableAreInsertedInPlace)
{
    auto filled = makeModel(1, {{10}, {30}, {50}, {60}});
    Announced intoFilled(*filled);
    filled->beginUpdate();
    filled->appendRow({70});
    filled->appendRow({80});
    filled->endUpdate();
    EXPECT_EQ(intoFilled.inserted, (std::vector<std::pair<int, int>>{{4, 5}}));

    filled->sortByColumn(0, Qt::AscendingOrder);
    intoFilled.inserted.clear();
    const int rowId = filled->addRowBegin();
    filled->setItemInt(rowId, 0, 40);
    filled->addRowEnd();
    EXPECT_EQ(intoFilled.inserted, (std::vector<std::pair<int, int>>{{2, 2}})) << "in place in a sorted table";
    EXPECT_EQ(intoFilled.resets, 0);
    EXPECT_EQ(filled->visibleRowIds(), ids({0, 1, 6, 2, 3, 4, 5}));
}

TEST(TableModelFilter, showsTheRowsThatPassEveryFilteredColumn)
{
    struct Row {
        const char *name;
        QMap<int, QSet<QString>> filters;
        QVector<int> shown;
    };
    const Row rows[] = {
        {"lowerCaseMatchesCapitalsInsideLongerText", {{1, {QStringLiteral("alpha")}}}, ids({0, 3})},
        {"capitalsMatchLowerCase", {{0, {QStringLiteral("SZ")}}}, ids({1, 3})},
        {"substringMatchesLongerCodes", {{0, {QStringLiteral("sh")}}}, ids({0, 2})},
        {"anyMemberOfTheSetIsEnough", {{1, {QStringLiteral("steel"), QStringLiteral("bank")}}}, ids({0, 1})},
        {"emptyMemberMatchesOnlyEmptyCells", {{1, {QString()}}}, ids({2})},
        {"emptyMemberBesideText", {{2, {QString(), QStringLiteral("卖")}}}, ids({1, 3})},
        {"rowMustPassEveryColumn", {{0, {QStringLiteral("s")}}, {2, {QStringLiteral("买入")}}}, ids({0, 2})},
        {"earlierColumnStillCounts", {{0, {QStringLiteral("sz")}}, {1, {QStringLiteral("alpha")}}}, ids({3})},
        {"emptySetIsNoFilter", {{0, {}}}, ids({0, 1, 2, 3})},
        {"noRowPasses", {{0, {QStringLiteral("HK")}}}, ids({})},
    };
    for (const Row &row : rows) {
        auto model = makeModel(3, {{"SH", "Alpha Bank", QStringLiteral("买入")},
                                   {"SZ", "beta steel", QStringLiteral("卖出")},
                                   {"SHO", QString(), QStringLiteral("买入")},
                                   {"sz", "ALPHABET", QString()}});
        for (auto it = row.filters.cbegin(); it != row.filters.cend(); ++it)
            model->setColumnFilter(it.key(), it.value());
        EXPECT_EQ(model->visibleRowIds(), row.shown) << row.name;
    }
}

TEST(TableModelFilter, clearingAFilterBringsTheRowsBackInSortOrder)
{
    auto model = makeModel(2, {{"a", 3}, {"b", 1}, {"a", 2}});
    model->sortByColumn(1, Qt::AscendingOrder);
    model->setColumnFilter(0, {QStringLiteral("a")});
    EXPECT_EQ(model->visibleRowIds(), ids({2, 0}));

    model->clearFilter(0);
    EXPECT_EQ(model->visibleRowIds(), ids({1, 2, 0}));
    EXPECT_EQ(model->distinctTexts(0), (QSet<QString>{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST(TableModelTotals, sumTheVisibleRowsSkipUnknownValuesAndStayTheLastRow)
{
    auto model = makeModel(3, {{"a", 10, 1.5}, {"b", 20, 2.25}, {"c", 30, DBL_MAX}, {"d", 5, "-"}});
    for (int column : {1, 2}) {
        CTableColumn summed = model->tableColumn(column);
        summed.m_summed = true;
        model->setTableColumn(column, summed);
    }
    model->setTotalsVisible(true);
    const auto totals = [&model](int column) { return model->index(model->rowCount() - 1, column).data().toString(); };
    EXPECT_EQ(totals(1), QStringLiteral("65"));
    EXPECT_EQ(totals(2), QStringLiteral("3.75"));
    EXPECT_EQ(totals(0), QString());
    model->setStatText(1, QStringLiteral("合计"));
    EXPECT_EQ(totals(1), QStringLiteral("合计")) << "a given text stands instead of the sum";
    model->clearStatTexts();

    for (Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        model->sortByColumn(1, order);
        const int last = model->rowCount() - 1;
        EXPECT_EQ(last, 4);
        EXPECT_TRUE(model->index(last, 0).data(CTableModel::TotalsLineRole).toBool());
        EXPECT_TRUE(model->index(last, 1).data(CTableModel::BoldRole).toBool());
        EXPECT_EQ(model->rowIdAt(last), -1);
        EXPECT_FALSE(model->flags(model->index(last, 1)) & Qt::ItemIsSelectable);
    }
    EXPECT_EQ(model->rowIdAt(0), 2) << "descending: the largest volume first";

    model->setColumnFilter(0, {QStringLiteral("a"), QStringLiteral("c")});
    EXPECT_EQ(totals(1), QStringLiteral("40"));
    EXPECT_EQ(totals(2), QStringLiteral("1.50"));
    model->setItemInt(2, 1, 100);
    EXPECT_EQ(totals(1), QStringLiteral("110"));
}

TEST(TableModelFlash, aChangedValueFlashesUntilItsTimeIsUp)
{
    auto model = makeModel(2);
    CTableColumn cost = model->tableColumn(1);
    cost.m_flashChange = true;
    model->setTableColumn(1, cost);
    model->setFlashDuration(30);
    const int rowId = model->appendRow({QStringLiteral("a"), 10.0});
    EXPECT_EQ(model->flashingCellCount(), 0) << "the first value is a fill, not a change";

    model->setItemDouble(rowId, 1, 11.0);
    EXPECT_TRUE(model->isFlashing(rowId, 1));
    EXPECT_TRUE(model->index(0, 1).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(model->index(0, 0).data(Qt::BackgroundRole).isValid());
    model->setItemDouble(rowId, 1, 12.0);
    const int other = model->appendRow({QStringLiteral("b"), 1.0});
    model->setItemDouble(other, 1, 2.0);
    EXPECT_EQ(model->flashingCellCount(), 2) << "a cell flashes once however often it changes";
    model->removeRowById(other);
    EXPECT_EQ(model->flashingCellCount(), 1) << "a removed row's cells flash no more";

    bool backgroundAnnounced = false;
    QObject::connect(model.get(), &CTableModel::dataChanged,
                     [&backgroundAnnounced](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                         backgroundAnnounced = backgroundAnnounced || roles.contains(Qt::BackgroundRole);
                     });
    QElapsedTimer clock;
    clock.start();
    while (model->flashingCellCount() > 0 && clock.elapsed() < 3000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);

    EXPECT_EQ(model->flashingCellCount(), 0);
    EXPECT_TRUE(backgroundAnnounced);
    EXPECT_FALSE(model->index(0, 1).data(Qt::BackgroundRole).isValid());
}

} // namespace

namespace {

// A column whose values its owner keeps: the model shows, sorts, filters, sums and lights them
// up from the source, never from the cells stored under them.
TEST(TableModelSourcedColumn, everyReaderTakesTheOwnersValue)
{
    auto model = makeModel(2, {{"a", "stale"}, {"b", "stale"}, {"c", "stale"}});
    CTableColumn column = model->tableColumn(1);
    column.m_format = WK::CF_DOUBLE;
    column.m_flashChange = true;
    std::vector<double> values{12.5, -1.0, 3.25}; // -1: not known, shows "-"
    column.m_source = [&values](int rowId) {
        WK::CSourcedValue value;
        value.m_known = values[static_cast<size_t>(rowId)] >= 0.0;
        value.m_value = values[static_cast<size_t>(rowId)];
        value.m_precision = rowId == 2 ? 3 : -1;
        if (!value.m_known)
            value.m_text = QStringLiteral("-");
        return value;
    };
    model->setTableColumn(1, column);

    EXPECT_EQ(model->itemText(0, 1), QStringLiteral("12.50"));
    EXPECT_EQ(model->itemText(1, 1), QStringLiteral("-"));
    EXPECT_EQ(model->itemText(2, 1), QStringLiteral("3.250"));
    EXPECT_EQ(model->data(model->index(2, 1), CTableModel::NumberRole).toDouble(), 3.25);
    EXPECT_DOUBLE_EQ(model->columnSum(1), 15.75);
    EXPECT_DOUBLE_EQ(model->itemDouble(1, 1), 0.0);

    // The owner's new value is what a sort and a filter see, once the owner says so.
    values[0] = 1.0;
    model->sourcedValuesChanged(0, 1, 1);
    model->flashCell(0, 1, -1);
    EXPECT_TRUE(model->isFlashing(0, 1));
    EXPECT_FALSE(model->isFlashing(2, 1));
    model->sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({0, 2, 1}));
    model->setColumnFilter(1, {QStringLiteral("3.250")});
    EXPECT_EQ(model->visibleRowIds(), ids({2}));
}

} // namespace
