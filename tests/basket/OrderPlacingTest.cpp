#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"
#include "OrderSettling.h"

#include "CBasketHedgeParam.h"
#include "CCheckBox.h"
#include "CComboBox.h"
#include "CCreatePortfolioKeyboard.h"
#include "CExchangeClient.h"
#include "CMessageBox.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CParameterCell.h"
#include "CQuoteClient.h"
#include "CTimeService.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "SubstituteFixture.h"

#include <boost/make_shared.hpp>

#include <QApplication>
#include <QClipboard>

#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

class OrderPlacing : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
        for (int i = 0; i < 3; ++i) {
            ttservice::CInstrumentDetail detail;
            detail.m_market = "SH";
            detail.m_stockCode = std::to_string(600000 + i);
            CExchangeClient::instance()->addInstrument(detail);
            CPriceData quote;
            quote.m_market = "SH";
            quote.m_stockCode = detail.m_stockCode;
            quote.m_lastPrice = 10;
            quote.m_askPrice1 = 10.01;
            quote.m_bidPrice1 = 9.99;
            CQuoteClient::instance()->setStockPrice(quote);
        }
    }

    void makeWidget()
    {
        widget = std::make_unique<COperationBasketWidget>(nullptr);
        form = widget->paramsWidget();
        ASSERT_NE(form, nullptr);
    }

    void addAccount(const std::string &key, double available, ttservice::EVQBrokerType broker = ttservice::BROKER_TYPE_STOCK)
    {
        ttservice::CAccountInfo info;
        info.m_accountKey = key;
        info.m_accountId = key;
        info.m_brokerType = broker;
        ttservice::CAccountDetail detail;
        detail.m_available = available;
        getUserConfig()->addAccount(info, detail);
        form->refreshAccounts();
        form->accountsWidget()->setSelectedAccount(QString::fromStdString(key), true);
    }

    // A basket of two stocks, 100 and 200 a copy, chosen in the picker: the table shows it.
    void chooseBasket(int platform = 0)
    {
        CBasketSetting basket;
        basket.m_name = QStringLiteral("b");
        if (platform) {
            CBasketEntry entry;
            entry.m_tradePlatform = static_cast<ttservice::ETradePlatform>(platform);
            basket.m_entries << entry;
        }
        for (int i = 0; i < 2; ++i) {
            CBasketStockData row;
            row.m_market = QStringLiteral("SH");
            row.m_stockCode = QString::number(600000 + i);
            row.m_weight = 1;
            row.m_volume = 100 * (i + 1);
            row.m_operationType = i == 0 ? ttservice::OT_BUY : ttservice::OT_SELL;
            basket.m_stocks << row;
        }
        getUserConfig()->baskets().insert(basket.m_name, basket);
        form->updateBasketSetting();
        form->basketsCombo()->setBasket(basket.m_name, false);
    }

    void press(int value = 0) { widget->handleEvent(1046, 0, value, QString(), nullptr); }

    QStringList messages() const
    {
        QStringList texts;
        for (const auto &call : getMsgService()->shownMessages())
            texts << call.m_text;
        return texts;
    }

    const std::vector<CPlaceCommandsCall> &placed() const { return CTradeClient::instance()->placedCommands(); }

    std::unique_ptr<COperationBasketWidget> widget;
    COpBasketParamsWidget *form = nullptr;
};

} // namespace

