// The in-memory services: a reset empties every one of them, an order's call is recorded and
// shown whole, and an algorithm's text names its instructions. Their setters and lookups are
// not restated here.
#include "CAlgoParamDataHelper.h"
#include "CAlgorithmAuthorityConfig.h"
#include "CAlgorithmHelpDialog.h"
#include "CBasketHedgeManager.h"
#include "CBlackAndWhiteListService.h"
#include "CExchangeClient.h"
#include "CLogCenter.h"
#include "CMemoryDataCenter.h"
#include "CMsgService.h"
#include "CQuoteClient.h"
#include "CTimeService.h"
#include "CTradeClient.h"
#include "CTradeStatistics.h"
#include "CUserConfig.h"
#include "CVqAlgorithmHelpDialog.h"
#include "Clock.h"
#include "LuaModuleCtrl.h"
#include "StockTypeCenter.h"
#include "SubstituteReset.h"
#include "TraderCenter.h"

#include "Fields.h"
#include "SampleMarket.h"

#include <gtest/gtest.h>

#include <string>

using namespace ttservice;

namespace {

class RecordedServiceCalls : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

} // namespace

// An instruction's outside algorithm names the instructions it works for; a plain order's text
// is left alone.
TEST_F(RecordedServiceCalls, AnAlgorithmsTextNamesItsInstructions)
{
    QMap<int, boost::shared_ptr<COrderCommand>> commands;
    commands.insert(42, boost::shared_ptr<COrderCommand>(new COrderCommand));
    std::string param = "TWAP`a=1";
    std::string empty;
    TC::CAlgoParamDataHelper::resetAlgoParam(param, commands);
    TC::CAlgoParamDataHelper::resetAlgoParam(empty, commands);
    EXPECT_EQ(fields(param, empty.empty()), "TWAP`a=1;cmd=42|true");
}

namespace {

int patchStoreCalls = 0;

// Puts something into every substitute.
void fillEverything()
{
    TC::CUserConfig *config = TC::getUserConfig();
    config->setRole(200);
    config->setUserName(QStringLiteral("user"));
    config->setUserId("u");
    config->setHasPortfolio(true);
    config->setPbManager(true);
    config->setUserAuth(1, true);
    CAccountInfo account;
    account.m_accountKey = "acc";
    config->addAccount(account);
    config->baskets().insert(QStringLiteral("b"), TC::CBasketSetting());
    config->msgSettings().insert(1, TC::CMsgSetting());
    config->patchSettings().insert(QStringLiteral("p"), QStringLiteral("x"));
    config->setPatchSettingsStore([](const QString &) { ++patchStoreCalls; });
    config->addPortfolio(CPortfolio());

    std::vector<CCodeOrderParam> orders(1);
    TC::CTradeClient::instance()->placeCommands(VQ_TRADER_BASKET, VQ_NOT_HEDGED, FT_SPEC_BTN_BAR_NONE, orders, {},
                                                VQ_STOP_LOSS_NONE, false, true, false, {}, bson::BSONObj(), "",
                                                TRADE_PLATFORM_NONE, "", VQ_LIMITED_PRICE_NONE, "", QString(),
                                                ORDER_STRATEGY_NONE, false, false, -1, "", {}, ETF_HEDGE_NONE, "",
                                                bson::BSONObj());
    TC::CTradeClient::instance()->placeTasks(VQ_TRADER_BASKET, VQ_NOT_HEDGED, nullptr, orders, VQ_STOP_LOSS_NONE,
                                             true, "", {}, -1, "", nullptr, "", 0);
    TC::CTradeClient::instance()->setConfirmTaskResult(false);
    TC::CTradeClient::instance()->confirmTask(nullptr, orders, false);
    TC::CTradeClient::instance()->setLoginStatus("acc", LOGIN_STATUS_FAILED);
    boost::shared_ptr<COrderCommand> command(new COrderCommand);
    command->m_commandKey = "c";
    TC::CTradeClient::instance()->addCommand(command);

    sample::setQuote("SH", "600000", 10.0);
    TC::CQuoteClient::instance()->setStoppedStock(QStringLiteral("600000.SH"), true);
    sample::addInstrument("SH", "600000");
    TC::CBlackAndWhiteListService::instance()->addBlackStock(QStringLiteral("acc"), QStringLiteral("600000.SH"));
    TC::CBasketHedgeManager::instance()->onBasketCommand(command, true);
    TC::getMsgService()->showMsg(QStringLiteral("m"), TC::MSG_TYPE_ORDER, MSG_LEVEL_ORDER, true, true, QString());
    TC::getTimeService()->setCurrentTime(5);
    TC::CTradeStatistics::instance()->setCheckResult(false);
    TC::CTradeStatistics::instance()->checkMinAndInterval(orders);
    TC::CAlgorithmAuthorityConfig::instance().setAuthorityResult(false);
    TC::CAlgorithmHelpDialog::tryHelp(orders);
    StockTypeCenter::setTypedStock(126, "SH", "204001");
    luawrapper::LuaModuleCtrl::instance()->setModule("mdl_order", true);
    utils::CLogCenter::instance()->setLogEnabled(false);
    utils::useSteadyClockMSec();
    TraderCenter::instance()->getDataCenter()->queryData(boost::shared_ptr<CQueryDataReq>(new CQueryDataReq),
                                                         IDataCenter::QueryCallback(), 0);
}

} // namespace

