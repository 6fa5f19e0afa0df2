// A trader executes a manager's instruction: the form loads its lines, sizes what is left by the
// order ratio, opens only the instruction's accounts and places the lines shown.
#include "COpBasketBuySellWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CAccountData.h"
#include "CExchangeRate.h"
#include "CGlobalOrderParamTable.h"
#include "IDataCenter.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CSimpleTextWidget.h"
#include "CTradeClient.h"
#include "LuaModuleCtrl.h"
#include "SampleMarket.h"
#include "Fields.h"
#include "SubstituteFixture.h"
#include "TraderCenter.h"

#include <boost/make_shared.hpp>

#include <QComboBox>

#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

struct CmdLine { const char *account; const char *code; int operation; int64_t volume; double traded; };

class InstructionForm : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(200);
        getUserConfig()->setUserId("trader");
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
        for (const char *code : {"600000", "600001", "600002"}) {
            sample::addInstrument("SH", code);
            sample::setQuote("SH", code, 10);
        }
        widget = std::make_unique<COperationBasketWidget>(nullptr);
        form = widget->paramsWidget();
        for (const char *key : {"a1", "a2"})
            addAccount(key, ttservice::BROKER_TYPE_STOCK);
    }

    // Every account holds 1000 of 600001, so that its sells are deliverable.
    void addAccount(const std::string &key, ttservice::EVQBrokerType broker)
    {
        sample::addAccount(key, broker, 1e9, {sample::held("SH", "600001", 1000, 1000)});
        form->refreshAccounts();
    }

    boost::shared_ptr<ttservice::COrderCommand> addCommand(const std::string &key, const std::vector<CmdLine> &lines)
    {
        boost::shared_ptr<ttservice::COrderCommand> command(new ttservice::COrderCommand);
        command->m_commandKey = key;
        command->m_holderIds = {"manager", "trader"};
        command->m_commandState = 0;
        command->m_basketName = "指令篮子";
        for (const CmdLine &l : lines)
            command->m_orders.push_back(lineOf(l));
        CTradeClient::instance()->addCommand(command);
        return command;
    }

    static CCodeOrderParam lineOf(const CmdLine &l)
    {
        CCodeOrderParam line;
        line.m_account = boost::make_shared<ttservice::CAccountInfo>();
        line.m_account->m_accountKey = l.account;
        line.m_stockInfo = ttservice::CStockInfo("SH", l.code);
        line.m_operationType = static_cast<ttservice::EOperationType>(l.operation);
        line.m_orderType = ttservice::ORDER_TYPE_INSTRUCTION;
        line.m_volume = l.volume;
        line.m_tradedVolume = l.traded;
        line.m_orderStatus = 5;
        return line;
    }

    std::vector<int64_t> volumes() const
    {
        std::vector<int64_t> v;
        for (const CCodeOrderParam &line : *form->getCodeOrderParams())
            v.push_back(line.m_volume);
        return v;
    }

    void setRatio(double percent)
    {
        form->cell(COpBasketParamsWidget::CellCmdRatio)->setDouble(percent);
        form->updateParamsByCmd(false);
    }

    void press() { widget->handleEvent(1046, 0, 0, QString(), nullptr); }

    std::unique_ptr<COperationBasketWidget> widget;
    COpBasketParamsWidget *form = nullptr;
};

} // namespace

TEST_F(InstructionForm, RatioSizesWhatIsLeft)
{
    // An empty list of volumes: the line is not listed.
    const struct { const char *name; int operation; int64_t volume; double traded, ratio; std::vector<int64_t> expected; }
        cases[] = {
            {"halfRoundsDownToLots", 18, 1500, 0, 50, {700}},
            {"tradedPartIsLeftOut", 18, 1600, 100, 50, {700}},
            {"floorIsOneLot", 18, 300, 0, 1, {100}},
            {"zeroRatioStillOneLot", 18, 1500, 0, 0, {100}},
            {"remainderBelowALotKeptAtZero", 18, 150, 100, 100, {0}},
            {"exactlyOneLotLeftIsSized", 18, 200, 100, 100, {100}},
            {"sellsGoByShares", 19, 1500, 0, 50, {750}},
            {"fullyTradedLeavesTheList", 18, 500, 500, 100, {}},
            {"unknownTradedCountsAsNone", 18, 400, ttservice::NO_VALUE, 100, {400}},
            {"unknownRemainderIsNoVolume", 18, 0x7fffffff, 0, 100, {0}},
        };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        addCommand(c.name, {{"a1", "600000", c.operation, c.volume, c.traded}});
        widget->setCommand(c.name);
        setRatio(c.ratio);
        EXPECT_EQ(volumes(), c.expected);
        for (const CCodeOrderParam &line : *form->getCodeOrderParams()) {
            EXPECT_EQ(line.m_tradedVolume, 0.0);
            EXPECT_EQ(line.m_orderStatus, 0);
        }
    }
}

