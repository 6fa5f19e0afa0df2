#include "CTableModel.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cfloat>
#include <memory>
#include <ostream>
#include <vector>

namespace {

using WK::CTableColumn;
using WK::CTableModel;

std::unique_ptr<CTableModel> makeModel(int columns)
{
    auto model = std::make_unique<CTableModel>();
    for (int column = 0; column < columns; ++column)
        model->addTableColumn(CTableColumn(QStringLiteral("c%1").arg(column)));
    return model;
}

QVector<int> ids(std::initializer_list<int> list)
{
    return QVector<int>(list);
}

struct Change {
    int top;
    int left;
    int bottom;
    int right;
};

// Every dataChanged of the model, as visual rectangles.
std::vector<Change> *recordChanges(CTableModel &model)
{
    auto *changes = new std::vector<Change>;
    QObject::connect(&model, &CTableModel::dataChanged, &model,
                     [changes](const QModelIndex &from, const QModelIndex &to) {
                         changes->push_back({from.row(), from.column(), to.row(), to.column()});
                     });
    QObject::connect(&model, &QObject::destroyed, [changes]() { delete changes; });
    return changes;
}

TEST(TableModelRows, idsSurviveDeletionAndNewRowsNeverReuseThem)
{
    auto model = makeModel(2);
    for (const char *name : {"a", "b", "c", "d", "e"})
        model->appendRow({QString::fromLatin1(name), 1});
    ASSERT_TRUE(model->removeRowById(1));
    ASSERT_EQ(model->removeRowsById({3, 42}), 1);

    EXPECT_EQ(model->rowIds(), ids({0, 2, 4}));
    EXPECT_EQ(model->itemText(4, 0), QStringLiteral("e"));
    EXPECT_EQ(model->visualRowOf(4), 2);
    EXPECT_FALSE(model->setItemText(3, 0, QStringLiteral("gone")));
    EXPECT_EQ(model->appendRow({QStringLiteral("f")}), 5);
}

TEST(TableModelRows, sortingChangesTheVisualOrderNotTheIds)
{
    auto model = makeModel(2);
    model->appendRow({QStringLiteral("x"), 30});
    model->appendRow({QStringLiteral("y"), 10});
    model->appendRow({QStringLiteral("z"), 20});

    model->sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({1, 2, 0}));
    EXPECT_EQ(model->rowIdAt(0), 1);
    EXPECT_EQ(model->itemText(0, 0), QStringLiteral("x"));

    model->sortByColumn(1, Qt::DescendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({0, 2, 1}));

    model->clearSort();
    EXPECT_EQ(model->visibleRowIds(), ids({0, 1, 2}));
}

TEST(TableModelRows, sortIsStableAndPutsNumbersBeforeTextsBeforeEmptyCells)
{
    auto model = makeModel(1);
    model->appendRow({1});
    model->appendRow({QStringLiteral("-")});
    model->appendRow({1});
    model->appendRow({QString()});
    model->appendRow({DBL_MAX}); // no value: sorts with the empty cells
    model->appendRow({0.5});

    model->sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({5, 0, 2, 1, 3, 4}));
    model->sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(model->visibleRowIds(), ids({3, 4, 1, 0, 2, 5}));
}

TEST(TableModelRows, aRowAddedToASortedTableIsInsertedInPlaceWithOneSignal)
{
    auto model = makeModel(1);
    for (int value : {10, 30, 50})
        model->appendRow({value});
    model->sortByColumn(0, Qt::AscendingOrder);
    std::vector<std::pair<int, int>> inserted;
    int resets = 0;
    QObject::connect(model.get(), &CTableModel::rowsInserted, [&inserted](const QModelIndex &, int first, int last) {
        inserted.emplace_back(first, last);
    });
    QObject::connect(model.get(), &CTableModel::modelReset, [&resets]() { ++resets; });

    const int rowId = model->addRowBegin();
    model->setItemInt(rowId, 0, 40);
    model->addRowEnd();

    ASSERT_EQ(inserted.size(), 1u);
    EXPECT_EQ(inserted.front(), std::make_pair(2, 2));
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(model->visibleRowIds(), ids({0, 1, 3, 2}));
}

TEST(TableModelUpdates, aChangedValueSignalsOnlyItsCell)
{
    auto model = makeModel(4);
    for (int i = 0; i < 3; ++i)
        model->appendRow({i, i, i, i});
    model->sortByColumn(0, Qt::DescendingOrder); // row id 1 stays at visual row 1, row id 0 goes last
    auto *changes = recordChanges(*model);

    model->setItemInt(0, 2, 7);
    ASSERT_EQ(changes->size(), 1u);
    EXPECT_EQ(changes->front().top, 2);
    EXPECT_EQ(changes->front().bottom, 2);
    EXPECT_EQ(changes->front().left, 2);
    EXPECT_EQ(changes->front().right, 2);

    model->setItemInt(0, 2, 7);
    EXPECT_EQ(changes->size(), 1u) << "an unchanged value is not announced";
}

