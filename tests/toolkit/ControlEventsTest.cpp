// Which events each control sends its parent: the user's actions only, never the program's. A
// button's click, a clickable text's and a combo's choice are checked where the platform's
// widgets use them.
#include "CCheckBox.h"
#include "CLineEdit.h"
#include "CPushButton.h"
#include "CPushButtonGroup.h"
#include "CRadioButtonGroup.h"

#include "../platform/EventRecorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QRadioButton>

namespace {

void key(QWidget *w, int key, const QString &text = QString())
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(w, &event);
}

TEST(ControlEvents, checkBoxTellsEveryStateChangeButOnlyTheUsersClick)
{
    EventRecorder parent;
    auto *box = new WK::CCheckBox(8, QStringLiteral("允许改参"), &parent);
    box->setChecked(true);
    box->setChecked(true);
    box->setChecked(false);
    const QString text = QStringLiteral("允许改参");
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{60, 8, 1, text}, {60, 8, 0, text}}))
        << "an unchanged state is no change";

    parent.seen.clear();
    box->click();
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{60, 8, 1, text}, {61, 8, 1, text}}));
    EXPECT_TRUE(box->isChecked());
}

TEST(ControlEvents, lineEditReportsEditsAndTheirEndButNotTheProgramsText)
{
    EventRecorder parent;
    auto *edit = new WK::CLineEdit(5, &parent);
    edit->setText(QStringLiteral("100"));
    EXPECT_TRUE(parent.seen.empty());

    edit->setFocus();
    key(edit, Qt::Key_0, QStringLiteral("0"));
    key(edit, Qt::Key_Return);
    key(edit, Qt::Key_Return);
    const QString typed = QStringLiteral("1000");
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{107, 5, 0, typed}, {103, 5, 0, typed}}))
        << "a second Return with the same text commits nothing";
}

TEST(ControlEvents, pushButtonGroupChecksOneAndReportsClicksUpward)
{
    EventRecorder parent;
    auto *group = new WK::CPushButtonGroup(Qt::Vertical, &parent);
    group->addPushButton(512, QStringLiteral("买入"));
    WK::CPushButton *sell = group->addPushButton(1024, QStringLiteral("卖出"));

    group->setCheckedByID(512);
    EXPECT_EQ(group->checkedId(), 512);
    EXPECT_TRUE(parent.seen.empty());

    sell->click();
    EXPECT_EQ(group->checkedButton(), sell);
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{5, 1024, 1, QStringLiteral("卖出")}}));

    group->setCheckedByID(99);
    EXPECT_EQ(group->checkedId(), 1024) << "an unknown id leaves the check where it is";
}

TEST(ControlEvents, radioGroupReportsEveryClickEvenOnTheChosenButton)
{
    EventRecorder parent;
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
    EXPECT_EQ(parent.seen, (EventRecorder::Events(2, {85, 50, 0, QString()})));
    EXPECT_EQ(group->checkedId(), 50);
    EXPECT_EQ(group->button(51)->focusPolicy(), Qt::NoFocus);
}

} // namespace
