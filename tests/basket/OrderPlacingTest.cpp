#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "COpBasketStockParamsWidget.h"
#include "COperationBasketWidget.h"
#include "OrderSettling.h"

#include "CAlgorithmAuthorityConfig.h"
#include "CBasketHedgeManager.h"
#include "CBasketHedgeParam.h"
#include "CComboBox.h"
#include "CGlobalOrderParamTable.h"
#include "CCreatePortfolioKeyboard.h"
#include "CMessageBox.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CParameterCell.h"
#include "CTimeService.h"
#include "COrderCommand.h"
#include "CUserConfig.h"
#include "CTradeClient.h"
#include "LuaModuleCtrl.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <boost/make_shared.hpp>

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>

#include <functional>
#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;

Q_DECLARE_METATYPE(boost::shared_ptr<ttservice::COrderCommand>)

namespace {

CCodeOrderParam lineOf(int operation, const char *code)
{
    CCodeOrderParam line;
    line.m_operationType = static_cast<ttservice::EOperationType>(operation);
    line.m_stockInfo.m_market = "SH";
    line.m_stockInfo.m_stockCode = code;
    line.m_volume = 100;
    return line;
}

class OrderPlacing : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
        for (const char *code : {"600000", "600001", "600002"}) {
            sample::addInstrument("SH", code);
            sample::setBook("SH", code, 10, 10.01, 9.99);
        }
    }

    void makeWidget()
    {
        widget = std::make_unique<COperationBasketWidget>(nullptr);
        form = widget->paramsWidget();
    }

    void addAccount(const std::string &key, double available)
    {
        sample::addAccount(key, ttservice::BROKER_TYPE_STOCK, available);
        form->refreshAccounts();
        form->accountsWidget()->setSelectedAccount(QString::fromStdString(key), true);
    }

    // A basket of a buy of 100 and a sell of 200 a copy, chosen in the picker: the table shows it.
    void chooseBasket(int platform = 0)
    {
        sample::storeBasket(QStringLiteral("b"), {sample::row("SH", "600000", 1, 100),
                                                  sample::row("SH", "600001", 1, 200, ttservice::OT_SELL)});
        if (platform) {
            CBasketEntry entry;
            entry.m_tradePlatform = static_cast<ttservice::ETradePlatform>(platform);
            getUserConfig()->baskets()[QStringLiteral("b")].m_entries << entry;
        }
        form->updateBasketSetting();
        form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    }

    // A widget with an account of plenty of money and the basket on view.
    void ready(int platform = 0)
    {
        makeWidget();
        addAccount("a1", 1e9);
        chooseBasket(platform);
    }

    void onTab(quint64 word) { form->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr); }
    static void setAlgorithm(COpBasketStockParamsWidget *block, int orderType, const char *strategy)
    {
        ASSERT_TRUE(block->table()->setOrderType(orderType));
        block->table()->resetStrategyType(orderType, QString::fromLatin1(strategy));
    }

    void press(int value = 0) { widget->handleEvent(1046, 0, value, QString(), nullptr); }
    // The next press is no repeat of the last one.
    void pressLater(int value = 0)
    {
        getTimeService()->advance(61);
        press(value);
    }

    static QString messages() { return shownMessages(); }

    const std::vector<CPlaceCommandsCall> &placed() const { return CTradeClient::instance()->placedCommands(); }
    std::vector<CCodeOrderParam> &list() const { return *form->getCodeOrderParams(); }

    std::unique_ptr<COperationBasketWidget> widget;
    COpBasketParamsWidget *form = nullptr;
};

} // namespace