TEST(TableModelUpdates, updateRowSignalsTheChangedSpanOfItsRowOnce)
{
    auto model = makeModel(5);
    for (int i = 0; i < 3; ++i)
        model->appendRow({i, i, i, i, i});
    auto *changes = recordChanges(*model);

    model->updateRow(1, {QVariant(), 5, 1, 9, QVariant()}); // column 2 keeps its value
    ASSERT_EQ(changes->size(), 1u);
    const Change &change = changes->front();
    EXPECT_EQ(change.top, 1);
    EXPECT_EQ(change.bottom, 1);
    EXPECT_EQ(change.left, 1);
    EXPECT_EQ(change.right, 3);
    EXPECT_EQ(model->itemInt(1, 1), 5);
    EXPECT_EQ(model->itemInt(1, 4), 1);

    model->updateRow(1, {QVariant(), 5, 1, 9});
    EXPECT_EQ(changes->size(), 1u);
}

TEST(TableModelUpdates, aBatchOfUpdatesEndsInOneSignal)
{
    auto model = makeModel(3);
    for (int i = 0; i < 5; ++i)
        model->appendRow({i, i, i});
    auto *changes = recordChanges(*model);

    model->beginUpdate();
    model->setItemDouble(1, 2, 1.5);
    model->updateRow(3, {QVariant(), 8});
    EXPECT_TRUE(changes->empty());
    model->endUpdate();

    ASSERT_EQ(changes->size(), 1u);
    const Change &change = changes->front();
    EXPECT_EQ(change.top, 1);
    EXPECT_EQ(change.bottom, 3);
    EXPECT_EQ(change.left, 1);
    EXPECT_EQ(change.right, 2);
}

TEST(TableModelUpdates, loadingTwentyThousandRowsInOneBatchResetsOnce)
{
    auto model = makeModel(12);
    model->appendRow({QStringLiteral("old")});
    int resets = 0;
    int inserts = 0;
    QObject::connect(model.get(), &CTableModel::modelReset, [&resets]() { ++resets; });
    QObject::connect(model.get(), &CTableModel::rowsInserted, [&inserts]() { ++inserts; });
    auto *changes = recordChanges(*model);

    QVector<QVariant> values;
    for (int column = 0; column < 12; ++column)
        values.append(column < 4 ? QVariant(QStringLiteral("text")) : QVariant(1.25 * column));
    model->beginUpdate();
    model->clearRows();
    for (int i = 0; i < 20000; ++i)
        model->appendRow(values);
    model->endUpdate();

    EXPECT_EQ(resets, 1);
    EXPECT_EQ(inserts, 0);
    EXPECT_TRUE(changes->empty());
    EXPECT_EQ(model->visibleRowCount(), 20000);
    EXPECT_EQ(model->rowIdAt(19999), 19999);

    // The half-second refresh of every row's price: one announcement.
    model->beginUpdate();
    for (int rowId = 0; rowId < 20000; ++rowId)
        model->updateRow(rowId, {QVariant(), QVariant(), QVariant(), QVariant(), 2.0 + rowId});
    model->endUpdate();
    EXPECT_EQ(changes->size(), 1u);
    EXPECT_EQ(resets, 1);
}

TEST(TableModelUpdates, aLoadIntoAFilledTableIsOneInsertion)
{
    auto model = makeModel(1);
    for (int i = 0; i < 10; ++i)
        model->appendRow({i});
    int resets = 0;
    std::vector<std::pair<int, int>> inserted;
    QObject::connect(model.get(), &CTableModel::modelReset, [&resets]() { ++resets; });
    QObject::connect(model.get(), &CTableModel::rowsInserted, [&inserted](const QModelIndex &, int first, int last) {
        inserted.emplace_back(first, last);
    });

    model->beginUpdate();
    for (int i = 0; i < 5; ++i)
        model->appendRow({i});
    model->endUpdate();

    EXPECT_EQ(resets, 0);
    ASSERT_EQ(inserted.size(), 1u);
    EXPECT_EQ(inserted.front(), std::make_pair(10, 14));
}

TEST(TableModelUpdates, setRowCountGivesIdsFromZeroAfterAClear)
{
    auto model = makeModel(2);
    model->appendRow({1});
    model->appendRow({2});
    model->clearRows();
    model->resizeRows(3);
    EXPECT_EQ(model->rowIds(), ids({0, 1, 2}));
    model->resizeRows(1);
    EXPECT_EQ(model->rowIds(), ids({0}));
}

// ---- filters -------------------------------------------------------------------------------

struct FilterCase {
    const char *name;
    QMap<int, QSet<QString>> filters;
    QVector<int> shown;
};

void PrintTo(const FilterCase &c, std::ostream *os)
{
    *os << c.name;
}

class TableModelFilter : public ::testing::TestWithParam<FilterCase>
{
};

