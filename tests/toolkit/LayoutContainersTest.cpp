// The split container between the form and the table: the length the trader sets or drags is
// what the panel saves, and it holds through resizes. Where widgets land is not checked here.
#include "CSplitContainer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <memory>

namespace {

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

TEST(SplitContainer, aSetOrDraggedStableLengthHoldsThroughResizesDownToTheFirstMinimum)
{
    Split s(Qt::Horizontal, 345, 200);
    s.container->setStableLength(250);
    s.resizeTo(1100, 300);
    EXPECT_EQ(s.second->width(), 250);
    EXPECT_EQ(s.first->width(), 1100 - kHandle - 250);

    s.resizeTo(800, 400);
    const int handleX = s.container->handle()->x();
    s.drag(-100);
    EXPECT_EQ(s.container->stableLength(), 350);
    EXPECT_EQ(s.container->handle()->x(), handleX - 100);
    s.resizeTo(1000, 400);
    EXPECT_EQ(s.second->width(), 350) << "the dragged length holds on the next resize";

    s.resizeTo(800, 400);
    s.drag(-2000);
    EXPECT_EQ(s.first->width(), 200);
    EXPECT_EQ(s.container->stableLength(), 800 - kHandle - 200);
}

} // namespace
