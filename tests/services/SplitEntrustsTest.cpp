#include "CExchangeClient.h"
#include "CTradeClient.h"
#include "OperationSide.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ttservice;
using TC::CTradeClient;

namespace {

std::vector<boost::shared_ptr<CAccountInfo>> accounts(size_t count)
{
    std::vector<boost::shared_ptr<CAccountInfo>> result;
    for (size_t i = 0; i < count; ++i) {
        boost::shared_ptr<CAccountInfo> a(new CAccountInfo);
        a->m_accountKey = "acc" + std::to_string(i);
        result.push_back(a);
    }
    return result;
}

struct SplitCase
{
    const char *name;
    int volume;
    const char *market;
    std::vector<double> weights;
    std::vector<int> expected;
    EOperationType operation = OT_BUY;
};

class SplitEntrusts : public ::testing::TestWithParam<SplitCase>
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

} // namespace

TEST_P(SplitEntrusts, DividesByWeightInWholeLotsAndNeverGivesABuyAnOddLot)
{
    const SplitCase &c = GetParam();
    utils::TTError error;
    const std::vector<int> split = CTradeClient::instance()->splitEntrusts(
        c.volume, 10.0, PRICE_TYPE_LAST, accounts(c.weights.size()), c.weights, 0, c.market, "600000", c.operation,
        HEDGE_FLAG_SPECULATION, error, ORDER_TYPE_NORMAL);
    EXPECT_EQ(split, c.expected);
    EXPECT_FALSE(error.isError());
    const int unit = std::string(c.market) == "CFFEX" ? 1 : 100;
    if (isBuyOperation(c.operation)) {
        for (int share : split)
            EXPECT_EQ(share % unit, 0) << "an odd lot on a buy";
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rules, SplitEntrusts,
    ::testing::Values(
        SplitCase{"equalWeights", 1000, "SH", {1.0, 1.0}, {500, 500}},
        SplitCase{"roundedDownToLots", 1000, "SH", {1.0, 2.0}, {400, 600}},
        SplitCase{"oddLotOfABuyIsDropped", 1050, "SH", {1.0, 1.0}, {500, 500}},
        SplitCase{"oddLotOfASellGoesToTheFirst", 1050, "SH", {1.0, 1.0}, {550, 500}, OT_SELL},
        SplitCase{"oneAccountBuyOfAMoneyTotal", 9036, "SH", {1.0}, {9000}},
        SplitCase{"threeAccountsOddShares", 1000, "SH", {1.0, 1.0, 1.0}, {400, 300, 300}},
        SplitCase{"leftoverUnitsGoInTurn", 2000, "SH", {1.0, 1.0, 1.0}, {700, 700, 600}},
        SplitCase{"leftoverUnitsSkipZeroWeights", 2000, "SH", {1.0, 0.0, 1.0, 1.0}, {700, 0, 700, 600}},
        SplitCase{"zeroWeightGetsNothing", 900, "SH", {0.0, 3.0}, {0, 900}},
        SplitCase{"allZeroWeightsSplitEvenly", 600, "SH", {0.0, 0.0}, {300, 300}},
        SplitCase{"negativeWeightCountsAsZero", 600, "SH", {-1.0, 1.0}, {0, 600}},
        SplitCase{"noValueWeightCountsAsZero", 600, "SH", {NO_VALUE, 2.0}, {0, 600}},
        SplitCase{"futuresSplitInSingleLots", 7, "CFFEX", {1.0, 1.0}, {4, 3}},
        SplitCase{"zeroVolume", 0, "SH", {1.0, 1.0}, {0, 0}},
        SplitCase{"negativeVolume", -100, "SH", {1.0}, {0}},
        SplitCase{"noAccounts", 500, "SH", {}, {}}),
    [](const ::testing::TestParamInfo<SplitCase> &info) { return std::string(info.param.name); });

TEST(SplitEntrustsRules, TheInstrumentsTradeUnitDecidesTheLot)
{
    TC::resetAllSubstitutes();
    CInstrumentDetail detail;
    detail.m_market = "SH";
    detail.m_stockCode = "688001";
    detail.m_tradeUnit = 200;
    TC::CExchangeClient::instance()->addInstrument(detail);
    utils::TTError error;
    const std::vector<int> split = CTradeClient::instance()->splitEntrusts(
        1000, 10.0, PRICE_TYPE_LAST, accounts(2), {1.0, 1.0}, 0, "SH", "688001", OT_BUY, HEDGE_FLAG_SPECULATION,
        error, ORDER_TYPE_NORMAL);
    EXPECT_EQ(split, (std::vector<int>{600, 400}));
}

TEST(SplitEntrustsRules, MismatchedWeightsGiveAnEmptyResultAndAnError)
{
    TC::resetAllSubstitutes();
    utils::TTError error;
    const std::vector<int> split = CTradeClient::instance()->splitEntrusts(
        1000, 10.0, PRICE_TYPE_LAST, accounts(2), {1.0}, 0, "SH", "600000", OT_BUY, HEDGE_FLAG_SPECULATION, error,
        ORDER_TYPE_NORMAL);
    EXPECT_TRUE(split.empty());
    EXPECT_TRUE(error.isError());
}

TEST(SplitEntrustsRules, CallsAreRecordedAndAHandlerMayScriptTheAnswer)
{
    TC::resetAllSubstitutes();
    CTradeClient::instance()->setSplitEntrustsHandler(
        [](const CTradeClient::CSplitEntrustsCall &call) { return std::vector<int>(call.m_accounts.size() + 1, 1); });
    utils::TTError error;
    const std::vector<int> split = CTradeClient::instance()->splitEntrusts(
        300, 9.5, PRICE_TYPE_FIXED, accounts(2), {1.0, 1.0}, 3, "SZ", "000001", OT_SELL, HEDGE_FLAG_SPECULATION,
        error, static_cast<EOrderType>(-1));
    EXPECT_EQ(split, (std::vector<int>{1, 1, 1}));
    ASSERT_EQ(CTradeClient::instance()->splitCalls().size(), 1u);
    const CTradeClient::CSplitEntrustsCall &call = CTradeClient::instance()->splitCalls().front();
    EXPECT_EQ(call.m_volume, 300);
    EXPECT_EQ(call.m_priceType, PRICE_TYPE_FIXED);
    EXPECT_EQ(call.m_splitType, 3);
    EXPECT_EQ(call.m_market, "SZ");
    EXPECT_EQ(call.m_operation, OT_SELL);
    EXPECT_EQ(call.m_orderType, -1);
}
