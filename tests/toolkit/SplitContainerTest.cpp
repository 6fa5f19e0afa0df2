#include "CSplitContainer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include <memory>
#include <vector>

namespace {

constexpr int kHandle = 3;

struct Split {
    std::unique_ptr<WK::CSplitContainer> container;
    QWidget *first = nullptr;
    QWidget *second = nullptr;
};

Split makeSplit(int orientation, int stableLength, int firstMinLength)
{
    Split s;
    s.container = std::make_unique<WK::CSplitContainer>(orientation, kHandle, nullptr);
    s.first = new QWidget(s.container.get());
    s.second = new QWidget(s.container.get());
    s.container->setWidgets(s.first, s.second, 0, stableLength);
    s.container->setFirstMinLength(firstMinLength);
    s.container->resize(800, 400);
    s.container->show();
    QApplication::processEvents();
    return s;
}

void resizeTo(QWidget *w, int width, int height)
{
    w->resize(width, height);
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

struct ResizeCase {
    const char *name;
    int stable;
    int firstMin;
    int width;
    int expectedFirst;
    int expectedSecond;
};

class SplitContainerResize : public ::testing::TestWithParam<ResizeCase>
{
};

TEST_P(SplitContainerResize, givesTheSecondPartItsStableLengthAndTheFirstTheRest)
{
    const ResizeCase &c = GetParam();
    Split s = makeSplit(Qt::Horizontal, c.stable, c.firstMin);
    resizeTo(s.container.get(), c.width, 300);

    EXPECT_EQ(s.first->geometry(), QRect(0, 0, c.expectedFirst, 300));
    EXPECT_EQ(s.second->geometry(), QRect(c.expectedFirst + kHandle, 0, c.expectedSecond, 300));
    EXPECT_EQ(s.container->stableLength(), c.stable) << "the stable length is kept even when it gives way";
}

INSTANTIATE_TEST_SUITE_P(Toolkit, SplitContainerResize,
    ::testing::Values(ResizeCase{"Wide", 345, 200, 1200, 1200 - kHandle - 345, 345},
                      ResizeCase{"Narrower", 345, 200, 700, 700 - kHandle - 345, 345},
                      ResizeCase{"ExactlyEnough", 345, 200, 200 + kHandle + 345, 200, 345},
                      ResizeCase{"FirstMinimumWins", 345, 200, 450, 200, 450 - kHandle - 200},
                      ResizeCase{"TooSmallForTheFirstMinimum", 345, 200, 150, 150 - kHandle, 0},
                      ResizeCase{"NoFirstMinimum", 345, 0, 300, 0, 300 - kHandle}),
    [](const ::testing::TestParamInfo<ResizeCase> &info) { return std::string(info.param.name); });

TEST(SplitContainer, stableLengthComesBackWhenTheContainerGrowsAgain)
{
    Split s = makeSplit(Qt::Horizontal, 345, 200);
    resizeTo(s.container.get(), 400, 300);
    ASSERT_EQ(s.second->width(), 400 - kHandle - 200);

    resizeTo(s.container.get(), 1000, 300);
    EXPECT_EQ(s.second->width(), 345);
}

TEST(SplitContainer, setStableLengthThenResizeKeepsTheNewLength)
{
    Split s = makeSplit(Qt::Horizontal, 345, 200);
    s.container->setStableLength(250);
    EXPECT_EQ(s.second->width(), 250);

    resizeTo(s.container.get(), 1100, 300);
    EXPECT_EQ(s.second->width(), 250);
    EXPECT_EQ(s.first->width(), 1100 - kHandle - 250);
    EXPECT_EQ(s.container->stableLength(), 250);
}

TEST(SplitContainer, verticalContainerKeepsTheLowerPartsHeight)
{
    Split s = makeSplit(Qt::Vertical, 120, 50);
    resizeTo(s.container.get(), 300, 600);

    EXPECT_EQ(s.first->geometry(), QRect(0, 0, 300, 600 - kHandle - 120));
    EXPECT_EQ(s.second->geometry(), QRect(0, 600 - 120, 300, 120));
}

TEST(SplitContainer, draggingTheHandleChangesTheStableLength)
{
    Split s = makeSplit(Qt::Horizontal, 345, 200);
    std::vector<int> reported;
    QObject::connect(s.container.get(), &WK::CSplitContainer::sigStableLengthChanged,
                     [&reported](int length) { reported.push_back(length); });
    QWidget *handle = s.container->handle();
    ASSERT_TRUE(handle->isVisible());
    const int handleX = handle->x();

    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(handle, &press);
    QMouseEvent move(QEvent::MouseMove, QPointF(1 - 100, 5), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(handle, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(1 - 100, 5), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(handle, &release);

    EXPECT_EQ(s.container->stableLength(), 445);
    EXPECT_EQ(handle->x(), handleX - 100);
    ASSERT_FALSE(reported.empty());
    EXPECT_EQ(reported.back(), 445);

    // and the new length holds on the next resize
    resizeTo(s.container.get(), 1000, 400);
    EXPECT_EQ(s.second->width(), 445);
}

TEST(SplitContainer, draggingStopsAtTheFirstMinimum)
{
    Split s = makeSplit(Qt::Horizontal, 345, 200);
    QWidget *handle = s.container->handle();

    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(handle, &press);
    QMouseEvent move(QEvent::MouseMove, QPointF(-2000, 5), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(handle, &move);

    EXPECT_EQ(s.first->width(), 200);
    EXPECT_EQ(s.container->stableLength(), 800 - kHandle - 200);
}

TEST(SplitContainer, aHiddenPartLeavesTheWholeRoomToTheOther)
{
    Split s = makeSplit(Qt::Horizontal, 345, 200);
    s.second->hide();
    QApplication::processEvents();

    EXPECT_EQ(s.first->geometry(), QRect(0, 0, 800, 400));
    EXPECT_FALSE(s.container->handle()->isVisible());

    s.second->show();
    QApplication::processEvents();
    EXPECT_EQ(s.second->width(), 345);
}

} // namespace
