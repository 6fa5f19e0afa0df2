#include "CPriceData.h"
#include "CPriceDataHelper.h"

#include <gtest/gtest.h>

using namespace ttservice;

namespace {

TC::CPriceData quote()
{
    TC::CPriceData q;
    q.m_lastPrice = 10.0;
    q.m_lastClose = 9.5;
    q.m_bidPrice1 = 9.99;
    q.m_askPrice1 = 10.01;
    q.m_upStopPrice = 10.45;
    q.m_downStopPrice = 8.55;
    return q;
}

struct PriceCase
{
    const char *name;
    EPriceType type;
    EOperationType op;
    double expected;
};

class PriceForOrder : public ::testing::TestWithParam<PriceCase>
{
};

} // namespace

TEST_P(PriceForOrder, ChoosesThePriceOfItsType)
{
    const PriceCase &c = GetParam();
    EXPECT_DOUBLE_EQ(quote().getPriceForOrder(c.type, c.op, ORDER_TYPE_NORMAL, 0, nullptr), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Types, PriceForOrder,
    ::testing::Values(PriceCase{"last", PRICE_TYPE_LAST, OT_BUY, 10.0},
                      PriceCase{"bid", PRICE_TYPE_BID1, OT_BUY, 9.99},
                      PriceCase{"ask", PRICE_TYPE_ASK1, OT_SELL, 10.01},
                      PriceCase{"riseLimit", PRICE_TYPE_UP_LIMIT, OT_SELL, 10.45},
                      PriceCase{"fallLimit", PRICE_TYPE_DOWN_LIMIT, OT_BUY, 8.55},
                      PriceCase{"buyTakesTheAsk", PRICE_TYPE_NONE, OT_BUY, 10.01},
                      PriceCase{"sellTakesTheBid", PRICE_TYPE_NONE, OT_SELL, 9.99}),
    [](const ::testing::TestParamInfo<PriceCase> &info) { return std::string(info.param.name); });

TEST(PriceData, MissingPricesFallBackToLastThenClose)
{
    TC::CPriceData q = quote();
    q.m_askPrice1 = NO_VALUE;
    EXPECT_DOUBLE_EQ(q.getPriceForOrder(PRICE_TYPE_NONE, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 10.0);
    q.m_lastPrice = 0.0;
    EXPECT_DOUBLE_EQ(q.getPriceForOrder(PRICE_TYPE_NONE, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 9.5);
    q.m_lastClose = NO_VALUE;
    EXPECT_TRUE(isNoValue(q.getPriceForOrder(PRICE_TYPE_NONE, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr)));
}

TEST(PriceData, CalcPrefersTheLastPrice)
{
    const TC::CPriceData q = quote();
    EXPECT_DOUBLE_EQ(q.getPriceForCalc(PRICE_TYPE_ASK1, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 10.0);
}

TEST(PriceData, AutoPriceMovesTowardsTheMarket)
{
    boost::shared_ptr<CAutoPriceParam> ticks(new CAutoPriceParam);
    ticks->m_tickOffset = 2;
    const TC::CPriceData q = quote();
    EXPECT_NEAR(q.getPriceForOrder(PRICE_TYPE_LAST, OT_BUY, ORDER_TYPE_NORMAL, 0, ticks), 10.02, 1e-9);
    EXPECT_NEAR(q.getPriceForOrder(PRICE_TYPE_LAST, OT_SELL, ORDER_TYPE_NORMAL, 0, ticks), 9.98, 1e-9);
}

TEST(PriceDataHelper, NullRecordHasNoPrice)
{
    EXPECT_TRUE(isNoValue(CPriceDataHelper::getPriceForOrder(nullptr, PRICE_TYPE_LAST, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr)));
    boost::shared_ptr<TC::CPriceData> q(new TC::CPriceData(quote()));
    EXPECT_DOUBLE_EQ(CPriceDataHelper::getPriceForOrder(q, PRICE_TYPE_LAST, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 10.0);
}
