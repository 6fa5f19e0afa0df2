#include "CComboxNameWidget.h"
#include "EventRecorder.h"

#include "CComboBox.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

namespace {

TC::CComboxNameWidget *makeVolumeRow(EventRecorder &parent)
{
    auto *row = new TC::CComboxNameWidget(17, QStringLiteral("交易总量"), &parent);
    row->comboBox()->addItem(QStringLiteral("按组合股票数量"), 0);
    row->comboBox()->addItem(QStringLiteral("按组合股票权重"), 1);
    row->comboBox()->addItem(QStringLiteral("按产品净值"), 2);
    return row;
}

TEST(ComboxNameWidget, userChoiceDeliversSixtyFourWithTheRowsId)
{
    EventRecorder parent;
    TC::CComboxNameWidget *row = makeVolumeRow(parent);

    QTest::keyClick(row->comboBox(), Qt::Key_Down);

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 64);
    EXPECT_EQ(parent.seen[0].id, 17);
    EXPECT_EQ(parent.seen[0].value, 1);
    EXPECT_EQ(parent.seen[0].text, QStringLiteral("按组合股票权重"));
}

TEST(ComboxNameWidget, changesByTheProgramDeliverNothing)
{
    EventRecorder parent;
    TC::CComboxNameWidget *row = makeVolumeRow(parent);

    row->comboBox()->setCurrentIndex(2);
    row->comboBox()->removeItem(2);
    row->comboBox()->clear();
    row->comboBox()->addItem(QStringLiteral("按组合港股通数量"), 0);

    EXPECT_TRUE(parent.seen.empty());
}

} // namespace
