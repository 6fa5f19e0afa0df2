// The layout containers: the widget list and the split container.
#include "CSplitContainer.h"
#include "CWidgetList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <memory>
#include <vector>

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
    EXPECT_EQ(list->widgetAt(1), nullptr);
    EXPECT_EQ(list->indexOf(b), 2);
    EXPECT_EQ(list->widgetAt(4), nullptr);

    list->removeWidget(a);
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->widgetAt(1), b);
    EXPECT_TRUE(a->isHidden());
}

TEST(WidgetList, fixedWidgetsKeepTheirLengthStretchItemsTakeTheRestAndUpdatesReadNewLengths)
{
    auto column = makeList(Qt::Vertical);
    QWidget *toolbar = block(column.get(), 0, 48);
    QWidget *table = block(column.get(), 0, 0);
    column->addFixedWidget(toolbar, 3, 0);
    column->addStretchWidget(table, 1, 3, 0);
    showAt(column.get(), 300, 400);
    EXPECT_EQ(table->geometry(), QRect(0, 48, 300, 352));

    toolbar->setFixedHeight(80);
    column->updateWidgetLength();
    EXPECT_EQ(table->geometry(), QRect(0, 80, 300, 320));
    toolbar->hide();
    column->updateList();
    EXPECT_EQ(table->geometry(), QRect(0, 0, 300, 400)) << "a hidden widget's room goes to the others";

    // Margins, spacing and a leading space; a space takes no spacing after it.
    auto row = makeList(Qt::Horizontal);
    row->setMargin(4, 2, 6, 3);
    row->setSpacing(5);
    QWidget *a = block(row.get(), 20, 0);
    QWidget *b = block(row.get(), 30, 0);
    row->addFixedWidget(a, 0, 0);
    row->addFixedWidget(b, 0, 10);
    row->addStretchSpace(1);
    showAt(row.get(), 200, 40);
    EXPECT_EQ(a->geometry(), QRect(4, 2, 20, 35));
    EXPECT_EQ(b->x(), 4 + 20 + 5 + 10);

    // Without a stretch item a fixed widget still does not grow.
    auto lone = makeList(Qt::Horizontal);
    QWidget *box = block(lone.get(), 0, 0);
    box->setMinimumWidth(10);
    lone->addFixedWidget(box, 0, 0);
    showAt(lone.get(), 500, 30);
    EXPECT_EQ(box->width(), 10);
}

constexpr int kHandle = 3;

struct Split {
    Split(int orientation, int stableLength, int firstMinLength)
        : container(std::make_unique<WK::CSplitContainer>(orientation, kHandle, nullptr))
        , first(new QWidget(container.get()))
        , second(new QWidget(container.get()))
    {
        container->setWidgets(first, second, 0, stableLength);
        container->setFirstMinLength(firstMinLength);
        resizeTo(800, 400);
        container->show();
        QApplication::processEvents();
    }
    void resizeTo(int width, int height)
    {
        container->resize(width, height);
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
    void mouse(QEvent::Type type, int x, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, QPointF(x, 5), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(container->handle(), &event);
    }
    // Presses the handle one pixel in and moves it by `by` pixels.
    void drag(int by)
    {
        mouse(QEvent::MouseButtonPress, 1, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseMove, 1 + by, Qt::NoButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, 1 + by, Qt::LeftButton, Qt::NoButton);
    }

    std::unique_ptr<WK::CSplitContainer> container;
    QWidget *first;
    QWidget *second;
};

TEST(SplitContainer, givesTheSecondPartItsStableLengthAndTheFirstTheRest)
{
    struct Row { const char *name; int orientation, stable, firstMin, length, first, second; };
    const Row rows[] = {
        {"wide", Qt::Horizontal, 345, 200, 1200, 1200 - kHandle - 345, 345},
        {"narrower", Qt::Horizontal, 345, 200, 700, 700 - kHandle - 345, 345},
        {"exactlyEnough", Qt::Horizontal, 345, 200, 200 + kHandle + 345, 200, 345},
        {"firstMinimumWins", Qt::Horizontal, 345, 200, 450, 200, 450 - kHandle - 200},
        {"tooSmallForTheFirstMinimum", Qt::Horizontal, 345, 200, 150, 150 - kHandle, 0},
        {"noFirstMinimum", Qt::Horizontal, 345, 0, 300, 0, 300 - kHandle},
        {"verticalKeepsTheLowerPartsHeight", Qt::Vertical, 120, 50, 600, 600 - kHandle - 120, 120},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const bool across = row.orientation == Qt::Horizontal;
        Split s(row.orientation, row.stable, row.firstMin);
        s.resizeTo(across ? row.length : 300, across ? 300 : row.length);
        const auto part = [across](int start, int length) {
            return across ? QRect(start, 0, length, 300) : QRect(0, start, 300, length);
        };
        EXPECT_EQ(s.first->geometry(), part(0, row.first));
        EXPECT_EQ(s.second->geometry(), part(row.first + kHandle, row.second));
        EXPECT_EQ(s.container->stableLength(), row.stable) << "the stable length is kept even when it gives way";
    }
}

TEST(SplitContainer, aSetOrDraggedStableLengthHoldsThroughResizesDownToTheFirstMinimum)
{
    Split s(Qt::Horizontal, 345, 200);
    std::vector<int> reported;
    QObject::connect(s.container.get(), &WK::CSplitContainer::sigStableLengthChanged,
                     [&reported](int length) { reported.push_back(length); });
    s.container->setStableLength(250);
    s.resizeTo(1100, 300);
    EXPECT_EQ(s.second->width(), 250);
    EXPECT_EQ(s.first->width(), 1100 - kHandle - 250);

    s.resizeTo(800, 400);
    reported.clear();
    const int handleX = s.container->handle()->x();
    s.drag(-100);
    EXPECT_EQ(s.container->stableLength(), 350);
    EXPECT_EQ(s.container->handle()->x(), handleX - 100);
    EXPECT_EQ(reported, std::vector<int>{350});
    s.resizeTo(1000, 400);
    EXPECT_EQ(s.second->width(), 350) << "the dragged length holds on the next resize";

    s.resizeTo(800, 400);
    s.drag(-2000);
    EXPECT_EQ(s.first->width(), 200);
    EXPECT_EQ(s.container->stableLength(), 800 - kHandle - 200);

    // A hidden part leaves the whole room to the other.
    s.second->hide();
    QApplication::processEvents();
    EXPECT_EQ(s.first->geometry(), QRect(0, 0, 800, 400));
    EXPECT_FALSE(s.container->handle()->isVisible());
}

} // namespace
