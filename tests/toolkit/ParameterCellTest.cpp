#include "CParameterCell.h"
#include "CMessageTip.h"
#include "ToolkitRecords.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

#include <vector>

namespace {

struct Seen {
    int event;
    int id;
    int value;
    QString text;
};

class Form : public WK::CBaseWidget
{
public:
    Form()
        : WK::CBaseWidget(QStringLiteral("form"), false, nullptr)
    {
    }
    bool handleEvent(int event, int id, int value, QString text, void *) override
    {
        seen.push_back({event, id, value, text});
        return true;
    }
    std::vector<Seen> seen;
};

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
    std::vector<Seen> events(int number) const
    {
        std::vector<Seen> result;
        for (const Seen &s : form.seen) {
            if (s.event == number)
                result.push_back(s);
        }
        return result;
    }

    Form form;
    WK::CParameterCell *cell = nullptr;
};

TEST_F(ParameterCell, integerCellKeepsWholeNumbers)
{
    cell->setIntValidator(QStringLiteral("份"), 0, 1000000000, 1);
    cell->setValue(3.7);
    EXPECT_EQ(cell->toInt(), 3);
    EXPECT_EQ(cell->toString(), QStringLiteral("3"));
    EXPECT_EQ(cell->unit(), QStringLiteral("份"));
}

TEST_F(ParameterCell, doubleCellTakesItsPrecisionFromTheStep)
{
    cell->setDoubleValidator(QStringLiteral("元"), 0, 1000000000000.0, 0.01);
    cell->setDouble(1234.5);
    EXPECT_EQ(cell->precision(), 2);
    EXPECT_EQ(cell->toString(), QStringLiteral("1234.50"));
    EXPECT_DOUBLE_EQ(cell->toDouble(), 1234.5);
}

TEST_F(ParameterCell, segmentedCellShowsSeparatorsButReadsPlain)
{
    cell->setDoubleValidator(QStringLiteral("元"), 0, 1000000000000.0, 0.01);
    cell->setFlag(WK::CParameterCell::CF_EMPHASIS | WK::CParameterCell::CF_SEGMENTED);
    cell->setDouble(1234567.5);
    EXPECT_EQ(cell->getEditor()->text(), QStringLiteral("1,234,567.50"));
    EXPECT_EQ(cell->toString(), QStringLiteral("1234567.50"));
    EXPECT_DOUBLE_EQ(cell->toDouble(), 1234567.5);
}

TEST_F(ParameterCell, editsReportOneHundredSevenAndTheirEndOneHundredThree)
{
    cell->setIntValidator(QStringLiteral("份"), 0, 1000, 1);
    cell->setInt(1);
    type(QStringLiteral("25"));
    pressKey(Qt::Key_Return);

    EXPECT_EQ(events(107).size(), 2u);
    const std::vector<Seen> commits = events(103);
    ASSERT_EQ(commits.size(), 1u);
    EXPECT_EQ(commits[0].id, 19);
    EXPECT_EQ(commits[0].value, 25);
    EXPECT_EQ(commits[0].text, QStringLiteral("25"));

    pressKey(Qt::Key_Return);
    EXPECT_EQ(events(103).size(), 1u) << "the same value is not committed twice";
}

TEST_F(ParameterCell, valuesSetByTheProgramAreNotReported)
{
    cell->setInt(5);
    cell->setDouble(2);
    cell->setString(QStringLiteral("7"));
    EXPECT_TRUE(form.seen.empty());
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

TEST_F(ParameterCell, outOfRangeTextIsBroughtBackWithATip)
{
    cell->setIntValidator(QStringLiteral("份"), 10, 100, 1);
    cell->setString(QStringLiteral("5"));
    cell->getEditor()->setFocus();
    cell->getEditor()->setModified(true);
    Q_EMIT cell->getEditor()->editingFinished();

    EXPECT_EQ(cell->toInt(), 10);
    const QVector<WK::MessageTipRecord> tips = WK::CMessageTip::records();
    ASSERT_EQ(tips.size(), 1);
    EXPECT_EQ(tips[0].text, QStringLiteral("请输入10到100之间的数值"));
    EXPECT_EQ(events(103).size(), 1u);
}

TEST_F(ParameterCell, aRefusedKeySaysWhyInsteadOfVanishing)
{
    cell->setDoubleValidator(QStringLiteral("元"), 0, 999999999999.0, 0.01);
    cell->setString(QString());
    QTest::keyClicks(cell->getEditor(), QStringLiteral("-5"));
    EXPECT_EQ(cell->toString(), QStringLiteral("5"));
    const QVector<WK::MessageTipRecord> tips = WK::CMessageTip::records();
    ASSERT_EQ(tips.size(), 1);
    EXPECT_TRUE(tips[0].text.startsWith(QStringLiteral("输入无效, 请输入0"))) << tips[0].text.toStdString();
}

TEST_F(ParameterCell, tipCanBeSwitchedOff)
{
    cell->setIntValidator(QStringLiteral("份"), 10, 100, 1);
    cell->setShowTip(false);
    cell->setString(QStringLiteral("5"));
    Q_EMIT cell->getEditor()->editingFinished();
    EXPECT_EQ(cell->toInt(), 10);
    EXPECT_TRUE(WK::CMessageTip::records().isEmpty());
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

TEST(MessageTip, showsAtTheAnchorAndRecordsWhatItSaid)
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