TEST_F(OrderPlacing, PlainOrderCarriesEveryArgumentAndARepeatIsAskedAbout)
{
    ready();
    ASSERT_EQ(widget->editWidget()->getOrderParams().size(), 2u);
    press();
    ASSERT_EQ(placed().size(), 1u) << messages().toStdString();
    const CPlaceCommandsCall &call = placed().front();
    ASSERT_EQ(call.m_orders.size(), 2u);
    // Trader, hedge, bar and stop loss; volumes; account, user and price; the two flags, the
    // portfolio and the callback; command, parameter and basket texts; platform, limited price
    // (1: the bar's box that lets traders change parameters starts ticked), strategy, extra
    // number and ETF hedge; the value map, hedge and extra documents empty.
    EXPECT_EQ(fields(call.m_traderType, call.m_hedgeType, call.m_specBtnBarType, call.m_stopLossType), "4|1|0|0");
    EXPECT_EQ(fields(call.m_orders[0].m_volume, call.m_orders[1].m_volume), "100|200");
    EXPECT_EQ(fields(call.m_orders[0].m_account->getKey(), call.m_orders[0].m_userId, call.m_orders[0].m_price), "a1|u1|10.01");
    EXPECT_EQ(fields(call.m_firstFlag, call.m_secondFlag, call.m_createPortfolio, !call.m_resultCallback.empty()),
              "false|true|false|false");
    EXPECT_EQ(fields(call.m_commandText, call.m_paramString, call.m_basketName), "||b");
    EXPECT_EQ(fields(call.m_tradePlatform, call.m_limitedPriceType, call.m_strategyType, call.m_extraInt, call.m_etfHedgeStatus),
              "0|1|-1|-1|-1");
    EXPECT_EQ(fields(call.m_valueMap.empty(), call.m_hedgeBson.isEmpty(), call.m_extraBson.isEmpty()), "true|true|true");

    // The same lines pressed again within a minute are asked about first; a no sends nothing, a
    // yes sends them, and after a minute nobody is asked.
    WK::CMessageBox::clearRecords();
    press();
    EXPECT_EQ(placed().size(), 1u);
    ASSERT_EQ(WK::CMessageBox::records().size(), 1);
    WK::CMessageBox::setScriptedAnswer(QMessageBox::Yes);
    press();
    ASSERT_EQ(placed().size(), 2u);
    EXPECT_EQ(placed()[1].m_orders.size(), 2u);
    WK::CMessageBox::clearScriptedAnswer();
    form->buttonsBar()->setCommandChange(false);
    pressLater();
    ASSERT_EQ(placed().size(), 3u);
    EXPECT_EQ(WK::CMessageBox::records().size(), 2);
    EXPECT_EQ(placed()[2].m_limitedPriceType, 0) << "the box unticked, traders may not change parameters";

    // The same lines for another account are a new order, not a repeat.
    addAccount("a2", 1e9);
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), false);
    form->updateBasketConfirmData();
    press();
    ASSERT_EQ(placed().size(), 4u);
    EXPECT_EQ(placed()[3].m_orders[0].m_account->getKey(), "a2");
    EXPECT_EQ(WK::CMessageBox::records().size(), 2);
}

TEST(OrderSettling, PricesGoToTheNearestTickAsTheTickIsWritten)
{
    const struct { double price, tick, expected; } cases[] = {
        {8.459999999999999, 0.01, 8.46}, {4.319999999999999, 0.01, 4.32}, {3001.13, 0.2, 3001.2},
        {3001.29, 0.2, 3001.2}, {12.3449, 0.005, 12.345}, {5.123, 0.0, 5.123},
        {ttservice::NO_VALUE, 0.01, ttservice::NO_VALUE},
    };
    for (const auto &c : cases)
        EXPECT_EQ(roundToTick(c.price, c.tick), c.expected) << c.price << " on " << c.tick;
}

TEST_F(OrderPlacing, NoLineOfNothingAndNoPriceOffItsTickLeaves)
{
    ready();
    ASSERT_EQ(list().size(), 2u);
    list()[0].m_price = 10.009999999999999;
    list()[1].m_volume = 0;
    press();
    ASSERT_EQ(placed().size(), 1u);
    ASSERT_EQ(placed()[0].m_orders.size(), 1u);
    EXPECT_EQ(placed()[0].m_orders[0].m_price, 10.01);
    EXPECT_EQ(list().size(), 2u) << "the line of 0 stays on screen";

    list()[0].m_volume = 0;
    pressLater();
    EXPECT_EQ(placed().size(), 1u);
    EXPECT_TRUE(messages().contains(QStringLiteral("数量均为0")));
}

