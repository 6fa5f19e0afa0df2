#include "CWidgetList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

#include <memory>

namespace {

QWidget *block(QWidget *parent, int width, int height)
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

TEST(WidgetList, keepsItemsInTheOrderAddedAndLetsRemovedOnesGo)
{
    auto list = makeList(Qt::Horizontal);
    QWidget *a = block(list.get(), 10, 0);
    QWidget *b = block(list.get(), 10, 0);
    list->addFixedWidget(a, 3, 0);
    list->addFixedSpace(10);
    list->addStretchWidget(b, 1, 3, 0);
    list->addStretchSpace(1);
    ASSERT_EQ(list->count(), 4);
    EXPECT_EQ(list->widgetAt(0), a);
    EXPECT_EQ(list->widgetAt(1), nullptr);
    EXPECT_EQ(list->widgetAt(2), b);
    EXPECT_EQ(list->widgetAt(4), nullptr);
    EXPECT_EQ(list->indexOf(b), 2);

    list->removeWidget(a);
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->widgetAt(1), b);
    EXPECT_EQ(a->parentWidget(), list.get());
    EXPECT_TRUE(a->isHidden());
}

TEST(WidgetList, fixedWidgetsKeepTheirLengthAndStretchItemsTakeTheRest)
{
    auto column = makeList(Qt::Vertical);
    QWidget *toolbar = block(column.get(), 0, 48);
    QWidget *table = block(column.get(), 0, 0);
    column->addFixedWidget(toolbar, 3, 0);
    column->addStretchWidget(table, 1, 3, 0);
    showAt(column.get(), 300, 400);
    EXPECT_EQ(toolbar->geometry(), QRect(0, 0, 300, 48));
    EXPECT_EQ(table->geometry(), QRect(0, 48, 300, 352));

    // Without a stretch item a fixed widget still does not grow.
    auto lone = makeList(Qt::Horizontal);
    auto *box = new QWidget(lone.get());
    box->setMinimumWidth(10);
    lone->addFixedWidget(box, 0, 0);
    showAt(lone.get(), 500, 30);
    EXPECT_EQ(box->width(), 10);
}

TEST(WidgetList, leadingSpaceMarginsAndSpacingPlaceTheWidgets)
{
    auto list = makeList(Qt::Horizontal);
    list->setMargin(4, 2, 6, 3);
    list->setSpacing(5);
    QWidget *a = block(list.get(), 20, 0);
    QWidget *b = block(list.get(), 30, 0);
    list->addFixedWidget(a, 0, 0);
    list->addFixedWidget(b, 0, 10);
    list->addStretchSpace(1);
    showAt(list.get(), 200, 40);
    EXPECT_EQ(a->geometry(), QRect(4, 2, 20, 35));
    // a, spacing 5, the leading space 10 (a space takes no spacing after it), then b
    EXPECT_EQ(b->x(), 4 + 20 + 5 + 10);
}

TEST(WidgetList, alignmentPlacesTheWidgetAcrossTheList)
{
    struct Row {
        const char *name;
        int alignment;
        int x; // -1: fills the list
    };
    const Row rows[] = {{"zeroFills", 0, -1},          {"leftAndRightFill", 3, -1},
                        {"alongTheListOnlyFills", Qt::AlignTop, -1}, {"left", Qt::AlignLeft, 0},
                        {"right", Qt::AlignRight, 160}, {"centre", Qt::AlignCenter, 80}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        auto list = makeList(Qt::Vertical);
        auto *w = new QWidget(list.get());
        w->setFixedHeight(20);
        w->setMinimumWidth(40);
        w->resize(40, 20);
        list->addFixedWidget(w, row.alignment, 0);
        list->addStretchSpace(1);
        showAt(list.get(), 200, 100);
        EXPECT_EQ(w->x(), row.x < 0 ? 0 : row.x);
        EXPECT_EQ(w->width(), row.x < 0 ? 200 : 40);
    }
}

TEST(WidgetList, updatesGiveAHiddenWidgetsRoomAwayAndReadNewFixedLengths)
{
    auto list = makeList(Qt::Vertical);
    QWidget *top = block(list.get(), 0, 50);
    QWidget *rest = block(list.get(), 0, 0);
    list->addFixedWidget(top, 0, 0);
    list->addStretchWidget(rest, 1, 0, 0);
    showAt(list.get(), 100, 200);
    ASSERT_EQ(rest->height(), 150);

    top->setFixedHeight(80);
    list->updateWidgetLength();
    EXPECT_EQ(rest->geometry(), QRect(0, 80, 100, 120));

    top->hide();
    list->updateList();
    EXPECT_EQ(rest->geometry(), QRect(0, 0, 100, 200));
}

} // namespace
