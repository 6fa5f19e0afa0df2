#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteReset.h"
#include "TraderCenter.h"

#include <gtest/gtest.h>

#include <string>

using namespace ttservice;

namespace {

class Calculator : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
    // A stock account with this money, holding 1000 of 600000.SH of which 400 may be sold.
    static boost::shared_ptr<CAccountData> stockAccount(double available)
    {
        sample::addAccount("acc1", BROKER_TYPE_STOCK, available, {sample::held("SH", "600000", 1000, 400)});
        return TraderCenter::instance()->getDataCenter()->getAccountData("acc1");
    }
    static long long available(const boost::shared_ptr<CAccountData> &data, const char *market, const char *code,
                               EOperationType operation, double price, long long limit = ICalculator::NO_VOLUME)
    {
        char side = '0';
        char offset = '0';
        return TraderCenter::instance()->getCalculator()->calcAvailableVolume(
            data, market, code, operation, HEDGE_FLAG_SPECULATION, side, offset, price, limit, 0);
    }
};

TEST_F(Calculator, BuyVolumeIsTheWholeLotsTheMoneyPaysFor)
{
    struct Row { const char *name; double money; const char *market; double price; long long volume, expected; };
    const Row rows[] = {{"roundsDownToTheLot", 10000.0, "SH", 10.5, 0, 900},
                        {"exactLots", 10000.0, "SH", 10.0, 0, 1000},
                        {"cappedByTheWantedVolume", 10000.0, "SH", 10.0, 300, 300},
                        {"wantedVolumeAboveWhatMoneyBuys", 1000.0, "SH", 10.0, 5000, 100},
                        {"lessThanOneLot", 999.0, "SH", 10.0, 0, 0},
                        {"noMoney", 0.0, "SH", 10.0, 0, 0},
                        {"futuresInSingleLots", 1000.0, "CFFEX", 300.0, 0, 3},
                        {"priceWithoutValue", 10000.0, "SH", NO_VALUE, 0, ICalculator::NO_VOLUME},
                        {"zeroPrice", 10000.0, "SH", 0.0, 0, ICalculator::NO_VOLUME}};
    const boost::shared_ptr<CAccountData> data = stockAccount(0.0);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        std::string error;
        const long long volume = TraderCenter::instance()->getCalculator()->calcBuyVolume(
            data, row.money, row.market, "600000", row.price, error, row.volume);
        EXPECT_EQ(volume, row.expected);
        EXPECT_EQ(error.empty(), volume != ICalculator::NO_VOLUME);
    }
}

TEST_F(Calculator, AvailableVolumeOfASellIsWhatCanBeSoldAndOfABuyWhatTheMoneyPaysFor)
{
    const boost::shared_ptr<CAccountData> data = stockAccount(5000.0);
    // A sell of the held stock, of another, held to 100; a buy, and one of no account.
    EXPECT_EQ(fields(available(data, "SH", "600000", OT_SELL, 10.0), available(data, "SH", "600036", OT_SELL, 10.0),
                     available(data, "SH", "600000", OT_SELL, 10.0, 100), available(data, "SH", "600000", OT_BUY, 10.0),
                     available(nullptr, "SH", "600000", OT_BUY, 10.0)),
              "400|0|100|500|0");
    // Without a line price the quote's price counts; without either nothing can be worked out.
    EXPECT_EQ(available(data, "SH", "600000", OT_BUY, NO_VALUE), 0);
    sample::setQuote("SH", "600000", 25.0);
    EXPECT_EQ(available(data, "SH", "600000", OT_BUY, NO_VALUE), 200);
}

// A contract held 3 long (2 closable) and 1 short, with money for 5 lots at the line's price.
TEST_F(Calculator, FuturesClosesReadTheSideTheyCloseAndOpensTheMoney)
{
    CPositionStatics shortSide = sample::held("CFFEX", "IF01", 1, 1);
    shortSide.m_direction = 49;
    sample::addAccount("f1", BROKER_TYPE_FUTURE, 5000.0, {sample::held("CFFEX", "IF01", 3, 2), shortSide});
    const auto data = TraderCenter::instance()->getDataCenter()->getAccountData("f1");
    const std::pair<EOperationType, long long> rows[] = {
        {OT_CLOSE_LONG, 2},      {OT_CLOSE_LONG_TODAY, 2}, {OT_CLOSE_LONG_YESTERDAY, 2}, {OT_CLOSE_SHORT, 1},
        {OT_CLOSE_SHORT_TODAY, 1}, {OT_CLOSE_SHORT_YESTERDAY, 1}, {OT_OPEN_LONG, 5},       {OT_OPEN_SHORT, 5}};
    for (const auto &row : rows)
        EXPECT_EQ(available(data, "CFFEX", "IF01", row.first, 1000.0), row.second) << row.first;
}

} // namespace
