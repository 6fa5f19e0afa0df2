#include "COpBasketParamsExpandBar.h"
#include "EventRecorder.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include <functional>

namespace {

TC::COpBasketParamsExpandBar *makeBar(EventRecorder &parent)
{
    auto *bar = new TC::COpBasketParamsExpandBar(5, QStringLiteral("组合交易设置"), &parent);
    bar->resize(300, TC::COpBasketParamsExpandBar::kBarHeight);
    return bar;
}

TEST(OpBasketParamsExpandBar, aClickSpaceOrEnterCollapsesThenExpandsAndDeliversEachState)
{
    const std::pair<const char *, std::function<void(QWidget *)>> inputs[] = {
        {"click", [](QWidget *w) { QTest::mouseClick(w, Qt::LeftButton); }},
        {"space", [](QWidget *w) { QTest::keyClick(w, Qt::Key_Space); }},
        {"enter", [](QWidget *w) { QTest::keyClick(w, Qt::Key_Return); }},
    };
    for (const auto &input : inputs) {
        SCOPED_TRACE(input.first);
        EventRecorder parent;
        TC::COpBasketParamsExpandBar *bar = makeBar(parent);
        input.second(bar);
        EXPECT_FALSE(bar->isExpanded());
        input.second(bar);
        EXPECT_TRUE(bar->isExpanded());
        const QString title = QStringLiteral("组合交易设置");
        EXPECT_EQ(parent.seen, (EventRecorder::Events{{1137, 5, 0, title}, {1137, 5, 1, title}}));
    }
}

TEST(OpBasketParamsExpandBar, setExpandedAndAPressReleasedOffTheBarDeliverNothing)
{
    EventRecorder parent;
    TC::COpBasketParamsExpandBar *bar = makeBar(parent);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, QPoint(10, 200));
    EXPECT_TRUE(bar->isExpanded());
    EXPECT_EQ(bar->arrowKey(), QStringLiteral("tc_img_operation_contract_btn"));

    bar->setExpanded(false);
    EXPECT_FALSE(bar->isExpanded());
    EXPECT_EQ(bar->arrowKey(), QStringLiteral("tc_img_operation_expand_btn"));
    EXPECT_TRUE(parent.seen.empty());
}

} // namespace
