#include "CBasketOperationPanel.h"
#include "COpBasketParamsWidget.h"
#include "COperationBasketWidget.h"

#include "CTradeClient.h"
#include "CUserConfig.h"
#include "SubstituteFixture.h"

#include <memory>
#include <utility>
#include <vector>

using namespace TC;

namespace {

using Line = std::pair<const char *, int>; // market, operation

boost::shared_ptr<ttservice::COrderCommand> addCommand(const std::string &key, const std::vector<Line> &lines,
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
    return command;
}

struct TabCase
{
    const char *name;
    std::vector<Line> lines;
    quint64 word;
};

class InstructionTab : public SubstituteTest, public ::testing::WithParamInterface<TabCase>
{
};

class InstructionEntry : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(200);
        panel = std::make_unique<CBasketOperationPanel>(1, nullptr);
    }

    COpBasketParamsWidget *form() const { return panel->basketWidget()->paramsWidget(); }

    std::unique_ptr<CBasketOperationPanel> panel;
};

} // namespace

TEST_P(InstructionTab, LinesDecideTheTab)
{
    const TabCase &c = GetParam();
    getUserConfig()->setRole(90);
    CBasketOperationPanel panel(1, nullptr);
    panel.setCurrentOperationType(0x400);
    addCommand("cmd", c.lines);
    panel.setSingleCommand("cmd");
    EXPECT_EQ(panel.basketWidget()->paramsWidget()->getTradeOpType(), c.word);
    EXPECT_EQ(panel.basketWidget()->paramsWidget()->commandKey(), "cmd");
}

INSTANTIATE_TEST_SUITE_P(Lines, InstructionTab,
    ::testing::Values(TabCase{"marketBeforeOperation", {{"HGT", 18}}, 0x80000},
                      TabCase{"shenzhenConnect", {{"SZSEHKEX", 19}}, 0x100000},
                      TabCase{"lastLineMarketCounts", {{"HGT", 18}, {"SH", 18}}, 0x200},
                      TabCase{"creditBeatsBuy", {{"SH", 18}, {"SH", 20}}, 0x2000},
                      TabCase{"bothSides", {{"SH", 18}, {"SZ", 19}}, 0x800},
                      TabCase{"sellOnly", {{"SZ", 19}}, 0x400},
                      TabCase{"noLinesKeepTheTab", {}, 0x400}),
    [](const ::testing::TestParamInfo<TabCase> &info) { return std::string(info.param.name); });

TEST_F(InstructionEntry, UnknownKeyIsNotKept)
{
    panel->setSingleCommand("nobody");
    EXPECT_TRUE(panel->commandKey().empty());
    EXPECT_TRUE(panel->basketWidget()->commandKey().empty());
}

TEST_F(InstructionEntry, OtherTraderTypeKeepsOnlyThePanelKey)
{
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

TEST_F(InstructionEntry, SubRecordGivesLinesAndId)
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
}

TEST_F(InstructionEntry, MainRecordWithOneItemStopsAtOnce)
{
    addCommand("split", {{"SH", 19}});
    boost::shared_ptr<ttservice::CMainCommandSplitRecord> main(new ttservice::CMainCommandSplitRecord);
    main->m_splitItems.push_back(boost::shared_ptr<ttservice::CCommandSplitItem>(new ttservice::CCommandSplitItem));
    panel->setSplitCommand("split", sSplitCmdInfo(true, main, nullptr));
    EXPECT_EQ(panel->basketWidget()->commandKey(), "split");
    EXPECT_EQ(form()->getTradeOpType(), 0x200u);
    EXPECT_TRUE(form()->commandKey().empty());
}

TEST_F(InstructionEntry, RoleWithoutFormStopsAllThreeCalls)
{
    getUserConfig()->setRole(400);
    CBasketOperationPanel viewer(1, nullptr);
    addCommand("cmd", {{"SH", 18}});
    viewer.setSingleCommand("cmd");
    viewer.setSplitCommand("cmd", sSplitCmdInfo(false, nullptr, nullptr));
    viewer.setEnableCmdOrder("cmd", false);
    // Role 400 may receive instructions but has no form to show them: nothing is kept.
    EXPECT_TRUE(viewer.commandKey().empty());
    EXPECT_TRUE(CTradeClient::instance()->placedTasks().empty());
}