TEST(SubstituteReset, EveryServiceIsBackToItsEmptyState)
{
    TC::resetAllSubstitutes();
    fillEverything();
    TC::resetAllSubstitutes();

    // A store left set would outlive the test that set it.
    patchStoreCalls = 0;
    TC::getUserConfig()->savePatchSettings();
    const TC::CUserConfig *config = TC::getUserConfig();
    TC::CTradeClient *trade = TC::CTradeClient::instance();
    std::vector<CCodeOrderParam> orders;
    const std::pair<const char *, bool> emptied[] = {
        {"role", config->getRole() == 0}, {"user name", config->getUserName().isEmpty()},
        {"user id", config->getUserId().empty()}, {"portfolio right", !config->hasPortfolio()},
        {"manager", !config->isPbManager()}, {"user right", !config->hasUserAuth(1)},
        {"accounts", config->getAccountCount() == 0}, {"baskets", config->baskets().isEmpty()},
        {"message settings", config->msgSettings().isEmpty()}, {"patch settings", config->patchSettings().isEmpty()},
        {"patch store", patchStoreCalls == 0}, {"portfolios", config->portfolios().isEmpty()},
        {"account data", !TraderCenter::instance()->getDataCenter()->getAccountData("acc")},
        {"queries", TraderCenter::instance()->memoryDataCenter()->queries().empty()},
        {"placed commands", trade->placedCommands().empty()}, {"placed tasks", trade->placedTasks().empty()},
        {"confirmed tasks", trade->confirmedTasks().empty()}, {"instructions", !trade->getCommandByKey("c")},
        {"login status", trade->getLoginStatus("acc") == 0}, {"confirm answer", trade->confirmTask(nullptr, orders, false)},
        {"quotes", !TC::CQuoteClient::instance()->getStockPrice(QStringLiteral("600000.SH"))},
        {"suspensions", !TC::CQuoteClient::instance()->isStoppedStock(QStringLiteral("600000.SH"))},
        {"instruments", TC::CExchangeClient::instance()->instrumentCount() == 0},
        {"black list", !TC::CBlackAndWhiteListService::instance()->isBlackStock(QStringLiteral("acc"), QStringLiteral("600000.SH"))},
        {"hedge commands", TC::CBasketHedgeManager::instance()->basketCommands().empty()},
        {"messages", TC::getMsgService()->shownMessages().empty()},
        {"time", TC::getTimeService()->currentTime() == TC::CTimeService::DEFAULT_TIME},
        {"checked orders", TC::CTradeStatistics::instance()->checkedOrders().empty()},
        {"check answer", TC::CTradeStatistics::instance()->checkMinAndInterval(orders)},
        {"authority answer", TC::CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, "", "")},
        {"help calls", TC::CAlgorithmHelpDialog::triedHelps().empty()},
        {"typed stocks", !StockTypeCenter::isTypedStock(126, "SH", "204001")},
        {"modules", luawrapper::LuaModuleCtrl::instance()->modulesOn().empty()},
        {"log", utils::CLogCenter::instance()->logEnabled()},
        {"clock frozen", utils::isClockMSecFrozen()}, {"clock at 0", utils::clockMSec() == 0.0}};
    for (const auto &e : emptied)
        EXPECT_TRUE(e.second) << e.first << " outlived the reset";
}

