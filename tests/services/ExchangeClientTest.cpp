#include "CExchangeClient.h"
#include "Fields.h"
#include "SubstituteReset.h"
#include "TradeUnits.h"

#include <gtest/gtest.h>

using namespace ttservice;
using TC::CExchangeClient;

namespace {

CInstrumentDetail instrument(const char *market, const char *code, double tick, int unit)
{
    CInstrumentDetail d;
    d.m_market = market;
    d.m_stockCode = code;
    d.m_stockName = std::string("name of ") + code;
    d.m_priceTick = tick;
    d.m_tradeUnit = unit;
    return d;
}

class ExchangeClient : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TC::resetAllSubstitutes();
        CExchangeClient *client = CExchangeClient::instance();
        client->addInstrument(instrument("SH", "600000", 0.01, 100));
        client->addInstrument(instrument("SZ", "000001", 0.01, 100));
        client->addInstrument(instrument("SH", "000001", 0.01, 1));
        client->addInstrument(instrument("CFFEX", "IF2401", 0.2, 1));
        client->addInstrument(instrument("SH", "688001", 0.01, 200));
    }
};

} // namespace

TEST_F(ExchangeClient, FindsInstrumentsAndTheirTickByStockKeyMarketAndCodeOrCodeAlone)
{
    const CExchangeClient *client = CExchangeClient::instance();
    for (const char *key : {"600000.SH", "SH600000", "600000"})
        EXPECT_TRUE(client->hasCode(QString::fromLatin1(key))) << key;
    for (const char *key : {"600000.SZ", "SZ600000", ""})
        EXPECT_FALSE(client->hasCode(QString::fromLatin1(key))) << key;

    const auto detail = client->getCodeInfo(QStringLiteral("SZ000001"));
    ASSERT_TRUE(detail);
    EXPECT_EQ(detail->m_market, "SZ");
    EXPECT_FALSE(client->getCodeInfo(QStringLiteral("999999.SH")));

    EXPECT_EQ(fields(client->hasFuture(QStringLiteral("IF2401")), client->hasFuture(QStringLiteral("600000"))), "true|false");
    EXPECT_EQ(fields(client->getCodePriceTick(QStringLiteral("IF2401")), client->getCodePriceTick(QStringLiteral("600000.SH")),
                     client->getCodePriceTick(QStringLiteral("unknown"))),
              "0.2|0.01|0");
}

TEST_F(ExchangeClient, MarketByStockCodeIgnoresFuturesAndRemovedInstrumentsAndPrefersTheHint)
{
    const CExchangeClient *client = CExchangeClient::instance();
    EXPECT_EQ(fields(client->getMarketByStockCode("600000", ""), client->getMarketByStockCode("000001", ""),
                     client->getMarketByStockCode("000001", "SH"), client->getMarketByStockCode("IF2401", ""),
                     client->getMarketByStockCode("123456", "")),
              "SH|SZ|SH||");

    CExchangeClient::instance()->removeInstrument("SH", "000001");
    EXPECT_FALSE(client->hasCode(QStringLiteral("000001.SH")));
    EXPECT_EQ(client->getMarketByStockCode("000001", "SH"), "SZ") << "the hint of a removed instrument";
}

TEST_F(ExchangeClient, TradeUnitsComeFromTheInstrumentOrTheMarket)
{
    EXPECT_EQ(fields(getTradeMinUnit("SH", "688001"), getTradeMinUnit("SZ", "300750"), getTradeMinUnit("DCE", "m2405")), "200|100|1");
    EXPECT_EQ(fields(getUiMinUnit("SH", "688001", true), getUiMinUnit("SH", "688001", false), getStockTradeUnit("SH", "688001")),
              "200|1|200");
    CExchangeClient::instance()->addInstrument(instrument("SH", "900901", 0.001, 0));
    EXPECT_EQ(fields(getTradeMinUnit("SH", "900901"), getStockTradeUnit("SH", "900901")), "0|1");
}

TEST(FindInstruments, KeepsTheFirstCodesUpToTheLimit)
{
    TC::resetAllSubstitutes();
    CExchangeClient *client = CExchangeClient::instance();
    const auto add = [client](const char *market, const char *code, const char *name) {
        CInstrumentDetail d = instrument(market, code, 0.01, 100);
        d.m_stockName = name;
        client->addInstrument(d);
    };
    add("SZ", "000001", "Ping An Bank");
    add("SH", "600000", "Pudong Bank");
    add("SH", "000001", "Index");
    add("CFFEX", "IF2401", "Index Future");
    add("SH", "688001", "Tech");
    const auto keys = [](const std::vector<CInstrumentDetail> &found) {
        std::vector<std::string> k;
        for (const CInstrumentDetail &d : found)
            k.push_back(d.m_stockCode + "." + d.m_market);
        return k;
    };
    using Keys = std::vector<std::string>;

    // The smart keyboard's tests walk the matching rules; here the limit and letter case.
    EXPECT_EQ(keys(client->findInstruments(QStringLiteral("6"), 1)), (Keys{"600000.SH"}));
    EXPECT_TRUE(client->findInstruments(QStringLiteral("6"), 0).empty());
    EXPECT_EQ(keys(client->findInstruments(QStringLiteral("BANK"), 10)), (Keys{"000001.SZ", "600000.SH"}));
    EXPECT_EQ(keys(client->findInstruments(QStringLiteral("index"), 10, true)), (Keys{"000001.SH"}));

    // Codes a dot-joined key would put in the other order ("A-B.SH" < "A.SH").
    client->reset();
    add("SH", "A-B", "first");
    add("SH", "A", "second");
    EXPECT_EQ(keys(client->findInstruments(QStringLiteral("a"), 1)), (Keys{"A.SH"}));
}

TEST(Markets, FuturesAndStockExchangesByBothTheirNamesAndNothingElse)
{
    for (const char *market : {"DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "IF", "CFFEX", "INE"})
        EXPECT_TRUE(isFutureMarket(market)) << market;
    for (const char *market : {"SH", "SZ", "SSE", "SZSE", "", "cffex"})
        EXPECT_FALSE(isFutureMarket(market)) << market;
    for (const char *market : {"SH", "SZ", "SSE", "SZSE"})
        EXPECT_TRUE(isStockMarket(market)) << market;
    for (const char *market : {"HK", "sh", "", "CFFEX", "DCE", "SHHK"})
        EXPECT_FALSE(isStockMarket(market)) << market;
}