// Each refusal names its reason, and nothing leaves.
TEST_F(OrderPlacing, RefusalsSayWhyAndSendNothing)
{
    // whole: the messages are exactly these; else they name this among others.
    const struct { const char *name; std::function<void()> setUp; int value; const char *says; bool whole; } cases[] = {
        {"noAccount", [this] { makeWidget(); }, 0, "您没有选择任何账号!|您没有选择任何账号!", true},
        // Together the accounts could pay; one of them can pay each of its lines (100 of each
        // stock at 10) but not both, and it alone is named.
        {"oneAccountShort", [this] { makeWidget(); addAccount("poor", 1500); addAccount("rich", 1e9); chooseBasket(); }, 0,
         "poor 需", false},
        {"valueMinusOneEvenWithMoney", [this] { ready(); }, -1, "可用资金不足!", true},
        // A row that sizes to no line at all, its account being another one: refused before the money check.
        {"emptyTable", [this] {
             makeWidget();
             addAccount("a1", 0);
             CBasketStockData elsewhere = sample::row("SH", "600000", 0, 100);
             elsewhere.m_accountKey = "elsewhere";
             sample::storeBasket(QStringLiteral("b"), {elsewhere});
             form->updateBasketSetting();
             form->basketsCombo()->setBasket(QStringLiteral("b"), false);
         }, 0, "您选择的篮子不包含任何股票!", true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        c.setUp();
        press(c.value);
        EXPECT_TRUE(placed().empty());
        if (c.whole) {
            EXPECT_EQ(messages(), QString::fromUtf8(c.says));
        }
        EXPECT_TRUE(messages().contains(QString::fromUtf8(c.says))) << messages().toStdString();
        EXPECT_FALSE(messages().contains(QStringLiteral("rich 需")));
        if (c.value == -1) {
            EXPECT_TRUE(getMsgService()->shownMessages().back().m_playSound) << "this refusal always sounds";
        }
    }
}

TEST_F(OrderPlacing, MoneyShortForTheWholeListEmptiesItsVolumes)
{
    makeWidget();
    addAccount("a1", 2500);
    chooseBasket();
    press();
    // Each line alone fits the 2500 of money (the table cuts a line to what the account can
    // buy), but the two together cost 3000: the list comes back with no volumes.
    EXPECT_EQ(messages(), QStringLiteral("可用资金不足!"));
    EXPECT_TRUE(placed().empty());
    for (const CCodeOrderParam &line : list())
        EXPECT_EQ(line.m_volume, 0);
    EXPECT_EQ(form->cell(COpBasketParamsWidget::CellCopies)->toInt(), 0);
}

TEST_F(OrderPlacing, TouchLinesOfTheOneKeyTabMustShareTheirWork)
{
    makeWidget();
    form->setCurrentOperationType(TOT_ALL);
    addAccount("a1", 1e9);
    chooseBasket();
    ASSERT_EQ(list().size(), 2u);
    list()[0].m_touchType = 1;
    list()[0].m_orderInterval = 1.0;
    list()[1].m_orderInterval = 1.5;

    form->entrustCombo()->setCurrentIndex(0);
    press();
    EXPECT_EQ(messages(), QStringLiteral("一键买卖进行全部触价委托时,请统一算法类型,下单间隔,撤单间隔!"));
    EXPECT_TRUE(placed().empty());

    form->entrustCombo()->setCurrentIndex(1);
    press();
    EXPECT_EQ(placed().size(), 1u) << "each line touches off on its own";
}

TEST_F(OrderPlacing, PlatformSixRemapsOrderTypesWhileEachLineTouchesAlone)
{
    ready(6);
    ASSERT_EQ(list().size(), 2u);
    list()[1].m_orderType = ttservice::EOrderType(13);

    form->entrustCombo()->setCurrentIndex(0);
    press();
    form->entrustCombo()->setCurrentIndex(1);
    pressLater();
    ASSERT_EQ(placed().size(), 2u);
    ASSERT_EQ(placed()[0].m_orders.size(), 2u);
    ASSERT_EQ(placed()[1].m_orders.size(), 2u);
    // The platform, the order types of both presses, and the form's own list, which is not touched.
    EXPECT_EQ(fields(placed()[0].m_tradePlatform, placed()[0].m_orders[0].m_orderType, placed()[1].m_orders[0].m_orderType,
                     placed()[1].m_orders[1].m_orderType, list()[0].m_orderType),
              "6|0|6|13|0");
}

TEST_F(OrderPlacing, PortfolioFromTheToolbarKeyboardUnlessConnectAccounts)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_portfolio"}, true);
    getUserConfig()->setHasPortfolio(true);
    ready();
    WK::CCreatePortfolioKeyboard *keyboard = widget->replaceToolBar()->portfolioKeyboard();
    ASSERT_NE(keyboard, nullptr);
    press();
    ASSERT_EQ(placed().size(), 1u);
    EXPECT_FALSE(placed()[0].m_createPortfolio) << "with a toolbar only its keyboard counts";

    keyboard->setCheckAndEnable(true, true);
    pressLater();
    ASSERT_EQ(placed().size(), 2u);
    EXPECT_TRUE(placed()[1].m_createPortfolio);
    EXPECT_EQ(placed()[1].m_orders[0].m_portfolioName, widget->replaceToolBar()->getPortfolioName());

    // The table shows the list again (as after any new sizing) with a connect account first.
    auto connect = boost::make_shared<ttservice::CAccountInfo>(*list()[0].m_account);
    connect->m_brokerType = ttservice::BROKER_TYPE_HGT;
    list()[0].m_account = connect;
    widget->handleEvent(1070, static_cast<int>(TOT_BUY), 0, QStringLiteral("b"), nullptr);
    pressLater();
    ASSERT_EQ(placed().size(), 3u);
    EXPECT_FALSE(placed()[2].m_createPortfolio);
}

