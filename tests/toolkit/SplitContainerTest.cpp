#include "CSplitContainer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include <memory>
#include <vector>

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

TEST(SplitContainer, givesTheSecondPartItsStableLengthAndTheFirstTheRest)
{
    struct Row {
        const char *name;
        int orientation, stable, firstMin, length, first, second;
    };
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

TEST(SplitContainer, setStableLengthHoldsThroughAResize)
{
    Split s(Qt::Horizontal, 345, 200);
    s.container->setStableLength(250);
    EXPECT_EQ(s.second->width(), 250);

    s.resizeTo(1100, 300);
    EXPECT_EQ(s.second->width(), 250);
    EXPECT_EQ(s.first->width(), 1100 - kHandle - 250);
}

TEST(SplitContainer, draggingTheHandleSetsTheStableLengthDownToTheFirstMinimum)
{
    Split s(Qt::Horizontal, 345, 200);
    std::vector<int> reported;
    QObject::connect(s.container.get(), &WK::CSplitContainer::sigStableLengthChanged,
                     [&reported](int length) { reported.push_back(length); });
    ASSERT_TRUE(s.container->handle()->isVisible());
    const int handleX = s.container->handle()->x();

    s.drag(-100);
    EXPECT_EQ(s.container->stableLength(), 445);
    EXPECT_EQ(s.container->handle()->x(), handleX - 100);
    EXPECT_EQ(reported, std::vector<int>{445});
    s.resizeTo(1000, 400);
    EXPECT_EQ(s.second->width(), 445) << "the dragged length holds on the next resize";

    s.resizeTo(800, 400);
    s.drag(-2000);
    EXPECT_EQ(s.first->width(), 200);
    EXPECT_EQ(s.container->stableLength(), 800 - kHandle - 200);
}

TEST(SplitContainer, aHiddenPartLeavesTheWholeRoomToTheOther)
{
    Split s(Qt::Horizontal, 345, 200);
    s.second->hide();
    QApplication::processEvents();
    EXPECT_EQ(s.first->geometry(), QRect(0, 0, 800, 400));
    EXPECT_FALSE(s.container->handle()->isVisible());

    s.second->show();
    QApplication::processEvents();
    EXPECT_EQ(s.second->width(), 345);
}

} // namespace
