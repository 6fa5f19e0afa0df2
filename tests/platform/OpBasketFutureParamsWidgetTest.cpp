// The hedge block of the basket form and its settings pop-up.
#include "COpBasketFutureParamsWidget.h"
#include "COpBasketHedgeSettingWidget.h"
#include "EventRecorder.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include "CExchangeClient.h"

#include "CCheckBox.h"
#include "CComboBox.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CSimpleTextWidget.h"

#include "CBasketHedgeParam.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QLineEdit>
#include <QtTest/QTest>

namespace {

using TC::COpBasketFutureParamsWidget;

constexpr int kBlockId = 6;

class FutureParams : public SubstituteTest
{
protected:
    COpBasketFutureParamsWidget *makeBlock() { return new COpBasketFutureParamsWidget(kBlockId, 1, &parent); }
    static WK::CCheckBox *checkBoxOf(COpBasketFutureParamsWidget *block) { return block->findChild<WK::CCheckBox *>(); }
    static WK::CComboBox *comboOf(COpBasketFutureParamsWidget *block) { return block->findChild<WK::CComboBox *>(); }

    EventRecorder parent;
};

TEST_F(FutureParams, anotherBlockReadsTheTextBackAndFieldsThatDoNotParseKeepTheirValues)
{
    for (const char *text : {"IF2401,100,0,0", "IC2403,55.5,1,3", "IH2406,80,-1,0", ",100,0,0"}) {
        COpBasketFutureParamsWidget *source = makeBlock();
        source->setParam(QString::fromLatin1(text));
        COpBasketFutureParamsWidget *target = makeBlock();
        target->setHedgeRatio(12);
        target->setHedgeType(COpBasketFutureParamsWidget::HT_SYNCHRONOUS);
        target->setContractVolume(9);
        target->setParam(source->param());
        EXPECT_EQ(target->param(), QString::fromLatin1(text));
    }

    COpBasketFutureParamsWidget *block = makeBlock();
    block->setParam(QStringLiteral("IC2403,55.5,1,3"));
    block->setParam(QStringLiteral("ih2402,abc,7,x"));
    EXPECT_EQ(fields(block->hedgeContractCode(), block->hedgeRatio(), block->hedgeType(), block->contractVolume()),
              fields("IH2402", 55.5, COpBasketFutureParamsWidget::HT_SYNCHRONOUS, 3));
    block->setParam(QString());
    EXPECT_EQ(block->param(), QStringLiteral("IH2402,55.5,1,3"));
    EXPECT_TRUE(parent.seen.empty());
}

TEST_F(FutureParams, fillHedgeParamCarriesTheBlocksValuesOnlyWhenCheckedWithAContract)
{
    COpBasketFutureParamsWidget *block = makeBlock();
    block->setParam(QStringLiteral("IC2403,55.5,1,3"));
    ttservice::CBasketHedgeParam hedge;
    hedge.m_contractCode = "untouched";
    EXPECT_FALSE(block->fillHedgeParam(hedge));
    block->setAutoHedge(true);
    block->setHedgeContractCode(QString());
    EXPECT_EQ(fields(block->fillHedgeParam(hedge), hedge.m_enabled, hedge.m_contractCode, block->getHedgeStockCode()),
              "false|false|untouched|");

    block->setHedgeContractCode(QStringLiteral("IC2403"));
    ASSERT_TRUE(block->fillHedgeParam(hedge));
    EXPECT_EQ(fields(hedge.m_enabled, hedge.m_hedgeType, hedge.m_contractCode, hedge.m_contractMarket, hedge.m_hedgeRatio,
                     hedge.m_contractVolume),
              "true|1|IC2403|CFFEX|55.5|3");
}

TEST_F(FutureParams, hedgeStockCodeTakesTheMarketOfTheInstrumentService)
{
    sample::addInstrument("SHFE", "AU2406");
    COpBasketFutureParamsWidget *block = makeBlock();
    block->setHedgeContractCode(QStringLiteral("au2406"));
    EXPECT_EQ(block->getHedgeStockCode(), QStringLiteral("AU2406.SHFE"));
    block->setHedgeContractCode(QStringLiteral("IF2402"));
    EXPECT_EQ(block->getHedgeStockCode(), QStringLiteral("IF2402.CFFEX"));
}

TEST_F(FutureParams, theUsersTogglesAndTheSettingLinkDeliverTheBlocksEventsTheProgramsAndALockedBlocksNone)
{
    COpBasketFutureParamsWidget *block = makeBlock();
    auto *ratio = block->findChild<WK::CParameterCell *>();
    EXPECT_FALSE(ratio->isVisibleTo(block));
    block->setAutoHedge(true);
    EXPECT_TRUE(block->isAutoHedgeCheck());
    EXPECT_TRUE(ratio->isVisibleTo(block));
    block->setAutoHedge(false);
    // A locked block takes no input; unlocking gives it back.
    block->setLocked(true);
    checkBoxOf(block)->click();
    EXPECT_FALSE(block->isAutoHedgeCheck());
    EXPECT_FALSE(comboOf(block)->isEnabled());
    EXPECT_TRUE(parent.seen.empty());

    block->setLocked(false);
    checkBoxOf(block)->click();
    checkBoxOf(block)->click();
    for (WK::CSimpleTextWidget *text : block->findChildren<WK::CSimpleTextWidget *>()) {
        if (text->isClickable())
            QTest::mouseClick(text, Qt::LeftButton);
    }
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{1137, kBlockId, 1, QString()}, {1137, kBlockId, 0, QString()},
                                                  {1143, kBlockId, 0, QString()}}));
}

TEST_F(FutureParams, aTypedContractAsksForARecalculationOncePerChange)
{
    COpBasketFutureParamsWidget *block = makeBlock();
    block->setAutoHedge(true);
    QLineEdit *edit = comboOf(block)->lineEdit();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("ic2403"));
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClick(edit, Qt::Key_Return);

    EXPECT_EQ(parent.seen, (EventRecorder::Events{{1088, kBlockId, 0, QStringLiteral("IC2403")}}));
    EXPECT_EQ(block->hedgeContractCode(), QStringLiteral("IC2403"));
}

TEST(ListedIndexFutures, offersTheTwoNearMonthsAndTheNextTwoQuarterMonthsOfEachProduct)
{
    struct Row { const char *name; QDate day; const char *ifCodes; };
    const Row rows[] = {
        {"startOfJanuary", QDate(2024, 1, 2), "IF2401 IF2402 IF2403 IF2406"},
        {"onTheThirdFriday", QDate(2024, 1, 19), "IF2401 IF2402 IF2403 IF2406"},
        {"dayAfterTheThirdFriday", QDate(2024, 1, 20), "IF2402 IF2403 IF2406 IF2409"},
        {"quarterMonthIsCurrent", QDate(2024, 3, 1), "IF2403 IF2404 IF2406 IF2409"},
        {"acrossTheYear", QDate(2024, 11, 30), "IF2412 IF2501 IF2503 IF2506"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const long long seconds = QDateTime(row.day, QTime(9, 30), Qt::OffsetFromUTC, 8 * 3600).toSecsSinceEpoch();
        const QStringList codes = COpBasketFutureParamsWidget::listedIndexFutures(seconds);
        ASSERT_EQ(codes.size(), 16);
        EXPECT_EQ(codes.mid(0, 4).join(QLatin1Char(' ')), QString::fromLatin1(row.ifCodes));
        EXPECT_TRUE(codes.at(4).startsWith(QLatin1String("IH")));
        EXPECT_TRUE(codes.at(15).startsWith(QLatin1String("IM")));
    }
}

// The settings pop-up, made as the form makes it: with the form as parent and no block given.
class HedgeSetting : public FutureParams
{
protected:
    void SetUp() override
    {
        FutureParams::SetUp();
        block = makeBlock();
        block->setParam(QStringLiteral("IF2401,100,1,5"));
        popup = new TC::COpBasketHedgeSettingWidget(&parent);
        popup->load();
    }
    void press(const QString &text) const
    {
        for (WK::CPushButton *b : popup->findChildren<WK::CPushButton *>()) {
            if (b->text() == text)
                b->click();
        }
    }

    COpBasketFutureParamsWidget *block = nullptr;
    TC::COpBasketHedgeSettingWidget *popup = nullptr;
};

TEST_F(HedgeSetting, showsTheFormsBlockAndOkWritesTheEditsBackWithoutAnEvent)
{
    EXPECT_EQ(popup->hedgeWidget(), block);
    EXPECT_EQ(fields(popup->hedgeTypeCombo()->currentData().toInt(), popup->volumeCell()->toInt()),
              fields(COpBasketFutureParamsWidget::HT_SYNCHRONOUS, 5));

    popup->hedgeTypeCombo()->setCurrentIndex(popup->hedgeTypeCombo()->findData(-1));
    popup->volumeCell()->setInt(0);
    press(QStringLiteral("确定"));
    EXPECT_EQ(block->param(), QStringLiteral("IF2401,100,-1,0"));
    EXPECT_EQ(popup->result(), QDialog::Accepted);
    EXPECT_TRUE(parent.seen.empty());
}

TEST_F(HedgeSetting, cancelLeavesTheBlockAsItWas)
{
    popup->volumeCell()->setInt(42);
    press(QStringLiteral("取消"));
    EXPECT_EQ(fields(block->contractVolume(), popup->result()), fields(5, QDialog::Rejected));
}

} // namespace