TEST_F(OrderPlacing, HedgedBasketCarriesTheHedgeAsBson)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_hedge"}, true);
    getUserConfig()->setUserAuth(1, true);
    sample::addInstrument("CFFEX", "IF2412");
    ready();
    COpBasketFutureParamsWidget *hedge = form->hedgeWidget();
    hedge->setHedgeContractCode(QStringLiteral("IF2412"));
    hedge->setAutoHedge(true);
    widget->show();
    ASSERT_TRUE(form->autoHedge());
    press();
    ASSERT_EQ(placed().size(), 1u) << messages().toStdString();
    EXPECT_EQ(placed()[0].m_hedgeType, 2);
    ttservice::CBasketHedgeParam sent;
    sent.bsonValueFromObj(placed()[0].m_hedgeBson, true, nullptr);
    EXPECT_TRUE(sent.m_enabled);
    EXPECT_EQ(sent.m_hedgeType, hedge->hedgeType());

    // As an algorithm order the basket stays hedged and carries the algorithm's parameters.
    COpBasketStockParamsWidget *block = form->stockParams();
    ASSERT_TRUE(block->table()->setOrderType(13));
    block->table()->resetStrategyType(13, QStringLiteral("TWAP"));
    pressLater();
    ASSERT_EQ(placed().size(), 2u) << messages().toStdString();
    EXPECT_EQ(placed()[1].m_hedgeType, 2);
    EXPECT_EQ(placed()[1].m_paramString, block->table()->getAlgParamsStr(placed()[1].m_orders));
    sent.bsonValueFromObj(placed()[1].m_hedgeBson, true, nullptr);
    EXPECT_TRUE(sent.m_enabled);
}

TEST_F(OrderPlacing, TraderWithoutAKnownInstructionPlacesNothing)
{
    getUserConfig()->setRole(200);
    makeWidget();
    addAccount("a1", 1e9);
    form->setEnableForCommand(true);
    chooseBasket();
    widget->doOperation();
    EXPECT_TRUE(placed().empty());
    EXPECT_TRUE(CTradeClient::instance()->placedTasks().empty());
}

TEST_F(OrderPlacing, ShortcutsFirstSwitchTheTab)
{
    makeWidget();
    addAccount("a1", 1e9);
    for (const auto &step : {std::make_pair(401, TOT_SELL), std::make_pair(402, TOT_SELL), std::make_pair(400, TOT_BUY)}) {
        widget->doShortCutOrder(step.first, nullptr);
        EXPECT_EQ(form->getTradeOpType(), static_cast<quint64>(step.second)) << step.first;
    }
    EXPECT_TRUE(placed().empty());
    EXPECT_TRUE(messages().isEmpty());
}

TEST_F(OrderPlacing, PastedRowsBecomeTheListAndCanBePlaced)
{
    makeWidget();
    addAccount("a1", 1e9);
    QApplication::clipboard()->setText(QStringLiteral("600000\t\t300\n600001\t\t500\t1\t0"));
    widget->handlePaste();
    EXPECT_EQ(form->basketsCombo()->batchOp(), ETempBatchOrderFlags(BATCH_CLIPBOARD));
    const std::vector<CCodeOrderParam> shown = widget->editWidget()->getOrderParams();
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].m_volume, 300);
    EXPECT_EQ(shown[1].m_volume, 500);
    press();
    ASSERT_EQ(placed().size(), 1u) << messages().toStdString();
    EXPECT_EQ(placed()[0].m_orders.size(), 2u);
}

