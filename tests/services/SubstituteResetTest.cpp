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
#include "Clock.h"
#include "LuaModuleCtrl.h"
#include "StockTypeCenter.h"
#include "SubstituteReset.h"
#include "TraderCenter.h"

#include <gtest/gtest.h>

using namespace ttservice;

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

    TC::CPriceData quote;
    quote.m_market = "SH";
    quote.m_stockCode = "600000";
    TC::CQuoteClient::instance()->publishQuote(quote);
    TC::CQuoteClient::instance()->setStoppedStock(QStringLiteral("600000.SH"), true);
    CInstrumentDetail detail;
    detail.m_market = "SH";
    detail.m_stockCode = "600000";
    TC::CExchangeClient::instance()->addInstrument(detail);
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

    const TC::CUserConfig *config = TC::getUserConfig();
    EXPECT_EQ(config->getRole(), 0);
    EXPECT_TRUE(config->getUserName().isEmpty());
    EXPECT_TRUE(config->getUserId().empty());
    EXPECT_FALSE(config->hasPortfolio());
    EXPECT_FALSE(config->isPbManager());
    EXPECT_FALSE(config->hasUserAuth(1));
    EXPECT_EQ(config->getAccountCount(), 0);
    EXPECT_TRUE(config->baskets().isEmpty());
    EXPECT_TRUE(config->msgSettings().isEmpty());
    EXPECT_TRUE(config->patchSettings().isEmpty());
    // A store left set would outlive the test that set it.
    patchStoreCalls = 0;
    config->savePatchSettings();
    EXPECT_EQ(patchStoreCalls, 0);
    EXPECT_TRUE(config->portfolios().isEmpty());
    EXPECT_FALSE(TraderCenter::instance()->getDataCenter()->getAccountData("acc"));
    EXPECT_TRUE(TraderCenter::instance()->memoryDataCenter()->queries().empty());

    TC::CTradeClient *trade = TC::CTradeClient::instance();
    EXPECT_TRUE(trade->placedCommands().empty());
    EXPECT_TRUE(trade->placedTasks().empty());
    EXPECT_TRUE(trade->confirmedTasks().empty());
    EXPECT_FALSE(trade->getCommandByKey("c"));
    EXPECT_EQ(trade->getLoginStatus("acc"), 0);
    std::vector<CCodeOrderParam> orders;
    EXPECT_TRUE(trade->confirmTask(nullptr, orders, false));

    EXPECT_FALSE(TC::CQuoteClient::instance()->getStockPrice(QStringLiteral("600000.SH")));
    EXPECT_FALSE(TC::CQuoteClient::instance()->isStoppedStock(QStringLiteral("600000.SH")));
    EXPECT_EQ(TC::CExchangeClient::instance()->instrumentCount(), 0);
    EXPECT_FALSE(TC::CBlackAndWhiteListService::instance()->isBlackStock(QStringLiteral("acc"),
                                                                         QStringLiteral("600000.SH")));
    EXPECT_TRUE(TC::CBasketHedgeManager::instance()->basketCommands().empty());
    EXPECT_TRUE(TC::getMsgService()->shownMessages().empty());
    EXPECT_EQ(TC::getTimeService()->currentTime(), TC::CTimeService::DEFAULT_TIME);
    EXPECT_TRUE(TC::CTradeStatistics::instance()->checkedOrders().empty());
    EXPECT_TRUE(TC::CTradeStatistics::instance()->checkMinAndInterval(orders));
    EXPECT_TRUE(TC::CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, "", ""));
    EXPECT_TRUE(TC::CAlgorithmHelpDialog::triedHelps().empty());
    EXPECT_FALSE(StockTypeCenter::isTypedStock(126, "SH", "204001"));
    EXPECT_TRUE(luawrapper::LuaModuleCtrl::instance()->modulesOn().empty());
    EXPECT_TRUE(utils::CLogCenter::instance()->logEnabled());
    EXPECT_TRUE(utils::isClockMSecFrozen());
    EXPECT_DOUBLE_EQ(utils::clockMSec(), 0.0);
}
