#include "CBaseTableColumnPushButtonDelegate.h"
#include "CBaseWidget.h"
#include "COddEvenRowTable.h"
#include "CStandardTable.h"
#include "CTableCellEvent.h"
#include "CTableColumnFilterPopup.h"
#include "CTableModel.h"
#include "Fields.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QTableView>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace {

using WK::CBaseNormalTable;
using WK::CTableCellEvent;

struct Seen { int event, id, value; QString text; CTableCellEvent cell; std::set<int> rows; };

// The owner of a table: records every event that reaches it, and every key the table passed on.
class Owner : public WK::CBaseWidget
{
public:
    Owner()
        : WK::CBaseWidget(QStringLiteral("owner"), false, nullptr)
    {
    }
    bool handleEvent(int event, int id, int value, QString text, void *data) override
    {
        Seen seen{event, id, value, text, CTableCellEvent(), {}};
        if (event >= WK::TE_VALIDATE_EDIT && event <= WK::TE_CELL_CLICKED && data) {
            auto *cell = static_cast<CTableCellEvent *>(data);
            if (onCellEvent)
                onCellEvent(event, *cell);
            seen.cell = *cell;
        }
        if (event == WK::TE_ROWS_DELETED && data)
            seen.rows = *static_cast<const std::set<int> *>(data);
        events.push_back(seen);
        return true;
    }
    std::vector<int> eventNumbers() const
    {
        std::vector<int> numbers;
        for (const Seen &seen : events)
            numbers.push_back(seen.event);
        return numbers;
    }
    bool saw(int event, int id, int value) const
    {
        for (const Seen &seen : events) {
            if (seen.event == event && seen.id == id && seen.value == value)
                return true;
        }
        return false;
    }

    std::vector<Seen> events;
    std::vector<int> keys;
    std::function<void(int, CTableCellEvent &)> onCellEvent;

protected:
    void keyPressEvent(QKeyEvent *event) override { keys.push_back(event->key()); }
};

enum Column { Code = 0, Volume = 1, Price = 2, Pick = 3 };

