#include "CBasketOperationPanel.h"
#include "COpBasketParamsWidget.h"
#include "COperationBasketWidget.h"

#include "CLogCapture.h"
#include "COpAccountsWidget.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "SubstituteFixture.h"

#include <boost/make_shared.hpp>

#include <QLabel>

#include <memory>
#include <utility>
#include <vector>

using namespace TC;

namespace {

ttservice::CAccountInfo account(const std::string &key)
{
    ttservice::CAccountInfo info;
    info.m_accountKey = key;
    info.m_accountId = key;
    info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    return info;
}

using Line = std::pair<const char *, int>; // market, operation

void addCommand(const std::string &key, const std::vector<Line> &lines,
                ttservice::EVqTraderType type = ttservice::VQ_TRADER_BASKET)
{
    boost::shared_ptr<ttservice::COrderCommand> command(new ttservice::COrderCommand);
    command->m_commandKey = key;
    command->m_traderType = type;
    for (const Line &l : lines) {
        ttservice::CCodeOrderParam line;
        line.m_stockInfo = ttservice::CStockInfo(l.first, "600000");
        line.m_operationType = static_cast<ttservice::EOperationType>(l.second);
        line.m_volume = 100;
        command->m_orders.push_back(line);
    }
    CTradeClient::instance()->addCommand(command);
}

class PanelEntry : public SubstituteTest
{
protected:
    CBasketOperationPanel *open(int role, int panelId = 1)
    {
        getUserConfig()->setRole(role);
        panel = std::make_unique<CBasketOperationPanel>(panelId, nullptr);
        return panel.get();
    }
    COpBasketParamsWidget *form() const { return panel->basketWidget()->paramsWidget(); }

    std::unique_ptr<CBasketOperationPanel> panel;
};

// A trader's panel, the one instructions reach.
class InstructionEntry : public PanelEntry
{
protected:
    void SetUp() override
    {
        PanelEntry::SetUp();
        open(200);
    }
};

} // namespace

TEST_F(PanelEntry, OnlyBasketRolesGetTheForm)
{
    const struct { int role; bool hasContent; } cases[] = {
        {90, true}, {91, true}, {100, true}, {101, true}, {80, true}, {200, true}, {400, false}, {0, false}, {300, false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.role);
        open(c.role);
        EXPECT_EQ(panel->basketWidget() != nullptr, c.hasContent);
        // A panel without the form says why instead of staying an empty grey area.
        EXPECT_EQ(panel->findChild<QLabel *>(QStringLiteral("no_rights_label")) != nullptr, !c.hasContent);
    }
}

TEST_F(PanelEntry, EmptyPanelIgnoresEveryCall)
{
    // Role 400 may receive instructions, but without content there is nothing to give them to.
    open(400);
    auto command = boost::make_shared<ttservice::COrderCommand>();
    command->m_commandKey = "cmd-1";
    CTradeClient::instance()->addCommand(command);
    utils::CLogCapture log;

    panel->setParam(QStringLiteral("a|b|form/table/300/1/1/1"));
    panel->setCurrentOperationType(0x400);
    panel->setSingleCommand("cmd-1");
    panel->setSplitCommand("cmd-1", sSplitCmdInfo(false, nullptr, nullptr));
    panel->setEnableCmdOrder("cmd-1", false);
    panel->refreshAccounts();
    panel->requestAccount(account("a1"));
    panel->doSlotFillComposeLastBasket(QStringLiteral("x"));

    EXPECT_EQ(panel->param(), QString());
    EXPECT_TRUE(panel->commandKey().empty());
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(CTradeClient::instance()->placedTasks().empty());
}

TEST_F(PanelEntry, ThirdPieceOfTheClientTextAndTheTabWordReachTheForm)
{
    open(90);
    // The form's piece is an older client's text that names the sell tab.
    panel->setParam(QStringLiteral("frame|dock|1024/T/400"));
    EXPECT_EQ(form()->getTradeOpType(), 0x400u);
    // The panel answers only its own piece: the frame pieces are the client's.
    const QStringList pieces = panel->param().split(QLatin1Char('/'));
    ASSERT_GE(pieces.size(), 3);
    EXPECT_EQ(pieces.at(0), form()->param());
    EXPECT_EQ(pieces.at(2), QStringLiteral("400"));

    // A text with one bar in it (a basket's name) is the form's whole: neither half would read.
    CBasketSetting basket;
    basket.m_name = QStringLiteral("left|right");
    getUserConfig()->baskets().insert(basket.m_name, basket);
    form()->setCurrentOperationType(0x200);
    panel->setParam(QStringLiteral("{\"BS\":\"1024\",\"BBox\":\"left|right\"}"));
    EXPECT_EQ(form()->getTradeOpType(), 0x400u);
    EXPECT_EQ(form()->currentBasketName(), QStringLiteral("left|right"));

    // A word without a tab bit is dropped: the form stays on its tab.
    form()->setCurrentOperationType(0x200);
    for (const quint64 word : {0x10u, 0x400u, 0x400u | 0x10u}) {
        panel->setCurrentOperationType(word);
        EXPECT_EQ(form()->getTradeOpType(), word == 0x10u ? 0x200u : word) << word;
    }
}

