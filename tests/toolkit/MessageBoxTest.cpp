#include "CMessageBox.h"
#include "ToolkitRecords.h"

#include <gtest/gtest.h>

namespace {

class MessageBoxRecording : public ::testing::Test
{
protected:
    void SetUp() override { WK::resetToolkitRecords(); }
    void TearDown() override { WK::resetToolkitRecords(); }
};

TEST_F(MessageBoxRecording, recordsEachBoxWithoutShowingIt)
{
    const auto info = WK::CMessageBox::information(0, nullptr, QStringLiteral("帮助"), QStringLiteral("说明"),
                                                   QMessageBox::Ok);
    const auto warn = WK::CMessageBox::warning(2, nullptr, QStringLiteral("提示"), QStringLiteral("篮子重名"),
                                               QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel);

    EXPECT_EQ(info, QMessageBox::Ok);
    EXPECT_EQ(warn, QMessageBox::Cancel);
    const QVector<WK::MessageBoxRecord> records = WK::CMessageBox::records();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].kind, WK::MessageBoxRecord::Information);
    EXPECT_EQ(records[0].title, QStringLiteral("帮助"));
    EXPECT_EQ(records[0].text, QStringLiteral("说明"));
    EXPECT_EQ(records[0].buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    EXPECT_EQ(records[1].kind, WK::MessageBoxRecord::Warning);
    EXPECT_EQ(records[1].style, 2);
    EXPECT_EQ(records[1].text, QStringLiteral("篮子重名"));
    EXPECT_EQ(records[1].buttons, QMessageBox::Ok | QMessageBox::Cancel);
    EXPECT_EQ(records[1].answer, QMessageBox::Cancel);
}

struct AnswerCase {
    const char *name;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton;
    QMessageBox::StandardButton expected;
};

class MessageBoxAnswer : public MessageBoxRecording, public ::testing::WithParamInterface<AnswerCase>
{
};

TEST_P(MessageBoxAnswer, answersWithTheDefaultElseTheFirstButton)
{
    const AnswerCase &c = GetParam();
    EXPECT_EQ(WK::CMessageBox::warning(0, nullptr, QString(), QString(), c.buttons, c.defaultButton), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Toolkit, MessageBoxAnswer,
    ::testing::Values(
        AnswerCase{"OnlyButton", QMessageBox::Ok, QMessageBox::NoButton, QMessageBox::Ok},
        AnswerCase{"DefaultButton", QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No},
        AnswerCase{"FirstOfYesNo", QMessageBox::Yes | QMessageBox::No, QMessageBox::NoButton, QMessageBox::Yes},
        AnswerCase{"FirstOfOkCancel", QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::NoButton, QMessageBox::Ok},
        AnswerCase{"DefaultNotAmongTheButtons", QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::Cancel},
        AnswerCase{"NoButtonsAtAll", QMessageBox::NoButton, QMessageBox::NoButton, QMessageBox::Ok}),
    [](const ::testing::TestParamInfo<AnswerCase> &info) { return std::string(info.param.name); });

TEST_F(MessageBoxRecording, scriptedAnswerHoldsUntilCleared)
{
    WK::CMessageBox::setScriptedAnswer(QMessageBox::No);
    EXPECT_EQ(WK::CMessageBox::information(0, nullptr, QString(), QString(), QMessageBox::Yes | QMessageBox::No),
              QMessageBox::No);
    EXPECT_EQ(WK::CMessageBox::warning(0, nullptr, QString(), QString(), QMessageBox::Yes | QMessageBox::No),
              QMessageBox::No);

    WK::CMessageBox::clearScriptedAnswer();
    EXPECT_EQ(WK::CMessageBox::warning(0, nullptr, QString(), QString(), QMessageBox::Yes | QMessageBox::No),
              QMessageBox::Yes);
}

TEST_F(MessageBoxRecording, resetClearsRecordsAndScript)
{
    WK::CMessageBox::setScriptedAnswer(QMessageBox::Cancel);
    WK::CMessageBox::warning(0, nullptr, QString(), QString());
    ASSERT_EQ(WK::CMessageBox::records().size(), 1);

    WK::resetToolkitRecords();
    EXPECT_TRUE(WK::CMessageBox::records().isEmpty());
    EXPECT_EQ(WK::CMessageBox::warning(0, nullptr, QString(), QString()), QMessageBox::Ok);
}

} // namespace
