#include "CBasketHedgeParam.h"
#include "CCodeOrderParam.h"
#include "COrderCommand.h"
#include "COrderSetting.h"
#include "Bson.h"

#include "Fields.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ttservice;

namespace {

CCodeOrderParam makeLine()
{
    CCodeOrderParam line;
    line.m_account.reset(new CAccountInfo);
    line.m_account->m_accountKey = "acc-1";
    line.m_account->m_accountId = "880001";
    line.m_account->m_brokerType = BROKER_TYPE_CREDIT;
    line.m_hedgeFlag = HEDGE_FLAG_HEDGE;
    line.m_operationType = OT_SHORT_SELL;
    line.m_orderType = ORDER_TYPE_INSTRUCTION;
    line.m_stockInfo = CStockInfo("SH", "600000", "浦发银行");
    line.m_priceType = PRICE_TYPE_FIXED;
    line.m_price = 10.25;
    line.m_volume = 1234567890123LL;
    line.m_tradedVolume = 300;
    line.m_validFrom = 1700000000;
    line.m_touchType = 2;
    line.m_touchPrice = 9.99;
    line.m_userId = "u7";
    line.m_portfolioName = "组合A";
    line.m_positionId = "p-1";
    return line;
}

} // namespace

TEST(RecordBson, OrderLineSurvivesRoundTripsAsBsonAndAsJsonTextWithEveryField)
{
    const CCodeOrderParam line = makeLine();
    CCodeOrderParam back;
    back.bsonValueFromObj(line.toBson());

    EXPECT_TRUE(back.isEqual(line));
    ASSERT_TRUE(back.m_account);
    // A field never set (the price step) keeps the no-value mark through the round trip.
    EXPECT_EQ(fields(back.m_account->m_brokerType, back.m_volume, back.m_stockInfo.m_stockName, isNoValue(back.m_priceStep), back.getKey()),
              fields(BROKER_TYPE_CREDIT, 1234567890123LL, "浦发银行", true, "acc-1|600000.SH"));

    CCodeOrderParam fromText;
    fromText.bsonValueFromObj(bson::fromjson(line.toBson().jsonString()));
    EXPECT_TRUE(fromText.isEqual(line)) << "the JSON text keeps the line too";
}

TEST(RecordBson, PartialReadKeepsFieldsOfTheBase)
{
    const CCodeOrderParam base = makeLine();
    CCodeOrderParam partial;
    partial.bsonValueFromObj(BSON("vo" << 500LL << "pr" << 11.0), true, &base);
    EXPECT_EQ(fields(partial.m_volume, partial.m_price, partial.m_operationType), fields(500, 11.0, OT_SHORT_SELL));
    EXPECT_EQ(partial.m_account, base.m_account);

    // Without partial the base is ignored and missing fields take the record's defaults.
    CCodeOrderParam full;
    full.bsonValueFromObj(BSON("vo" << 500LL), false, &base);
    EXPECT_TRUE(full.m_operationType == OT_NONE && !full.m_account);
}

TEST(RecordBson, CommandKeepsItsLinesAndHedgeObject)
{
    COrderCommand command;
    EXPECT_FALSE(command.hasHedgeParam()) << "an empty hedge object means no hedge";
    command.m_commandKey = "cmd-9";
    command.m_hedgeType = VQ_HEDGED;
    command.m_commandId = 42;
    command.m_orders = {makeLine(), makeLine()};
    command.m_orders[1].m_volume = 7;
    CBasketHedgeParam hedge;
    hedge.m_enabled = true;
    hedge.m_hedgeType = 3;
    hedge.m_contractCode = "IF2412";
    command.m_hedgeBson = hedge.toBson();

    COrderCommand back;
    back.bsonValueFromObj(command.toBson());
    ASSERT_EQ(back.m_orders.size(), 2u);
    CBasketHedgeParam hedgeBack;
    hedgeBack.bsonValueFromObj(back.m_hedgeBson);
    EXPECT_EQ(fields(back.m_orders[1].m_volume, back.m_commandId, back.hasHedgeParam(), hedgeBack.m_enabled, hedgeBack.m_contractCode),
              "7|42|true|true|IF2412");
    back.m_hedgeBson = BSON("en" << true);
    EXPECT_TRUE(back.hasHedgeParam());
}

TEST(RecordBson, CommandLinesThatAreNoObjectsAreSkipped)
{
    bson::BSONArrayBuilder lines;
    lines.append(5);
    lines.append(makeLine().toBson());
    lines.append("text");
    bson::BSONObjBuilder builder;
    builder.append("ck", "cmd-1");
    builder.append("os", lines.arr());

    COrderCommand command;
    command.bsonValueFromObj(builder.obj());
    ASSERT_EQ(command.m_orders.size(), 1u);
    EXPECT_EQ(command.m_orders[0].m_volume, makeLine().m_volume);
}

// A number field sent as a double that no integer can hold (or NaN) reads as absent; in range it
// is cut towards zero, as before. Bool fields take any non-zero number.
TEST(RecordBson, NumbersBeyondTheirIntegerReadAsAbsent)
{
    struct Case { double sent; int asInt; long long asInt64; bool asBool; };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Case cases[] = {
        {12.9, 12, 12, true},
        {-3.5, -3, -3, true},
        {0.0, 0, 0, false},
        {1.18971e217, -1, -1, true},
        {-1.18971e217, -1, -1, true},
        {2147483648.0, -1, 2147483648LL, true},
        {-2147483648.0, -2147483647 - 1, -2147483648LL, true},
        {9.3e18, -1, -1, true},
        {nan, -1, -1, true},
    };
    for (const Case &c : cases) {
        const bson::BSONObj obj = BSON("v" << c.sent);
        EXPECT_EQ(fields(bsonInt(obj, "v", -1), bsonInt64(obj, "v", -1), bsonBool(obj, "v", false)), fields(c.asInt, c.asInt64, c.asBool))
            << c.sent;
    }
    // A whole order setting read from such a record keeps its defaults for those fields.
    COrderSetting setting;
    setting.bsonValueFromObj(BSON("ot" << 1.18971e217 << "sa" << 1.18971e217 << "st" << nan));
    EXPECT_EQ(fields(setting.m_orderType, setting.m_stepIsAbsolute, setting.m_startTime),
              fields(COrderSetting().m_orderType, true, COrderSetting().m_startTime));
}
