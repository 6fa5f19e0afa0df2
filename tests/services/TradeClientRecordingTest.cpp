#include "CTradeClient.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <string>

using namespace ttservice;
using TC::CTradeClient;

namespace {

boost::shared_ptr<CAccountInfo> account(const std::string &key)
{
    boost::shared_ptr<CAccountInfo> a(new CAccountInfo);
    a->m_accountKey = key;
    a->m_accountId = key + "-id";
    a->m_brokerType = BROKER_TYPE_STOCK;
    return a;
}

CCodeOrderParam line(const char *code, int64_t volume)
{
    CCodeOrderParam p;
    p.m_account = account("acc1");
    p.m_stockInfo = CStockInfo("SH", code, "name");
    p.m_operationType = OT_BUY;
    p.m_volume = volume;
    p.m_price = 10.5;
    return p;
}

class TradeClientRecording : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }

    // A placeCommands call whose every argument differs from its default.
    void placeDistinctCommands()
    {
        std::vector<CCodeOrderParam> orders{line("600000", 100), line("600036", 200)};
        bson::BSONObjBuilder hedge;
        hedge.append("ht", 3);
        bson::BSONObjBuilder extra;
        extra.append("x", "y");
        QMap<QString, QPair<int, int>> pairs;
        pairs.insert(QStringLiteral("p"), qMakePair(1, 2));
        CTradeClient::instance()->placeCommands(
            VQ_TRADER_BASKET, VQ_HEDGED, static_cast<EFtSpecBtnBarType>(3), orders, {{"ratio", 0.5}},
            static_cast<EVqStopLossType>(6), true, false, true,
            [this](utils::TTError, int code) { m_callbackCode = code; }, hedge.obj(), "t12",
            TRADE_PLATFORM_REMAP, "TWAP`a=1", static_cast<EVqLimitedPriceType>(1), "basket A",
            QStringLiteral("备注"), static_cast<EOrderStrategyType>(-1), true, true, 21, "t22", pairs,
            static_cast<EtfHedgeStatus>(-1), "log 25", extra.obj());
    }

    int m_callbackCode = 0;
};

} // namespace

TEST_F(TradeClientRecording, PlaceCommandsKeepsEveryArgumentInOrder)
{
    placeDistinctCommands();
    ASSERT_EQ(CTradeClient::instance()->placedCommands().size(), 1u);
    const TC::CPlaceCommandsCall &c = CTradeClient::instance()->placedCommands().front();
    EXPECT_EQ(c.m_traderType, VQ_TRADER_BASKET);
    EXPECT_EQ(c.m_hedgeType, VQ_HEDGED);
    EXPECT_EQ(c.m_specBtnBarType, 3);
    ASSERT_EQ(c.m_orders.size(), 2u);
    EXPECT_EQ(c.m_orders[1].m_stockInfo.m_stockCode, "600036");
    EXPECT_EQ(c.m_orders[1].m_volume, 200);
    EXPECT_DOUBLE_EQ(c.m_valueMap.at("ratio"), 0.5);
    EXPECT_EQ(c.m_stopLossType, 6);
    EXPECT_TRUE(c.m_firstFlag);
    EXPECT_FALSE(c.m_secondFlag);
    EXPECT_TRUE(c.m_createPortfolio);
    ASSERT_FALSE(c.m_resultCallback.empty());
    c.m_resultCallback(utils::TTError(), 7);
    EXPECT_EQ(m_callbackCode, 7);
    EXPECT_EQ(c.m_hedgeBson.getIntField("ht"), 3);
    EXPECT_EQ(c.m_commandText, "t12");
    EXPECT_EQ(c.m_tradePlatform, TRADE_PLATFORM_REMAP);
    EXPECT_EQ(c.m_paramString, "TWAP`a=1");
    EXPECT_EQ(c.m_limitedPriceType, 1);
    EXPECT_EQ(c.m_basketName, "basket A");
    EXPECT_EQ(c.m_remark, QStringLiteral("备注"));
    EXPECT_EQ(c.m_strategyType, -1);
    EXPECT_TRUE(c.m_firstExtraFlag);
    EXPECT_TRUE(c.m_secondExtraFlag);
    EXPECT_EQ(c.m_extraInt, 21);
    EXPECT_EQ(c.m_extraText, "t22");
    EXPECT_EQ(c.m_pairMap.value(QStringLiteral("p")), qMakePair(1, 2));
    EXPECT_EQ(c.m_etfHedgeStatus, -1);
    EXPECT_EQ(c.m_commandLog, "log 25");
    EXPECT_EQ(c.m_extraBson.getStringField("x"), std::string("y"));
}