// ---- the trade client ----

using TC::CTradeClient;

namespace {

CCodeOrderParam line(const char *code, int64_t volume)
{
    CCodeOrderParam p;
    p.m_account.reset(new CAccountInfo);
    p.m_account->m_accountKey = "acc1";
    p.m_stockInfo = CStockInfo("SH", code, "name");
    p.m_operationType = OT_BUY;
    p.m_volume = volume;
    p.m_price = 10.5;
    return p;
}

using TradeClientRecording = RecordedServiceCalls;

} // namespace

// Every argument differs from its default, so that a swapped or dropped one shows in the one
// JSON line the observer sees, which is written from the recorded call.
TEST_F(TradeClientRecording, PlaceCommandsKeepsEveryArgumentInOrderAndShowsItAsOneJsonLine)
{
    std::vector<std::string> lines;
    CTradeClient::instance()->setPlaceCommandsObserver(
        [&lines](const TC::CPlaceCommandsCall &call) { lines.push_back(call.jsonString()); });
    bson::BSONObjBuilder hedge;
    hedge.append("ht", 3);
    bson::BSONObjBuilder extra;
    extra.append("x", "y");
    QMap<QString, QPair<int, int>> pairs;
    pairs.insert(QStringLiteral("p"), qMakePair(1, 2));
    int callbackCode = 0;
    std::vector<CCodeOrderParam> orders{line("600000", 100), line("600036", 200)};
    CTradeClient::instance()->placeCommands(
        VQ_TRADER_BASKET, VQ_HEDGED, static_cast<EFtSpecBtnBarType>(3), orders, {{"ratio", 0.5}}, static_cast<EVqStopLossType>(6), true, false, true,
        [&callbackCode](utils::TTError, int code) { callbackCode = code; }, hedge.obj(), "t12", TRADE_PLATFORM_REMAP,
        "TWAP`a=1", static_cast<EVqLimitedPriceType>(1), "basket A", QStringLiteral("备注"),
        static_cast<EOrderStrategyType>(-1), true, true, 21, "t22", pairs, static_cast<EtfHedgeStatus>(-1), "log 25",
        extra.obj());

    ASSERT_EQ(CTradeClient::instance()->placedCommands().size(), 1u);
    const TC::CPlaceCommandsCall &call = CTradeClient::instance()->placedCommands().front();
    call.m_resultCallback(utils::TTError(), 7);
    EXPECT_EQ(callbackCode, 7) << "the test plays the service: the recorded callback reaches the caller";
    EXPECT_EQ(call.m_pairMap.value(QStringLiteral("p")), qMakePair(1, 2));

    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].find('\n'), std::string::npos);
    bson::BSONObj parsed;
    ASSERT_TRUE(parseJson(lines[0], parsed)) << lines[0];
    const std::pair<const char *, int> ints[] = {
        {"traderType", VQ_TRADER_BASKET}, {"hedgeType", VQ_HEDGED}, {"specBtnBarType", 3}, {"stopLossType", 6},
        {"tradePlatform", TRADE_PLATFORM_REMAP}, {"limitedPriceType", 1}, {"strategyType", -1}, {"extraInt", 21},
        {"etfHedgeStatus", -1}};
    for (const auto &field : ints)
        EXPECT_EQ(parsed.getIntField(field.first), field.second) << field.first;
    const std::pair<const char *, bool> flags[] = {{"firstFlag", true},       {"secondFlag", false},
                                                   {"createPortfolio", true}, {"resultCallback", true},
                                                   {"firstExtraFlag", true},  {"secondExtraFlag", true}};
    for (const auto &field : flags)
        EXPECT_EQ(parsed.getBoolField(field.first), field.second) << field.first;
    const std::pair<const char *, const char *> texts[] = {
        {"call", "placeCommands"}, {"commandText", "t12"},   {"paramString", "TWAP`a=1"}, {"basketName", "basket A"},
        {"remark", "备注"},        {"extraText", "t22"}, {"commandLog", "log 25"}};
    for (const auto &field : texts)
        EXPECT_EQ(std::string(parsed.getStringField(field.first)), field.second) << field.first;
    EXPECT_DOUBLE_EQ(parsed.getObjectField("valueMap").getField("ratio").Number(), 0.5);
    EXPECT_EQ(parsed.getObjectField("hedgeBson").getIntField("ht"), 3);
    EXPECT_EQ(std::string(parsed.getObjectField("extraBson").getStringField("x")), "y");
    const std::vector<bson::BSONElement> shown = parsed.getField("orders").Array();
    ASSERT_EQ(shown.size(), 2u);
    CCodeOrderParam back;
    back.bsonValueFromObj(shown[1].Obj());
    EXPECT_EQ(back.m_stockInfo.m_stockCode, "600036");
    EXPECT_EQ(back.m_volume, 200);
}

