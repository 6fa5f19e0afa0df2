#include "CWidgetList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStyle>
#include <QWidget>

#include <memory>

namespace {

QWidget *makeBlock(QWidget *parent, int width, int height)
{
    auto *w = new QWidget(parent);
    w->setMinimumSize(1, 1);
    if (width > 0)
        w->setFixedWidth(width);
    if (height > 0)
        w->setFixedHeight(height);
    return w;
}

std::unique_ptr<WK::CWidgetList> makeList(int orientation)
{
    auto list = std::make_unique<WK::CWidgetList>(orientation, nullptr);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(0);
    return list;
}

void showAt(QWidget *w, int width, int height)
{
    w->resize(width, height);
    w->show();
    QApplication::processEvents();
}

TEST(WidgetList, keepsItemsInTheOrderAdded)
{
    auto list = makeList(Qt::Vertical);
    QWidget *a = makeBlock(list.get(), 0, 20);
    QWidget *b = makeBlock(list.get(), 0, 0);
    list->addFixedWidget(a, 3, 0);
    list->addFixedSpace(10);
    list->addStretchWidget(b, 1, 3, 0);
    list->addStretchSpace(1);

    ASSERT_EQ(list->count(), 4);
    EXPECT_EQ(list->widgetAt(0), a);
    EXPECT_EQ(list->widgetAt(1), nullptr);
    EXPECT_EQ(list->widgetAt(2), b);
    EXPECT_EQ(list->widgetAt(3), nullptr);
    EXPECT_EQ(list->widgetAt(4), nullptr);
    EXPECT_EQ(list->indexOf(b), 2);
}

TEST(WidgetList, verticalFixedWidgetKeepsItsLengthAndStretchTakesTheRest)
{
    auto list = makeList(Qt::Vertical);
    QWidget *toolbar = makeBlock(list.get(), 0, 48);
    QWidget *table = makeBlock(list.get(), 0, 0);
    list->addFixedWidget(toolbar, 3, 0);
    list->addStretchWidget(table, 1, 3, 0);
    showAt(list.get(), 300, 400);

    EXPECT_EQ(toolbar->geometry(), QRect(0, 0, 300, 48));
    EXPECT_EQ(table->geometry(), QRect(0, 48, 300, 352));
}

TEST(WidgetList, stretchFactorsShareTheFreeLength)
{
    auto list = makeList(Qt::Horizontal);
    QWidget *small = makeBlock(list.get(), 0, 0);
    QWidget *large = makeBlock(list.get(), 0, 0);
    list->addStretchWidget(small, 1, 0, 0);
    list->addStretchWidget(large, 3, 0, 0);
    showAt(list.get(), 400, 30);

    EXPECT_EQ(small->width(), 100);
    EXPECT_EQ(large->width(), 300);
    EXPECT_EQ(large->x(), 100);
}

TEST(WidgetList, fixedWidgetDoesNotGrowWithoutStretchItems)
{
    auto list = makeList(Qt::Horizontal);
    auto *box = new QWidget(list.get());
    box->setMinimumWidth(10);
    list->addFixedWidget(box, 0, 0);
    showAt(list.get(), 500, 30);

    EXPECT_EQ(box->width(), 10);
}

TEST(WidgetList, leadingSpaceMarginsAndSpacingPlaceTheWidgets)
{
    auto list = makeList(Qt::Horizontal);
    list->setMargin(4, 2, 6, 3);
    list->setSpacing(5);
    QWidget *a = makeBlock(list.get(), 20, 0);
    QWidget *b = makeBlock(list.get(), 30, 0);
    list->addFixedWidget(a, 0, 0);
    list->addFixedWidget(b, 0, 10);
    list->addStretchSpace(1);
    showAt(list.get(), 200, 40);

    EXPECT_EQ(a->geometry(), QRect(4, 2, 20, 35));
    // a, spacing 5, the leading space 10 (a space takes no spacing after it), then b
    EXPECT_EQ(b->x(), 4 + 20 + 5 + 10);
}

TEST(WidgetList, negativeSpacingTakesTheStyleDefault)
{
    auto list = makeList(Qt::Vertical);
    list->setSpacing(-1);
    QWidget *a = makeBlock(list.get(), 0, 10);
    QWidget *b = makeBlock(list.get(), 0, 10);
    list->addFixedWidget(a, 0, 0);
    list->addFixedWidget(b, 0, 0);
    list->addStretchSpace(1);
    showAt(list.get(), 100, 100);

    const int styleSpacing = list->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing);
    EXPECT_EQ(b->y() - a->geometry().bottom() - 1, std::max(0, styleSpacing));
}