TEST_F(OrderPlacing, PlainOrderCarriesEveryArgument)
{
    makeWidget();
    addAccount("a1", 1e6);
    chooseBasket();
    ASSERT_EQ(widget->editWidget()->getOrderParams().size(), 2u);
    press();
    ASSERT_EQ(placed().size(), 1u) << messages().join(QLatin1Char('|')).toStdString();
    const CPlaceCommandsCall &call = placed().front();
    EXPECT_EQ(call.m_traderType, 4);
    EXPECT_EQ(call.m_hedgeType, 1);
    EXPECT_EQ(call.m_specBtnBarType, 0);
    ASSERT_EQ(call.m_orders.size(), 2u);
    EXPECT_EQ(call.m_orders[0].m_volume, 100);
    EXPECT_EQ(call.m_orders[0].m_account->getKey(), "a1");
    EXPECT_EQ(call.m_orders[0].m_userId, "u1");
    EXPECT_DOUBLE_EQ(call.m_orders[0].m_price, 10.01);
    EXPECT_TRUE(call.m_valueMap.empty());
    EXPECT_EQ(call.m_stopLossType, 0);
    EXPECT_FALSE(call.m_firstFlag);
    EXPECT_TRUE(call.m_secondFlag);
    EXPECT_FALSE(call.m_createPortfolio);
    EXPECT_TRUE(call.m_resultCallback.empty());
    EXPECT_TRUE(call.m_hedgeBson.isEmpty());
    EXPECT_EQ(call.m_commandText, "");
    EXPECT_EQ(call.m_tradePlatform, 0);
    EXPECT_EQ(call.m_paramString, "");
    EXPECT_EQ(call.m_limitedPriceType, 1) << "the bar's box that lets traders change parameters starts ticked";
    EXPECT_EQ(call.m_basketName, "b");
    EXPECT_EQ(call.m_strategyType, -1);
    EXPECT_EQ(call.m_extraInt, -1);
    EXPECT_EQ(call.m_etfHedgeStatus, -1);
    EXPECT_TRUE(call.m_extraBson.isEmpty());

    // Nothing in the panel changes, but the same lines pressed again within a minute are asked
    // about first; a no sends nothing, a yes sends them, and after a minute nobody is asked.
    WK::CMessageBox::clearRecords();
    press();
    EXPECT_EQ(placed().size(), 1u);
    ASSERT_EQ(WK::CMessageBox::records().size(), 1);
    WK::CMessageBox::setScriptedAnswer(QMessageBox::Yes);
    press();
    ASSERT_EQ(placed().size(), 2u);
    EXPECT_EQ(placed()[1].m_orders.size(), 2u);
    WK::CMessageBox::clearScriptedAnswer();
    getTimeService()->advance(61);
    press();
    EXPECT_EQ(placed().size(), 3u);
    EXPECT_EQ(WK::CMessageBox::records().size(), 2);
}

TEST(OrderSettling, PricesGoToTheNearestTickAsTheTickIsWritten)
{
    const struct
    {
        double price, tick, expected;
    } cases[] = {{8.459999999999999, 0.01, 8.46}, {4.319999999999999, 0.01, 4.32}, {3001.13, 0.2, 3001.2},
                 {3001.29, 0.2, 3001.2}, {12.3449, 0.005, 12.345}, {5.123, 0.0, 5.123},
                 {ttservice::NO_VALUE, 0.01, ttservice::NO_VALUE}};
    for (const auto &c : cases)
        EXPECT_EQ(roundToTick(c.price, c.tick), c.expected) << c.price << " on " << c.tick;
}

TEST_F(OrderPlacing, NoLineOfNothingAndNoPriceOffItsTickLeaves)
{
    makeWidget();
    addAccount("a1", 1e9);
    chooseBasket();
    std::vector<CCodeOrderParam> *list = form->getCodeOrderParams();
    ASSERT_EQ(list->size(), 2u);
    (*list)[0].m_price = 10.009999999999999;
    (*list)[1].m_volume = 0;
    press();
    ASSERT_EQ(placed().size(), 1u);
    ASSERT_EQ(placed()[0].m_orders.size(), 1u);
    EXPECT_EQ(placed()[0].m_orders[0].m_price, 10.01);
    EXPECT_EQ(list->size(), 2u) << "the line of 0 stays on screen";

    (*list)[0].m_volume = 0;
    getTimeService()->advance(61);
    press();
    EXPECT_EQ(placed().size(), 1u);
    EXPECT_TRUE(messages().join(QLatin1Char('|')).contains(QStringLiteral("数量均为0")));
}