// The trader's own volume lasts through a change of the ratio, but never above what is left.
TEST_F(InstructionForm, TradersVolumeKeptUpToWhatIsLeft)
{
    addCommand("edited", {{"a1", "600000", 18, 1500, 0}});
    widget->setCommand("edited");
    setRatio(50);
    ASSERT_EQ(volumes(), std::vector<int64_t>{700});
    for (const int64_t typed : {300, 5000}) {
        SCOPED_TRACE(typed);
        CCodeOrderParam line = form->getCodeOrderParams()->front();
        line.m_volume = typed;
        form->changeBascketData(&line);
        setRatio(40);
        EXPECT_EQ(volumes(), std::vector<int64_t>{std::min<int64_t>(typed, 1500)});
    }
}

TEST_F(InstructionForm, OnlyTheInstructionsTickedAccountsAreListedAndPlaced)
{
    addAccount("c1", ttservice::BROKER_TYPE_CREDIT); // not on the buy tab
    addAccount("a3", ttservice::BROKER_TYPE_STOCK);  // not in the instruction
    addCommand("cmd", {{"a1", "600000", 18, 1000, 0}, {"a2", "600000", 18, 1000, 0}, {"c1", "600001", 18, 1000, 0},
                       {"a2", "600001", 18, 1000, 0}})
        ->m_orders[3].m_orderType = ttservice::ORDER_TYPE_NORMAL;
    widget->setCommand("cmd");
    // The credit account's line is not on this tab, and a line of another order type is no
    // instruction line.
    ASSERT_EQ(volumes(), (std::vector<int64_t>{1000, 1000}));
    COpAccountsWidget *accounts = form->accountsWidget();
    EXPECT_EQ(accounts->getSelectedAccounts(), (QSet<QString>{QStringLiteral("a1"), QStringLiteral("a2")}));

    // An unticked account stays out through a recalculation and the placing.
    accounts->setSelectedAccount(QStringLiteral("a2"), false);
    form->handleEvent(1167, 8, 0, QString(), nullptr);
    ASSERT_EQ(volumes(), std::vector<int64_t>{1000});
    form->cell(COpBasketParamsWidget::CellCmdRatio)->setDouble(50);
    form->updateBasketConfirmData();
    ASSERT_EQ(volumes(), std::vector<int64_t>{500});
    EXPECT_EQ(form->getCodeOrderParams()->front().m_account->getKey(), "a1");
    press();
    const auto &tasks = CTradeClient::instance()->placedTasks();
    ASSERT_EQ(tasks.size(), 1u);
    ASSERT_EQ(tasks[0].m_orders.size(), 1u);
    EXPECT_EQ(tasks[0].m_orders[0].m_account->getKey(), "a1");
}

TEST_F(InstructionForm, InstructionNoLongerThisTradersLeavesTheOldList)
{
    boost::shared_ptr<ttservice::COrderCommand> command = addCommand("cmd", {{"a1", "600000", 18, 1000, 0}});
    widget->setCommand("cmd");
    ASSERT_EQ(volumes(), std::vector<int64_t>{1000});
    // A stored basket of the instruction's name must not take the instruction's place.
    sample::storeBasket(QStringLiteral("指令篮子"), {sample::row("SH", "600002", 0, 300)});
    const struct { const char *name; void (*apply)(ttservice::COrderCommand &); } changes[] = {
        {"handed on", [](ttservice::COrderCommand &c) { c.m_holderIds.push_back("other"); }},
        {"finished", [](ttservice::COrderCommand &c) { c.m_commandState = 3; }},
        {"no holders", [](ttservice::COrderCommand &c) { c.m_holderIds.clear(); }},
    };
    for (const auto &change : changes) {
        SCOPED_TRACE(change.name);
        const ttservice::COrderCommand saved = *command;
        change.apply(*command);
        form->cell(COpBasketParamsWidget::CellCmdRatio)->setDouble(50);
        EXPECT_FALSE(form->updateParamsByCmd(false));
        form->updateBasketConfirmData();
        EXPECT_EQ(volumes(), std::vector<int64_t>{1000});
        EXPECT_EQ(form->getCodeOrderParams()->front().m_stockInfo.m_stockCode, "600000");
        press();
        EXPECT_TRUE(CTradeClient::instance()->placedTasks().empty());
        EXPECT_TRUE(CTradeClient::instance()->placedCommands().empty());
        *command = saved;
        form->cell(COpBasketParamsWidget::CellCmdRatio)->setDouble(100);
    }
    // Partly executed (state 2) is still to be executed.
    command->m_commandState = 2;
    EXPECT_TRUE(form->updateParamsByCmd(false));
}

