// The toolbar that folds what does not fit: a folded item still counts as shown and still reports
// through the row. Which item folds at which width is layout, and not checked here.
#include "CAutoExpandToolBar.h"
#include "CCheckBox.h"
#include "CCreatePortfolioKeyboard.h"

#include "../platform/EventRecorder.h"
#include "Fields.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLayout>
#include <QLineEdit>
#include <QToolButton>

#include <vector>

namespace {

constexpr int kItemWidth = 50;

QWidget *fixedItem(QWidget *parent, const QString &name)
{
    auto *item = new QWidget(parent);
    item->setObjectName(name);
    item->setFixedSize(kItemWidth, 20);
    return item;
}

// A row of four items a to d, 50 pixels each, no margins or spacing. It sits in a window without
// a layout, so that it gets exactly the width a test gives it.
struct ToolRow {
    ToolRow()
        : row(new WK::CAutoExpandToolBar(&window))
    {
        row->setMargin(0, 0, 0, 0);
        row->setSpacing(0);
        for (int i = 0; i < 4; ++i) {
            items.push_back(fixedItem(row, QString(QChar('a' + i))));
            row->addToolItem(items.back(), false);
        }
    }
    void showAt(int width)
    {
        window.resize(width, 30);
        row->setGeometry(0, 0, width, 30);
        window.show();
        row->relayout();
    }
    QString folded() const
    {
        QString names;
        for (QWidget *item : row->foldedItems())
            names += item->objectName();
        return names;
    }

    EventRecorder window;
    WK::CAutoExpandToolBar *row;
    std::vector<QWidget *> items;
};

TEST(AutoExpandToolBar, RowNotOnScreenKeepsEveryItemAndItemsHiddenByTheirOwnerStayHidden)
{
    ToolRow offScreen;
    offScreen.row->resize(60, 30);
    offScreen.row->relayout();
    EXPECT_TRUE(offScreen.row->foldedItems().isEmpty());
    for (QWidget *item : offScreen.items)
        EXPECT_TRUE(item->isVisibleTo(offScreen.row));

    ToolRow row;
    row.items[3]->hide();
    row.showAt(10 * kItemWidth);
    EXPECT_FALSE(row.items[3]->isVisible()) << "not shown just because there is room";
    EXPECT_TRUE(row.row->foldedItems().isEmpty());
}

TEST(AutoExpandToolBar, FoldedItemCountsAsVisibleAndOneOnTheInvisibleListTakesNoRoomUntilTakenOff)
{
    ToolRow row;
    row.showAt(3 * kItemWidth);
    ASSERT_EQ(row.folded(), QStringLiteral("cd"));
    EXPECT_EQ(fields(row.items[3]->isVisibleTo(row.row), row.row->isItemVisibleTo(row.items[3], row.row),
                     row.row->isItemVisibleTo(row.items[3], nullptr)),
              "false|true|true");

    row.row->doOperationInvisibleList(row.items[1], true);
    EXPECT_TRUE(row.row->foldedItems().isEmpty()) << "a, c and d fit without b";
    EXPECT_EQ(fields(row.items[1]->isVisible(), row.row->isOnInvisibleList(row.items[1]), row.row->isItemVisibleTo(row.items[1], row.row)),
              "false|true|false");

    row.row->doOperationInvisibleList(row.items[1], false);
    EXPECT_TRUE(row.items[1]->isVisible());
    EXPECT_EQ(row.folded(), QStringLiteral("cd"));
    row.row->hide();
    EXPECT_FALSE(row.row->isItemVisibleTo(row.items[3], nullptr));
}

TEST(AutoExpandToolBar, OverflowLendsFoldedItemsThatStillReportThroughTheRow)
{
    EventRecorder parent;
    auto *row = new WK::CAutoExpandToolBar(&parent);
    row->setMargin(0, 0, 0, 0);
    row->setSpacing(0);
    QWidget *a = fixedItem(row, QStringLiteral("a"));
    row->addToolItem(a, false);
    auto *box = new WK::CCheckBox(7, QStringLiteral("过滤停盘股"), row);
    row->addToolItem(box, false);
    QWidget *c = fixedItem(row, QStringLiteral("c"));
    row->addToolItem(c, false);
    parent.resize(kItemWidth + row->overflowButton()->sizeHint().width(), 30);
    row->setGeometry(parent.rect());
    parent.show();
    row->relayout();
    ASSERT_EQ(row->foldedItems(), (QList<QWidget *>{box, c}));

    row->overflowButton()->click();
    ASSERT_TRUE(row->isOverflowShown());
    EXPECT_TRUE(box->isVisible() && c->isVisible());
    EXPECT_NE(box->parentWidget(), row);
    box->click();
    const QString text = QStringLiteral("过滤停盘股");
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{60, 7, 1, text}, {61, 7, 1, text}}));

    row->hideOverflow();
    EXPECT_EQ(box->parentWidget(), row);
    EXPECT_FALSE(box->isVisible());
    EXPECT_EQ(row->foldedItems(), (QList<QWidget *>{box, c}));

    // Given room, the lent items come back on the row in their old order.
    parent.resize(600, 30);
    row->setGeometry(parent.rect());
    row->relayout();
    row->layout()->activate();
    EXPECT_TRUE(row->foldedItems().isEmpty());
    EXPECT_LT(a->x(), box->x());
    EXPECT_LT(box->x(), c->x());
}

// --- portfolio keyboard ---

TEST(PortfolioKeyboard, TellsTheTickAndAChangedNameWithTheTrimmedName)
{
    EventRecorder parent;
    auto *keyboard = new WK::CCreatePortfolioKeyboard(512, &parent);
    keyboard->setPortfolioNameText(QStringLiteral("  成长组合 "));
    keyboard->checkBox()->click();
    EXPECT_TRUE(keyboard->isCreatePortfolio());
    EXPECT_TRUE(keyboard->nameEdit()->isEnabled());
    keyboard->nameEdit()->setText(QStringLiteral("价值组合"));
    Q_EMIT keyboard->nameEdit()->editingFinished();
    Q_EMIT keyboard->nameEdit()->editingFinished(); // the same name: nothing to tell
    EXPECT_EQ(keyboard->getPortfolioNameText(), QStringLiteral("价值组合"));
    keyboard->checkBox()->click();
    EXPECT_FALSE(keyboard->nameEdit()->isEnabled());
    keyboard->setCheckAndEnable(false, false); // no change, nothing told
    EXPECT_FALSE(keyboard->isEnabled());
    keyboard->setCheckAndEnable(true, false);
    EXPECT_TRUE(keyboard->isCreatePortfolio()) << "a disabled keyboard keeps its tick";

    const QString growth = QStringLiteral("成长组合");
    const QString value = QStringLiteral("价值组合");
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{60, 512, 1, growth}, {60, 512, 1, value}, {60, 512, 0, value},
                                                  {60, 512, 1, value}}));
}

} // namespace
