// Message boxes and dialogs answer as scripted (without showing) and record what they showed.
#include "CCommonDialog.h"
#include "CMessageBox.h"
#include "CSimpleInputDialog.h"
#include "Fields.h"
#include "ToolkitRecords.h"

#include <gtest/gtest.h>


#include <vector>

namespace {

class Scripted : public ::testing::Test
{
protected:
    void SetUp() override { WK::resetToolkitRecords(); }
    void TearDown() override { WK::resetToolkitRecords(); }
};

TEST_F(Scripted, messageBoxRecordsEachBoxAndAnswersWithTheDefaultElseTheFirstButton)
{
    using B = QMessageBox;
    struct Row { const char *name; QMessageBox::StandardButtons buttons; QMessageBox::StandardButton defaultButton, expected; };
    const Row rows[] = {{"onlyButton", B::Ok, B::NoButton, B::Ok},
                        {"defaultButton", B::Yes | B::No, B::No, B::No},
                        {"firstOfYesNo", B::Yes | B::No, B::NoButton, B::Yes},
                        {"firstOfOkCancel", B::Ok | B::Cancel, B::NoButton, B::Ok},
                        {"defaultNotAmongTheButtons", B::Cancel, B::Yes, B::Cancel},
                        {"noButtonsAtAll", B::NoButton, B::NoButton, B::Ok}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(WK::CMessageBox::warning(2, nullptr, QStringLiteral("提示"), QString::fromLatin1(row.name),
                                           row.buttons, row.defaultButton),
                  row.expected);
        const WK::MessageBoxRecord record = WK::CMessageBox::records().constLast();
        EXPECT_EQ(fields(record.kind, record.style, record.title, record.text, int(record.buttons), int(record.answer)),
                  fields(WK::MessageBoxRecord::Warning, 2, "提示", row.name, int(row.buttons), int(row.expected)));
    }
}

TEST_F(Scripted, inputDialogHandsOnlyANonBlankAcceptedInputToTheCallback)
{
    struct Row { const char *name; bool accept; const char *input; int result; };
    const Row rows[] = {{"rejectedByDefault", false, "", QDialog::Rejected},
                        {"accepted", true, "篮子A", QDialog::Accepted},
                        {"blankCannotBeConfirmed", true, "   ", QDialog::Rejected}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        WK::resetToolkitRecords();
        if (row.accept)
            WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted, QString::fromUtf8(row.input));
        WK::CSimpleInputDialog dialog(QStringLiteral("保存篮子"), QStringLiteral("名称"), nullptr);
        dialog.setText(QStringLiteral("新建篮子"));
        std::vector<QString> given;

        EXPECT_EQ(dialog.getInput([&given](const QString &name) { given.push_back(name); }), row.result);

        EXPECT_EQ(dialog.result(), row.result);
        EXPECT_EQ(given, row.result == QDialog::Accepted ? std::vector<QString>{QString::fromUtf8(row.input)}
                                                         : std::vector<QString>());
        ASSERT_EQ(WK::CBaseDialog::records().size(), 1);
        const WK::DialogRecord record = WK::CBaseDialog::records().front();
        EXPECT_EQ(fields(record.className, record.title, record.result, record.input,
                         record.texts.join(QLatin1Char(','))),
                  fields("WK::CSimpleInputDialog", "保存篮子", row.result, row.input, "名称,新建篮子"));
    }
}

TEST_F(Scripted, refusedCheckKeepsOnOKFromRunning)
{
    struct Checked : WK::CCommonDialog {
        using WK::CCommonDialog::CCommonDialog;
        bool checkOK() override { return allow; }
        void onOK() override { ++done; }
        bool allow = false;
        int done = 0;
    };
    WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted);
    Checked dialog(nullptr);
    dialog.setTitle(QStringLiteral("调仓"));

    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_EQ(dialog.done, 0);
    dialog.allow = true;
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(dialog.done, 1);
    EXPECT_EQ(WK::CBaseDialog::records().value(1).title, QStringLiteral("调仓"));
}

} // namespace
