#include "COpBasketStockParamsWidget.h"
#include "SubstituteFixture.h"

#include "CGlobalOrderParamTable.h"
#include "CTrdAlgoBaseTable.h"

#include "CAlgorithmHelpDialog.h"
#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "CTimeService.h"
#include "CVqAlgorithmHelpDialog.h"

#include "CBaseWidget.h"

#include <gtest/gtest.h>

namespace {

using TC::COpBasketStockParamsWidget;
using ttservice::CCodeOrderParam;
using ttservice::COrderSetting;

// 2024-01-02 00:00:00 in Beijing, the day of the time service's default reading.
constexpr long long kDefaultDay = TC::CTimeService::DEFAULT_TIME - (9 * 3600 + 30 * 60);

class StockParamsWidget : public SubstituteTest
{
protected:
    COpBasketStockParamsWidget *makeBlock()
    {
        return new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_STOCK, &parent, ttservice::VQ_TRADER_BASKET);
    }

    static void setStep(COpBasketStockParamsWidget *block, double step)
    {
        COrderSetting setting;
        block->table()->saveOpParam(QString(), setting);
        setting.m_stepValue = step;
        block->table()->loadOpParam(setting, 0.001);
    }

    static double step(COpBasketStockParamsWidget *block)
    {
        COrderSetting setting;
        block->table()->saveOpParam(QString(), setting);
        return setting.m_stepValue;
    }

    static double twapInterval(COpBasketStockParamsWidget *block)
    {
        return block->table()->getTrdAlgoBaseTable(4)->value(TC::CTrdAlgoBaseTable::ItemOrderInterval);
    }

    WK::CBaseWidget parent{QStringLiteral("parent"), false, nullptr};
};

TEST_F(StockParamsWidget, eachOperationGetsBackWhatWasLastSetForIt)
{
    COpBasketStockParamsWidget *block = makeBlock();
    setStep(block, 0.05);
    block->table()->getTrdAlgoBaseTable(4)->setValue(TC::CTrdAlgoBaseTable::ItemOrderInterval, 45);

    block->setOperationType(19);
    // The first setting kept stands for every operation not visited yet.
    EXPECT_EQ(block->settings().keys(), QList<int>{-2});
    EXPECT_EQ(block->trdParams().keys(), QList<int>{-2});
    EXPECT_DOUBLE_EQ(step(block), 0.05);
    EXPECT_DOUBLE_EQ(twapInterval(block), 45);

    setStep(block, 0.2);
    block->table()->setPriceType(1);
    block->table()->getTrdAlgoBaseTable(4)->setValue(TC::CTrdAlgoBaseTable::ItemOrderInterval, 10);
    block->setOperationType(18);
    EXPECT_EQ(block->settings().keys(), (QList<int>{-2, 19}));
    EXPECT_DOUBLE_EQ(step(block), 0.05);
    EXPECT_EQ(block->getPriceType(), TC::COrderParamBaseTable::PRICE_TYPE_OPPOSITE);
    EXPECT_DOUBLE_EQ(twapInterval(block), 45);

    block->setOperationType(19);
    EXPECT_DOUBLE_EQ(step(block), 0.2);
    EXPECT_EQ(block->getPriceType(), 1);
    EXPECT_DOUBLE_EQ(twapInterval(block), 10);
    EXPECT_EQ(block->operationType(), 19);
    EXPECT_EQ(block->table()->operationType(), 19);
}

TEST_F(StockParamsWidget, withoutMemoryTheTextIsTheTablesOwn)
{
    COpBasketStockParamsWidget *block = makeBlock();
    block->setSaveParam(false);
    setStep(block, 0.05);
    block->setOperationType(19);
    setStep(block, 0.3);
    block->setOperationType(18);
    EXPECT_TRUE(block->settings().isEmpty());
    EXPECT_DOUBLE_EQ(step(block), 0.3);
    EXPECT_EQ(block->param(), block->table()->param());
}