namespace {

// --- algorithm orders ---

TEST_F(OrderPlacing, oneKeyTabChecksBothSides)
{
    const QString a = QStringLiteral("一键买卖,换仓策略仅支持同买同卖操作");
    const QString b = QStringLiteral("仅支持买入卖出,相同三方算法下单");
    const QString c = QStringLiteral("一键买卖,买卖双方均需设置换仓策略，否则两边进度不能有效控制");
    // Lines of each side, each side's order type and strategy, the authority's answer, the result
    // and the message shown (empty: none).
    const struct { const char *name; int buyLines, sellLines, buyOrderType; const char *buyStrategy; int sellOrderType;
                   const char *sellStrategy; bool authority; int result; QString message; } cases[] = {
        {"plainTablesArePlain", 1, 1, 0, "", 0, "", true, 0, {}},
        {"emptyListSellSwitchA", 0, 0, 0, "", 13, "SWITCH", true, -1, a},
        {"onlyBuyLinesSwitchA", 1, 0, 13, "SWITCH", 0, "", true, -1, a},
        {"onlySellLinesOverPlainSellTable", 0, 1, 13, "TWAP", 0, "", true, 0, {}},
        {"onlySellLinesAlgorithm", 0, 1, 0, "", 14, "VWAPPLUS", true, 1, {}},
        {"differentOrderTypesB", 1, 1, 13, "VWAP", 14, "VWAPPLUS", true, -1, b},
        {"sameStrategyPasses", 1, 1, 13, "VWAP", 13, "VWAP", true, 1, {}},
        {"bothSwitchPasses", 1, 1, 13, "SWITCH", 13, "SWITCH", true, 1, {}},
        {"buySwitchSellOtherC", 1, 1, 13, "SWITCH", 13, "VWAP", true, -1, c},
        {"sellSwitchBuyOtherC", 1, 1, 13, "TWAP", 13, "SWITCH", true, -1, c},
        {"twoOtherStrategiesPass", 1, 1, 13, "TWAP", 13, "VWAP", true, 1, {}},
        {"authorityRefusesSilently", 1, 1, 13, "VWAP", 13, "VWAP", false, -1, {}},
    };
    makeWidget();
    onTab(TOT_ALL);
    for (const auto &row : cases) {
        SCOPED_TRACE(row.name);
        getMsgService()->reset();
        setAlgorithm(form->buySellWidget()->getBuyParam(), row.buyOrderType, row.buyStrategy);
        setAlgorithm(form->buySellWidget()->getSellParam(), row.sellOrderType, row.sellStrategy);
        CAlgorithmAuthorityConfig::instance().setAuthorityResult(row.authority);

        std::vector<CCodeOrderParam> orders;
        for (int i = 0; i < row.buyLines; ++i)
            orders.push_back(lineOf(18, "600000"));
        for (int i = 0; i < row.sellLines; ++i)
            orders.push_back(lineOf(19, "600001"));
        std::string paramString = "stale";
        ttservice::ETradePlatform platform = ttservice::TRADE_PLATFORM_NONE;
        EXPECT_EQ(widget->fillAlgoParam(orders, paramString, platform), row.result);
        EXPECT_EQ(messages(), row.message);
        // Both outside algorithms run on platform 3; a plain answer leaves the platform alone.
        EXPECT_EQ(platform, row.result == 1 ? 3 : 0);
        if (row.buyLines + row.sellLines == 2 && form->getAlgorithmTable()) {
            EXPECT_EQ(QString::fromStdString(paramString).split(QLatin1Char('@')).size(), 2) << paramString;
        }
    }
}

// --- the rest of a hedged instruction ---

TEST_F(OrderPlacing, hedgedInstructionPlacesWhatIsNotTradedYet)
{
    makeWidget();
    auto command = boost::make_shared<ttservice::COrderCommand>();
    ttservice::CBasketHedgeParam hedge;
    hedge.m_enabled = true;
    hedge.m_hedgeType = 1;
    hedge.m_contractCode = "IF2401";
    bson::BSONObjBuilder builder;
    hedge.appendElements(builder);
    command->m_hedgeBson = builder.obj();
    // A stock line 1000 with 299.6 traded, the same with 250, a futures line 7 with 2.4, and a
    // stock line of unknown fills.
    for (const double traded : {299.6, 250.0, 2.4, ttservice::NO_VALUE}) {
        const bool futures = traded == 2.4;
        CCodeOrderParam line = lineOf(futures ? 0 : 18, futures ? "IF2401" : "600000");
        if (futures)
            line.m_stockInfo.m_market = "CFFEX";
        line.m_account = boost::make_shared<ttservice::CAccountInfo>();
        line.m_account->m_accountKey = futures ? "f1" : "s1";
        line.m_account->m_brokerType = futures ? ttservice::BROKER_TYPE_FUTURE : ttservice::BROKER_TYPE_STOCK;
        line.m_volume = futures ? 7 : 1000;
        line.m_tradedVolume = traded;
        command->m_orders.push_back(line);
    }

    // The hedge service reaches the slot by name only.
    ASSERT_TRUE(QMetaObject::invokeMethod(widget.get(), "slotPlaceAutoHedgeTaskForCommand",
                                          Q_ARG(boost::shared_ptr<ttservice::COrderCommand>, command)));

    const auto &tasks = CTradeClient::instance()->placedTasks();
    ASSERT_EQ(tasks.size(), 1u);
    const CPlaceTasksCall &call = tasks.front();
    EXPECT_EQ(call.m_traderType, 4);
    EXPECT_EQ(call.m_hedgeType, 1);
    EXPECT_EQ(call.m_command, command);
    // 750 rounds down to whole units; a futures remainder is not rounded.
    std::vector<std::string> sent;
    for (const CCodeOrderParam &line : call.m_orders)
        sent.push_back(fields(line.m_volume, line.m_tradedVolume));
    EXPECT_EQ(sent, (std::vector<std::string>{"700|0", "700|0", "5|0", "1000|0"}));

    ASSERT_TRUE(call.m_callback);
    QSignalSpy spy(widget.get(), &COperationBasketWidget::sigHedgeParam);
    auto tag = boost::make_shared<ttservice::CVqOrderTag>();
    tag->m_orderTagKey = "k";
    tag->m_orderTagName = "n";
    tag->m_orderTagSeq = 3;
    call.m_callback({}, tag);
    call.m_callback({}, nullptr);
    const auto &saved = CBasketHedgeManager::instance()->savedHedgeParams();
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(saved[0].m_key, "k____n____3");
    EXPECT_EQ(saved[0].m_param.m_contractCode, "IF2401");
    EXPECT_EQ(spy.count(), 1);

    // An instruction without a hedge (the empty document) leaves at once.
    command->m_hedgeBson = bson::BSONObj();
    widget->slotPlaceAutoHedgeTaskForCommand(command);
    widget->slotPlaceAutoHedgeTaskForCommand(nullptr);
    EXPECT_EQ(tasks.size(), 1u);
}

// --- what each tab sends ---

// Each tab's blocks are set to something of their own; the order that leaves must carry it.
// sent: the operations of the first line (a buy row) and the second (a sell row), their price
// types, the first line's order type and the platform; paramText: expected in the algorithm
// string, empty for none sent.
struct TabOrder { const char *name; quint64 tab; ttservice::EVQBrokerType broker;
                  std::function<void(COpBasketParamsWidget *)> setBlocks; const char *sent; const char *paramText; };

COpBasketStockParamsWidget *single(COpBasketParamsWidget *form)
{
    switch (form->getTradeOpType()) {
    case TOT_CREDIT: return form->crdWidget()->getParamWidget();
    case TOT_FUTURE: return form->ftrWidget()->getParamWidget();
    default: return form->stockParams();
    }
}

void setTable(COpBasketStockParamsWidget *block, int priceType, int orderType, const char *strategy = "")
{
    block->table()->setPriceType(priceType);
    block->table()->setOrderType(orderType);
    block->table()->resetStrategyType(orderType, QString::fromLatin1(strategy));
}

class TabOrders : public OrderPlacing, public ::testing::WithParamInterface<TabOrder>
{
protected:
    void SetUp() override
    {
        OrderPlacing::SetUp();
        luawrapper::LuaModuleCtrl::instance()->setModules(
            {"mdl_order_compose_credits", "mdl_order_compose_futures", "mdl_order_compose_one_key_futures"}, true);
    }
};

TEST_P(TabOrders, placedOrderCarriesTheTabsOperationPriceAndAlgorithm)
{
    const TabOrder &c = GetParam();
    const bool futures = c.broker == ttservice::BROKER_TYPE_FUTURE;
    const char *market = futures ? "CFFEX" : "SH";
    const char *codes[] = {futures ? "IF2401" : "600000", futures ? "IH2401" : "600001"};
    // Holdings of both instruments on both sides, so that every sell and close has a volume: a
    // line of 0 would never leave.
    std::vector<ttservice::CPositionStatics> held;
    QList<CBasketStockData> rows;
    for (const char *code : codes) {
        sample::addInstrument(market, code, futures ? 300 : 0x7fffffff, std::string(), futures ? 1 : 100);
        sample::setBook(market, code, 10, 10.01, 9.99, 11, 9);
        for (int direction : {48, 49}) {
            held.push_back(sample::held(market, code, 1000, 1000));
            held.back().m_direction = direction;
            held.back().m_availableVolume = 1000;
        }
        rows << sample::row(market, code, 1, futures ? 2 : 100, rows.isEmpty() ? ttservice::OT_BUY : ttservice::OT_SELL);
    }
    sample::addAccount("a1", c.broker, 1e8, held);
    sample::storeBasket(QStringLiteral("b"), rows, futures ? ttservice::BROKER_TYPE_FUTURE : ttservice::BROKER_TYPE_STOCK);

    makeWidget();
    onTab(c.tab);
    ASSERT_EQ(form->getTradeOpType(), c.tab);
    c.setBlocks(form);
    form->refreshAccounts();
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
    form->updateBasketSetting();
    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    ASSERT_EQ(widget->editWidget()->getOrderParams().size(), 2u);

    press();
    ASSERT_EQ(placed().size(), 1u) << messages().toStdString();
    const auto &call = placed().front();
    ASSERT_EQ(call.m_orders.size(), 2u);
    EXPECT_EQ(fields(call.m_orders[0].m_operationType, call.m_orders[1].m_operationType, call.m_orders[0].m_priceType,
                     call.m_orders[1].m_priceType, call.m_orders[0].m_orderType, call.m_tradePlatform),
              c.sent);
    if (*c.paramText) {
        EXPECT_NE(call.m_paramString.find(c.paramText), std::string::npos) << call.m_paramString;
    } else {
        EXPECT_EQ(call.m_paramString, "");
    }
    EXPECT_FALSE(call.m_commandLog.empty());
}

const TabOrder kTabOrders[] = {
    {"buyWithOwnTwap", TOT_BUY, ttservice::BROKER_TYPE_STOCK,
     [](COpBasketParamsWidget *f) { setTable(single(f), 2, 4); }, "18|18|2|2|4|0", ""},
    {"sellOutsideAlgorithm", TOT_SELL, ttservice::BROKER_TYPE_STOCK,
     [](COpBasketParamsWidget *f) { setTable(single(f), 1, 13, "VWAP"); }, "19|19|1|1|13|3", "algo=VQALGO;code=600000.SH"},
    {"oneKeyBothSidesSwitch", TOT_ALL, ttservice::BROKER_TYPE_STOCK,
     [](COpBasketParamsWidget *f) {
         setTable(f->buySellWidget()->getBuyParam(), 2, 13, "SWITCH");
         setTable(f->buySellWidget()->getSellParam(), 1, 13, "SWITCH");
     },
     "18|19|2|1|13|3", "strategy=SWITCH"},
    {"creditMarginBuyFixedSide", TOT_CREDIT, ttservice::BROKER_TYPE_CREDIT,
     [](COpBasketParamsWidget *f) { setTable(single(f), 3, 0); }, "20|20|3|3|0|0", ""},
    {"futuresOpenLong", TOT_FUTURE, ttservice::BROKER_TYPE_FUTURE,
     [](COpBasketParamsWidget *f) { setTable(single(f), 2, 0); }, "0|0|2|2|0|0", ""},
    {"oneKeyFuturesPerSide", TOT_ONEKEY_FUTURE, ttservice::BROKER_TYPE_FUTURE,
     [](COpBasketParamsWidget *f) {
         setTable(f->ftrOneKeyWidget()->getBuyParam(), 2, 0);
         setTable(f->ftrOneKeyWidget()->getSellParam(), 4, 0);
     },
     "13|11|2|4|0|0", ""},
};

INSTANTIATE_TEST_SUITE_P(Tabs, TabOrders, ::testing::ValuesIn(kTabOrders),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace
