#include "CCommonDialog.h"
#include "CFloatWidget.h"
#include "CSimpleInputDialog.h"
#include "ToolkitRecords.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

#include <vector>

namespace {

class DialogScript : public ::testing::Test
{
protected:
    void SetUp() override { WK::resetToolkitRecords(); }
    void TearDown() override { WK::resetToolkitRecords(); }
};

TEST_F(DialogScript, inputDialogRejectsAtOnceByDefaultAndRecordsWhatItShowed)
{
    WK::CSimpleInputDialog dialog(QStringLiteral("保存篮子"), QString(), nullptr);
    dialog.setText(QStringLiteral("新建篮子"));
    std::vector<QString> given;

    const int result = dialog.getInput([&given](const QString &name) { given.push_back(name); });

    EXPECT_EQ(result, QDialog::Rejected);
    EXPECT_TRUE(given.empty());
    const QVector<WK::DialogRecord> records = WK::CBaseDialog::records();
    ASSERT_EQ(records.size(), 1);
    EXPECT_EQ(records[0].className, QStringLiteral("WK::CSimpleInputDialog"));
    EXPECT_EQ(records[0].title, QStringLiteral("保存篮子"));
    EXPECT_EQ(records[0].texts, QStringList({QString(), QStringLiteral("新建篮子")}));
}

TEST_F(DialogScript, scriptedAcceptHandsTheInputToTheCallback)
{
    WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted, QStringLiteral("篮子A"));
    WK::CSimpleInputDialog dialog(QStringLiteral("保存篮子"), QStringLiteral("名称"), nullptr);
    std::vector<QString> given;

    const int result = dialog.getInput([&given](const QString &name) { given.push_back(name); });

    EXPECT_EQ(result, QDialog::Accepted);
    ASSERT_EQ(given.size(), 1u);
    EXPECT_EQ(given[0], QStringLiteral("篮子A"));
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(WK::CBaseDialog::records().value(0).input, QStringLiteral("篮子A"));
}

TEST_F(DialogScript, blankInputCannotBeConfirmed)
{
    WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted, QStringLiteral("   "));
    WK::CSimpleInputDialog dialog(QStringLiteral("保存篮子"), QString(), nullptr);
    bool called = false;

    EXPECT_EQ(dialog.getInput([&called](const QString &) { called = true; }), QDialog::Rejected);
    EXPECT_FALSE(called);
    EXPECT_EQ(WK::CBaseDialog::records().value(0).result, QDialog::Rejected);
}

TEST_F(DialogScript, refusedCheckKeepsOnOKFromRunning)
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

TEST_F(DialogScript, commonDialogFillsItselfWithTheInnerWidget)
{
    WK::CCommonDialog dialog(nullptr);
    auto *content = new QLabel(QStringLiteral("内容"));
    dialog.setInnerWidget(content);
    dialog.resize(300, 200);
    dialog.show();
    QApplication::processEvents();

    EXPECT_EQ(content->parentWidget(), &dialog);
    EXPECT_EQ(content->geometry(), dialog.rect());
}

class FloatWidget : public ::testing::Test
{
protected:
    void SetUp() override
    {
        anchor.resize(400, 300);
        anchor.show();
        QApplication::processEvents();
    }
    QWidget anchor;
};

TEST_F(FloatWidget, innerWidgetSitsBelowTheTitleStrip)
{
    WK::CFloatWidget box(true, &anchor);
    box.setTitle(QStringLiteral("下单板设置"));
    auto *content = new QWidget;
    box.setInnerWidget(content);
    box.setFixedSize(250, 126);
    box.showBelow(&anchor);
    QApplication::processEvents();

    EXPECT_EQ(box.title(), QStringLiteral("下单板设置"));
    EXPECT_EQ(content->geometry().top(), WK::CFloatWidget::kTitleHeight);
    EXPECT_EQ(content->geometry().left(), 1);
    EXPECT_EQ(content->geometry().bottom(), 126 - 2);
}

TEST_F(FloatWidget, escapeHidesItLikeAPopup)
{
    WK::CFloatWidget box(false, &anchor);
    box.setFixedSize(100, 80);
    int hidden = 0;
    QObject::connect(&box, &WK::CFloatWidget::sigHidden, [&hidden] { ++hidden; });
    box.showAt(anchor.mapToGlobal(QPoint(10, 10)));
    QApplication::processEvents();
    ASSERT_TRUE(box.isVisible());
    EXPECT_TRUE(box.windowFlags().testFlag(Qt::Popup));

    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&box, &escape);
    QApplication::processEvents();

    EXPECT_FALSE(box.isVisible());
    EXPECT_EQ(hidden, 1);
}

} // namespace
