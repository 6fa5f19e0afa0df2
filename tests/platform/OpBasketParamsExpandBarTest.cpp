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

struct UserInput {
    const char *name;
    std::function<void(QWidget *)> toggle;
};

const UserInput kInputs[] = {
    {"click", [](QWidget *w) { QTest::mouseClick(w, Qt::LeftButton); }},
    {"space", [](QWidget *w) { QTest::keyClick(w, Qt::Key_Space); }},
    {"enter", [](QWidget *w) { QTest::keyClick(w, Qt::Key_Return); }},
};

class ExpandBarUserToggle : public ::testing::TestWithParam<UserInput>
{
};

TEST_P(ExpandBarUserToggle, collapsesThenExpandsAndDeliversEachState)
{
    EventRecorder parent;
    TC::COpBasketParamsExpandBar *bar = makeBar(parent);

    GetParam().toggle(bar);
    EXPECT_FALSE(bar->isExpanded());
    GetParam().toggle(bar);
    EXPECT_TRUE(bar->isExpanded());

    ASSERT_EQ(parent.seen.size(), 2u);
    EXPECT_EQ(parent.seen[0].event, 1137);
    EXPECT_EQ(parent.seen[0].id, 5);
    EXPECT_EQ(parent.seen[0].value, 0);
    EXPECT_EQ(parent.seen[0].text, QStringLiteral("组合交易设置"));
    EXPECT_EQ(parent.seen[1].value, 1);
}

INSTANTIATE_TEST_SUITE_P(Inputs, ExpandBarUserToggle, ::testing::ValuesIn(kInputs),
                         [](const ::testing::TestParamInfo<UserInput> &info) { return std::string(info.param.name); });

TEST(OpBasketParamsExpandBar, setExpandedChangesStateAndArrowSilently)
{
    EventRecorder parent;
    TC::COpBasketParamsExpandBar *bar = makeBar(parent);
    EXPECT_EQ(bar->arrowKey(), QStringLiteral("tc_img_operation_contract_btn"));

    bar->setExpanded(false);

    EXPECT_FALSE(bar->isExpanded());
    EXPECT_EQ(bar->arrowKey(), QStringLiteral("tc_img_operation_expand_btn"));
    EXPECT_TRUE(parent.seen.empty());
}

TEST(OpBasketParamsExpandBar, pressReleasedOffTheBarDoesNothing)
{
    EventRecorder parent;
    TC::COpBasketParamsExpandBar *bar = makeBar(parent);

    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, QPoint(10, 200));

    EXPECT_TRUE(bar->isExpanded());
    EXPECT_TRUE(parent.seen.empty());
}

} // namespace
