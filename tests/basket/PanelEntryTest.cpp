#include "CBasketOperationPanel.h"
#include "COpBasketParamsWidget.h"
#include "COperationBasketWidget.h"

#include "CLogCapture.h"
#include "CLogCenter.h"
#include "COpAccountsWidget.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "Clock.h"
#include "SubstituteFixture.h"

#include <QLabel>

#include <QString>

#include <memory>

using namespace TC;

namespace {

std::unique_ptr<CBasketOperationPanel> makePanel(int role, int panelId = 7)
{
    getUserConfig()->setRole(role);
    return std::make_unique<CBasketOperationPanel>(panelId, nullptr);
}

ttservice::CAccountInfo account(const std::string &key)
{
    ttservice::CAccountInfo info;
    info.m_accountKey = key;
    info.m_accountId = key;
    info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    return info;
}

struct RoleCase
{
    const char *name;
    int role;
    bool hasContent;
};

class PanelRoles : public SubstituteTest, public ::testing::WithParamInterface<RoleCase>
{
};

} // namespace

TEST_P(PanelRoles, OnlyBasketRolesGetTheForm)
{
    const RoleCase &c = GetParam();
    auto panel = makePanel(c.role);
    EXPECT_EQ(panel->basketWidget() != nullptr, c.hasContent);
    EXPECT_EQ(panel->tradeType(), ttservice::VQ_TRADER_BASKET);
    // A panel without the form says why instead of staying an empty grey area.
    const QLabel *reason = panel->findChild<QLabel *>(QStringLiteral("no_rights_label"));
    EXPECT_EQ(reason != nullptr, !c.hasContent);
    if (reason) {
        EXPECT_TRUE(reason->text().contains(QStringLiteral("没有组合交易权限")));
    }
}

INSTANTIATE_TEST_SUITE_P(Roles, PanelRoles,
    ::testing::Values(RoleCase{"manager90", 90, true}, RoleCase{"manager91", 91, true},
                      RoleCase{"manager100", 100, true}, RoleCase{"manager101", 101, true},
                      RoleCase{"role80", 80, true}, RoleCase{"trader200", 200, true},
                      RoleCase{"instructionOnly400", 400, false}, RoleCase{"unknown0", 0, false},
                      RoleCase{"unknown300", 300, false}),
    [](const ::testing::TestParamInfo<RoleCase> &info) { return std::string(info.param.name); });

class PanelEntry : public SubstituteTest
{
};

TEST_F(PanelEntry, EmptyPanelIgnoresEveryCall)
{
    // Role 400 may receive instructions, but without content there is nothing to give them to.
    auto panel = makePanel(400);
    ttservice::COrderCommand command;
    command.m_commandKey = "cmd-1";
    CTradeClient::instance()->addCommand(boost::shared_ptr<ttservice::COrderCommand>(new ttservice::COrderCommand(command)));
    utils::CLogCapture log;

    panel->setParam(QStringLiteral("a|b|form/table/300/1/1/1"));
    panel->setCurrentOperationType(0x400);
    panel->setSingleCommand("cmd-1");
    panel->refreshAccounts();
    panel->requestAccount(account("a1"));
    panel->doSlotFillComposeLastBasket(QStringLiteral("x"));

    EXPECT_EQ(panel->param(), QString());
    EXPECT_TRUE(panel->commandKey().empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(PanelEntry, ThirdPieceOfTheClientTextReachesTheForm)
{
    auto panel = makePanel(90);
    // The form's piece is an older client's text that names the sell tab.
    panel->setParam(QStringLiteral("frame|dock|1024/T/400"));
    COpBasketParamsWidget *form = panel->basketWidget()->paramsWidget();
    EXPECT_EQ(form->getTradeOpType(), 0x400u);
    // The panel answers only its own piece: the frame pieces are the client's.
    const QStringList pieces = panel->param().split(QLatin1Char('/'));
    ASSERT_GE(pieces.size(), 3);
    EXPECT_EQ(pieces.at(0), form->param());
    EXPECT_EQ(pieces.at(2), QStringLiteral("400"));
}

TEST_F(PanelEntry, TextWithOneBarReachesTheFormWhole)
{
    auto panel = makePanel(90);
    CBasketSetting basket;
    basket.m_name = QStringLiteral("left|right");
    basket.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    getUserConfig()->baskets().insert(basket.m_name, basket);
    // Cut at the bar, neither half would be a text the form reads as one object.
    panel->setParam(QStringLiteral("{\"BS\":\"1024\",\"BBox\":\"left|right\"}"));
    COpBasketParamsWidget *form = panel->basketWidget()->paramsWidget();
    EXPECT_EQ(form->getTradeOpType(), 0x400u);
    EXPECT_EQ(form->currentBasketName(), QStringLiteral("left|right"));
}

TEST_F(PanelEntry, WordWithoutATabBitIsDropped)
{
    auto panel = makePanel(90);
    COpBasketParamsWidget *form = panel->basketWidget()->paramsWidget();
    panel->setCurrentOperationType(0x10);
    EXPECT_EQ(form->getTradeOpType(), 0x200u);
    panel->setCurrentOperationType(0x400);
    EXPECT_EQ(form->getTradeOpType(), 0x400u);
    panel->setCurrentOperationType(0x400 | 0x10);
    EXPECT_EQ(form->getTradeOpType(), 0x400u | 0x10u);
}

TEST_F(PanelEntry, AccountRefreshWritesItsTimingLine)
{
    getUserConfig()->addAccount(account("a1"));
    getUserConfig()->addAccount(account("a2"));
    auto panel = makePanel(91, 12);
    panel->setPanelGroup(3);
    utils::setClockMSec(1000.0);
    utils::CLogCapture log;

    panel->refreshAccounts();
    panel->requestAccount(account("a1"));

    const std::string address = utils::CLogCenter::addressText(panel.get());
    ASSERT_EQ(log.lines().size(), 2u);
    EXPECT_EQ(log.lines()[0], "[" + address + "] [TC::CBasketOperationPanel::refreshAccounts] "
                              "[PT] [panel_group|3] [panel|12] [trade_type|4], time = 0.00, account_num = 2.");
    EXPECT_EQ(log.lines()[1], "[" + address + "] [TC::CBasketOperationPanel::requestAccount] "
                              "[PT] [panel_group|3] [panel|12] [trade_type|4], time = 0.00.");
    EXPECT_EQ(log.sourceFiles()[0], "basket\\CBasketOperationPanel");
    EXPECT_EQ(log.levels()[0], 20000);
    utils::useSteadyClockMSec();
}

TEST_F(PanelEntry, AccountRefreshReloadsThePicker)
{
    auto panel = makePanel(90);
    COpAccountsWidget *accounts = panel->basketWidget()->paramsWidget()->accountsWidget();
    ASSERT_NE(accounts, nullptr);
    EXPECT_EQ(accounts->accountCount(), 0);
    getUserConfig()->addAccount(account("a1"));
    panel->requestAccount(account("a1"));
    EXPECT_EQ(accounts->accountCount(), 1);
    getUserConfig()->addAccount(account("a2"));
    panel->loadAccountGroupSettings();
    EXPECT_EQ(accounts->accountCount(), 2);
}

TEST_F(PanelEntry, DisabledLoggingWritesNothing)
{
    auto panel = makePanel(90);
    utils::CLogCenter::instance()->setLogEnabled(false);
    utils::CLogCapture log;
    panel->refreshAccounts();
    EXPECT_TRUE(log.lines().empty());
}
