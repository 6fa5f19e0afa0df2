#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CExchangeClient.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "CQuoteClient.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "SubstituteFixture.h"

#include <functional>
#include <memory>
#include <vector>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

// Each tab's blocks are set to something of their own; the order that leaves must carry it.
struct TabOrder {
    const char *name;
    quint64 tab;
    ttservice::EVQBrokerType broker;
    std::function<void(COpBasketParamsWidget *)> setBlocks;
    int buyOperation;  // of the first line (a buy row)
    int sellOperation; // of the second line (a sell row)
    int buyPriceType;
    int sellPriceType;
    int orderType;
    int platform;
    const char *paramText; // expected in the algorithm string; empty: none sent
};

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

class TabOrders : public SubstituteTest, public ::testing::WithParamInterface<TabOrder>
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        luawrapper::LuaModuleCtrl::instance()->setModules(
            {"mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits", "mdl_order_compose_futures",
             "mdl_order_compose_one_key_futures"},
            true);
    }

    void addInstrument(const char *market, const char *code)
    {
        ttservice::CInstrumentDetail detail;
        detail.m_market = market;
        detail.m_stockCode = code;
        detail.m_tradeUnit = GetParam().broker == ttservice::BROKER_TYPE_FUTURE ? 1 : 100;
        detail.m_volumeMultiple = GetParam().broker == ttservice::BROKER_TYPE_FUTURE ? 300 : 0x7fffffff;
        CExchangeClient::instance()->addInstrument(detail);
        CPriceData quote;
        quote.m_market = market;
        quote.m_stockCode = code;
        quote.m_lastPrice = 10;
        quote.m_askPrice1 = 10.01;
        quote.m_bidPrice1 = 9.99;
        quote.m_upStopPrice = 11;
        quote.m_downStopPrice = 9;
        CQuoteClient::instance()->setStockPrice(quote);
    }
};

TEST_P(TabOrders, placedOrderCarriesTheTabsOperationPriceAndAlgorithm)
{
    const TabOrder &c = GetParam();
    const bool futures = c.broker == ttservice::BROKER_TYPE_FUTURE;
    const char *market = futures ? "CFFEX" : "SH";
    const char *codes[] = {futures ? "IF2401" : "600000", futures ? "IH2401" : "600001"};
    for (const char *code : codes)
        addInstrument(market, code);

    COperationBasketWidget widget(nullptr);
    COpBasketParamsWidget *form = widget.paramsWidget();
    form->handleEvent(5, static_cast<int>(c.tab), 0, QString(), nullptr);
    ASSERT_EQ(form->getTradeOpType(), c.tab);
    c.setBlocks(form);

    ttservice::CAccountInfo info;
    info.m_accountKey = "a1";
    info.m_accountId = "a1";
    info.m_brokerType = c.broker;
    ttservice::CAccountDetail detail;
    detail.m_available = 1e8;
    // Holdings of both instruments on both sides, so that every sell and close has a volume: a
    // line of 0 would never leave.
    std::vector<ttservice::CPositionStatics> held;
    for (const char *code : codes) {
        for (int direction : {48, 49}) {
            ttservice::CPositionStatics position;
            position.m_market = market;
            position.m_stockCode = code;
            position.m_direction = direction;
            position.m_volume = position.m_canUseVolume = 1000;
            position.m_availableVolume = 1000;
            held.push_back(position);
        }
    }
    getUserConfig()->addAccount(info, detail, held);
    form->refreshAccounts();
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);

    CBasketSetting basket;
    basket.m_name = QStringLiteral("b");
    basket.m_brokerType = futures ? ttservice::BROKER_TYPE_FUTURE : ttservice::BROKER_TYPE_STOCK;
    for (int i = 0; i < 2; ++i) {
        CBasketStockData row;
        row.m_market = QString::fromLatin1(market);
        row.m_stockCode = QString::fromLatin1(codes[i]);
        row.m_weight = 1;
        row.m_volume = futures ? 2 : 100;
        row.m_operationType = i == 0 ? ttservice::OT_BUY : ttservice::OT_SELL;
        basket.m_stocks << row;
    }
    getUserConfig()->baskets().insert(basket.m_name, basket);
    form->updateBasketSetting();
    form->basketsCombo()->setBasket(basket.m_name, false);
    ASSERT_EQ(widget.editWidget()->getOrderParams().size(), 2u);

    widget.handleEvent(1046, 0, 0, QString(), nullptr);
    QStringList messages;
    for (const auto &call : getMsgService()->shownMessages())
        messages << call.m_text;
    const auto &placed = CTradeClient::instance()->placedCommands();
    ASSERT_EQ(placed.size(), 1u) << messages.join(QLatin1Char('|')).toStdString();
    const auto &call = placed.front();
    ASSERT_EQ(call.m_orders.size(), 2u);
    EXPECT_EQ(call.m_orders[0].m_operationType, c.buyOperation);
    EXPECT_EQ(call.m_orders[1].m_operationType, c.sellOperation);
    EXPECT_EQ(call.m_orders[0].m_priceType, c.buyPriceType);
    EXPECT_EQ(call.m_orders[1].m_priceType, c.sellPriceType);
    EXPECT_EQ(call.m_orders[0].m_orderType, c.orderType);
    EXPECT_EQ(call.m_tradePlatform, c.platform);
    if (*c.paramText) {
        EXPECT_NE(call.m_paramString.find(c.paramText), std::string::npos) << call.m_paramString;
    } else {
        EXPECT_EQ(call.m_paramString, "");
    }
    EXPECT_FALSE(call.m_commandLog.empty());
}