TEST_F(InstructionForm, BothSidesFillTheirOwnBlocks)
{
    boost::shared_ptr<ttservice::COrderCommand> command =
        addCommand("cmd", {{"a1", "600000", 18, 1000, 0}, {"a1", "600001", 19, 800, 0}});
    command->m_orders[0].m_priceType = static_cast<ttservice::EPriceType>(3);
    command->m_orders[1].m_priceType = static_cast<ttservice::EPriceType>(5);
    widget->setCommand("cmd");
    ASSERT_EQ(form->getTradeOpType(), TOT_ALL);
    COpBasketBuySellWidget *blocks = form->buySellWidget();
    EXPECT_EQ(blocks->getBuyParam()->getOrderType(), ttservice::ORDER_TYPE_INSTRUCTION);
    EXPECT_EQ(blocks->getBuyParam()->table()->priceType(), 3);
    EXPECT_EQ(blocks->getSellParam()->table()->priceType(), 5);
    EXPECT_EQ(volumes(), (std::vector<int64_t>{1000, 800}));
}

TEST_F(InstructionForm, BasketAndSizingStayLockedWhateverTheSwitchAndAnotherTabKeepsTheList)
{
    addCommand("cmd", {{"a1", "600000", 18, 1000, 0}});
    widget->setCommand("cmd");
    EXPECT_EQ(form->basketsCombo()->currentText(), QStringLiteral("指令篮子"));
    EXPECT_EQ(form->volumnCombobox()->currentIndex(), 0);
    WK::CParameterCell *ratio = form->cell(COpBasketParamsWidget::CellCmdRatio);
    for (bool enable : {true, false, true}) {
        widget->setEnableCmdOrder("cmd", enable);
        EXPECT_FALSE(form->basketsCombo()->isEnabled());
        EXPECT_FALSE(form->volumnCombobox()->isEnabled());
        EXPECT_EQ(ratio->isEnabled(), enable);
        EXPECT_EQ(form->buttonsBar()->isEnabled(), enable);
    }
    // Another tab keeps what the form showed; back on the instruction's tab, the lines come back.
    ASSERT_EQ(form->getTradeOpType(), TOT_BUY);
    form->setCurrentOperationType(TOT_SELL);
    EXPECT_FALSE(form->updateParamsByCmd(false));
    form->handleEvent(5, static_cast<int>(TOT_BUY), 0, QString(), nullptr);
    EXPECT_EQ(volumes(), std::vector<int64_t>{1000});
}

TEST_F(InstructionForm, SplitPartIsTheListEvenAfterARatioChange)
{
    addCommand("cmd", {{"a1", "600000", 18, 3000, 0}, {"a2", "600001", 18, 3000, 0}});
    boost::shared_ptr<ttservice::CSubCommandRecord> part(new ttservice::CSubCommandRecord);
    part->m_subCommandId = 9;
    part->m_status = ttservice::SUB_COMMAND_ORDER;
    part->m_userId = "trader";
    part->m_orders.push_back(lineOf({"a2", "600001", 18, 1000, 0}));
    widget->setSplitCommand("cmd", sSplitCmdInfo(false, nullptr, part));
    ASSERT_EQ(volumes(), std::vector<int64_t>{1000});
    setRatio(50);
    EXPECT_EQ(volumes(), std::vector<int64_t>{500});
    EXPECT_EQ(form->getCodeOrderParams()->front().m_account->getKey(), "a2");

    // A part meant for someone else loads nothing.
    part->m_userId = "other";
    EXPECT_FALSE(form->updateParamsBySubCmd(false, sSplitCmdInfo(false, nullptr, part)));
}

