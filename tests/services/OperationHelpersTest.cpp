#include "DataHelper.h"
#include "OperationHelpers.h"
#include "TypeManager.h"

#include <gtest/gtest.h>

#include <string>

using namespace ttservice;

namespace {

struct OperationCase
{
    const char *name;
    EOperationType operation;
    const char *text;
    bool buy;
    bool close;
    EOperationType swapped;
};

class Operation : public ::testing::TestWithParam<OperationCase>
{
};

TC::CPriceData limits(double rise, double fall)
{
    TC::CPriceData q;
    q.m_lastPrice = 10.0;
    q.m_upStopPrice = rise;
    q.m_downStopPrice = fall;
    return q;
}

COrderSetting absoluteStep(double step)
{
    COrderSetting s;
    s.m_stepIsAbsolute = true;
    s.m_stepValue = step;
    return s;
}

} // namespace

TEST_P(Operation, NameSideCloseAndSwap)
{
    const OperationCase &c = GetParam();
    EXPECT_EQ(TC::operationToString(c.operation), QString::fromUtf8(c.text));
    EXPECT_EQ(TC::isBuy(c.operation), c.buy);
    EXPECT_EQ(DataHelper::isBuy(c.operation), c.buy);
    EXPECT_EQ(TC::isClose(c.operation), c.close);
    EXPECT_EQ(TC::swapOperationType(c.operation), c.swapped);
    EXPECT_EQ(TC::swapOperationType(TC::swapOperationType(c.operation)), c.operation);
    EXPECT_EQ(TC::getBuyOrSellType(c.operation), c.buy ? OT_BUY : OT_SELL);
}

INSTANTIATE_TEST_SUITE_P(
    Operations, Operation,
    ::testing::Values(OperationCase{"buy", OT_BUY, "买入", true, false, OT_SELL},
                      OperationCase{"sell", OT_SELL, "卖出", false, false, OT_BUY},
                      OperationCase{"marginBuy", OT_MARGIN_BUY, "融资买入", true, false, OT_SELL_TO_REPAY},
                      OperationCase{"shortSell", OT_SHORT_SELL, "融券卖出", false, false, OT_BUY_TO_RETURN},
                      OperationCase{"buyToReturn", OT_BUY_TO_RETURN, "买券还券", true, false, OT_SHORT_SELL},
                      OperationCase{"sellToRepay", OT_SELL_TO_REPAY, "卖券还款", false, false, OT_MARGIN_BUY},
                      OperationCase{"openLong", OT_OPEN_LONG, "开多", true, false, OT_OPEN_SHORT},
                      OperationCase{"openShort", OT_OPEN_SHORT, "开空", false, false, OT_OPEN_LONG},
                      OperationCase{"closeLong", OT_CLOSE_LONG, "平多", false, true, OT_CLOSE_SHORT},
                      OperationCase{"closeShort", OT_CLOSE_SHORT, "平空", true, true, OT_CLOSE_LONG},
                      OperationCase{"closeLongToday", OT_CLOSE_LONG_TODAY, "平多", false, true, OT_CLOSE_SHORT_TODAY}),
    [](const ::testing::TestParamInfo<OperationCase> &info) { return std::string(info.param.name); });

TEST(OperationNames, NoneAndUnknownOperations)
{
    EXPECT_TRUE(TC::operationToString(OT_NONE).isEmpty());
    EXPECT_EQ(TC::operationToString(77), QStringLiteral("77"));
    EXPECT_EQ(TC::getBuyOrSellType(OT_NONE), OT_NONE);
    EXPECT_EQ(TC::swapOperationType(OT_MONEY), OT_MONEY);
    EXPECT_EQ(operationValueToString(OT_BUY), "买");
    EXPECT_EQ(operationValueToString(OT_MARGIN_BUY), "融资买入");
    EXPECT_EQ(TypeManager::instance()->getEnumItemName("ttservice::EEntrustBS", ENTRUST_SELL, VQ_TRADER_BASKET), "卖出");
    EXPECT_EQ(TypeManager::instance()->getEnumItemName("ttservice::EOperationType", 21, VQ_TRADER_BASKET), "融券卖出");
    EXPECT_EQ(TypeManager::instance()->getEnumItemName("unknown", 5, VQ_TRADER_BASKET), "5");
}

