// The records' own arithmetic: tolerant comparisons, sides, and the price an order takes.
// (The basket rows' order is checked with the services' helpers that sort by it.)
#include "CPriceData.h"
#include "CPriceDataHelper.h"
#include "DoubleCompare.h"
#include "OperationSide.h"

#include "Fields.h"

#include <gtest/gtest.h>

using namespace ttservice;

namespace {

TEST(DoubleCompare, UsesTheTolerance)
{
    struct Row { const char *name; double a, b; bool equal, greater, less; };
    const Row rows[] = {{"same", 1.0, 1.0, true, false, false},
                        {"withinTolerance", 1.0, 1.000009, true, false, false},
                        {"justOutside", 1.0, 1.00002, false, false, true},
                        {"greater", 2.5, 2.4, false, true, false},
                        {"noValueWithItself", NO_VALUE, NO_VALUE, true, false, false}};
    for (const Row &row : rows) {
        EXPECT_EQ(fields(isEqual(row.a, row.b), isGreater(row.a, row.b), isLess(row.a, row.b)), fields(row.equal, row.greater, row.less))
            << row.name;
    }
    EXPECT_EQ(fields(isZero(0.0), isZero(-0.000009), isZero(0.00002), hasValue(NO_VALUE), hasValue(0.0)), "true|true|false|false|true");
}

TEST(OperationSide, BuySideOperations)
{
    for (EOperationType op : {OT_BUY, OT_MARGIN_BUY, OT_BUY_TO_RETURN, OT_OPEN_LONG, OT_CLOSE_SHORT, OT_ONEKEY_BUY_TODAY})
        EXPECT_TRUE(isBuyOperation(op)) << op;
    for (EOperationType op : {OT_SELL, OT_SHORT_SELL, OT_SELL_TO_REPAY, OT_OPEN_SHORT, OT_CLOSE_LONG, OT_NONE})
        EXPECT_FALSE(isBuyOperation(op)) << op;
}

TC::CPriceData quote()
{
    TC::CPriceData q;
    q.m_lastPrice = 10.0, q.m_lastClose = 9.5, q.m_bidPrice1 = 9.99, q.m_askPrice1 = 10.01;
    q.m_upStopPrice = 10.45, q.m_downStopPrice = 8.55;
    return q;
}

TEST(PriceData, AnOrderTakesThePriceOfItsTypeOrTheOppositeBest)
{
    const std::tuple<EPriceType, EOperationType, double> rows[] = {
        {PRICE_TYPE_LAST, OT_BUY, 10.0},        {PRICE_TYPE_BID1, OT_BUY, 9.99},
        {PRICE_TYPE_ASK1, OT_SELL, 10.01},      {PRICE_TYPE_UP_LIMIT, OT_SELL, 10.45},
        {PRICE_TYPE_DOWN_LIMIT, OT_BUY, 8.55},  {PRICE_TYPE_NONE, OT_BUY, 10.01},
        {PRICE_TYPE_NONE, OT_SELL, 9.99}};
    for (const auto &row : rows) {
        EXPECT_DOUBLE_EQ(quote().getPriceForOrder(std::get<0>(row), std::get<1>(row), ORDER_TYPE_NORMAL, 0, nullptr),
                         std::get<2>(row))
            << std::get<0>(row) << " " << std::get<1>(row);
    }
    EXPECT_DOUBLE_EQ(quote().getPriceForCalc(PRICE_TYPE_ASK1, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 10.0)
        << "sizing prefers the last price";
    EXPECT_TRUE(isNoValue(CPriceDataHelper::getPriceForOrder(nullptr, PRICE_TYPE_LAST, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr)));
    boost::shared_ptr<TC::CPriceData> q(new TC::CPriceData(quote()));
    EXPECT_DOUBLE_EQ(CPriceDataHelper::getPriceForOrder(q, PRICE_TYPE_LAST, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 10.0);
}

TEST(PriceData, MissingPricesFallBackToLastThenCloseAndAutoPriceMovesTowardsTheMarket)
{
    TC::CPriceData q = quote();
    q.m_askPrice1 = NO_VALUE;
    EXPECT_DOUBLE_EQ(q.getPriceForOrder(PRICE_TYPE_NONE, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 10.0);
    q.m_lastPrice = 0.0;
    EXPECT_DOUBLE_EQ(q.getPriceForOrder(PRICE_TYPE_NONE, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr), 9.5);
    q.m_lastClose = NO_VALUE;
    EXPECT_TRUE(isNoValue(q.getPriceForOrder(PRICE_TYPE_NONE, OT_BUY, ORDER_TYPE_NORMAL, 0, nullptr)));

    boost::shared_ptr<CAutoPriceParam> ticks(new CAutoPriceParam);
    ticks->m_tickOffset = 2;
    EXPECT_EQ(fields(quote().getPriceForOrder(PRICE_TYPE_LAST, OT_BUY, ORDER_TYPE_NORMAL, 0, ticks),
                     quote().getPriceForOrder(PRICE_TYPE_LAST, OT_SELL, ORDER_TYPE_NORMAL, 0, ticks)),
              "10.02|9.98");
}

} // namespace