TEST_F(StockParamsWidget, anotherBlockReadsTheMemoryBack)
{
    COpBasketStockParamsWidget *source = makeBlock();
    setStep(source, 0.05);
    source->setOperationType(19);
    setStep(source, 0.2);
    source->table()->setOrderType(13);
    source->table()->resetStrategyType(13, QStringLiteral("SWITCH"));
    source->setOperationType(18);
    source->setOperationType(19);
    const QString text = source->param();

    COpBasketStockParamsWidget *target = makeBlock();
    target->setOperationType(19);
    target->setParam(text);
    EXPECT_EQ(target->settings().keys(), source->settings().keys()) << text.toStdString();
    EXPECT_DOUBLE_EQ(step(target), 0.2);
    EXPECT_EQ(target->getOrderType(), 13);
    EXPECT_EQ(target->table()->getAlgoStrategyType(), "SWITCH");
    EXPECT_EQ(target->table()->loadCheckParam(), source->table()->loadCheckParam());
}

TEST_F(StockParamsWidget, algorithmNumbersComeBackForTheOperationOnViewAndThoseNotVisited)
{
    COpBasketStockParamsWidget *source = makeBlock();
    source->table()->getTrdAlgoBaseTable(4)->setValue(TC::CTrdAlgoBaseTable::ItemOrderInterval, 45);
    source->setOperationType(19);
    // Operation 19 has no algorithm entry of its own until it is left.
    source->table()->getTrdAlgoBaseTable(4)->setValue(TC::CTrdAlgoBaseTable::ItemOrderInterval, 10);

    COpBasketStockParamsWidget *target = makeBlock();
    target->setOperationType(19);
    target->setParam(source->param());
    EXPECT_DOUBLE_EQ(twapInterval(target), 10);
    target->setOperationType(20);
    EXPECT_DOUBLE_EQ(twapInterval(target), 45) << "an operation not visited starts from the first one kept";
}

TEST_F(StockParamsWidget, theSharedOrderTypeDoesNotChangeTheTextOfOperationsLeftEarlier)
{
    // The order type was changed after operation 18 was left; a block restored on 18 that then
    // moves on to 19 keeps 18 again with the type on view. Its text must still be the same.
    COpBasketStockParamsWidget *source = makeBlock();
    source->setOperationType(18);
    setStep(source, 0.05);
    source->setOperationType(19);
    source->table()->setOrderType(13);
    const QString text = source->param();

    COpBasketStockParamsWidget *target = makeBlock();
    target->setOperationType(18);
    target->setParam(text);
    target->setOperationType(19);
    EXPECT_EQ(target->param(), text);
    EXPECT_EQ(target->getOrderType(), 13);
    target->setOperationType(18);
    EXPECT_DOUBLE_EQ(step(target), 0.05);
    EXPECT_EQ(target->getOrderType(), 13);
}

TEST_F(StockParamsWidget, olderTextWithoutEqualsResetsTheSettingToTheTradingDay)
{
    TC::CGlobalOrderParamTable older(ttservice::BROKER_TYPE_STOCK, true, nullptr, 1, ttservice::VQ_TRADER_BASKET, 0);
    older.setFlag(0x1103fff);
    older.setPriceType(2);
    older.setCheckParam(QString());
    COrderSetting stepped;
    stepped.m_stepValue = 0.5;
    older.loadOpParam(stepped, 0.01);

    COpBasketStockParamsWidget *block = makeBlock();
    block->setParam(older.param());
    EXPECT_EQ(block->getPriceType(), 2);
    EXPECT_EQ(block->table()->loadCheckParam(), QStringLiteral("0*1"));
    ASSERT_TRUE(block->settings().contains(-2));
    const COrderSetting kept = block->settings().value(-2);
    EXPECT_EQ(kept.m_startTime, kDefaultDay + 9 * 3600 + 30 * 60);
    EXPECT_EQ(kept.m_endTime, kDefaultDay + 15 * 3600);
    EXPECT_DOUBLE_EQ(step(block), 0.0);
}

TEST_F(StockParamsWidget, damagedTextsLeaveAWorkingBlock)
{
    for (const char *text : {"=", ":::", "checkedIds=:currentOrderType=x:TrdParams=a`b:7=notjson:", "=:=:=",
                             "5TrdParams=VWAP`:19={;}:", "currentOrderType=99"}) {
        COpBasketStockParamsWidget *block = makeBlock();
        block->setParam(QString::fromLatin1(text));
        EXPECT_TRUE(block->table()->offeredOrderTypes().contains(block->getOrderType())) << text;
        block->setOperationType(19);
        EXPECT_FALSE(block->param().isEmpty()) << text;
    }
}

