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

#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "SampleMarket.h"
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
        ttservice::CInstrumentDetail detail;
        detail.m_market = market;
        detail.m_stockCode = code;
        detail.m_tradeUnit = futures ? 1 : 100;
        detail.m_volumeMultiple = futures ? 300 : 0x7fffffff;
        CExchangeClient::instance()->addInstrument(detail);
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

    COperationBasketWidget widget(nullptr);
    COpBasketParamsWidget *form = widget.paramsWidget();
    form->handleEvent(5, static_cast<int>(c.tab), 0, QString(), nullptr);
    ASSERT_EQ(form->getTradeOpType(), c.tab);
    c.setBlocks(form);
    form->refreshAccounts();
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
    form->updateBasketSetting();
    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    ASSERT_EQ(widget.editWidget()->getOrderParams().size(), 2u);

    widget.handleEvent(1046, 0, 0, QString(), nullptr);
    const auto &placed = CTradeClient::instance()->placedCommands();
    ASSERT_EQ(placed.size(), 1u) << (getMsgService()->shownMessages().empty() ? QString()
                                     : getMsgService()->shownMessages().back().m_text).toStdString();
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
