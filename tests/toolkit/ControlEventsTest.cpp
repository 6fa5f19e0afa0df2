#include "CBaseWidget.h"
#include "CCheckBox.h"
#include "CComboBox.h"
#include "CLineEdit.h"
#include "CPushButton.h"
#include "CPushButtonGroup.h"
#include "CRadioButtonGroup.h"
#include "CSimpleTextWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRadioButton>

#include <vector>

namespace {

struct Seen {
    int event;
    int id;
    int value;
    QString text;
};

// The parent of the controls under test: records every event that reaches it and takes it.
class Recorder : public WK::CBaseWidget
{
public:
    Recorder()
        : WK::CBaseWidget(QStringLiteral("recorder"), false, nullptr)
    {
    }
    bool handleEvent(int event, int id, int value, QString text, void *) override
    {
        seen.push_back({event, id, value, text});
        return true;
    }
    std::vector<Seen> seen;
};

void clickAt(QWidget *w)
{
    const QPointF centre = QRectF(w->rect()).center();
    QMouseEvent press(QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, centre, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

TEST(ControlEvents, pushButtonClickDeliversFiveWithItsId)
{
    Recorder parent;
    auto *button = new WK::CPushButton(107, QStringLiteral("调仓"), &parent);
    button->click();

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 5);
    EXPECT_EQ(parent.seen[0].id, 107);
    EXPECT_EQ(parent.seen[0].text, QStringLiteral("调仓"));
}

TEST(ControlEvents, checkBoxUserClickDeliversStateChangeThenClick)
{
    Recorder parent;
    auto *box = new WK::CCheckBox(8, QStringLiteral("允许改参"), &parent);
    box->click();

    ASSERT_EQ(parent.seen.size(), 2u);
    EXPECT_EQ(parent.seen[0].event, 60);
    EXPECT_EQ(parent.seen[1].event, 61);
    EXPECT_EQ(parent.seen[1].id, 8);
    EXPECT_EQ(parent.seen[1].value, 1);
    EXPECT_TRUE(box->isChecked());
}

TEST(ControlEvents, checkBoxSetByTheProgramDeliversOnlyTheStateChange)
{
    Recorder parent;
    auto *box = new WK::CCheckBox(16, QStringLiteral("过滤涨停股"), &parent);
    box->setChecked(true);
    box->setChecked(true);
    box->setChecked(false);

    ASSERT_EQ(parent.seen.size(), 2u);
    EXPECT_EQ(parent.seen[0].event, 60);
    EXPECT_EQ(parent.seen[0].value, 1);
    EXPECT_EQ(parent.seen[1].event, 60);
    EXPECT_EQ(parent.seen[1].value, 0);
}

TEST(ControlEvents, comboDeliversSixtyFourOnlyForTheUsersChoice)
{
    Recorder parent;
    auto *combo = new WK::CComboBox(17, &parent);
    combo->addItems({QStringLiteral("按组合股票数量"), QStringLiteral("按组合股票权重")});
    combo->setCurrentIndex(1);
    EXPECT_TRUE(parent.seen.empty());

    combo->setFocus();
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
    QApplication::sendEvent(combo, &up);

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 64);
    EXPECT_EQ(parent.seen[0].id, 17);
    EXPECT_EQ(parent.seen[0].value, 0);
    EXPECT_EQ(parent.seen[0].text, QStringLiteral("按组合股票数量"));
}

TEST(ControlEvents, lineEditReportsEditsAndTheirEndButNotTheProgramsText)
{
    Recorder parent;
    auto *edit = new WK::CLineEdit(5, &parent);
    edit->setText(QStringLiteral("100"));
    EXPECT_TRUE(parent.seen.empty());

    edit->setFocus();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_0, Qt::NoModifier, QStringLiteral("0"));
    QApplication::sendEvent(edit, &key);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(edit, &enter);
    QApplication::sendEvent(edit, &enter);

    ASSERT_EQ(parent.seen.size(), 2u) << "a second Return with the same text commits nothing";
    EXPECT_EQ(parent.seen[0].event, 107);
    EXPECT_EQ(parent.seen[0].text, QStringLiteral("1000"));
    EXPECT_EQ(parent.seen[1].event, 103);
    EXPECT_EQ(parent.seen[1].id, 5);
}

TEST(ControlEvents, simpleTextClickDeliversNineWithItsId)
{
    Recorder parent;
    auto *text = new WK::CSimpleTextWidget(5, QStringLiteral("补单算法设置"), &parent);
    text->setClickable(true);
    text->resize(100, 20);
    clickAt(text);

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 9);
    EXPECT_EQ(parent.seen[0].id, 5);
}

TEST(ControlEvents, simpleTextAsksForTheWidthOfItsTextUpToTheLimit)
{
    WK::CSimpleTextWidget text(nullptr);
    text.setText(QStringLiteral("停盘股权重占比:0.00%"), 100000);
    const int natural = text.sizeHint().width();
    EXPECT_GT(natural, 40);

    text.setText(QStringLiteral("停盘股权重占比:0.00%"), 30);
    EXPECT_EQ(text.sizeHint().width(), 30);
}

TEST(ControlEvents, pushButtonGroupChecksOneAndReportsClicksUpward)
{
    Recorder parent;
    auto *group = new WK::CPushButtonGroup(Qt::Vertical, &parent);
    group->addPushButton(512, QStringLiteral("买入"));
    WK::CPushButton *sell = group->addPushButton(1024, QStringLiteral("卖出"));

    group->setCheckedByID(512);
    EXPECT_EQ(group->checkedId(), 512);
    EXPECT_TRUE(parent.seen.empty());

    sell->click();
    EXPECT_EQ(group->checkedButton(), sell);
    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 5);
    EXPECT_EQ(parent.seen[0].id, 1024);

    group->setCheckedByID(99);
    EXPECT_EQ(group->checkedId(), 1024) << "an unknown id leaves the check where it is";
}

TEST(ControlEvents, radioGroupReportsEveryClickEvenOnTheChosenButton)
{
    Recorder parent;
    auto *group = new WK::CRadioButtonGroup(&parent);
    group->addButton(QStringLiteral("投机"), 49, true);
    group->addButton(QStringLiteral("套利"), 50, false);
    group->addButton(QStringLiteral("套保"), 51, false);
    group->setFocusPolicy(Qt::NoFocus);

    EXPECT_EQ(group->checkedId(), 49);
    group->setButtonCheckedByID(51);
    EXPECT_EQ(group->checkedId(), 51);
    EXPECT_TRUE(parent.seen.empty());

    group->button(50)->click();
    group->button(50)->click();
    ASSERT_EQ(parent.seen.size(), 2u);
    EXPECT_EQ(parent.seen[1].event, 85);
    EXPECT_EQ(parent.seen[1].id, 50);
    EXPECT_EQ(group->checkedId(), 50);
    EXPECT_EQ(group->button(51)->focusPolicy(), Qt::NoFocus);
}

} // namespace
