// The services' small helpers: operations, order types, price ranges, names and texts.
#include "BasketHelpers.h"
#include "ChineseNumerals.h"
#include "ComposeModules.h"
#include "DataHelper.h"
#include "Fields.h"
#include "LuaModuleCtrl.h"
#include "OperationHelpers.h"
#include "OrderSettingText.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

using namespace ttservice;
using luawrapper::LuaModuleCtrl;

namespace {

TEST(Operation, NameSideCloseAndSwap)
{
    struct Row { EOperationType operation; const char *text; bool buy, close; EOperationType swapped; };
    const Row rows[] = {{OT_BUY, "买入", true, false, OT_SELL},
                        {OT_SELL, "卖出", false, false, OT_BUY},
                        {OT_MARGIN_BUY, "融资买入", true, false, OT_SELL_TO_REPAY},
                        {OT_SHORT_SELL, "融券卖出", false, false, OT_BUY_TO_RETURN},
                        {OT_BUY_TO_RETURN, "买券还券", true, false, OT_SHORT_SELL},
                        {OT_SELL_TO_REPAY, "卖券还款", false, false, OT_MARGIN_BUY},
                        {OT_OPEN_LONG, "开多", true, false, OT_OPEN_SHORT},
                        {OT_OPEN_SHORT, "开空", false, false, OT_OPEN_LONG},
                        {OT_CLOSE_LONG, "平多", false, true, OT_CLOSE_SHORT},
                        {OT_CLOSE_SHORT, "平空", true, true, OT_CLOSE_LONG},
                        {OT_CLOSE_LONG_TODAY, "平多", false, true, OT_CLOSE_SHORT_TODAY}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text);
        // The name, buy in both helpers, close, the swap and the swap back, the plain side.
        EXPECT_EQ(fields(TC::operationToString(row.operation), TC::isBuy(row.operation), DataHelper::isBuy(row.operation),
                         TC::isClose(row.operation), TC::swapOperationType(row.operation),
                         TC::swapOperationType(TC::swapOperationType(row.operation)), TC::getBuyOrSellType(row.operation)),
                  fields(QString::fromUtf8(row.text), row.buy, row.buy, row.close, row.swapped, row.operation, row.buy ? OT_BUY : OT_SELL));
    }
    EXPECT_EQ(fields(TC::operationToString(OT_NONE), TC::operationToString(77), TC::getBuyOrSellType(OT_NONE), TC::swapOperationType(OT_MONEY)),
              fields("", "77", OT_NONE, OT_MONEY));
    EXPECT_TRUE(TC::isSubCmdOrder(SUB_COMMAND_ORDER) && !TC::isSubCmdOrder(SUB_COMMAND_NONE));
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

TEST(FixPriceRange, ABuyMayRiseAndASellFallByTheStepWithinTheDaysLimits)
{
    const auto quote = [](double rise, double fall) {
        boost::shared_ptr<TC::CPriceData> q(new TC::CPriceData);
        q->m_lastPrice = 10.0;
        q->m_upStopPrice = rise;
        q->m_downStopPrice = fall;
        return q;
    };
    const auto step = [](bool absolute, double value) {
        COrderSetting s;
        s.m_stepIsAbsolute = absolute;
        (absolute ? s.m_stepValue : s.m_stepRate) = value;
        return s;
    };
    struct Row { const char *name; COrderSetting setting; double price; EOperationType operation;
                 boost::shared_ptr<TC::CPriceData> quote; double high, low; };
    const Row rows[] = {
        {"buyRisesByTheStep", step(true, 0.5), 10.0, OT_BUY, quote(11.0, 9.0), 10.5, 9.0},
        {"buyStopsAtTheRiseLimit", step(true, 2.0), 10.0, OT_BUY, quote(11.0, 9.0), 11.0, 9.0},
        {"sellFallsByTheRate", step(false, 0.05), 10.0, OT_SELL, quote(11.0, 9.0), 11.0, 9.5},
        {"withoutStepTheLimitsAreTheBounds", step(true, 0.0), 10.0, OT_BUY, quote(11.0, 9.0), 11.0, 9.0},
        {"noPriceNoRange", step(true, 0.5), NO_VALUE, OT_BUY, quote(11.0, 9.0), NO_VALUE, NO_VALUE},
        {"noQuoteNoRange", step(true, 0.5), 10.0, OT_BUY, nullptr, NO_VALUE, NO_VALUE},
        {"noLimitsOnlyTheStep", step(true, 0.5), 10.0, OT_SELL, quote(NO_VALUE, NO_VALUE), NO_VALUE, 9.5},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        CCodeOrderParam line;
        TC::fixPriceRange(row.setting, line, row.price, row.operation, row.quote);
        EXPECT_DOUBLE_EQ(line.m_priceLimitHigh, row.high);
        EXPECT_DOUBLE_EQ(line.m_priceLimitLow, row.low);
    }
}

TEST(NumToChinese, WritesTheAmountAsOnACheque)
{
    const std::pair<double, const char *> rows[] = {
        {12345.6, "壹万贰仟叁佰肆拾伍元陆角"}, {0.0, "零元整"},          {100.0, "壹佰元整"},
        {10.0, "壹拾元整"},                     {1005.07, "壹仟零伍元零柒分"}, {0.56, "伍角陆分"},
        {0.05, "伍分"},                         {100000001.0, "壹亿零壹元整"}, {101000.0, "壹拾万壹仟元整"},
        {10000100.0, "壹仟万零壹佰元整"},       {100010.0, "壹拾万零壹拾元整"}, {1000000.0, "壹佰万元整"},
        {2.999, "叁元整"},                      {-3.5, "负叁元伍角"},       {9999e12, "玖仟玖佰玖拾玖万亿元整"},
        {1e16, ""},                             {std::numeric_limits<double>::quiet_NaN(), ""},
    };
    for (const auto &row : rows)
        EXPECT_EQ(utils::numToChinese(row.first), QString::fromUtf8(row.second)) << row.first;
}

TEST(BatchFlagNames, EachListHasItsNameAndOnlyListsHaveOne)
{
    for (int flag : {1, 2, 4, 8, 16, 32}) {
        const QString name = TC::batchFlagName(QFlags<TC::ETempBatchOrderFlag>(flag));
        EXPECT_FALSE(name.isEmpty()) << flag;
        EXPECT_EQ(TC::nameBatchFlag(name), QFlags<TC::ETempBatchOrderFlag>(flag)) << flag;
    }
    EXPECT_EQ(TC::batchFlagName(TC::BATCH_SELL), QStringLiteral("批量卖出组合"));
    for (const auto flags : {TC::ETempBatchOrderFlags(TC::BATCH_NONE), TC::ETempBatchOrderFlags(64), TC::BATCH_BUY | TC::BATCH_SELL})
        EXPECT_TRUE(TC::batchFlagName(flags).isEmpty()) << int(flags);
    EXPECT_EQ(TC::nameBatchFlag(QStringLiteral("我的篮子")), QFlags<TC::ETempBatchOrderFlag>());
    EXPECT_EQ(TC::nameBatchFlag(QString()), QFlags<TC::ETempBatchOrderFlag>());
}

TEST(BasketStockOrder, AgreesWithTheCompareTraitsSoBisectionFindsRows)
{
    const auto row = [](const char *market, const char *code, const char *account = "") {
        TC::CBasketStockData r;
        r.m_market = QString::fromUtf8(market);
        r.m_stockCode = QString::fromUtf8(code);
        r.m_accountKey = account;
        return r;
    };
    QVector<TC::CBasketStockData> rows{row("SZ", "000002"), row("SH", "600000", "b"), row("SH", "600000", "a"),
                                       row("SH", "510300")};
    std::sort(rows.begin(), rows.end(), TC::basketStockLessThan);
    for (int i = 1; i < rows.size(); ++i)
        EXPECT_LT(TC::CBasketStockCompareTraits::compare(rows[i - 1], rows[i]), 0) << i;
    EXPECT_EQ(rows.front().m_stockCode, QStringLiteral("510300"));
    EXPECT_EQ(rows.back().m_market, QStringLiteral("SZ"));
    EXPECT_FALSE(TC::basketStockLessThan(rows[0], rows[0]));
}

TEST(OrderSettingText, RoundTripKeepsEveryFieldAvoidsTheStringsSeparatorsAndBadTextGivesTheDefault)
{
    COrderSetting setting;
    setting.m_stepIsAbsolute = false;
    setting.m_stepValue = 0.02;
    setting.m_stepRate = 0.005;
    setting.m_keepValidTime = true;
    setting.m_validSeconds = 90;
    setting.m_stepFlag = 2;
    setting.m_startTime = 1704159000;
    setting.m_endTime = 1704166200;
    setting.m_priceType = 11;
    setting.m_fixedPrice = 10.5;
    const QString text = TC::orderSettingToString(setting);
    const COrderSetting back = TC::orderSettingFromString(text);
    EXPECT_TRUE(back.isEqual(setting)) << text.toStdString();
    EXPECT_EQ(fields(back.m_validSeconds, back.m_stepRate, back.m_endTime, back.m_fixedPrice), "90|0.005|1704166200|10.5");
    for (const char separator : {'|', '/', '%', '=', '*', '\n'})
        EXPECT_FALSE(text.contains(QLatin1Char(separator))) << text.toStdString();

    EXPECT_TRUE(TC::orderSettingFromString(QStringLiteral("not json")).isEqual(COrderSetting()));
    EXPECT_TRUE(TC::orderSettingFromString(QString()).isEqual(COrderSetting()));
}

TEST(ModuleSwitches, AllNamedModulesMustBeOnAndConnectTabsFollowTheirModules)
{
    TC::resetAllSubstitutes();
    LuaModuleCtrl *modules = LuaModuleCtrl::instance();
    EXPECT_FALSE(TC::hasComposeGgtType());
    modules->setModules({"mdl_order", "mdl_order_compose_futures", "mdl_order_compose_sgt"}, true);
    EXPECT_TRUE(LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_futures"}));
    EXPECT_TRUE(modules->checkModule({"mdl_order_compose_futures"}));
    EXPECT_FALSE(LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_one_key_futures", "mdl_order_compose_futures"}));
    EXPECT_FALSE(LuaModuleCtrl::checkModule({"mdl_auth", "mdl_order_compose_futures"}));
    EXPECT_EQ(fields(TC::hasComposeHgtType(), TC::hasComposeSgtType(), TC::hasComposeGgtType()), "false|true|true");

    modules->setModule("mdl_order_compose_sgt", false);
    modules->setModule("mdl_order_compose_hgt", true);
    EXPECT_TRUE(TC::hasComposeHgtType() && TC::hasComposeGgtType());
    // Turning the group off turns off its modules.
    modules->setModule("mdl_order", false);
    EXPECT_FALSE(LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_futures"}));
    EXPECT_FALSE(TC::hasComposeHgtType());
    TC::resetAllSubstitutes();
}

} // namespace
