#include "CAlgoParamDataHelper.h"
#include "CAlgorithmAuthorityConfig.h"
#include "CAlgorithmHelpDialog.h"
#include "CBasketHedgeManager.h"
#include "CBlackAndWhiteListService.h"
#include "CMemoryDataCenter.h"
#include "CMsgService.h"
#include "CTimeService.h"
#include "CTradeStatistics.h"
#include "CVqAlgorithmHelpDialog.h"
#include "SubstituteReset.h"
#include "TraderCenter.h"

#include <gtest/gtest.h>

using namespace ttservice;

namespace {

std::vector<CCodeOrderParam> oneLine()
{
    CCodeOrderParam line;
    line.m_stockInfo = CStockInfo("SH", "600000");
    line.m_volume = 100;
    return {line};
}

class RecordedServiceCalls : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

} // namespace

TEST_F(RecordedServiceCalls, ShowMsgKeepsEveryArgumentAndTellsTheObserver)
{
    std::vector<QString> seen;
    TC::getMsgService()->setObserver(
        [&seen](const TC::CMsgService::CShowMsgCall &call) { seen.push_back(call.m_text); });
    TC::getMsgService()->showMsg(QStringLiteral("可用资金不足!"), TC::MSG_TYPE_ORDER_RESULT, MSG_LEVEL_ORDER, false,
                                 true, QString());
    ASSERT_EQ(TC::getMsgService()->shownMessages().size(), 1u);
    const TC::CMsgService::CShowMsgCall &call = TC::getMsgService()->shownMessages().front();
    EXPECT_EQ(call.m_text, QStringLiteral("可用资金不足!"));
    EXPECT_EQ(call.m_type, TC::MSG_TYPE_ORDER_RESULT);
    EXPECT_EQ(call.m_level, MSG_LEVEL_ORDER);
    EXPECT_FALSE(call.m_showPopup);
    EXPECT_TRUE(call.m_playSound);
    EXPECT_TRUE(call.m_extra.isEmpty());
    EXPECT_EQ(seen, std::vector<QString>{QStringLiteral("可用资金不足!")});
}

TEST_F(RecordedServiceCalls, HedgeServiceRecordsInstructionsAndStoresParameters)
{
    boost::shared_ptr<COrderCommand> command(new COrderCommand);
    command->m_commandKey = "c1";
    TC::CBasketHedgeManager::instance()->onBasketCommand(command, true);
    ASSERT_EQ(TC::CBasketHedgeManager::instance()->basketCommands().size(), 1u);
    EXPECT_EQ(TC::CBasketHedgeManager::instance()->basketCommands()[0].m_command, command);
    EXPECT_TRUE(TC::CBasketHedgeManager::instance()->basketCommands()[0].m_manual);

    CBasketHedgeParam hedge;
    hedge.m_enabled = true;
    hedge.m_hedgeType = 2;
    EXPECT_TRUE(TC::saveHedgeParam("key____tag____3", hedge));
    ASSERT_EQ(TC::CBasketHedgeManager::instance()->savedHedgeParams().size(), 1u);
    ASSERT_TRUE(TC::CBasketHedgeManager::instance()->hedgeParam("key____tag____3"));
    EXPECT_EQ(TC::CBasketHedgeManager::instance()->hedgeParam("key____tag____3")->m_hedgeType, 2);
    EXPECT_FALSE(TC::CBasketHedgeManager::instance()->hedgeParam("other"));
}

TEST_F(RecordedServiceCalls, PlacingChecksAnswerAsScriptedAndRecordTheirArguments)
{
    std::vector<CCodeOrderParam> orders = oneLine();
    EXPECT_TRUE(TC::CTradeStatistics::instance()->checkMinAndInterval(orders));
    TC::CTradeStatistics::instance()->setCheckResult(false);
    EXPECT_FALSE(TC::CTradeStatistics::instance()->checkMinAndInterval(orders));
    EXPECT_EQ(TC::CTradeStatistics::instance()->checkedOrders().size(), 2u);

    EXPECT_TRUE(TC::CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, "SWITCH", "VWAP"));
    TC::CAlgorithmAuthorityConfig::instance().setAuthorityResult(false);
    EXPECT_FALSE(TC::CAlgorithmAuthorityConfig::instance().bCheckAuthority(orders, "TWAP", ""));
    ASSERT_EQ(TC::CAlgorithmAuthorityConfig::instance().checks().size(), 2u);
    EXPECT_EQ(TC::CAlgorithmAuthorityConfig::instance().checks()[0].m_buyStrategy, "SWITCH");
    EXPECT_EQ(TC::CAlgorithmAuthorityConfig::instance().checks()[0].m_sellStrategy, "VWAP");

    // The algorithm help dialogs record their calls and let the placing go on.
    EXPECT_TRUE(TC::CAlgorithmHelpDialog::tryHelp(oneLine()));
    TC::CVqAlgorithmHelpDialog::doHelp();
    EXPECT_EQ(TC::CAlgorithmHelpDialog::triedHelps().size(), 1u);
    EXPECT_EQ(TC::CAlgorithmHelpDialog::helpCount(), 0);
    EXPECT_EQ(TC::CVqAlgorithmHelpDialog::helpCount(), 1);
    EXPECT_TRUE(TC::CVqAlgorithmHelpDialog::triedHelps().empty());
}