TEST_F(TradeClientRecording, PlaceTasksKeepsEveryArgumentInOrderAndShowsItAsJson)
{
    boost::shared_ptr<COrderCommand> command(new COrderCommand);
    command->m_commandKey = "cmd-1";
    command->m_commandId = 42;
    boost::shared_ptr<CAutoPriceParam> autoPrice(new CAutoPriceParam);
    autoPrice->m_tickOffset = 2;
    std::vector<CCodeOrderParam> orders{line("600000", 300)};
    std::string taggedKey;
    std::vector<std::string> lines;
    CTradeClient::instance()->setPlaceTasksObserver(
        [&lines](const TC::CPlaceTasksCall &call) { lines.push_back(call.jsonString()); });
    CTradeClient::instance()->placeTasks(
        VQ_TRADER_BASKET, VQ_HEDGED, command, orders, static_cast<EVqStopLossType>(5), true, "t7",
        [&taggedKey](const QVector<boost::shared_ptr<TaskImp>> &, boost::shared_ptr<CVqOrderTag> tag) {
            taggedKey = tag->m_orderTagKey;
        },
        -1, "VWAP`x", autoPrice, "t12", 13);

    ASSERT_EQ(CTradeClient::instance()->placedTasks().size(), 1u);
    const TC::CPlaceTasksCall &c = CTradeClient::instance()->placedTasks().front();
    EXPECT_EQ(c.m_traderType, VQ_TRADER_BASKET);
    EXPECT_EQ(c.m_hedgeType, VQ_HEDGED);
    EXPECT_EQ(c.m_command, command);
    ASSERT_EQ(c.m_orders.size(), 1u);
    EXPECT_EQ(c.m_orders[0].m_volume, 300);
    EXPECT_EQ(c.m_stopLossType, 5);
    EXPECT_TRUE(c.m_flag);
    EXPECT_EQ(c.m_text, "t7");
    EXPECT_EQ(c.m_intValue, -1);
    EXPECT_EQ(c.m_paramString, "VWAP`x");
    EXPECT_EQ(c.m_autoPrice, autoPrice);
    EXPECT_EQ(c.m_extraText, "t12");
    EXPECT_EQ(c.m_subCommandId, 13);

    // The test plays the service: the recorded callback reaches the caller.
    boost::shared_ptr<CVqOrderTag> tag(new CVqOrderTag);
    tag->m_orderTagKey = "tag-key";
    c.m_callback(QVector<boost::shared_ptr<TaskImp>>(), tag);
    EXPECT_EQ(taggedKey, "tag-key");

    ASSERT_EQ(lines.size(), 1u);
    bson::BSONObj parsed;
    ASSERT_TRUE(parseJson(lines[0], parsed)) << lines[0];
    EXPECT_EQ(parsed.getStringField("call"), std::string("placeTasks"));
    EXPECT_EQ(parsed.getIntField("subCommandId"), 13);
    EXPECT_TRUE(parsed.getBoolField("callback"));
    EXPECT_FALSE(parsed.getField("autoPrice").isNull());
    COrderCommand back;
    back.bsonValueFromObj(parsed.getObjectField("command"));
    EXPECT_EQ(back.m_commandKey, "cmd-1");
}

TEST_F(TradeClientRecording, ConfirmTaskGivesTheScriptedAnswerAndInstructionsAndLoginsAreAsSet)
{
    const std::vector<CCodeOrderParam> orders{line("600000", 100)};
    EXPECT_TRUE(CTradeClient::instance()->confirmTask(nullptr, orders, false));
    CTradeClient::instance()->setConfirmTaskResult(false);
    EXPECT_FALSE(CTradeClient::instance()->confirmTask(nullptr, orders, true));
    ASSERT_EQ(CTradeClient::instance()->confirmedTasks().size(), 2u);
    EXPECT_TRUE(CTradeClient::instance()->confirmedTasks()[1].m_flag);
    EXPECT_EQ(CTradeClient::instance()->confirmedTasks()[1].m_orders[0].m_stockInfo.m_stockCode, "600000");

    CTradeClient::instance()->setConfirmTaskHandler(
        [](const CTradeClient::CConfirmTaskCall &call) { return call.m_orders.size() == 1; });
    EXPECT_TRUE(CTradeClient::instance()->confirmTask(nullptr, orders, false));

    // Instructions and login states are set by the test, as the client's services set them.
    EXPECT_FALSE(CTradeClient::instance()->getCommandByKey("cmd-1"));
    boost::shared_ptr<COrderCommand> command(new COrderCommand);
    command->m_commandKey = "cmd-1";
    CTradeClient::instance()->addCommand(command);
    EXPECT_EQ(CTradeClient::instance()->getCommandByKey("cmd-1"), command);
    CTradeClient::instance()->setLoginStatus("acc1", LOGIN_STATUS_CONNECTING);
    EXPECT_EQ(CTradeClient::instance()->getLoginStatus("acc1"), LOGIN_STATUS_CONNECTING);
    EXPECT_EQ(CTradeClient::instance()->getLoginStatus("acc2"), 0);
}

TEST_F(TradeClientRecording, ObserverSeesEachCallAsOneJsonLine)
{
    std::vector<std::string> lines;
    CTradeClient::instance()->setPlaceCommandsObserver(
        [&lines](const TC::CPlaceCommandsCall &call) { lines.push_back(call.jsonString()); });
    placeDistinctCommands();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].find('\n'), std::string::npos);

    bson::BSONObj parsed;
    ASSERT_TRUE(parseJson(lines[0], parsed)) << lines[0];
    EXPECT_EQ(parsed.getStringField("call"), std::string("placeCommands"));
    EXPECT_EQ(parsed.getIntField("hedgeType"), 2);
    EXPECT_EQ(parsed.getStringField("basketName"), std::string("basket A"));
    EXPECT_EQ(parsed.getStringField("remark"), std::string("备注"));
    EXPECT_TRUE(parsed.getBoolField("resultCallback"));
    EXPECT_EQ(parsed.getObjectField("hedgeBson").getIntField("ht"), 3);
    const std::vector<bson::BSONElement> orders = parsed.getField("orders").Array();
    ASSERT_EQ(orders.size(), 2u);
    CCodeOrderParam back;
    back.bsonValueFromObj(orders[1].Obj());
    EXPECT_EQ(back.m_stockInfo.m_stockCode, "600036");
    EXPECT_EQ(back.m_volume, 200);
}
