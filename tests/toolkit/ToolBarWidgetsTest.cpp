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

// A row of four items a to d, 50 pixels each, no margins or spacing; b and c may be bound. It
// sits in a window without a layout, so that it gets exactly the width a test gives it.
struct ToolRow {
    explicit ToolRow(bool bindMiddle = false)
        : row(new WK::CAutoExpandToolBar(&window))
    {
        row->setMargin(0, 0, 0, 0);
        row->setSpacing(0);
        for (int i = 0; i < 4; ++i) {
            items.push_back(fixedItem(row, QString(QChar('a' + i))));
            row->addToolItem(items.back(), bindMiddle && (i == 1 || i == 2));
        }
    }
    int buttonWidth() const { return row->overflowButton()->sizeHint().width(); }
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

TEST(AutoExpandToolBar, ItemsThatDoNotFitFoldFromTheFirstOneOut)
{
    // itemsRoom: room for items, in item widths of 50; extra: pixels added to that room; withButton: the room
    // also holds the "»" button
    struct Case { const char *name; bool bindMiddle; int itemsRoom; int extra; bool withButton; const char *folded; };
    const Case cases[] = {{"allFitExactly", false, 4, 0, false, ""},
                          {"onePixelShortFoldsTheLast", false, 4, -1, false, "d"},
                          {"threeBesideTheButton", false, 3, 0, true, "d"},
                          {"aPixelLessFoldsTwo", false, 3, -1, true, "cd"},
                          {"nothingFitsBesideTheButton", false, 0, 49, true, "abcd"},
                          {"boundPairFoldsWhole", true, 2, 49, true, "bcd"},
                          {"boundPairStaysWhole", true, 3, 0, true, "d"}};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        ToolRow row(c.bindMiddle);
        row.showAt(c.itemsRoom * kItemWidth + c.extra + (c.withButton ? row.buttonWidth() : 0));
        EXPECT_EQ(row.folded(), QString::fromLatin1(c.folded));
        EXPECT_EQ(row.row->overflowButton()->isVisible(), !row.folded().isEmpty());
        for (QWidget *item : row.items)
            EXPECT_EQ(item->isVisible(), !row.folded().contains(item->objectName())) << item->objectName().toStdString();
    }
}

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

TEST(PortfolioKeyboard, ModelListComesFromTheSourceWhenInitialised)
{
    EventRecorder parent;
    auto *keyboard = new WK::CCreatePortfolioKeyboard(512, &parent);
    keyboard->initPortfolioModelList();
    EXPECT_TRUE(keyboard->portfolioNames().isEmpty());

    QStringList names{QStringLiteral("成长组合"), QStringLiteral("价值组合")};
    keyboard->setPortfolioNameSource([&names] { return names; });
    keyboard->initPortfolioModelList();
    EXPECT_EQ(keyboard->portfolioNames(), names);
    names.append(QStringLiteral("红利组合"));
    EXPECT_EQ(keyboard->portfolioNames().size(), 2) << "a later change waits for the next init";
}

} // namespace
