#include "CExchangeClient.h"
#include "CTradeClient.h"
#include "OperationSide.h"
#include "SampleMarket.h"
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

TEST(SplitEntrusts, DividesByWeightInWholeLotsAndNeverGivesABuyAnOddLot)
{
    TC::resetAllSubstitutes();
    sample::addInstrument("SH", "688001", 0x7fffffff, std::string(), 200);
    struct Row { const char *name; int volume; const char *market; std::vector<double> weights; std::vector<int> expected;
                 EOperationType operation = OT_BUY; const char *code = "600000"; };
    const Row rows[] = {
        {"equalWeights", 1000, "SH", {1.0, 1.0}, {500, 500}},
        {"roundedDownToLots", 1000, "SH", {1.0, 2.0}, {400, 600}},
        {"oddLotOfABuyIsDropped", 1050, "SH", {1.0, 1.0}, {500, 500}},
        {"oddLotOfASellGoesToTheFirst", 1050, "SH", {1.0, 1.0}, {550, 500}, OT_SELL},
        {"oneAccountBuyOfAMoneyTotal", 9036, "SH", {1.0}, {9000}},
        {"threeAccountsOddShares", 1000, "SH", {1.0, 1.0, 1.0}, {400, 300, 300}},
        {"leftoverUnitsGoInTurn", 2000, "SH", {1.0, 1.0, 1.0}, {700, 700, 600}},
        {"leftoverUnitsSkipZeroWeights", 2000, "SH", {1.0, 0.0, 1.0, 1.0}, {700, 0, 700, 600}},
        {"zeroWeightGetsNothing", 900, "SH", {0.0, 3.0}, {0, 900}},
        {"allZeroWeightsSplitEvenly", 600, "SH", {0.0, 0.0}, {300, 300}},
        {"negativeWeightCountsAsZero", 600, "SH", {-1.0, 1.0}, {0, 600}},
        {"noValueWeightCountsAsZero", 600, "SH", {NO_VALUE, 2.0}, {0, 600}},
        {"futuresSplitInSingleLots", 7, "CFFEX", {1.0, 1.0}, {4, 3}},
        {"theInstrumentsTradeUnitIsTheLot", 1000, "SH", {1.0, 1.0}, {600, 400}, OT_BUY, "688001"},
        {"zeroVolume", 0, "SH", {1.0, 1.0}, {0, 0}},
        {"negativeVolume", -100, "SH", {1.0}, {0}},
        {"noAccounts", 500, "SH", {}, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        utils::TTError error;
        const std::vector<int> split = CTradeClient::instance()->splitEntrusts(
            row.volume, 10.0, PRICE_TYPE_LAST, accounts(row.weights.size()), row.weights, 0, row.market, row.code,
            row.operation, HEDGE_FLAG_SPECULATION, error, ORDER_TYPE_NORMAL);
        EXPECT_EQ(split, row.expected);
        EXPECT_FALSE(error.isError());
        const int unit = std::string(row.market) == "CFFEX" ? 1 : std::string(row.code) == "688001" ? 200 : 100;
        if (isBuyOperation(row.operation)) {
            for (int share : split)
                EXPECT_EQ(share % unit, 0) << "an odd lot on a buy";
        }
    }
}

TEST(SplitEntrusts, MismatchedWeightsGiveAnEmptyResultAndAnError)
{
    TC::resetAllSubstitutes();
    utils::TTError error;
    const std::vector<int> split = CTradeClient::instance()->splitEntrusts(
        1000, 10.0, PRICE_TYPE_LAST, accounts(2), {1.0}, 0, "SH", "600000", OT_BUY, HEDGE_FLAG_SPECULATION, error,
        ORDER_TYPE_NORMAL);
    EXPECT_TRUE(split.empty());
    EXPECT_TRUE(error.isError());
}

} // namespace