struct AlignCase {
    const char *name;
    int alignment;
    int expectedX; // -1: fills the list
};

class WidgetListAlignment : public ::testing::TestWithParam<AlignCase>
{
};

TEST_P(WidgetListAlignment, placesTheWidgetAcrossTheList)
{
    const AlignCase &c = GetParam();
    auto list = makeList(Qt::Vertical);
    auto *w = new QWidget(list.get());
    w->setFixedHeight(20);
    w->setMaximumWidth(QWIDGETSIZE_MAX);
    w->setMinimumWidth(40);
    w->resize(40, 20);
    list->addFixedWidget(w, c.alignment, 0);
    list->addStretchSpace(1);
    showAt(list.get(), 200, 100);

    if (c.expectedX < 0) {
        EXPECT_EQ(w->x(), 0);
        EXPECT_EQ(w->width(), 200);
    } else {
        EXPECT_EQ(w->x(), c.expectedX);
        EXPECT_EQ(w->width(), 40);
    }
}

INSTANTIATE_TEST_SUITE_P(Toolkit, WidgetListAlignment,
    ::testing::Values(AlignCase{"ZeroFills", 0, -1},
                      AlignCase{"LeftAndRightFill", 3, -1},
                      AlignCase{"AlongTheListOnlyFills", Qt::AlignTop, -1},
                      AlignCase{"Left", Qt::AlignLeft, 0},
                      AlignCase{"Right", Qt::AlignRight, 160},
                      AlignCase{"Centre", Qt::AlignCenter, 80}),
    [](const ::testing::TestParamInfo<AlignCase> &info) { return std::string(info.param.name); });

TEST(WidgetList, hiddenWidgetGivesItsRoomAfterUpdateList)
{
    auto list = makeList(Qt::Vertical);
    QWidget *top = makeBlock(list.get(), 0, 50);
    QWidget *rest = makeBlock(list.get(), 0, 0);
    list->addFixedWidget(top, 0, 0);
    list->addStretchWidget(rest, 1, 0, 0);
    showAt(list.get(), 100, 200);
    ASSERT_EQ(rest->height(), 150);

    top->hide();
    list->updateList();
    EXPECT_EQ(rest->geometry(), QRect(0, 0, 100, 200));
}

TEST(WidgetList, updateWidgetLengthReadsNewFixedLengths)
{
    auto list = makeList(Qt::Vertical);
    QWidget *top = makeBlock(list.get(), 0, 50);
    QWidget *rest = makeBlock(list.get(), 0, 0);
    list->addFixedWidget(top, 0, 0);
    list->addStretchWidget(rest, 1, 0, 0);
    showAt(list.get(), 100, 200);

    top->setFixedHeight(80);
    list->updateWidgetLength();
    EXPECT_EQ(rest->geometry(), QRect(0, 80, 100, 120));
}

TEST(WidgetList, removedWidgetLeavesTheList)
{
    auto list = makeList(Qt::Horizontal);
    QWidget *a = makeBlock(list.get(), 10, 0);
    QWidget *b = makeBlock(list.get(), 10, 0);
    list->addFixedWidget(a, 0, 0);
    list->addFixedWidget(b, 0, 0);
    list->removeWidget(a);

    EXPECT_EQ(list->count(), 1);
    EXPECT_EQ(list->widgetAt(0), b);
    EXPECT_EQ(a->parentWidget(), list.get());
    EXPECT_TRUE(a->isHidden());
}

} // namespace
