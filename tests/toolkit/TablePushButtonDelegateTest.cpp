#include "CBaseTableColumnPushButtonDelegate.h"
#include "COddEvenRowTable.h"
#include "CTableModel.h"

#include "../platform/EventRecorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTableView>

#include <vector>

namespace {

constexpr int Direction = 2;

// A target basket of three rows with a direction button in column 2.
struct Fixture {
    Fixture()
    {
        table = new WK::COddEvenRowTable(&receiver);
        table->addColumn(QStringLiteral("代码"));
        table->addColumn(QStringLiteral("分配量"));
        table->addColumn(QStringLiteral("方向"));
        buttons = new WK::CBaseTableColumnPushButtonDelegate(Direction, &receiver);
        table->setColumnDelegate(Direction, buttons);
        table->appendRow({QStringLiteral("IF2406"), 1, QStringLiteral("买入")});
        table->appendRow({QStringLiteral("IF2409"), 3, QStringLiteral("卖出")});
        table->appendRow({QStringLiteral("IC2406"), 2, QStringLiteral("买入")});
    }

    EventRecorder receiver;
    WK::COddEvenRowTable *table = nullptr;
    WK::CBaseTableColumnPushButtonDelegate *buttons = nullptr;
};

TEST(TablePushButton, aClickDeliversItsEventWithTheRowIdUnlessDisabledOrHidden)
{
    Fixture f;
    f.buttons->setButtonEnabled(0, false);
    f.buttons->setButtonVisible(2, false);
    EXPECT_FALSE(f.buttons->click(0));
    EXPECT_FALSE(f.buttons->click(2));
    EXPECT_TRUE(f.receiver.seen.empty());

    ASSERT_TRUE(f.buttons->click(1));
    f.buttons->setEventNumber(209);
    ASSERT_TRUE(f.buttons->click(1));
    EXPECT_EQ(f.receiver.seen, (EventRecorder::Events{{5, 1, Direction, QStringLiteral("1")},
                                                      {209, 1, Direction, QStringLiteral("1")}}));
}

TEST(TablePushButton, theMouseHitsTheButtonOfTheRowOnScreen)
{
    Fixture f;
    f.receiver.resize(400, 200);
    f.receiver.setInnerStretchWidget(f.table, 0, 0, 0, 0);
    f.receiver.show();
    f.table->sortByColumn(1, Qt::DescendingOrder); // row id 1 on top
    QApplication::processEvents();

    QWidget *viewport = f.table->view()->viewport();
    const QPoint centre = f.table->view()->visualRect(f.table->model()->index(0, Direction)).center();
    QMouseEvent press(QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, centre, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &release);

    std::vector<int> pressedRows;
    for (const EventRecorder::Seen &seen : f.receiver.seen) {
        if (seen.event == 5)
            pressedRows.push_back(seen.id);
    }
    EXPECT_EQ(pressedRows, std::vector<int>{1});
}

TEST(TablePushButton, buttonStatesDoNotOutliveAClearedTable)
{
    Fixture f;
    f.buttons->setButtonEnabled(0, false);
    f.buttons->setButtonText(0, QStringLiteral("卖出"));
    f.table->clear();
    f.table->setRowCount(1);
    EXPECT_TRUE(f.buttons->isButtonEnabled(0));
    EXPECT_TRUE(f.buttons->buttonText(0).isEmpty());
}

} // namespace