struct PriceRefresh {
    const char *name;
    ttservice::EPriceType priceType;
    bool absolute;
    double stepValue;
    double stepRate;
    double expectedPrice;
    double expectedStep; // NO_VALUE: cleared
};

class SingleCodeRefresh : public StockParamsWidget, public ::testing::WithParamInterface<PriceRefresh>
{
};

TEST_P(SingleCodeRefresh, pricesStepsAndValidityFromTheLatestQuote)
{
    const PriceRefresh &row = GetParam();
    ttservice::CInstrumentDetail instrument;
    instrument.m_market = "SH";
    instrument.m_stockCode = "600000";
    instrument.m_priceTick = 0.01;
    TC::CExchangeClient::instance()->addInstrument(instrument);
    TC::CPriceData quote;
    quote.m_market = "SH";
    quote.m_stockCode = "600000";
    quote.m_lastPrice = 10.0;
    quote.m_askPrice1 = 10.02;
    quote.m_bidPrice1 = 9.99;
    quote.m_upStopPrice = 11.0;
    quote.m_downStopPrice = 9.0;
    TC::CQuoteClient::instance()->setStockPrice(quote);

    COpBasketStockParamsWidget *block = makeBlock();
    COrderSetting setting;
    setting.m_stepIsAbsolute = row.absolute;
    setting.m_stepValue = row.stepValue;
    setting.m_stepRate = row.stepRate;
    setting.m_validSeconds = 60;
    setting.m_stepFlag = 1;
    block->table()->loadOpParam(setting, 0.001);

    CCodeOrderParam line;
    line.m_stockInfo.m_market = "SH";
    line.m_stockInfo.m_stockCode = "600000";
    line.m_operationType = ttservice::OT_BUY;
    line.m_priceType = row.priceType;
    line.m_price = 12.34;
    line.m_volume = 500;
    CCodeOrderParam unquoted = line;
    unquoted.m_stockInfo.m_stockCode = "600001";
    std::vector<CCodeOrderParam> lines{line, unquoted};
    block->updateSingleCodeOrderParam(lines);

    EXPECT_NEAR(lines[0].m_price, row.expectedPrice, 1e-9);
    if (ttservice::isNoValue(row.expectedStep))
        EXPECT_TRUE(ttservice::isNoValue(lines[0].m_priceStep)) << lines[0].m_priceStep;
    else
        EXPECT_NEAR(lines[0].m_priceStep, row.expectedStep, 1e-9);
    EXPECT_EQ(lines[0].m_volume, 500);
    EXPECT_EQ(lines[0].m_validFrom, TC::CTimeService::DEFAULT_TIME);
    EXPECT_EQ(lines[0].m_validTo, TC::CTimeService::DEFAULT_TIME + 60);
    // A line without a quote is left as it came.
    EXPECT_DOUBLE_EQ(lines[1].m_price, 12.34);
    EXPECT_EQ(lines[1].m_validTo, 0);
}

const PriceRefresh kRefreshes[] = {
    {"fixedPriceKeptStepCleared", ttservice::PRICE_TYPE_FIXED, true, 0.05, 0, 12.34, ttservice::NO_VALUE},
    {"stepRoundedToTheTick", ttservice::PRICE_TYPE_LAST, true, 0.123, 0, 10.0, 0.12},
    {"stepAboveHalfATickRoundsUp", ttservice::PRICE_TYPE_LAST, true, 0.1251, 0, 10.0, 0.13},
    {"stepFromRateOfThePrice", ttservice::PRICE_TYPE_ASK1, false, 0, 0.0123, 10.02, 0.12},
};

INSTANTIATE_TEST_SUITE_P(Lines, SingleCodeRefresh, ::testing::ValuesIn(kRefreshes),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(StockParamsWidget, helpFollowsTheOrderType)
{
    COpBasketStockParamsWidget *block = makeBlock();
    block->handleEvent(220, 0, 0, QString(), nullptr);
    EXPECT_EQ(TC::CAlgorithmHelpDialog::helpCount(), 1);
    block->table()->setOrderType(13);
    block->handleEvent(220, 0, 0, QString(), nullptr);
    EXPECT_EQ(TC::CVqAlgorithmHelpDialog::helpCount(), 1);
    EXPECT_EQ(TC::CAlgorithmHelpDialog::helpCount(), 1);
}

} // namespace
