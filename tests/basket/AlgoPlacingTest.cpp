#include "COpBasketBuySellWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COperationBasketWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CAlgorithmAuthorityConfig.h"
#include "CBasketHedgeManager.h"
#include "CMsgService.h"
#include "CTradeClient.h"
#include "LuaModuleCtrl.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include "CBasketHedgeParam.h"
#include "COrderCommand.h"

#include <boost/make_shared.hpp>

#include <QSignalSpy>

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

class AlgoPlacing : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
        widget = std::make_unique<COperationBasketWidget>(nullptr);
        form = widget->paramsWidget();
    }

    void onTab(quint64 word) { form->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr); }

    static void setAlgorithm(COpBasketStockParamsWidget *block, int orderType, const char *strategy)
    {
        ASSERT_TRUE(block->table()->setOrderType(orderType));
        block->table()->resetStrategyType(orderType, QString::fromLatin1(strategy));
    }

    QString messages() const
    {
        QStringList texts;
        for (const auto &call : getMsgService()->shownMessages())
            texts << call.m_text;
        return texts.join(QLatin1Char('|'));
    }

    std::unique_ptr<COperationBasketWidget> widget;
    COpBasketParamsWidget *form = nullptr;
};

TEST_F(AlgoPlacing, oneKeyTabChecksBothSides)
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

TEST_F(AlgoPlacing, oneSidedTabHandsTheTablesStringAndPlatform)
{
    onTab(TOT_BUY);
    std::vector<CCodeOrderParam> orders{lineOf(18, "600000")};
    std::string paramString;
    ttservice::ETradePlatform platform = ttservice::TRADE_PLATFORM_NONE;
    EXPECT_EQ(widget->fillAlgoParam(orders, paramString, platform), 0) << "a plain table is no algorithm";

    setAlgorithm(form->stockParams(), 13, "TWAP");
    ASSERT_EQ(form->getAlgorithmTable(), form->stockParams()->table());
    EXPECT_EQ(widget->fillAlgoParam(orders, paramString, platform), 1);
    EXPECT_EQ(platform, 3);
    EXPECT_EQ(paramString, form->stockParams()->table()->getAlgParamsStr(orders));
    ASSERT_EQ(CAlgorithmAuthorityConfig::instance().checks().size(), 1u);
    EXPECT_EQ(CAlgorithmAuthorityConfig::instance().checks()[0].m_buyStrategy, "TWAP");

    CAlgorithmAuthorityConfig::instance().setAuthorityResult(false);
    EXPECT_EQ(widget->fillAlgoParam(orders, paramString, platform), -1);
    EXPECT_TRUE(messages().isEmpty());
}

// --- the rest of a hedged instruction ---

TEST_F(AlgoPlacing, hedgedInstructionPlacesWhatIsNotTradedYet)
{
    sample::addInstrument("SH", "600000");
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
    ASSERT_EQ(call.m_orders.size(), 4u);
    EXPECT_EQ(call.m_orders[0].m_volume, 700);
    EXPECT_EQ(call.m_orders[1].m_volume, 700) << "750 rounds down to whole units";
    EXPECT_EQ(call.m_orders[2].m_volume, 5) << "a futures remainder is not rounded";
    EXPECT_EQ(call.m_orders[3].m_volume, 1000);
    for (const CCodeOrderParam &line : call.m_orders)
        EXPECT_DOUBLE_EQ(line.m_tradedVolume, 0);

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

} // namespace