const TabOrder kTabOrders[] = {
    {"buyWithOwnTwap", TOT_BUY, ttservice::BROKER_TYPE_STOCK,
     [](COpBasketParamsWidget *f) { setTable(single(f), 2, 4); }, 18, 18, 2, 2, 4, 0, ""},
    {"sellOutsideAlgorithm", TOT_SELL, ttservice::BROKER_TYPE_STOCK,
     [](COpBasketParamsWidget *f) { setTable(single(f), 1, 13, "VWAP"); }, 19, 19, 1, 1, 13, 3,
     "algo=VQALGO;code=600000.SH"},
    {"oneKeyBothSidesSwitch", TOT_ALL, ttservice::BROKER_TYPE_STOCK,
     [](COpBasketParamsWidget *f) {
         setTable(f->buySellWidget()->getBuyParam(), 2, 13, "SWITCH");
         setTable(f->buySellWidget()->getSellParam(), 1, 13, "SWITCH");
     },
     18, 19, 2, 1, 13, 3, "strategy=SWITCH"},
    {"creditMarginBuyFixedSide", TOT_CREDIT, ttservice::BROKER_TYPE_CREDIT,
     [](COpBasketParamsWidget *f) { setTable(single(f), 3, 0); }, 20, 20, 3, 3, 0, 0, ""},
    {"futuresOpenLong", TOT_FUTURE, ttservice::BROKER_TYPE_FUTURE,
     [](COpBasketParamsWidget *f) { setTable(single(f), 2, 0); }, 0, 0, 2, 2, 0, 0, ""},
    {"oneKeyFuturesPerSide", TOT_ONEKEY_FUTURE, ttservice::BROKER_TYPE_FUTURE,
     [](COpBasketParamsWidget *f) {
         setTable(f->ftrOneKeyWidget()->getBuyParam(), 2, 0);
         setTable(f->ftrOneKeyWidget()->getSellParam(), 4, 0);
     },
     13, 11, 2, 4, 0, 0, ""},
};

INSTANTIATE_TEST_SUITE_P(Tabs, TabOrders, ::testing::ValuesIn(kTabOrders),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace
