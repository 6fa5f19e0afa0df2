// The basket form's small controls: the operation tabs, a named combo and the expanding bar.
#include "CBasketParamTabButton.h"
#include "COpBasketParamsExpandBar.h"
#include "CComboxNameWidget.h"
#include "COperationPushButtonGroup.h"
#include "EventRecorder.h"

#include "CComboBox.h"
#include "CPushButton.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include <functional>

namespace {

struct Tab { int word; const char *text; };

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

TEST(OpBasketParamsExpandBar, aClickSpaceOrEnterCollapsesThenExpandsAndDeliversEachStateTheProgramNone)
{
    const std::pair<const char *, std::function<void(QWidget *)>> inputs[] = {
        {"click", [](QWidget *w) { QTest::mouseClick(w, Qt::LeftButton); }},
        {"space", [](QWidget *w) { QTest::keyClick(w, Qt::Key_Space); }},
        {"enter", [](QWidget *w) { QTest::keyClick(w, Qt::Key_Return); }},
    };
    const QString title = QStringLiteral("组合交易设置");
    for (const auto &input : inputs) {
        SCOPED_TRACE(input.first);
        EventRecorder parent;
        auto *bar = new TC::COpBasketParamsExpandBar(5, title, &parent);
        bar->resize(300, TC::COpBasketParamsExpandBar::kBarHeight);
        input.second(bar);
        EXPECT_FALSE(bar->isExpanded());
        input.second(bar);
        EXPECT_TRUE(bar->isExpanded());
        bar->setExpanded(false);
        EXPECT_FALSE(bar->isExpanded());
        // A press released off the bar is no click.
        QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
        QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, QPoint(10, 200));
        EXPECT_FALSE(bar->isExpanded());
        EXPECT_EQ(parent.seen, (EventRecorder::Events{{1137, 5, 0, title}, {1137, 5, 1, title}}));
    }
}

} // namespace
