#include "CBasketParamTabButton.h"
#include "COperationPushButtonGroup.h"
#include "EventRecorder.h"

#include "CPushButton.h"

#include <gtest/gtest.h>

#include <QLayout>

namespace {

struct Tab {
    quint64 word;
    const char *text;
};

const Tab kTabs[] = {{0x200, "买入"}, {0x400, "卖出"}, {0x800, "一键买卖"}, {0x80000, "港股通"}};

// A vertical tab group as the basket form builds it, under a recording parent.
TC::COperationPushButtonGroup *makeTabs(EventRecorder &parent)
{
    auto *group = new TC::COperationPushButtonGroup(2, 0, 0, 1, &parent);
    for (const Tab &tab : kTabs)
        group->addButton(static_cast<int>(tab.word), QString::fromUtf8(tab.text));
    group->setCheckedByID(0x200);
    return group;
}

class TabPress : public ::testing::TestWithParam<Tab>
{
};

TEST_P(TabPress, deliversFiveWithTheTabWordAndChecksTheTab)
{
    EventRecorder parent;
    TC::COperationPushButtonGroup *group = makeTabs(parent);
    const int word = static_cast<int>(GetParam().word);

    group->button(word)->click();

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 5);
    EXPECT_EQ(parent.seen[0].id, word);
    EXPECT_EQ(parent.seen[0].value, 1);
    EXPECT_EQ(parent.seen[0].text, QString::fromUtf8(GetParam().text));
    EXPECT_EQ(group->checkedId(), word);
}

INSTANTIATE_TEST_SUITE_P(Tabs, TabPress, ::testing::ValuesIn(kTabs),
                         [](const ::testing::TestParamInfo<Tab> &info) {
                             return "word_" + std::to_string(info.param.word);
                         });

TEST(OperationPushButtonGroup, setCheckedByIdMovesTheCheckSilently)
{
    EventRecorder parent;
    TC::COperationPushButtonGroup *group = makeTabs(parent);

    group->setCheckedByID(0x800);
    EXPECT_EQ(group->checkedId(), 0x800);
    EXPECT_FALSE(group->button(0x200)->isChecked());

    group->setCheckedByID(0x4000); // no such tab
    EXPECT_EQ(group->checkedButton(), group->button(0x800));
    EXPECT_TRUE(parent.seen.empty());
}

TEST(OperationPushButtonGroup, tabsKeepTheirHeightAndStackFromTheTop)
{
    EventRecorder parent;
    TC::COperationPushButtonGroup *group = makeTabs(parent);
    group->resize(24, 600);
    group->layout()->activate();

    for (int i = 0; i < group->buttons().size(); ++i) {
        const QRect geometry = group->buttons().at(i)->geometry();
        EXPECT_EQ(geometry.top(), i * TC::CBasketParamTabButton::kTabHeight) << i;
        EXPECT_EQ(geometry.height(), TC::CBasketParamTabButton::kTabHeight) << i;
    }
}

TEST(BasketParamTabButton, paintsWithThePressKeysOnlyWhileChecked)
{
    EventRecorder parent;
    TC::COperationPushButtonGroup *group = makeTabs(parent);
    auto *buy = static_cast<TC::CBasketParamTabButton *>(group->button(0x200));
    buy->setBackgroundColorKeys(QStringLiteral("clr_basket_param_tab_button_nomal"),
                                QStringLiteral("clr_basket_param_buy_btn_press"),
                                QStringLiteral("clr_basket_param_buy_btn_hover"));
    buy->setTextColorKeys(QStringLiteral("clr_text_left_tab_inactive"), QStringLiteral("clr_param_table_order_mode_active"));

    EXPECT_EQ(buy->currentBackgroundKey(), QStringLiteral("clr_basket_param_buy_btn_press"));
    EXPECT_EQ(buy->currentTextKey(), QStringLiteral("clr_param_table_order_mode_active"));

    group->setCheckedByID(0x400);
    EXPECT_EQ(buy->currentBackgroundKey(), QStringLiteral("clr_basket_param_tab_button_nomal"));
    EXPECT_EQ(buy->currentTextKey(), QStringLiteral("clr_text_left_tab_inactive"));
}

} // namespace