TEST_F(OrderPlacing, AnAccountShortOfMoneyIsNamedAndNothingLeaves)
{
    // Together the accounts could pay; one of them can pay each of its lines (100 of each
    // stock at 10) but not both.
    makeWidget();
    addAccount("poor", 1500);
    addAccount("rich", 1e9);
    chooseBasket();
    press();
    EXPECT_TRUE(placed().empty());
    EXPECT_TRUE(messages().join(QLatin1Char('|')).contains(QStringLiteral("poor 需"))) << messages().join(QLatin1Char('|')).toStdString();
    EXPECT_FALSE(messages().join(QLatin1Char('|')).contains(QStringLiteral("rich 需")));
}

TEST_F(OrderPlacing, RefusalsComeInTheirOrder)
{
    makeWidget();
    press();
    // The check reports as it fails, and the press reports its refusal again.
    EXPECT_EQ(messages(), QStringList({QStringLiteral("您没有选择任何账号!"), QStringLiteral("您没有选择任何账号!")}));
    EXPECT_TRUE(placed().empty());

    addAccount("a1", 2500);
    chooseBasket();
    getMsgService()->reset();
    press();
    // Each line alone fits the 2500 of money (the table cuts a line to what the account can
    // buy), but the two together cost 3000: the list comes back with no volumes.
    EXPECT_EQ(messages(), QStringList{QStringLiteral("可用资金不足!")});
    EXPECT_TRUE(placed().empty());
    for (const CCodeOrderParam &line : *form->getCodeOrderParams())
        EXPECT_EQ(line.m_volume, 0);
    EXPECT_EQ(form->cell(COpBasketParamsWidget::CellCopies)->toInt(), 0);
}

TEST_F(OrderPlacing, EmptyTableIsRefusedBeforeTheMoneyCheck)
{
    makeWidget();
    addAccount("a1", 0);
    CBasketSetting basket;
    basket.m_name = QStringLiteral("b");
    CBasketStockData unknown; // a row that sizes to no line at all: its account is another one
    unknown.m_market = QStringLiteral("SH");
    unknown.m_stockCode = QStringLiteral("600000");
    unknown.m_volume = 100;
    unknown.m_accountKey = "elsewhere";
    basket.m_stocks << unknown;
    getUserConfig()->baskets().insert(basket.m_name, basket);
    form->updateBasketSetting();
    form->basketsCombo()->setBasket(basket.m_name, false);
    press();
    EXPECT_EQ(messages(), QStringList{QStringLiteral("您选择的篮子不包含任何股票!")});
}

TEST_F(OrderPlacing, ValueMinusOneRefusesEvenWithMoney)
{
    makeWidget();
    addAccount("a1", 1e9);
    chooseBasket();
    press(-1);
    EXPECT_EQ(messages(), QStringList{QStringLiteral("可用资金不足!")});
    EXPECT_TRUE(placed().empty());
    ASSERT_FALSE(getMsgService()->shownMessages().empty());
    EXPECT_TRUE(getMsgService()->shownMessages().back().m_playSound) << "this refusal always sounds";
}

TEST_F(OrderPlacing, TouchLinesOfTheOneKeyTabMustShareTheirWork)
{
    makeWidget();
    form->setCurrentOperationType(TOT_ALL);
    addAccount("a1", 1e9);
    chooseBasket();
    std::vector<CCodeOrderParam> *list = form->getCodeOrderParams();
    ASSERT_EQ(list->size(), 2u);
    (*list)[0].m_touchType = 1;
    (*list)[0].m_orderInterval = 1.0;
    (*list)[1].m_orderInterval = 1.5;

    form->entrustCombo()->setCurrentIndex(0);
    press();
    EXPECT_EQ(messages(), QStringList{QStringLiteral("一键买卖进行全部触价委托时,请统一算法类型,下单间隔,撤单间隔!")});
    EXPECT_TRUE(placed().empty());

    form->entrustCombo()->setCurrentIndex(1);
    press();
    EXPECT_EQ(placed().size(), 1u) << "each line touches off on its own";
}