TEST_F(PanelEntry, AccountRefreshReloadsThePicker)
{
    open(91, 12);
    COpAccountsWidget *accounts = form()->accountsWidget();
    EXPECT_EQ(accounts->accountCount(), 0);
    getUserConfig()->addAccount(account("a1"));
    panel->requestAccount(account("a1"));
    EXPECT_EQ(accounts->accountCount(), 1);
    getUserConfig()->addAccount(account("a2"));
    panel->loadAccountGroupSettings();
    EXPECT_EQ(accounts->accountCount(), 2);
}

TEST_F(InstructionEntry, LinesDecideTheTab)
{
    const struct { const char *name; std::vector<Line> lines; quint64 word; } cases[] = {
        {"marketBeforeOperation", {{"HGT", 18}}, 0x80000},
        {"shenzhenConnect", {{"SZSEHKEX", 19}}, 0x100000},
        {"lastLineMarketCounts", {{"HGT", 18}, {"SH", 18}}, 0x200},
        {"creditBeatsBuy", {{"SH", 18}, {"SH", 20}}, 0x2000},
        {"bothSides", {{"SH", 18}, {"SZ", 19}}, 0x800},
        {"sellOnly", {{"SZ", 19}}, 0x400},
        {"noLinesKeepTheTab", {}, 0x400},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        open(90)->setCurrentOperationType(0x400);
        addCommand(c.name, c.lines);
        panel->setSingleCommand(c.name);
        EXPECT_EQ(form()->getTradeOpType(), c.word);
        EXPECT_EQ(form()->commandKey(), c.name);
    }
}

TEST_F(InstructionEntry, OnlyAKnownBasketInstructionReachesTheForm)
{
    panel->setSingleCommand("nobody");
    EXPECT_TRUE(panel->commandKey().empty());
    EXPECT_TRUE(panel->basketWidget()->commandKey().empty());

    // Another trader type keeps the panel's key only, for a later enable call to match.
    addCommand("algo", {{"SH", 19}}, ttservice::VQ_TRADER_NONE);
    panel->setSingleCommand("algo");
    EXPECT_EQ(panel->commandKey(), "algo");
    EXPECT_TRUE(panel->basketWidget()->commandKey().empty());
    EXPECT_EQ(form()->getTradeOpType(), 0x200u);
}

TEST_F(InstructionEntry, EnableOnlyForTheLastKey)
{
    addCommand("first", {{"SH", 18}});
    addCommand("second", {{"SH", 18}});
    panel->setSingleCommand("first");
    panel->setSingleCommand("second");
    panel->setEnableCmdOrder("first", false);
    EXPECT_TRUE(form()->isCommandEnabled());
    panel->setEnableCmdOrder("second", false);
    EXPECT_FALSE(form()->isCommandEnabled());
}

TEST_F(InstructionEntry, SplitRecordsGiveTheirLinesAndId)
{
    addCommand("split", {{"SH", 18}});
    boost::shared_ptr<ttservice::CSubCommandRecord> sub(new ttservice::CSubCommandRecord);
    sub->m_subCommandId = 17;
    sub->m_status = ttservice::SUB_COMMAND_ORDER;
    ttservice::CCodeOrderParam line;
    line.m_stockInfo = ttservice::CStockInfo("SH", "600000");
    line.m_operationType = ttservice::OT_SELL;
    sub->m_orders.push_back(line);

    panel->setSplitCommand("split", sSplitCmdInfo(false, nullptr, sub));
    EXPECT_EQ(panel->basketWidget()->subCommandId(), 17);
    // The sub-record's own lines decide the tab, not the instruction's.
    EXPECT_EQ(form()->getTradeOpType(), 0x400u);

    // A later plain instruction keeps the old sub-instruction id.
    addCommand("plain", {{"SH", 18}});
    panel->setSingleCommand("plain");
    EXPECT_EQ(panel->basketWidget()->subCommandId(), 17);

    // A main record with one empty item stops at once: no lines, no tab change.
    boost::shared_ptr<ttservice::CMainCommandSplitRecord> main(new ttservice::CMainCommandSplitRecord);
    main->m_splitItems.push_back(boost::shared_ptr<ttservice::CCommandSplitItem>(new ttservice::CCommandSplitItem));
    addCommand("main", {{"SH", 19}});
    panel->setSplitCommand("main", sSplitCmdInfo(true, main, nullptr));
    EXPECT_EQ(panel->basketWidget()->commandKey(), "main");
    EXPECT_EQ(form()->getTradeOpType(), 0x200u);
    EXPECT_NE(form()->commandKey(), "main");
}
