// Which events each control sends its parent: the user's actions only, never the program's. A
// button's click, a clickable text's, a combo's choice and a radio's click are checked where the
// panel's widgets use them. Then the parameter cell, its tip, and the numbers the cells show.
#include "CCheckBox.h"
#include "CLineEdit.h"
#include "CMessageTip.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CPushButtonGroup.h"
#include "TextHelpers.h"
#include "ToolkitRecords.h"

#include "../platform/EventRecorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include <cfloat>
#include <limits>
#include <vector>

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

class ParameterCell : public ::testing::Test
{
protected:
    void SetUp() override
    {
        WK::resetToolkitRecords();
        form.resize(300, 40);
        form.show();
        cell = new WK::CParameterCell(19, QStringLiteral("篮子份数"), QStringLiteral("份"), &form);
        cell->resize(185, 24);
        cell->show();
        QApplication::processEvents();
    }
    void TearDown() override { WK::resetToolkitRecords(); }

    void type(const QString &text)
    {
        QLineEdit *edit = cell->getEditor();
        edit->setFocus();
        edit->selectAll();
        for (const QChar c : text) {
            QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(edit, &key);
        }
    }
    void pressKey(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(cell->getEditor(), &event);
    }
    std::vector<EventRecorder::Seen> events(int number) const
    {
        std::vector<EventRecorder::Seen> result;
        for (const EventRecorder::Seen &s : form.seen) {
            if (s.event == number)
                result.push_back(s);
        }
        return result;
    }
    QString tipText() const
    {
        const QVector<WK::MessageTipRecord> tips = WK::CMessageTip::records();
        return tips.size() == 1 ? tips[0].text : QStringLiteral("%1 tips").arg(tips.size());
    }

    EventRecorder form;
    WK::CParameterCell *cell = nullptr;
};

TEST_F(ParameterCell, showsAndReadsValuesInTheValidatorsFormWithoutReportingThem)
{
    cell->setIntValidator(QStringLiteral("份"), 0, 1000000000, 1);
    cell->setValue(3.7);
    EXPECT_EQ(cell->toInt(), 3);
    EXPECT_EQ(cell->toString(), QStringLiteral("3"));

    cell->setDoubleValidator(QStringLiteral("元"), 0, 1000000000000.0, 0.01);
    cell->setDouble(1234.5);
    EXPECT_EQ(cell->precision(), 2) << "the precision comes from the step";
    EXPECT_EQ(cell->toString(), QStringLiteral("1234.50"));

    cell->setFlag(WK::CParameterCell::CF_EMPHASIS | WK::CParameterCell::CF_SEGMENTED);
    cell->setDouble(1234567.5);
    EXPECT_EQ(cell->getEditor()->text(), QStringLiteral("1,234,567.50"));
    EXPECT_EQ(cell->toString(), QStringLiteral("1234567.50"));
    EXPECT_DOUBLE_EQ(cell->toDouble(), 1234567.5);

    cell->setInt(5);
    cell->setString(QStringLiteral("7"));
    EXPECT_TRUE(form.seen.empty()) << "values set by the program are not reported";

    cell->changeLabel(QString(), QStringLiteral("港币")); // an empty text keeps the old one
    EXPECT_EQ(cell->label() + cell->unit(), QStringLiteral("篮子份数港币"));
}

TEST_F(ParameterCell, editsReportOneHundredSevenAndTheirEndOneHundredThreeOnce)
{
    cell->setIntValidator(QStringLiteral("份"), 0, 1000, 1);
    cell->setInt(1);
    type(QStringLiteral("25"));
    pressKey(Qt::Key_Return);

    EXPECT_EQ(events(107).size(), 2u);
    EXPECT_EQ(events(103), (EventRecorder::Events{{103, 19, 25, QStringLiteral("25")}}));

    pressKey(Qt::Key_Return);
    EXPECT_EQ(events(103).size(), 1u) << "the same value is not committed twice";
}

TEST_F(ParameterCell, upAndDownStepWithinTheRangeAndCommit)
{
    cell->setDoubleValidator(QStringLiteral("%"), 0, 100, 0.01);
    cell->setDouble(99.98);
    cell->getEditor()->setFocus();
    pressKey(Qt::Key_Up);
    EXPECT_DOUBLE_EQ(cell->toDouble(), 99.99);
    pressKey(Qt::Key_Up);
    pressKey(Qt::Key_Up);
    EXPECT_DOUBLE_EQ(cell->toDouble(), 100.0);
    EXPECT_EQ(events(103).size(), 2u) << "a step against the bound changes nothing";
    pressKey(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(cell->toDouble(), 99.99);
    EXPECT_EQ(events(103).size(), 3u);
}

TEST_F(ParameterCell, outOfRangeTextIsBroughtBackWithATipUnlessTipsAreOff)
{
    cell->setIntValidator(QStringLiteral("份"), 10, 100, 1);
    cell->setString(QStringLiteral("5"));
    cell->getEditor()->setFocus();
    cell->getEditor()->setModified(true);
    Q_EMIT cell->getEditor()->editingFinished();
    EXPECT_EQ(cell->toInt(), 10);
    EXPECT_EQ(tipText(), QStringLiteral("请输入10到100之间的数值"));
    EXPECT_EQ(events(103).size(), 1u);

    WK::resetToolkitRecords();
    cell->setShowTip(false);
    cell->setString(QStringLiteral("5"));
    Q_EMIT cell->getEditor()->editingFinished();
    EXPECT_EQ(cell->toInt(), 10);
    EXPECT_TRUE(WK::CMessageTip::records().isEmpty());
}

TEST_F(ParameterCell, aRefusedKeySaysWhyInsteadOfVanishing)
{
    cell->setDoubleValidator(QStringLiteral("元"), 0, 999999999999.0, 0.01);
    cell->setString(QString());
    QTest::keyClicks(cell->getEditor(), QStringLiteral("-5"));
    EXPECT_EQ(cell->toString(), QStringLiteral("5"));
    EXPECT_TRUE(tipText().startsWith(QStringLiteral("输入无效, 请输入0"))) << tipText().toStdString();
}

TEST(MessageTip, showsWhatItSaysAndGoesWithItsAnchor)
{
    WK::resetToolkitRecords();
    QWidget anchor;
    anchor.resize(185, 24);
    anchor.show();

    WK::CMessageTip::showTip(&anchor, 65, QStringLiteral("篮子份数必须大于0!"), 1, 2, 300);

    WK::CMessageTip *tip = WK::CMessageTip::sharedTip();
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), QStringLiteral("篮子份数必须大于0!"));

    anchor.hide();
    EXPECT_FALSE(tip->isVisible()) << "a tip goes with its anchor";
    WK::resetToolkitRecords();
}

