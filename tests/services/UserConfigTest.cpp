#include "CTradeClient.h"
#include "CUserConfig.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteReset.h"
#include "TraderCenter.h"

#include <gtest/gtest.h>

#include <string>

using namespace ttservice;
using TC::CAccount;

namespace {

CAccountInfo info(const std::string &key, EVQBrokerType type)
{
    CAccountInfo a;
    a.m_accountKey = key;
    a.m_accountId = key + "-id";
    a.m_brokerType = type;
    return a;
}

std::vector<std::string> keysOf(const QVector<boost::shared_ptr<CAccount>> &accounts)
{
    std::vector<std::string> keys;
    for (const auto &account : accounts)
        keys.push_back(account->getKey());
    return keys;
}

class UserConfig : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TC::resetAllSubstitutes();
        config = TC::getUserConfig();
        config->addAccount(info("stock1", BROKER_TYPE_STOCK), {}, {}, {QStringLiteral("A")});
        config->addAccount(info("future1", BROKER_TYPE_FUTURE), {}, {}, {QStringLiteral("A"), QStringLiteral("B")});
        config->addAccount(info("credit1", BROKER_TYPE_CREDIT), {}, {}, {QStringLiteral("B")});
        config->addAccount(info("stock2", BROKER_TYPE_STOCK));
    }

    TC::CUserConfig *config = nullptr;
};

} // namespace

TEST_F(UserConfig, AccountIsFoundByKeyIsTheDataCentresAccountAndIsReplacedByItsKey)
{
    const boost::shared_ptr<CAccount> account = config->getAccountData(QStringLiteral("credit1"));
    ASSERT_TRUE(account);
    EXPECT_EQ(account->m_brokerType, BROKER_TYPE_CREDIT);
    EXPECT_FALSE(config->getAccountData(QStringLiteral("unknown")));
    EXPECT_EQ(config->getAccountCount(), 4);

    const boost::shared_ptr<CAccountData> data = account->getAccountData();
    ASSERT_TRUE(data);
    EXPECT_EQ(data->getAccountInfo().get(), account.get());
    EXPECT_EQ(TraderCenter::instance()->getDataCenter()->getAccountData("credit1"), data);

    // Adding an account again replaces it; removing it takes it from the data centre too.
    config->addAccount(info("stock1", BROKER_TYPE_HGT));
    EXPECT_EQ(config->getAccountCount(), 4);
    EXPECT_EQ(config->getAccountData(QStringLiteral("stock1"))->m_brokerType, BROKER_TYPE_HGT);
    config->removeAccount("stock1");
    EXPECT_FALSE(TraderCenter::instance()->getDataCenter()->getAccountData("stock1"));
}

TEST_F(UserConfig, GroupAccountsAreFilteredByBrokerTypesAndGroup)
{
    EXPECT_EQ(keysOf(config->getGroupAccountsMultiType({BROKER_TYPE_FUTURE, BROKER_TYPE_STOCK}, QString())),
              (std::vector<std::string>{"stock1", "future1", "stock2"}));
    EXPECT_EQ(keysOf(config->getGroupAccountsMultiType({BROKER_TYPE_FUTURE, BROKER_TYPE_STOCK}, QStringLiteral("A"))),
              (std::vector<std::string>{"stock1", "future1"}));
    EXPECT_EQ(keysOf(config->getGroupAccountsMultiType({BROKER_TYPE_CREDIT}, QStringLiteral("A"))),
              std::vector<std::string>());
    EXPECT_EQ(keysOf(config->getGroupAccountsMultiType({}, QStringLiteral("B"))),
              (std::vector<std::string>{"future1", "credit1"}));
}

TEST_F(UserConfig, PortfolioLookupsFollowTheTradeWord)
{
    CPortfolio portfolio;
    portfolio.m_portfolioKey = "p1";
    portfolio.m_portfolioName = "Growth";
    portfolio.m_tradeWords = 0x200;
    portfolio.m_accountKeys = {"stock1", "stock2"};
    config->addPortfolio(portfolio);
    CPortfolio everywhere;
    everywhere.m_portfolioKey = "p2";
    everywhere.m_portfolioName = "All";
    config->addPortfolio(everywhere);

    EXPECT_EQ(TC::getPortfolioAccounts(QStringLiteral("p1"), 0x200),
              (QSet<QString>{QStringLiteral("stock1"), QStringLiteral("stock2")}));
    EXPECT_TRUE(TC::getPortfolioAccounts(QStringLiteral("p1"), 0x400).isEmpty());

    const QMap<QString, QString> onSell = TC::getPortfolioNameMap(0x400);
    EXPECT_EQ(onSell.keys(), QStringList{QStringLiteral("p2")});
    EXPECT_EQ(TC::getPortfolioNameMap(0x200).value(QStringLiteral("p1")), QStringLiteral("Growth"));
}

TEST_F(UserConfig, DisplayIdIsTheBrokerIdOrTheKeyAndTypedVolumesKeepTheirUnit)
{
    EXPECT_EQ(TC::accountDisplayIDQs(*config->getAccountData(QStringLiteral("stock1"))), QStringLiteral("stock1-id"));
    CAccountInfo withoutId;
    withoutId.m_accountKey = "k";
    EXPECT_EQ(TC::accountDisplayIDQs(withoutId), QStringLiteral("k"));
    EXPECT_EQ(accountDisplayID(nullptr), "");
    EXPECT_TRUE(isLoginStatusReady(TC::CTradeClient::instance()->getLoginStatus("stock1")));
    EXPECT_FALSE(isLoginStatusReady(LOGIN_STATUS_FAILED));
    // The unit a typed volume is held to: the lot for a buy, one share for a sell.
    EXPECT_EQ(fields(config->getMinUnit("SH", "600000", true), config->getMinUnit("SH", "600000", false),
                     config->getMinUnit("CFFEX", "IF2401", true)),
              "100|1|1");
}