TEST(OrderTypes, AlgorithmTypesAndParameterNamesAgree)
{
    for (int type = 4; type <= 14; ++type) {
        const std::string name = DataHelper::getParamStringByOrderType(static_cast<EOrderType>(type));
        if (!name.empty()) {
            EXPECT_EQ(DataHelper::getOrderTypeByParamString(name), type) << name;
        }
        if (DataHelper::isAlgoOrderType(static_cast<EOrderType>(type))) {
            EXPECT_NE(DataHelper::getPlatformTypeByOrderType(static_cast<EOrderType>(type)), TRADE_PLATFORM_NONE);
        }
    }
    EXPECT_FALSE(DataHelper::isAlgoOrderType(static_cast<EOrderType>(12)));
    EXPECT_TRUE(DataHelper::isAlgoOrderType(ORDER_TYPE_VWAPPLUS));
    EXPECT_EQ(DataHelper::getParamStringByOrderType(ORDER_TYPE_VWAPPLUS), "VWAPPLUS");
    EXPECT_EQ(DataHelper::getOrderTypeByParamString("nothing"), ORDER_TYPE_NONE);
    EXPECT_EQ(DataHelper::getPlatformTypeByOrderType(ORDER_TYPE_NORMAL), TRADE_PLATFORM_NONE);
}

TEST(FixPriceRange, BuyMayRiseByTheStepWithinTheLimits)
{
    CCodeOrderParam line;
    const boost::shared_ptr<TC::CPriceData> quote(new TC::CPriceData(limits(11.0, 9.0)));
    TC::fixPriceRange(absoluteStep(0.5), line, 10.0, OT_BUY, quote);
    EXPECT_DOUBLE_EQ(line.m_priceLimitHigh, 10.5);
    EXPECT_DOUBLE_EQ(line.m_priceLimitLow, 9.0);

    TC::fixPriceRange(absoluteStep(2.0), line, 10.0, OT_BUY, quote);
    EXPECT_DOUBLE_EQ(line.m_priceLimitHigh, 11.0);
}

TEST(FixPriceRange, SellMayFallByTheRateWithinTheLimits)
{
    CCodeOrderParam line;
    COrderSetting rate;
    rate.m_stepIsAbsolute = false;
    rate.m_stepRate = 0.05;
    const boost::shared_ptr<TC::CPriceData> quote(new TC::CPriceData(limits(11.0, 9.0)));
    TC::fixPriceRange(rate, line, 10.0, OT_SELL, quote);
    EXPECT_DOUBLE_EQ(line.m_priceLimitLow, 9.5);
    EXPECT_DOUBLE_EQ(line.m_priceLimitHigh, 11.0);
}

TEST(FixPriceRange, WithoutStepTheLimitsAreTheBoundsAndWithoutPriceThereAreNone)
{
    CCodeOrderParam line;
    const boost::shared_ptr<TC::CPriceData> quote(new TC::CPriceData(limits(11.0, 9.0)));
    TC::fixPriceRange(absoluteStep(0.0), line, 10.0, OT_BUY, quote);
    EXPECT_DOUBLE_EQ(line.m_priceLimitHigh, 11.0);
    EXPECT_DOUBLE_EQ(line.m_priceLimitLow, 9.0);

    TC::fixPriceRange(absoluteStep(0.5), line, NO_VALUE, OT_BUY, quote);
    EXPECT_TRUE(isNoValue(line.m_priceLimitHigh));
    EXPECT_TRUE(isNoValue(line.m_priceLimitLow));
    TC::fixPriceRange(absoluteStep(0.5), line, 10.0, OT_BUY, nullptr);
    EXPECT_TRUE(isNoValue(line.m_priceLimitHigh));

    const boost::shared_ptr<TC::CPriceData> noLimits(new TC::CPriceData(limits(NO_VALUE, NO_VALUE)));
    TC::fixPriceRange(absoluteStep(0.5), line, 10.0, OT_SELL, noLimits);
    EXPECT_DOUBLE_EQ(line.m_priceLimitLow, 9.5);
    EXPECT_TRUE(isNoValue(line.m_priceLimitHigh));
}

TEST(SubCommands, OnlyOrderableStatusAllowsAnOrder)
{
    EXPECT_TRUE(TC::isSubCmdOrder(SUB_COMMAND_ORDER));
    EXPECT_FALSE(TC::isSubCmdOrder(SUB_COMMAND_NONE));
}
