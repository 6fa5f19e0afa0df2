#include "CBasketParamTabButton.h"
#include "CComboxNameWidget.h"
#include "COperationPushButtonGroup.h"
#include "EventRecorder.h"

#include "CComboBox.h"
#include "CPushButton.h"

#include <gtest/gtest.h>

#include <QLayout>
#include <QtTest/QTest>

namespace {

struct Tab {
    int word;
    const char *text;
};

const Tab kTabs[] = {{0x200, "买入"}, {0x400, "卖出"}, {0x800, "一键买卖"}, {0x80000, "港股通"}};

// A vertical tab group as the basket form builds it, under a recording parent.
TC::COperationPushButtonGroup *makeTabs(EventRecorder &parent)
{
    auto *group = new TC::COperationPushButtonGroup(2, 0, 0, 1, &parent);
    for (const Tab &tab : kTabs)
        group->addButton(tab.word, QString::fromUtf8(tab.text));
    group->setCheckedByID(0x200);
    return group;
}

TEST(OperationPushButtonGroup, aPressDeliversFiveWithTheTabWordAndChecksTheTab)
{
    for (const Tab &tab : kTabs) {
        SCOPED_TRACE(tab.text);
        EventRecorder parent;
        TC::COperationPushButtonGroup *group = makeTabs(parent);
        group->button(tab.word)->click();
        EXPECT_EQ(parent.seen, (EventRecorder::Events{{5, tab.word, 1, QString::fromUtf8(tab.text)}}));
        EXPECT_EQ(group->checkedId(), tab.word);
    }
}

TEST(OperationPushButtonGroup, tabsStackFromTheTopInTheOrderAdded)
{
    EventRecorder parent;
    TC::COperationPushButtonGroup *group = makeTabs(parent);
    group->resize(24, 600);
    group->layout()->activate();
    for (int i = 0; i < group->buttons().size(); ++i) {
        EXPECT_EQ(group->buttons().at(i)->geometry().top(), i * TC::CBasketParamTabButton::kTabHeight) << i;
        EXPECT_EQ(group->buttons().at(i)->height(), TC::CBasketParamTabButton::kTabHeight) << i;
    }
}

TEST(OperationPushButtonGroup, setCheckedByIdMovesTheCheckAndTheTabsColoursSilently)
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

    group->setCheckedByID(0x800);
    EXPECT_EQ(group->checkedId(), 0x800);
    EXPECT_FALSE(buy->isChecked());
    EXPECT_EQ(buy->currentBackgroundKey(), QStringLiteral("clr_basket_param_tab_button_nomal"));
    EXPECT_EQ(buy->currentTextKey(), QStringLiteral("clr_text_left_tab_inactive"));

    group->setCheckedByID(0x4000); // no such tab
    EXPECT_EQ(group->checkedButton(), group->button(0x800));
    EXPECT_TRUE(parent.seen.empty());
}

TEST(ComboxNameWidget, onlyTheUsersChoiceDeliversSixtyFourWithTheRowsId)
{
    EventRecorder parent;
    auto *row = new TC::CComboxNameWidget(17, QStringLiteral("交易总量"), &parent);
    row->comboBox()->addItem(QStringLiteral("按组合股票数量"), 0);
    row->comboBox()->addItem(QStringLiteral("按组合股票权重"), 1);
    row->comboBox()->addItem(QStringLiteral("按产品净值"), 2);
    row->comboBox()->setCurrentIndex(2);
    row->comboBox()->removeItem(2);
    row->comboBox()->clear();
    row->comboBox()->addItem(QStringLiteral("按组合股票数量"), 0);
    row->comboBox()->addItem(QStringLiteral("按组合股票权重"), 1);
    EXPECT_TRUE(parent.seen.empty()) << "the program's changes deliver nothing";

    QTest::keyClick(row->comboBox(), Qt::Key_Down);
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{64, 17, 1, QStringLiteral("按组合股票权重")}}));
}

} // namespace