TEST_F(TradeClientRecording, PlaceTasksKeepsEveryArgumentInOrderAndShowsItAsJson)
{
    boost::shared_ptr<COrderCommand> command(new COrderCommand);
    command->m_commandKey = "cmd-1";
    boost::shared_ptr<CAutoPriceParam> autoPrice(new CAutoPriceParam);
    autoPrice->m_tickOffset = 2;
    std::string taggedKey;
    std::vector<std::string> lines;
    std::vector<CCodeOrderParam> orders{line("600000", 300)};
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
    EXPECT_TRUE(c.m_command == command && c.m_autoPrice == autoPrice);
    boost::shared_ptr<CVqOrderTag> tag(new CVqOrderTag);
    tag->m_orderTagKey = "tag-key";
    c.m_callback(QVector<boost::shared_ptr<TaskImp>>(), tag);
    EXPECT_EQ(taggedKey, "tag-key");

    ASSERT_EQ(lines.size(), 1u);
    bson::BSONObj parsed;
    ASSERT_TRUE(parseJson(lines[0], parsed)) << lines[0];
    const std::pair<const char *, int> ints[] = {{"traderType", VQ_TRADER_BASKET}, {"hedgeType", VQ_HEDGED},
                                                 {"stopLossType", 5}, {"intValue", -1}, {"subCommandId", 13},
                                                 {"autoPrice", 2}};
    for (const auto &field : ints)
        EXPECT_EQ(parsed.getIntField(field.first), field.second) << field.first;
    const std::pair<const char *, const char *> texts[] = {
        {"call", "placeTasks"}, {"text", "t7"}, {"paramString", "VWAP`x"}, {"extraText", "t12"}};
    for (const auto &field : texts)
        EXPECT_EQ(std::string(parsed.getStringField(field.first)), field.second) << field.first;
    EXPECT_TRUE(parsed.getBoolField("flag"));
    EXPECT_TRUE(parsed.getBoolField("callback"));
    ASSERT_EQ(parsed.getField("orders").Array().size(), 1u);
    COrderCommand back;
    back.bsonValueFromObj(parsed.getObjectField("command"));
    EXPECT_EQ(back.m_commandKey, "cmd-1");
}