TEST_F(RecordedServiceCalls, AlgorithmParametersAreRewrittenForTheInstruction)
{
    QMap<int, boost::shared_ptr<COrderCommand>> commands;
    commands.insert(42, boost::shared_ptr<COrderCommand>(new COrderCommand));
    std::string param = "TWAP`a=1";
    TC::CAlgoParamDataHelper::resetAlgoParam(param, commands);
    EXPECT_EQ(param, "TWAP`a=1;cmd=42");
    std::string empty;
    TC::CAlgoParamDataHelper::resetAlgoParam(empty, commands);
    EXPECT_TRUE(empty.empty());
    ASSERT_EQ(TC::CAlgoParamDataHelper::resetCalls().size(), 2u);
    EXPECT_EQ(TC::CAlgoParamDataHelper::resetCalls()[0].m_commandIds, std::vector<int>{42});
}

TEST_F(RecordedServiceCalls, BlackStocksAndTheirReplacementsArePerAccount)
{
    TC::CBlackAndWhiteListService *lists = TC::CBlackAndWhiteListService::instance();
    lists->addBlackStock(QStringLiteral("A1"), QStringLiteral("600000.SH"));
    lists->setWhiteStock(QStringLiteral("A1"), QStringLiteral("600036.SH"), QStringLiteral("601398.SH"));
    EXPECT_TRUE(lists->isBlackStock(QStringLiteral("A1"), QStringLiteral("600000.SH")));
    EXPECT_TRUE(lists->isBlackStock(QStringLiteral("A1"), QStringLiteral("600036.SH")));
    EXPECT_FALSE(lists->isBlackStock(QStringLiteral("A2"), QStringLiteral("600000.SH")));
    EXPECT_TRUE(lists->getWhiteStock(QStringLiteral("A1"), QStringLiteral("600000.SH")).isEmpty());
    EXPECT_EQ(lists->getWhiteStock(QStringLiteral("A1"), QStringLiteral("600036.SH")), QStringLiteral("601398.SH"));
    EXPECT_TRUE(lists->getWhiteStock(QStringLiteral("A2"), QStringLiteral("600036.SH")).isEmpty());
}

TEST_F(RecordedServiceCalls, QueriesAreRecordedAndAnswered)
{
    boost::shared_ptr<CQueryDataReq> request(new CQueryDataReq);
    request->m_dataType = DATA_TYPE_CREDIT_SLO;
    int answered = 0;
    EXPECT_TRUE(TraderCenter::instance()->getDataCenter()->queryData(
        request, [&answered](boost::shared_ptr<CQueryDataReq>, const utils::TTError &error) {
            if (!error.isError())
                ++answered;
        },
        0));
    EXPECT_TRUE(TraderCenter::instance()->getDataCenter()->queryData(request, IDataCenter::QueryCallback(), 0));
    const auto queries = TraderCenter::instance()->memoryDataCenter()->queries();
    ASSERT_EQ(queries.size(), 2u);
    EXPECT_EQ(queries[0].m_request->m_dataType, 13904);
    EXPECT_TRUE(queries[0].m_hasCallback);
    EXPECT_FALSE(queries[1].m_hasCallback);
    EXPECT_EQ(answered, 1);
}

TEST_F(RecordedServiceCalls, TimeServiceIsFrozenAndSettable)
{
    EXPECT_EQ(TC::getTimeService()->currentTime(), TC::CTimeService::DEFAULT_TIME);
    TC::getTimeService()->advance(30);
    EXPECT_EQ(TC::getTimeService()->currentTime(), TC::CTimeService::DEFAULT_TIME + 30);
    TC::getTimeService()->setCurrentTime(1000);
    EXPECT_EQ(TC::getTimeService()->currentTime(), 1000);
    TC::getTimeService()->useSystemClock(true);
    EXPECT_GT(TC::getTimeService()->currentTime(), TC::CTimeService::DEFAULT_TIME);
}