// A table of codes with an editable volume (0 to 1000), an editable price (0 to 100, two
// decimals) and a check-box column, in an owner that records its events.
struct Fixture {
    Fixture()
    {
        table = new WK::CStandardTable(&owner);
        table->addColumn(QStringLiteral("代码"));
        table->addColumn(QStringLiteral("分配量"));
        table->addColumn(QStringLiteral("最新价"));
        table->addColumn(QStringLiteral("选择"), 40, Qt::AlignCenter);
        table->setColumnEditable(Volume, true);
        table->setColumnIntValidator(Volume, 0, 1000);
        table->setColumnEditable(Price, true);
        table->setColumnDoubleValidator(Price, 0.0, 100.0, 2);
        table->setColumnCheckable(Pick, true);
        table->appendRow({QStringLiteral("600000"), 100, 10.5});
        table->appendRow({QStringLiteral("000001"), 200, 20.0});
        table->appendRow({QStringLiteral("600519"), 300, 30.25});
    }
    QModelIndex cell(int rowId, int column) const { return table->model()->index(table->visualRow(rowId), column); }
    void show()
    {
        owner.resize(400, 200);
        owner.setInnerStretchWidget(table, 0, 0, 0, 0);
        owner.show();
        QApplication::processEvents();
    }
    void click(int visualRow, int column)
    {
        const QPoint centre = table->view()->visualRect(table->model()->index(visualRow, column)).center();
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, centre, Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(table->view()->viewport(), &event);
        }
    }
    void select(std::initializer_list<int> rowIds)
    {
        for (int rowId : rowIds)
            table->view()->selectionModel()->select(cell(rowId, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    Owner owner;
    WK::CStandardTable *table = nullptr;
};

// ---- edits ---------------------------------------------------------------------------------

TEST(TableEdit, goesThroughTheColumnValidatorAndReportsRowAndColumn)
{
    // shown: the cell afterwards, and the text of event 47 when stored
    struct Row { const char *name; int column; const char *typed; bool stored; const char *shown; };
    const Row rows[] = {{"volumeInRange", Volume, "500", true, "500"},
                        {"volumeAtTheTop", Volume, "1,000", true, "1000"},
                        {"volumeAboveTheRange", Volume, "1500", false, "200"},
                        {"negativeVolume", Volume, "-5", false, "200"},
                        {"volumeThatIsNoNumber", Volume, "abc", false, "200"},
                        {"priceWithTwoDecimals", Price, "12.5", true, "12.50"},
                        {"priceWithTooManyDecimals", Price, "12.345", false, "20.00"},
                        {"priceAboveTheRange", Price, "100.01", false, "20.00"},
                        {"readOnlyColumn", Code, "999999", false, "000001"}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Fixture f;
        EXPECT_EQ(f.table->submitEdit(1, row.column, QString::fromUtf8(row.typed)), row.stored);
        EXPECT_EQ(f.table->itemText(1, row.column), QString::fromUtf8(row.shown));
        if (!row.stored) {
            EXPECT_TRUE(f.owner.events.empty());
            continue;
        }
        ASSERT_EQ(f.owner.eventNumbers(), (std::vector<int>{WK::TE_VALIDATE_EDIT, WK::TE_CELL_EDITED}));
        for (const Seen &seen : f.owner.events)
            EXPECT_EQ(fields(seen.id, seen.value, seen.cell.m_rowId, seen.cell.m_column), fields(1, row.column, 1, row.column));
        EXPECT_EQ(f.owner.events.back().text, QString::fromUtf8(row.shown));
    }
}

TEST(TableEdit, aValidateFunctionRefusesAndItsCorrectionStands)
{
    Fixture f;
    std::vector<int> asked;
    f.table->setValidateFunc([&asked](int rowId, int column, QString &text) {
        asked.insert(asked.end(), {rowId, column});
        if (text.toInt() <= 800)
            return true;
        text = QStringLiteral("800");
        return false;
    });

    EXPECT_FALSE(f.table->submitEdit(2, Volume, QStringLiteral("900")));
    EXPECT_EQ(f.table->itemText(2, Volume), QStringLiteral("800"));
    EXPECT_TRUE(f.owner.events.empty()) << "no event 46 after a refusal, and no edit";
    EXPECT_EQ(asked, (std::vector<int>{2, Volume}));

    EXPECT_TRUE(f.table->submitEdit(2, Volume, QStringLiteral("700")));
    EXPECT_EQ(f.table->itemInt(2, Volume), 700);
}

TEST(TableEdit, theOwnerMayRewriteOrRefuseAnEditOnEvent46AlsoFromAnEditor)
{
    Fixture f;
    f.owner.onCellEvent = [](int event, CTableCellEvent &cell) {
        if (event != WK::TE_VALIDATE_EDIT)
            return;
        if (cell.m_text == QLatin1String("13"))
            cell.m_accept = false;
        else
            cell.m_text = QStringLiteral("1,300"); // rounded to the lot, with separators
    };

    EXPECT_FALSE(f.table->submitEdit(0, Volume, QStringLiteral("13")));
    EXPECT_EQ(f.table->itemInt(0, Volume), 100);
    EXPECT_EQ(f.owner.eventNumbers(), std::vector<int>{WK::TE_VALIDATE_EDIT});

    EXPECT_TRUE(f.table->submitEdit(0, Volume, QStringLiteral("999")));
    EXPECT_EQ(f.table->itemInt(0, Volume), 1300);
    EXPECT_EQ(f.owner.events.back().event, WK::TE_CELL_EDITED);
    EXPECT_EQ(f.owner.events.back().text, QStringLiteral("1300")) << "event 47 carries a plain number";

    // An editor's commit takes the same road, and a cell made read-only takes none.
    f.owner.events.clear();
    f.table->setItemEditable(2, Volume, false);
    EXPECT_TRUE(f.table->model()->setData(f.cell(1, Volume), QStringLiteral("400"), Qt::EditRole));
    EXPECT_FALSE(f.table->model()->setData(f.cell(2, Volume), QStringLiteral("400"), Qt::EditRole));
    EXPECT_EQ(f.table->itemInt(1, Volume), 1300);
    EXPECT_EQ(f.table->itemInt(2, Volume), 300);
    EXPECT_EQ(f.owner.eventNumbers(), (std::vector<int>{WK::TE_VALIDATE_EDIT, WK::TE_CELL_EDITED}));
}

// ---- check boxes, clicks, deletion ---------------------------------------------------------

TEST(TableCheckBox, onlyTheUsersTickDeliversEvent48WithRowAndColumn)
{
    Fixture f;
    f.table->setItemChecked(1, Pick, true);
    EXPECT_TRUE(f.owner.events.empty()) << "the program's tick is not the user's";

    f.table->model()->setData(f.cell(1, Pick), Qt::Unchecked, Qt::CheckStateRole);
    ASSERT_EQ(f.owner.events.size(), 1u);
    const Seen &seen = f.owner.events.front();
    EXPECT_EQ(fields(seen.event, seen.id, seen.value, seen.cell.m_column), fields(WK::TE_ITEM_CHECKED, 1, 0, Pick));
    EXPECT_FALSE(f.table->isItemChecked(1, Pick));

    // A click on the cell of the row on screen toggles its box.
    f.show();
    f.table->sortByColumn(Volume, Qt::DescendingOrder); // row id 2 on top
    f.click(0, Pick);
    EXPECT_TRUE(f.table->isItemChecked(2, Pick));
    EXPECT_FALSE(f.table->isItemChecked(0, Pick));
    EXPECT_TRUE(f.owner.saw(WK::TE_ITEM_CHECKED, 2, 1));
    EXPECT_TRUE(f.owner.saw(WK::TE_CELL_CLICKED, 2, Pick));
}

// A button drawn in every row of a column (the direction button of a target basket).
TEST(TablePushButton, aClickDeliversItsEventWithTheIdOfTheRowOnScreenUnlessDisabledOrHidden)
{
    Fixture f;
    auto *buttons = new WK::CBaseTableColumnPushButtonDelegate(Code, &f.owner, &f.owner);
    f.table->setColumnDelegate(Code, buttons);
    f.show();
    f.table->sortByColumn(Volume, Qt::DescendingOrder); // row id 2 on top
    f.click(0, Code);
    EXPECT_TRUE(f.owner.saw(5, 2, Code));
    const auto presses = [&f] {
        return std::count_if(f.owner.events.begin(), f.owner.events.end(), [](const Seen &s) { return s.event == 5; });
    };
    EXPECT_EQ(presses(), 1);

    f.owner.events.clear();
    buttons->setButtonEnabled(0, false);
    buttons->setButtonVisible(2, false);
    EXPECT_FALSE(buttons->click(0));
    EXPECT_FALSE(buttons->click(2));
    EXPECT_TRUE(f.owner.events.empty());
    buttons->setEventNumber(209);
    ASSERT_TRUE(buttons->click(1));
    ASSERT_EQ(f.owner.events.size(), 1u);
    EXPECT_EQ(fields(f.owner.events[0].event, f.owner.events[0].id, f.owner.events[0].value, f.owner.events[0].text),
              fields(209, 1, Code, "1"));

    // Button states do not outlive a cleared table.
    buttons->setButtonText(0, QStringLiteral("卖出"));
    f.table->clear();
    f.table->setRowCount(1);
    EXPECT_TRUE(buttons->isButtonEnabled(0));
    EXPECT_TRUE(buttons->buttonText(0).isEmpty());
}

TEST(TableRows, deletingSelectedRowsKeepsTheOtherIdsAndDeliversEvent53)
{
    Fixture f;
    f.table->setFlag(f.table->flag() | CBaseNormalTable::TF_DELETE_ROWS);
    f.table->appendRow({QStringLiteral("300750"), 400, 40.0});
    f.select({1, 3});
    ASSERT_EQ(f.table->selectedRows(), (std::set<int>{1, 3}));

    QKeyEvent del(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QApplication::sendEvent(f.table->view(), &del);

    EXPECT_EQ(f.table->rowIds(), (QVector<int>{0, 2}));
    EXPECT_EQ(f.table->itemText(2, Code), QStringLiteral("600519"));
    ASSERT_FALSE(f.owner.events.empty());
    EXPECT_EQ(fields(f.owner.events.back().event, f.owner.events.back().value), fields(WK::TE_ROWS_DELETED, 2));
    EXPECT_EQ(f.owner.events.back().rows, (std::set<int>{1, 3}));
}

TEST(TableRows, headerClicksSortWhenSortableAndItemWidgetsFollowTheirRows)
{
    Fixture f;
    auto *label = new QLabel(QStringLiteral("w"));
    f.table->setItemWidget(0, Code, label);
    QHeaderView *header = f.table->view()->horizontalHeader();

    Q_EMIT header->sectionClicked(Volume);
    EXPECT_EQ(f.table->rowID(0), 0);
    Q_EMIT header->sectionClicked(Volume);
    EXPECT_EQ(f.table->rowID(0), 2) << "a second click turns the order round";
    EXPECT_EQ(f.table->itemWidget(0, Code), label) << "an item widget follows its row";
    EXPECT_EQ(f.table->itemWidget(2, Code), nullptr);

    f.table->setFlag(f.table->flag() & ~CBaseNormalTable::TF_SORTABLE);
    Q_EMIT header->sectionClicked(Code);
    EXPECT_EQ(f.table->rowID(0), 2) << "without the sortable flag a click sorts nothing";
}

// ---- filters, menu, keys -------------------------------------------------------------------

TEST(TableFilterMenu, theTickedValuesBecomeTheColumnFilter)
{
    Fixture f;
    f.table->setColumnFilterable(Code, true);
    EXPECT_EQ(f.table->showFilterPopup(Volume), nullptr) << "the column does not filter";

    WK::CTableColumnFilterPopup *popup = f.table->showFilterPopup(Code);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->values(), (QStringList{QStringLiteral("000001"), QStringLiteral("600000"), QStringLiteral("600519")}));
    popup->setAllChecked(false);
    popup->accept();
    EXPECT_EQ(f.table->rowCount(), 3) << "nothing ticked is nothing to apply";
    popup->setValueChecked(QStringLiteral("600519"), true);
    popup->accept();

    EXPECT_EQ(f.table->rowCount(), 1);
    EXPECT_EQ(f.table->rowID(0), 2);
    EXPECT_EQ(f.table->view()->verticalHeader()->count(), 1) << "the view follows the shorter table";
    EXPECT_EQ(f.table->columnFilters().value(Code), QSet<QString>{QStringLiteral("600519")});
    // An owner that filters its rows itself: the order parameter table's tests.
}

TEST(TableMenu, listsTheBuiltInEntriesThenTheOwnersActionsCtrlVPastesAndCopyIsInViewOrder)
{
    Fixture f;
    f.table->setFlag(f.table->flag() | CBaseNormalTable::TF_DELETE_ROWS | CBaseNormalTable::TF_COPY_ROWS);
    int saved = 0;
    int pasted = 0;
    f.table->addMenuSeparator();
    f.table->addMenuAction(QStringLiteral("保存篮子"), [&saved]() { ++saved; });
    f.table->setPasteDataFunc(QStringLiteral("格式为: 代码,名称"), [&pasted]() { ++pasted; });

    std::unique_ptr<QMenu> menu(f.table->createContextMenu());
    QStringList texts;
    for (const QAction *action : menu->actions()) {
        if (!action->isSeparator())
            texts.append(action->text());
    }
    EXPECT_EQ(texts, (QStringList{QStringLiteral("复制"), QStringLiteral("删除"), QStringLiteral("粘贴"),
                                  QStringLiteral("保存篮子")}));
    EXPECT_FALSE(menu->actions().at(1)->isEnabled()) << "nothing selected to delete";
    menu->actions().last()->trigger();
    menu->actions().at(2)->trigger();
    EXPECT_EQ(saved, 1);
    EXPECT_EQ(pasted, 1);

    // Ctrl+V pastes too; letters go on to the owner.
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
    QApplication::sendEvent(f.table->view(), &paste);
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QApplication::sendEvent(f.table->view(), &letter);
    EXPECT_EQ(pasted, 2);
    EXPECT_EQ(f.owner.keys, std::vector<int>{Qt::Key_A});

    // Copy takes the selected rows as tab-separated text, in the order on screen.
    f.table->setColumnVisible(Pick, false);
    f.table->moveColumn(Price, 0);
    f.select({2, 0});
    EXPECT_EQ(f.table->selectedRowsText(), QStringLiteral("10.50\t600000\t100\n30.25\t600519\t300"));
}

// ---- column layout -------------------------------------------------------------------------

TEST(TableConfig, theColumnLayoutSurvivesARoundTrip)
{
    Fixture f;
    f.table->setColumnWidth(Code, 123);
    f.table->setColumnWidth(Price, 77);
    f.table->setColumnVisible(Price, false);
    f.table->moveColumn(Pick, 0);
    const QString saved = f.table->saveConfigStr();

    Fixture other;
    ASSERT_TRUE(other.table->loadConfigStr(saved));
    EXPECT_EQ(other.table->visualColumnOrder(), (QVector<int>{Pick, Code, Volume, Price}));
    EXPECT_EQ(other.table->columnWidth(Code), 123);
    EXPECT_FALSE(other.table->isColumnVisible(Price));
    EXPECT_EQ(other.table->configStr(), saved);
    other.table->setColumnVisible(Price, true);
    EXPECT_EQ(other.table->columnWidth(Price), 77) << "a shown column comes back at its width";

    // Unknown columns are skipped and unlisted ones follow.
    Fixture fresh;
    ASSERT_TRUE(fresh.table->loadConfigStr(QStringLiteral("v1|9:50:1,2:60:1,0:70:0")));
    EXPECT_EQ(fresh.table->visualColumnOrder(), (QVector<int>{Price, Code, Volume, Pick}));
    EXPECT_FALSE(fresh.table->isColumnVisible(Code));
}

TEST(TableConfig, aMalformedTextChangesNothing)
{
    for (const char *text : {"", "v2|0:80:1", "v1|3:80:1,0:80", "v1|x:80:1", "v1|0:80:2"}) {
        Fixture f;
        f.table->moveColumn(Pick, 0);
        const QString before = f.table->saveConfigStr();
        EXPECT_FALSE(f.table->loadConfigStr(QString::fromLatin1(text))) << text;
        EXPECT_EQ(f.table->saveConfigStr(), before) << text;
    }
}

// ---- scale and repaint -------------------------------------------------------------------

// Adds up the region of the paint events a widget receives.
struct PaintWatch : QObject {
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion painted;
};

TEST(TableScale, twentyThousandRowsLoadAndARefreshedColumnRepaintsOnlyItsBandWhereItStands)
{
    Owner owner;
    auto *table = new WK::COddEvenRowTable(&owner);
    owner.resize(800, 400);
    owner.setInnerStretchWidget(table, 0, 0, 0, 0);
    for (int column = 0; column < 12; ++column)
        table->addColumn(QStringLiteral("c%1").arg(column));
    table->setColumnSummed(9, true);
    table->setTotalsLineVisible(true);
    owner.show();
    int resets = 0;
    int changes = 0;
    QObject::connect(table->model(), &WK::CTableModel::modelReset, [&resets]() { ++resets; });
    QObject::connect(table->model(), &WK::CTableModel::rowsInserted, [&changes]() { ++changes; });
    QObject::connect(table->model(), &WK::CTableModel::dataChanged, [&changes]() { ++changes; });

    table->beginUpdate();
    table->clear();
    table->setRowCount(20000);
    for (int rowId = 0; rowId < 20000; ++rowId) {
        table->setItemText(rowId, 0, QStringLiteral("acct%1").arg(rowId % 20));
        table->setItemInt(rowId, 5, 100);
        table->setItemDouble(rowId, 9, 1.0);
    }
    table->endUpdate();
    table->adjustVisibleRowsColumnWidth();
    QApplication::processEvents();
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(changes, 0) << "a load into an empty table announces nothing but the reset";
    EXPECT_EQ(table->statText(9), QStringLiteral("20000.00"));
    EXPECT_GT(table->columnWidth(9), QFontMetrics(table->view()->font()).horizontalAdvance(table->statText(9)))
        << "the totals line is not cut";

    // The half-second price refresh of a column the trader dragged to the front.
    table->moveColumn(9, 0);
    QApplication::processEvents();
    QTableView *view = table->view();
    PaintWatch watch;
    view->viewport()->installEventFilter(&watch);
    changes = 0;
    QVector<QVariant> prices(10);
    prices[9] = 2.0;
    table->beginUpdate();
    for (int rowId = 0; rowId < 20000; ++rowId)
        table->updateRow(rowId, prices);
    table->endUpdate();
    QApplication::processEvents();
    EXPECT_EQ(changes, 2) << "one for the rows, one for the totals line";
    EXPECT_EQ(table->statText(9), QStringLiteral("40000.00"));
    ASSERT_FALSE(watch.painted.isEmpty()) << "the changed column was not repainted";
    const QRect band(view->columnViewportPosition(9), 0, view->columnWidth(9) + 1, view->viewport()->height());
    EXPECT_EQ(band.left(), 0);
    EXPECT_TRUE(band.contains(watch.painted.boundingRect())) << "repainted beyond the changed column";
}

} // namespace
