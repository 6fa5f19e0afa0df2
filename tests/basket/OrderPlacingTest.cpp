#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "COpBasketStockParamsWidget.h"
#include "COperationBasketWidget.h"
#include "OrderSettling.h"

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
#include "CTradeClient.h"
#include "LuaModuleCtrl.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <boost/make_shared.hpp>

#include <QApplication>
#include <QClipboard>

#include <functional>
#include <memory>
#include <sstream>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

// The values, '|' between them, as the failure message shows them.
template <typename... T>
std::string joined(const T &...values)
{
    std::ostringstream out;
    out.precision(15);
    ((out << values << '|'), ...);
    std::string text = out.str();
    text.pop_back();
    return text;
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

    void press(int value = 0) { widget->handleEvent(1046, 0, value, QString(), nullptr); }
    // The next press is no repeat of the last one.
    void pressLater(int value = 0)
    {
        getTimeService()->advance(61);
        press(value);
    }

    QString messages() const
    {
        QStringList texts;
        for (const auto &call : getMsgService()->shownMessages())
            texts << call.m_text;
        return texts.join(QLatin1Char('|'));
    }

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
    const struct { const char *what; std::string got, expected; } fields[] = {
        {"trader|hedge|bar|stop loss", joined(call.m_traderType, call.m_hedgeType, call.m_specBtnBarType, call.m_stopLossType), "4|1|0|0"},
        {"volumes", joined(call.m_orders[0].m_volume, call.m_orders[1].m_volume), "100|200"},
        {"account|user|price", joined(call.m_orders[0].m_account->getKey(), call.m_orders[0].m_userId, call.m_orders[0].m_price), "a1|u1|10.01"},
        {"flags|portfolio|callback", joined(call.m_firstFlag, call.m_secondFlag, call.m_createPortfolio, !call.m_resultCallback.empty()), "0|1|0|0"},
        {"command|params|basket", joined(call.m_commandText, call.m_paramString, call.m_basketName), "||b"},
        // The bar's box that lets traders change parameters starts ticked: limited price type 1.
        {"platform|limited|strategy|extra|etf", joined(call.m_tradePlatform, call.m_limitedPriceType, call.m_strategyType, call.m_extraInt, call.m_etfHedgeStatus), "0|1|-1|-1|-1"},
        {"values|hedge|extra empty", joined(call.m_valueMap.empty(), call.m_hedgeBson.isEmpty(), call.m_extraBson.isEmpty()), "1|1|1"}};
    for (const auto &f : fields)
        EXPECT_EQ(f.got, f.expected) << f.what;

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
    EXPECT_EQ(placed()[0].m_tradePlatform, 6);
    EXPECT_EQ(placed()[0].m_orders[0].m_orderType, 0);
    EXPECT_EQ(placed()[1].m_orders[0].m_orderType, 6);
    EXPECT_EQ(placed()[1].m_orders[1].m_orderType, 13);
    EXPECT_EQ(list()[0].m_orderType, 0) << "the form's own list is not touched";
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
