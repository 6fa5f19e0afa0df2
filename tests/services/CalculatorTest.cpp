#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "SubstituteReset.h"
#include "TraderCenter.h"

#include <gtest/gtest.h>

#include <string>

using namespace ttservice;

namespace {

boost::shared_ptr<CAccountData> stockAccount(double available)
{
    CAccountInfo info;
    info.m_accountKey = "acc1";
    info.m_brokerType = BROKER_TYPE_STOCK;
    CAccountDetail detail;
    detail.m_available = available;
    CPositionStatics held;
    held.m_market = "SH";
    held.m_stockCode = "600000";
    held.m_volume = 1000;
    held.m_canUseVolume = 400;
    TC::getUserConfig()->addAccount(info, detail, {held});
    return TraderCenter::instance()->getDataCenter()->getAccountData("acc1");
}

struct BuyVolumeCase
{
    const char *name;
    double money;
    const char *market;
    double price;
    long long volume;
    long long expected;
};

class CalcBuyVolume : public ::testing::TestWithParam<BuyVolumeCase>
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

} // namespace

TEST_P(CalcBuyVolume, BuysWholeLotsThatTheMoneyPaysFor)
{
    const BuyVolumeCase &c = GetParam();
    std::string error;
    const long long volume = TraderCenter::instance()->getCalculator()->calcBuyVolume(
        stockAccount(0.0), c.money, c.market, "600000", c.price, error, c.volume);
    EXPECT_EQ(volume, c.expected);
    EXPECT_EQ(error.empty(), volume != ICalculator::NO_VOLUME);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, CalcBuyVolume,
    ::testing::Values(BuyVolumeCase{"roundsDownToTheLot", 10000.0, "SH", 10.5, 0, 900},
                      BuyVolumeCase{"exactLots", 10000.0, "SH", 10.0, 0, 1000},
                      BuyVolumeCase{"cappedByTheWantedVolume", 10000.0, "SH", 10.0, 300, 300},
                      BuyVolumeCase{"wantedVolumeAboveWhatMoneyBuys", 1000.0, "SH", 10.0, 5000, 100},
                      BuyVolumeCase{"lessThanOneLot", 999.0, "SH", 10.0, 0, 0},
                      BuyVolumeCase{"noMoney", 0.0, "SH", 10.0, 0, 0},
                      BuyVolumeCase{"futuresInSingleLots", 1000.0, "CFFEX", 300.0, 0, 3},
                      BuyVolumeCase{"priceWithoutValue", 10000.0, "SH", NO_VALUE, 0, ICalculator::NO_VOLUME},
                      BuyVolumeCase{"zeroPrice", 10000.0, "SH", 0.0, 0, ICalculator::NO_VOLUME}),
    [](const ::testing::TestParamInfo<BuyVolumeCase> &info) { return std::string(info.param.name); });

TEST(CalcAvailableVolume, SellsAreLimitedByWhatCanBeSold)
{
    TC::resetAllSubstitutes();
    char side = '0';
    char offset = '0';
    const boost::shared_ptr<ICalculator> calculator = TraderCenter::instance()->getCalculator();
    const boost::shared_ptr<CAccountData> data = stockAccount(5000.0);
    EXPECT_EQ(calculator->calcAvailableVolume(data, "SH", "600000", OT_SELL, HEDGE_FLAG_SPECULATION, side, offset,
                                              10.0, ICalculator::NO_VOLUME, 0),
              400);
    EXPECT_EQ(calculator->calcAvailableVolume(data, "SH", "600036", OT_SELL, HEDGE_FLAG_SPECULATION, side, offset,
                                              10.0, ICalculator::NO_VOLUME, 0),
              0);
    EXPECT_EQ(calculator->calcAvailableVolume(data, "SH", "600000", OT_SELL, HEDGE_FLAG_SPECULATION, side, offset,
                                              10.0, 100, 0),
              100);
    EXPECT_EQ(side, '0');
}

TEST(CalcAvailableVolume, BuysAreLimitedByTheMoneyAtTheLineOrQuotePrice)
{
    TC::resetAllSubstitutes();
    char side = '0';
    char offset = '0';
    const boost::shared_ptr<ICalculator> calculator = TraderCenter::instance()->getCalculator();
    const boost::shared_ptr<CAccountData> data = stockAccount(5000.0);
    EXPECT_EQ(calculator->calcAvailableVolume(data, "SH", "600000", OT_BUY, HEDGE_FLAG_SPECULATION, side, offset,
                                              10.0, ICalculator::NO_VOLUME, 0),
              500);
    // Without a line price and without a quote nothing can be worked out.
    EXPECT_EQ(calculator->calcAvailableVolume(data, "SH", "600000", OT_BUY, HEDGE_FLAG_SPECULATION, side, offset,
                                              NO_VALUE, ICalculator::NO_VOLUME, 0),
              0);
    TC::CPriceData quote;
    quote.m_market = "SH";
    quote.m_stockCode = "600000";
    quote.m_lastPrice = 25.0;
    TC::CQuoteClient::instance()->setStockPrice(quote);
    EXPECT_EQ(calculator->calcAvailableVolume(data, "SH", "600000", OT_BUY, HEDGE_FLAG_SPECULATION, side, offset,
                                              NO_VALUE, ICalculator::NO_VOLUME, 0),
              200);
    EXPECT_EQ(calculator->calcAvailableVolume(nullptr, "SH", "600000", OT_BUY, HEDGE_FLAG_SPECULATION, side, offset,
                                              10.0, ICalculator::NO_VOLUME, 0),
              0);
}

namespace {

struct FutureSideCase
{
    const char *name;
    EOperationType operation;
    long long expected;
};

class FuturesAvailable : public ::testing::TestWithParam<FutureSideCase>
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

} // namespace

// A contract held 3 long (2 closable) and 1 short, with money for 5 lots at the line's price.
TEST_P(FuturesAvailable, ClosesReadTheirSideAndOpensTheMoney)
{
    const FutureSideCase &c = GetParam();
    CAccountInfo info;
    info.m_accountKey = "f1";
    info.m_brokerType = BROKER_TYPE_FUTURE;
    CAccountDetail detail;
    detail.m_available = 5000.0;
    CPositionStatics longSide;
    longSide.m_market = "CFFEX";
    longSide.m_stockCode = "IF01";
    longSide.m_volume = 3;
    longSide.m_canUseVolume = 2;
    CPositionStatics shortSide = longSide;
    shortSide.m_direction = 49;
    shortSide.m_volume = 1;
    shortSide.m_canUseVolume = 1;
    TC::getUserConfig()->addAccount(info, detail, {longSide, shortSide});
    char side = '0';
    char offset = '0';
    EXPECT_EQ(TraderCenter::instance()->getCalculator()->calcAvailableVolume(
                  TraderCenter::instance()->getDataCenter()->getAccountData("f1"), "CFFEX", "IF01", c.operation,
                  HEDGE_FLAG_SPECULATION, side, offset, 1000.0, ICalculator::NO_VOLUME, 0),
              c.expected);
}

INSTANTIATE_TEST_SUITE_P(Sides, FuturesAvailable,
                         ::testing::Values(FutureSideCase{"closeLong", OT_CLOSE_LONG, 2},
                                           FutureSideCase{"closeLongToday", OT_CLOSE_LONG_TODAY, 2},
                                           FutureSideCase{"closeShort", OT_CLOSE_SHORT, 1},
                                           FutureSideCase{"closeShortYesterday", OT_CLOSE_SHORT_YESTERDAY, 1},
                                           FutureSideCase{"openLong", OT_OPEN_LONG, 5},
                                           FutureSideCase{"openShort", OT_OPEN_SHORT, 5}),
                         [](const ::testing::TestParamInfo<FutureSideCase> &info) { return std::string(info.param.name); });
