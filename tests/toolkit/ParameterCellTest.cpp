#include "CMessageTip.h"
#include "CParameterCell.h"
#include "ToolkitRecords.h"

#include "../platform/EventRecorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include <vector>

namespace {

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

TEST_F(ParameterCell, changeLabelKeepsWhatIsLeftEmpty)
{
    cell->changeLabel(QString(), QStringLiteral("港币"));
    EXPECT_EQ(cell->label(), QStringLiteral("篮子份数"));
    EXPECT_EQ(cell->unit(), QStringLiteral("港币"));
    cell->changeLabel(QStringLiteral("总金额"), QString());
    EXPECT_EQ(cell->label(), QStringLiteral("总金额"));
    EXPECT_EQ(cell->unit(), QStringLiteral("港币"));
}

TEST(MessageTip, showsBelowTheAnchorRecordsWhatItSaidAndGoesWithIt)
{
    WK::resetToolkitRecords();
    QWidget anchor;
    anchor.setObjectName(QStringLiteral("copies_cell"));
    anchor.resize(185, 24);
    anchor.show();

    WK::CMessageTip::showTip(&anchor, 65, QStringLiteral("篮子份数必须大于0!"), 1, 2, 300);

    WK::CMessageTip *tip = WK::CMessageTip::sharedTip();
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_EQ(tip->text(), QStringLiteral("篮子份数必须大于0!"));
    EXPECT_GE(tip->geometry().top(), anchor.mapToGlobal(QPoint(0, anchor.height())).y());
    const QVector<WK::MessageTipRecord> records = WK::CMessageTip::records();
    ASSERT_EQ(records.size(), 1);
    EXPECT_EQ(records[0].anchorName, QStringLiteral("copies_cell"));
    EXPECT_EQ(records[0].alignment, 65);

    anchor.hide();
    EXPECT_FALSE(tip->isVisible()) << "a tip goes with its anchor";
    WK::resetToolkitRecords();
}

} // namespace