TEST_F(InstructionForm, MainSplitRecordTakesTheFirstPartWithLines)
{
    addCommand("cmd", {{"a1", "600000", 18, 3000, 0}});
    boost::shared_ptr<ttservice::CMainCommandSplitRecord> main(new ttservice::CMainCommandSplitRecord);
    auto item = [](std::vector<CmdLine> lines) {
        boost::shared_ptr<ttservice::CCommandSplitItem> it(new ttservice::CCommandSplitItem);
        it->m_status = ttservice::SUB_COMMAND_ORDER;
        boost::shared_ptr<ttservice::CSubCommandRecord> record(new ttservice::CSubCommandRecord);
        for (const CmdLine &l : lines)
            record->m_orders.push_back(lineOf(l));
        it->m_records.push_back(record);
        return it;
    };
    main->m_splitItems = {item({{"a1", "600000", 18, 3000, 0}}), item({}), item({{"a1", "600002", 18, 1200, 0}})};
    widget->setSplitCommand("cmd", sSplitCmdInfo(true, main, nullptr));
    ASSERT_EQ(form->getCodeOrderParams()->size(), 1u);
    EXPECT_EQ(form->getCodeOrderParams()->front().m_stockInfo.m_stockCode, "600002");
    EXPECT_EQ(widget->subCommandId(), 0);

    main->m_splitItems[2]->m_status = ttservice::SUB_COMMAND_NONE;
    EXPECT_FALSE(form->updateParamsBySubCmd(false, sSplitCmdInfo(true, main, nullptr)));
}

TEST_F(InstructionForm, PlacingSendsTheLinesShownAsTasks)
{
    addCommand("cmd", {{"a1", "600000", 18, 1500, 0}, {"a2", "600001", 18, 900, 300}});
    widget->setCommand("cmd");
    setRatio(50);
    ASSERT_EQ(widget->editWidget()->getOrderParams().size(), 2u);
    press();
    const auto &tasks = CTradeClient::instance()->placedTasks();
    ASSERT_EQ(tasks.size(), 1u);
    ASSERT_EQ(tasks[0].m_orders.size(), 2u);
    EXPECT_EQ(fields(tasks[0].m_command->m_commandKey, tasks[0].m_orders[0].m_volume, tasks[0].m_orders[1].m_volume,
                     CTradeClient::instance()->placedCommands().size()),
              "cmd|700|300|0");

    // The next sizing is of what is left after what was sent (800 and 300 at 50 %), so a second
    // press sends the rest of the way, not the same lines again.
    EXPECT_EQ(volumes(), (std::vector<int64_t>{400, 100}));
    press();
    ASSERT_EQ(tasks.size(), 2u);
    EXPECT_EQ(tasks[1].m_orders[0].m_volume, 400);
    // Fills of what was sent reported by the service do not count twice.
    CTradeClient::instance()->getCommandByKey("cmd")->m_orders[0].m_tradedVolume = 700;
    setRatio(100);
    EXPECT_EQ(volumes(), (std::vector<int64_t>{400, 200}));
}

// The rates a connect tab's money is worked out with: each side's rate with its float.
TEST_F(InstructionForm, ParitiesOfTheConnectTabsTakeTheirFloat)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_hgt"}, true);
    widget = std::make_unique<COperationBasketWidget>(nullptr);
    form = widget->paramsWidget();
    addAccount("h1", ttservice::BROKER_TYPE_HGT);
    auto rate = boost::make_shared<ttservice::CExchangeRate>();
    rate->m_buyRate = 0.9;
    rate->m_sellRate = 0.8;
    rate->m_buyFloat = 0.1;
    rate->m_sellFloat = -0.05;
    ttservice::TraderCenter::instance()->getDataCenter()->getAccountData("h1")->setData(
        ttservice::DATA_TYPE_EXCHANGE_RATE, rate);

    form->setCurrentOperationType(TOT_HGT);
    form->handleEvent(1167, 8, 0, QString(), nullptr);
    EXPECT_EQ(form->buttonsBar()->buyParityText()->text(), QStringLiteral("买入汇率:0.99000"));
    EXPECT_EQ(form->buttonsBar()->sellParityText()->text(), QStringLiteral("卖出汇率:0.76000"));
}