TEST_F(OrderPlacing, PlatformSixRemapsOrderTypesWhileEachLineTouchesAlone)
{
    makeWidget();
    addAccount("a1", 1e9);
    chooseBasket(6);
    std::vector<CCodeOrderParam> *list = form->getCodeOrderParams();
    ASSERT_EQ(list->size(), 2u);
    (*list)[1].m_orderType = ttservice::EOrderType(13);

    form->entrustCombo()->setCurrentIndex(0);
    press();
    form->entrustCombo()->setCurrentIndex(1);
    getTimeService()->advance(61);
    press();
    ASSERT_EQ(placed().size(), 2u);
    ASSERT_EQ(placed()[0].m_orders.size(), 2u);
    ASSERT_EQ(placed()[1].m_orders.size(), 2u);
    EXPECT_EQ(placed()[0].m_tradePlatform, 6);
    EXPECT_EQ(placed()[0].m_orders[0].m_orderType, 0);
    EXPECT_EQ(placed()[1].m_orders[0].m_orderType, 6);
    EXPECT_EQ(placed()[1].m_orders[1].m_orderType, 13);
    EXPECT_EQ((*list)[0].m_orderType, 0) << "the form's own list is not touched";
}

TEST_F(OrderPlacing, PortfolioFromTheToolbarKeyboardUnlessConnectAccounts)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_portfolio"}, true);
    getUserConfig()->setHasPortfolio(true);
    makeWidget();
    addAccount("a1", 1e9);
    chooseBasket();
    WK::CCreatePortfolioKeyboard *keyboard = widget->replaceToolBar()->portfolioKeyboard();
    ASSERT_NE(keyboard, nullptr);
    press();
    ASSERT_EQ(placed().size(), 1u);
    EXPECT_FALSE(placed()[0].m_createPortfolio) << "with a toolbar only its keyboard counts";

    keyboard->setCheckAndEnable(true, true);
    getTimeService()->advance(61);
    press();
    ASSERT_EQ(placed().size(), 2u);
    EXPECT_TRUE(placed()[1].m_createPortfolio);
    EXPECT_EQ(placed()[1].m_orders[0].m_portfolioName, widget->replaceToolBar()->getPortfolioName());

    // The table shows the list again (as after any new sizing) with a connect account first.
    std::vector<CCodeOrderParam> *list = form->getCodeOrderParams();
    auto connect = boost::make_shared<ttservice::CAccountInfo>(*(*list)[0].m_account);
    connect->m_brokerType = ttservice::BROKER_TYPE_HGT;
    (*list)[0].m_account = connect;
    widget->handleEvent(1070, static_cast<int>(TOT_BUY), 0, QStringLiteral("b"), nullptr);
    getTimeService()->advance(61);
    press();
    ASSERT_EQ(placed().size(), 3u);
    EXPECT_FALSE(placed()[2].m_createPortfolio);
}

TEST_F(OrderPlacing, HedgedBasketCarriesTheHedgeAsBson)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_hedge"}, true);
    getUserConfig()->setUserAuth(1, true);
    ttservice::CInstrumentDetail future;
    future.m_market = "CFFEX";
    future.m_stockCode = "IF2412";
    CExchangeClient::instance()->addInstrument(future);
    makeWidget();
    addAccount("a1", 1e9);
    chooseBasket();
    COpBasketFutureParamsWidget *hedge = form->hedgeWidget();
    ASSERT_NE(hedge, nullptr);
    hedge->setHedgeContractCode(QStringLiteral("IF2412"));
    hedge->setAutoHedge(true);
    widget->show();
    ASSERT_TRUE(form->autoHedge());
    press();
    ASSERT_EQ(placed().size(), 1u) << messages().join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(placed()[0].m_hedgeType, 2);
    ttservice::CBasketHedgeParam sent;
    sent.bsonValueFromObj(placed()[0].m_hedgeBson, true, nullptr);
    EXPECT_TRUE(sent.m_enabled);
    EXPECT_EQ(sent.m_hedgeType, hedge->hedgeType());
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

TEST_F(OrderPlacing, ShortcutOnTheOtherTabOnlySwitches)
{
    makeWidget();
    addAccount("a1", 1e9);
    form->setCurrentOperationType(TOT_SELL);
    widget->doShortCutOrder(400, nullptr);
    EXPECT_EQ(form->getTradeOpType(), TOT_BUY);
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
    ASSERT_EQ(placed().size(), 1u) << messages().join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(placed()[0].m_orders.size(), 2u);
}
