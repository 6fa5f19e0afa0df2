#include "COpBasketFutureParamsWidget.h"
#include "EventRecorder.h"
#include "SubstituteFixture.h"

#include "CExchangeClient.h"

#include "CCheckBox.h"
#include "CComboBox.h"
#include "CParameterCell.h"
#include "CSimpleTextWidget.h"

#include "CBasketHedgeParam.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QLineEdit>
#include <QtTest/QTest>

namespace {

constexpr int kBlockId = 6;

TC::COpBasketFutureParamsWidget *makeBlock(EventRecorder &parent)
{
    return new TC::COpBasketFutureParamsWidget(kBlockId, 1, &parent);
}

WK::CCheckBox *checkBoxOf(TC::COpBasketFutureParamsWidget *block)
{
    return block->findChild<WK::CCheckBox *>();
}

WK::CComboBox *contractComboOf(TC::COpBasketFutureParamsWidget *block)
{
    return block->findChild<WK::CComboBox *>();
}

long long beijing(int year, int month, int day)
{
    return QDateTime(QDate(year, month, day), QTime(9, 30), Qt::OffsetFromUTC, 8 * 3600).toSecsSinceEpoch();
}

class OpBasketFutureParamsWidget : public SubstituteTest
{
};

// --- parameter text ---

struct ParamText {
    const char *name;
    const char *text;
};

const ParamText kParamTexts[] = {
    {"defaults", "IF2401,100,0,0"},
    {"fractionalRatioFixedLots", "IC2403,55.5,1,3"},
    {"manualHedge", "IH2406,80,-1,0"},
    {"noContract", ",100,0,0"},
};

class ParamRoundTrip : public OpBasketFutureParamsWidget, public ::testing::WithParamInterface<ParamText>
{
};

TEST_P(ParamRoundTrip, anotherBlockReadsTheTextBackUnchanged)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *source = makeBlock(parent);
    source->setParam(QString::fromLatin1(GetParam().text));

    TC::COpBasketFutureParamsWidget *target = makeBlock(parent);
    target->setHedgeRatio(12);
    target->setHedgeType(TC::COpBasketFutureParamsWidget::HT_SYNCHRONOUS);
    target->setContractVolume(9);
    target->setParam(source->param());

    EXPECT_EQ(target->param(), QString::fromLatin1(GetParam().text));
    EXPECT_TRUE(parent.seen.empty());
}

INSTANTIATE_TEST_SUITE_P(Texts, ParamRoundTrip, ::testing::ValuesIn(kParamTexts),
                         [](const ::testing::TestParamInfo<ParamText> &info) { return std::string(info.param.name); });

TEST_F(OpBasketFutureParamsWidget, fieldsThatDoNotParseKeepTheirValues)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    block->setParam(QStringLiteral("IC2403,55.5,1,3"));

    block->setParam(QStringLiteral("ih2402,abc,7,x"));

    EXPECT_EQ(block->hedgeContractCode(), QStringLiteral("IH2402"));
    EXPECT_DOUBLE_EQ(block->hedgeRatio(), 55.5);
    EXPECT_EQ(block->hedgeType(), TC::COpBasketFutureParamsWidget::HT_SYNCHRONOUS);
    EXPECT_EQ(block->contractVolume(), 3);

    block->setParam(QString());
    EXPECT_EQ(block->param(), QStringLiteral("IH2402,55.5,1,3"));
}

// --- hedge record ---

TEST_F(OpBasketFutureParamsWidget, fillHedgeParamRefusesUncheckedOrWithoutAContract)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    ttservice::CBasketHedgeParam hedge;
    hedge.m_contractCode = "untouched";

    EXPECT_FALSE(block->fillHedgeParam(hedge));
    block->setAutoHedge(true);
    block->setHedgeContractCode(QString());
    EXPECT_FALSE(block->fillHedgeParam(hedge));

    EXPECT_FALSE(hedge.m_enabled);
    EXPECT_EQ(hedge.m_contractCode, "untouched");
    EXPECT_TRUE(block->getHedgeStockCode().isEmpty());
}

TEST_F(OpBasketFutureParamsWidget, fillHedgeParamCarriesTheBlocksValuesWhenChecked)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    block->setParam(QStringLiteral("IC2403,55.5,1,3"));
    block->setAutoHedge(true);
    ttservice::CBasketHedgeParam hedge;

    ASSERT_TRUE(block->fillHedgeParam(hedge));
    EXPECT_TRUE(hedge.m_enabled);
    EXPECT_EQ(hedge.m_hedgeType, 1);
    EXPECT_EQ(hedge.m_contractCode, "IC2403");
    EXPECT_EQ(hedge.m_contractMarket, "CFFEX");
    EXPECT_DOUBLE_EQ(hedge.m_hedgeRatio, 55.5);
    EXPECT_EQ(hedge.m_contractVolume, 3);
}

TEST_F(OpBasketFutureParamsWidget, hedgeStockCodeTakesTheMarketOfTheInstrumentService)
{
    ttservice::CInstrumentDetail gold;
    gold.m_market = "SHFE";
    gold.m_stockCode = "AU2406";
    TC::CExchangeClient::instance()->addInstrument(gold);
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);

    block->setHedgeContractCode(QStringLiteral("au2406"));
    EXPECT_EQ(block->getHedgeStockCode(), QStringLiteral("AU2406.SHFE"));

    block->setHedgeContractCode(QStringLiteral("IF2402"));
    EXPECT_EQ(block->getHedgeStockCode(), QStringLiteral("IF2402.CFFEX"));
}

// --- events ---

TEST_F(OpBasketFutureParamsWidget, userTogglesDeliverOnlyTheBlocksEvent)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);

    checkBoxOf(block)->click();
    checkBoxOf(block)->click();

    ASSERT_EQ(parent.seen.size(), 2u);
    EXPECT_EQ(parent.seen[0].event, 1137);
    EXPECT_EQ(parent.seen[0].id, kBlockId);
    EXPECT_EQ(parent.seen[0].value, 1);
    EXPECT_EQ(parent.seen[1].event, 1137);
    EXPECT_EQ(parent.seen[1].value, 0);
}

TEST_F(OpBasketFutureParamsWidget, setAutoHedgeShowsTheParametersWithoutAnEvent)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    auto *ratio = block->findChild<WK::CParameterCell *>();
    EXPECT_FALSE(ratio->isVisibleTo(block));

    block->setAutoHedge(true);

    EXPECT_TRUE(block->isAutoHedgeCheck());
    EXPECT_TRUE(ratio->isVisibleTo(block));
    EXPECT_EQ(block->sizeHint().height(), TC::COpBasketFutureParamsWidget::kExpandedHeight);
    EXPECT_TRUE(parent.seen.empty());
}

TEST_F(OpBasketFutureParamsWidget, settingLinkAsksForTheSettingsPopup)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    WK::CSimpleTextWidget *link = nullptr;
    for (WK::CSimpleTextWidget *text : block->findChildren<WK::CSimpleTextWidget *>()) {
        if (text->isClickable())
            link = text;
    }
    ASSERT_NE(link, nullptr);

    QTest::mouseClick(link, Qt::LeftButton);

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 1143);
    EXPECT_EQ(parent.seen[0].id, kBlockId);
}

TEST_F(OpBasketFutureParamsWidget, aTypedContractAsksForARecalculationOncePerChange)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    block->setAutoHedge(true);
    QLineEdit *edit = contractComboOf(block)->lineEdit();

    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("ic2403"));
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClick(edit, Qt::Key_Return);

    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 1088);
    EXPECT_EQ(parent.seen[0].id, kBlockId);
    EXPECT_EQ(parent.seen[0].value, 0);
    EXPECT_EQ(block->hedgeContractCode(), QStringLiteral("IC2403"));
}

TEST_F(OpBasketFutureParamsWidget, lockedBlockTakesNoInputAndUnlockingRestoresIt)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);

    block->setLocked(true);
    checkBoxOf(block)->click();
    EXPECT_FALSE(block->isAutoHedgeCheck());
    EXPECT_FALSE(contractComboOf(block)->isEnabled());
    EXPECT_TRUE(parent.seen.empty());

    block->setLocked(false);
    checkBoxOf(block)->click();
    EXPECT_TRUE(block->isAutoHedgeCheck());
    EXPECT_EQ(parent.seen.size(), 1u);
}

// --- direction and listed contracts ---

struct Direction {
    const char *name;
    int operation;
    const char *text;
};

const Direction kDirections[] = {
    {"buy", 18, "期货卖出"},
    {"sell", 19, "期货买入"},
    {"none", -1, ""},
};

class HedgeDirection : public OpBasketFutureParamsWidget, public ::testing::WithParamInterface<Direction>
{
};

TEST_P(HedgeDirection, followsTheSideOfTheBasket)
{
    EventRecorder parent;
    TC::COpBasketFutureParamsWidget *block = makeBlock(parent);
    block->setOperationType(GetParam().operation);
    EXPECT_EQ(block->hedgeDirectionText(), QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Operations, HedgeDirection, ::testing::ValuesIn(kDirections),
                         [](const ::testing::TestParamInfo<Direction> &info) { return std::string(info.param.name); });

struct Listing {
    const char *name;
    long long seconds;
    const char *ifCodes;
};

const Listing kListings[] = {
    {"startOfJanuary", beijing(2024, 1, 2), "IF2401 IF2402 IF2403 IF2406"},
    {"onTheThirdFriday", beijing(2024, 1, 19), "IF2401 IF2402 IF2403 IF2406"},
    {"dayAfterTheThirdFriday", beijing(2024, 1, 20), "IF2402 IF2403 IF2406 IF2409"},
    {"quarterMonthIsCurrent", beijing(2024, 3, 1), "IF2403 IF2404 IF2406 IF2409"},
    {"acrossTheYear", beijing(2024, 11, 30), "IF2412 IF2501 IF2503 IF2506"},
};

class ListedIndexFutures : public ::testing::TestWithParam<Listing>
{
};

TEST_P(ListedIndexFutures, offersFourMonthsOfEachProduct)
{
    const QStringList codes = TC::COpBasketFutureParamsWidget::listedIndexFutures(GetParam().seconds);

    ASSERT_EQ(codes.size(), 16);
    EXPECT_EQ(codes.mid(0, 4).join(QLatin1Char(' ')), QString::fromLatin1(GetParam().ifCodes));
    EXPECT_TRUE(codes.at(4).startsWith(QLatin1String("IH")));
    EXPECT_TRUE(codes.at(15).startsWith(QLatin1String("IM")));
}

INSTANTIATE_TEST_SUITE_P(Days, ListedIndexFutures, ::testing::ValuesIn(kListings),
                         [](const ::testing::TestParamInfo<Listing> &info) { return std::string(info.param.name); });

} // namespace
