#include "CBasketStockData.h"
#include "DoubleCompare.h"
#include "OperationSide.h"
#include "StockKey.h"

#include <gtest/gtest.h>

using namespace ttservice;

struct CompareCase
{
    const char *name;
    double a;
    double b;
    bool equal;
    bool greater;
    bool less;
};

class DoubleCompare : public ::testing::TestWithParam<CompareCase>
{
};

TEST_P(DoubleCompare, UsesTheTolerance)
{
    const CompareCase &c = GetParam();
    EXPECT_EQ(isEqual(c.a, c.b), c.equal);
    EXPECT_EQ(isGreater(c.a, c.b), c.greater);
    EXPECT_EQ(isLess(c.a, c.b), c.less);
}

INSTANTIATE_TEST_SUITE_P(Cases, DoubleCompare,
    ::testing::Values(CompareCase{"same", 1.0, 1.0, true, false, false},
                      CompareCase{"withinTolerance", 1.0, 1.000009, true, false, false},
                      CompareCase{"justOutside", 1.0, 1.00002, false, false, true},
                      CompareCase{"greater", 2.5, 2.4, false, true, false},
                      CompareCase{"noValueWithItself", NO_VALUE, NO_VALUE, true, false, false}),
    [](const ::testing::TestParamInfo<CompareCase> &info) { return std::string(info.param.name); });

TEST(DoubleCompareZero, NearZeroCountsAsZero)
{
    EXPECT_TRUE(isZero(0.0));
    EXPECT_TRUE(isZero(-0.000009));
    EXPECT_FALSE(isZero(0.00002));
    EXPECT_FALSE(hasValue(NO_VALUE));
    EXPECT_TRUE(hasValue(0.0));
}

TEST(StockKey, JoinsAndSplitsCodeAndMarket)
{
    EXPECT_EQ(utils::vqStockKey("SH", "600000"), "600000.SH");
    std::string market, code;
    ASSERT_TRUE(utils::splitStockKey("IF2412.CFFEX", market, code));
    EXPECT_EQ(market, "CFFEX");
    EXPECT_EQ(code, "IF2412");
    EXPECT_FALSE(utils::splitStockKey("600000", market, code));
}

TEST(OperationSide, BuySideOperations)
{
    for (EOperationType op : {OT_BUY, OT_MARGIN_BUY, OT_BUY_TO_RETURN, OT_OPEN_LONG, OT_CLOSE_SHORT, OT_ONEKEY_BUY_TODAY})
        EXPECT_TRUE(isBuyOperation(op)) << op;
    for (EOperationType op : {OT_SELL, OT_SHORT_SELL, OT_SELL_TO_REPAY, OT_OPEN_SHORT, OT_CLOSE_LONG, OT_NONE})
        EXPECT_FALSE(isBuyOperation(op)) << op;
}

TEST(BasketStockData, CompareOrdersByMarketCodeThenAccount)
{
    TC::CBasketStockData a;
    a.m_market = "SH";
    a.m_stockCode = "600000";
    TC::CBasketStockData b = a;
    EXPECT_EQ(TC::CBasketStockCompareTraits::compare(a, b), 0);
    b.m_accountKey = "x";
    EXPECT_LT(TC::CBasketStockCompareTraits::compare(a, b), 0);
    b.m_stockCode = "000001";
    EXPECT_GT(TC::CBasketStockCompareTraits::compare(a, b), 0);
    b.m_market = "SZ";
    EXPECT_LT(TC::CBasketStockCompareTraits::compare(a, b), 0);
    EXPECT_EQ(a.key(), QStringLiteral("600000.SH"));
}