TEST_P(TableModelFilter, showsTheRowsThatPassEveryFilteredColumn)
{
    auto model = makeModel(3);
    model->appendRow({QStringLiteral("SH"), QStringLiteral("Alpha Bank"), QStringLiteral("买入")});
    model->appendRow({QStringLiteral("SZ"), QStringLiteral("beta steel"), QStringLiteral("卖出")});
    model->appendRow({QStringLiteral("SHO"), QString(), QStringLiteral("买入")});
    model->appendRow({QStringLiteral("sz"), QStringLiteral("ALPHABET"), QString()});

    const FilterCase &c = GetParam();
    for (auto it = c.filters.cbegin(); it != c.filters.cend(); ++it)
        model->setColumnFilter(it.key(), it.value());

    EXPECT_EQ(model->visibleRowIds(), c.shown);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TableModelFilter,
    ::testing::Values(
        FilterCase{"lowerCaseMatchesCapitalsInsideLongerText", {{1, {QStringLiteral("alpha")}}}, ids({0, 3})},
        FilterCase{"capitalsMatchLowerCase", {{0, {QStringLiteral("SZ")}}}, ids({1, 3})},
        FilterCase{"substringMatchesLongerCodes", {{0, {QStringLiteral("sh")}}}, ids({0, 2})},
        FilterCase{"anyMemberOfTheSetIsEnough", {{1, {QStringLiteral("steel"), QStringLiteral("bank")}}}, ids({0, 1})},
        FilterCase{"emptyMemberMatchesOnlyEmptyCells", {{1, {QString()}}}, ids({2})},
        FilterCase{"emptyMemberBesideText", {{2, {QString(), QStringLiteral("卖")}}}, ids({1, 3})},
        FilterCase{"rowMustPassEveryColumn", {{0, {QStringLiteral("s")}}, {2, {QStringLiteral("买入")}}}, ids({0, 2})},
        FilterCase{"earlierColumnStillCounts", {{0, {QStringLiteral("sz")}}, {1, {QStringLiteral("alpha")}}}, ids({3})},
        FilterCase{"emptySetIsNoFilter", {{0, {}}}, ids({0, 1, 2, 3})},
        FilterCase{"noRowPasses", {{0, {QStringLiteral("HK")}}}, ids({})}),
    [](const ::testing::TestParamInfo<FilterCase> &info) { return std::string(info.param.name); });

TEST(TableModelFilterState, clearingAFilterBringsTheRowsBackInSortOrder)
{
    auto model = makeModel(2);
    model->appendRow({QStringLiteral("a"), 3});
    model->appendRow({QStringLiteral("b"), 1});
    model->appendRow({QStringLiteral("a"), 2});
    model->sortByColumn(1, Qt::AscendingOrder);
    model->setColumnFilter(0, {QStringLiteral("a")});
    EXPECT_EQ(model->visibleRowIds(), ids({2, 0}));

    model->clearFilter(0);
    EXPECT_EQ(model->visibleRowIds(), ids({1, 2, 0}));
    EXPECT_EQ(model->distinctTexts(0), (QSet<QString>{QStringLiteral("a"), QStringLiteral("b")}));
}

// ---- totals --------------------------------------------------------------------------------

std::unique_ptr<CTableModel> makeTotalsModel()
{
    auto model = makeModel(3);
    CTableColumn volume = model->tableColumn(1);
    volume.m_summed = true;
    model->setTableColumn(1, volume);
    CTableColumn cost = model->tableColumn(2);
    cost.m_summed = true;
    model->setTableColumn(2, cost);
    model->appendRow({QStringLiteral("a"), 10, 1.5});
    model->appendRow({QStringLiteral("b"), 20, 2.25});
    model->appendRow({QStringLiteral("c"), 30, DBL_MAX});
    model->appendRow({QStringLiteral("d"), 5, QStringLiteral("-")});
    model->setTotalsVisible(true);
    return model;
}

QString totalsCell(const CTableModel &model, int column)
{
    return model.index(model.rowCount() - 1, column).data().toString();
}

TEST(TableModelTotals, sumsTheVisibleRowsSkippingUnknownValues)
{
    auto model = makeTotalsModel();
    EXPECT_EQ(totalsCell(*model, 1), QStringLiteral("65"));
    EXPECT_EQ(totalsCell(*model, 2), QStringLiteral("3.75"));
    EXPECT_EQ(totalsCell(*model, 0), QString());

    model->setColumnFilter(0, {QStringLiteral("a"), QStringLiteral("c")});
    EXPECT_EQ(totalsCell(*model, 1), QStringLiteral("40"));
    EXPECT_EQ(totalsCell(*model, 2), QStringLiteral("1.50"));

    model->setItemInt(2, 1, 100);
    EXPECT_EQ(totalsCell(*model, 1), QStringLiteral("110"));
}

TEST(TableModelTotals, staysTheLastRowWhateverTheSort)
{
    auto model = makeTotalsModel();
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
}

TEST(TableModelTotals, aGivenTextStandsInsteadOfTheSum)
{
    auto model = makeTotalsModel();
    model->setStatText(1, QStringLiteral("合计"));
    EXPECT_EQ(totalsCell(*model, 1), QStringLiteral("合计"));
    model->clearStatTexts();
    EXPECT_EQ(totalsCell(*model, 1), QStringLiteral("65"));
}

// ---- flashing ------------------------------------------------------------------------------

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