TEST(TextHelpers, formatDoubleNumberWritesNumbersAsTheTraderReadsThem)
{
    struct Row { const char *name; double value; int precision, flags; const char *expected; };
    const Row rows[] = {
        {"plain", 1234.5, 2, 0, "1234.50"},
        {"segmented", 1234567.891, 2, WK::NF_SEGMENTED, "1,234,567.89"},
        {"segmentedNegative", -1234567.5, 1, WK::NF_SEGMENTED, "-1,234,567.5"},
        {"segmentedShort", 999.0, 0, WK::NF_SEGMENTED, "999"},
        {"segmentedExactThousand", 1000.0, 0, WK::NF_SEGMENTED, "1,000"},
        {"boolTrueIsSegmented", 12345.0, 0, true, "12,345"},
        {"roundsUp", 2.346, 2, 0, "2.35"},
        {"zeroDecimals", 7.6, 0, 0, "8"},
        {"negativePrecisionIsZero", 7.4, -3, 0, "7"},
        {"negativeZeroLosesItsSign", -0.001, 2, 0, "0.00"},
        {"percent", 0.25, 2, WK::NF_PERCENT, "25.00%"},
        {"percentNegative", -0.0123, 2, WK::NF_PERCENT, "-1.23%"},
        {"fivePlaces", 0.91234, 5, 0, "0.91234"},
        {"noValue", DBL_MAX, 2, 0, "--"},
        {"noValueSegmented", DBL_MAX, 2, WK::NF_SEGMENTED, "--"},
        {"infinity", std::numeric_limits<double>::infinity(), 2, 0, "--"},
        {"nan", std::numeric_limits<double>::quiet_NaN(), 2, 0, "--"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(WK::formatDoubleNumber(row.value, row.precision, row.flags), QString::fromUtf8(row.expected))
            << row.name;
    EXPECT_EQ(WK::formatDoubleNumber(DBL_MAX, 5, 0, QStringLiteral("非法值")), QStringLiteral("非法值"));
    EXPECT_EQ(WK::formatDoubleNumber(DBL_MAX, 2, WK::NF_PERCENT, QStringLiteral("非法值")), QStringLiteral("非法值"));

    EXPECT_EQ(WK::formatIntNumber(1234567), QStringLiteral("1234567"));
    EXPECT_EQ(WK::formatIntNumber(1234567, WK::NF_SEGMENTED), QStringLiteral("1,234,567"));
    EXPECT_EQ(WK::formatIntNumber(-1000, WK::NF_SEGMENTED), QStringLiteral("-1,000"));
    EXPECT_EQ(WK::formatIntNumber(0, WK::NF_SEGMENTED), QStringLiteral("0"));
    EXPECT_EQ(WK::formatIntNumber(std::numeric_limits<qint64>::min(), WK::NF_SEGMENTED),
              QStringLiteral("-9,223,372,036,854,775,808"));
}

TEST(TextHelpers, formatNumberStringGroupsTheIntegerPartAndUnformatUndoesIt)
{
    struct Row { const char *input, *expected; };
    const Row rows[] = {{"1300", "1,300"},           {"1234.5", "1,234.5"}, {"-1234567", "-1,234,567"},
                        {"1,234,567", "1,234,567"}, {"12,34", "1,234"},    {"12", "12"},
                        {"", ""},                   {"abc", "abc"},        {"12abc", "12abc"}};
    for (const Row &row : rows)
        EXPECT_EQ(WK::formatNumberString(QString::fromUtf8(row.input)), QString::fromUtf8(row.expected)) << row.input;
    EXPECT_EQ(WK::unformatNumberString(QStringLiteral(" 1,234,567.5 ")), QStringLiteral("1234567.5"));
}

// A cell drawn without measuring its text must really fit: never "fits" for a text wider than the
// room, and a number with room to spare is not measured.
TEST(TextHelpers, aTextSaidToFitDoesFit)
{
    const QFontMetrics metrics(QApplication::font());
    int spared = 0;
    for (const char *text : {"1273.00", "-12.34%", "600000", "0.00", "12,345,678.90", "SH", "W.M"}) {
        const QString shown = QString::fromLatin1(text);
        const int width = metrics.horizontalAdvance(shown);
        for (int room = width - 3; room <= width + 20; ++room) {
            if (WK::textSurelyFits(metrics, shown, room)) {
                EXPECT_LE(width, room) << text;
            }
        }
        spared += WK::textSurelyFits(metrics, shown, width + 20) ? 1 : 0;
    }
    EXPECT_EQ(spared, 7);
    EXPECT_FALSE(WK::textSurelyFits(metrics, QStringLiteral("金达化工"), 1000)) << "other scripts are measured";
}

} // namespace
