#include "COpBasketOrder.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"

#include "CBlackAndWhiteListService.h"
#include "CCheckBox.h"
#include "CExchangeClient.h"
#include "CLogCapture.h"
#include "CMessageTip.h"
#include "CMsgService.h"
#include "ChineseNumerals.h"
#include "LuaModuleCtrl.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CQuoteClient.h"
#include "CTimeService.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "StockTypeCenter.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <memory>
#include <numeric>
#include <thread>

using namespace TC;
using ttservice::CCodeOrderParam;
using sample::addInstrument;
using sample::setQuote;

namespace {

// Records what the form reports upward.
class EventSink : public WK::CBaseWidget
{
public:
    EventSink() : WK::CBaseWidget(QStringLiteral("sink"), false, nullptr) {}

    bool handleEvent(int event, int, int, QString, void *) override
    {
        events.push_back(event);
        return true;
    }

    int count(int event) const { return static_cast<int>(std::count(events.begin(), events.end(), event)); }

    std::vector<int> events;
};

// Opens the row filters to the tests.
class FormProbe : public COpBasketParamsWidget
{
public:
    using COpBasketParamsWidget::COpBasketParamsWidget;
    using COpBasketParamsWidget::filterStockParam;
};

CBasketStockData row(const char *market, const char *code, double weight, int64_t volume)
{
    CBasketStockData r;
    r.m_market = QString::fromLatin1(market);
    r.m_stockCode = QString::fromLatin1(code);
    r.m_weight = weight;
    r.m_volume = volume;
    return r;
}

void publishQuote(const char *market, const char *code, double last)
{
    CPriceData quote;
    quote.m_market = market;
    quote.m_stockCode = code;
    quote.m_lastPrice = last;
    CQuoteClient::instance()->publishQuote(quote);
}

class OrderComputation : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        form = new FormProbe(&sink);
        form->setReplaceToolBar(toolBar.get());
        form->setCurrentOperationType(TOT_BUY);
    }

    void addStockAccount(const std::string &key, double available, bool withDetail = true)
    {
        ttservice::CAccountInfo info;
        info.m_accountKey = key;
        info.m_accountId = key;
        info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
        if (withDetail) {
            ttservice::CAccountDetail detail;
            detail.m_available = available;
            detail.m_totalAsset = available * 2;
            getUserConfig()->addAccount(info, detail);
        } else {
            getUserConfig()->addAccountWithoutDetail(info);
        }
        form->refreshAccounts();
        form->accountsWidget()->setSelectedAccount(QString::fromStdString(key), true);
    }

    void storeBasket(const QString &name, const QList<CBasketStockData> &rows, const QString &indexCode = QString())
    {
        CBasketSetting basket;
        basket.m_name = name;
        basket.m_basketKind = indexCode.isEmpty() ? 0 : 1;
        basket.m_indexMarket = QStringLiteral("SH");
        basket.m_indexCode = indexCode;
        basket.m_stocks = rows;
        getUserConfig()->baskets().insert(name, basket);
        form->updateBasketSetting();
    }

    // Chooses the basket as the user does: the picker reports the choice and the form sizes it.
    void chooseBasket(const QString &name) { form->basketsCombo()->setBasket(name, false); }

    void setMode(int mode)
    {
        QComboBox *combo = form->volumnCombobox();
        const int index = combo->findData(mode);
        ASSERT_GE(index, 0) << "mode " << mode << " not offered";
        combo->setCurrentIndex(index);
    }

    const std::vector<CCodeOrderParam> &lines() { return *form->getCodeOrderParams(); }

    int64_t totalVolume()
    {
        int64_t sum = 0;
        for (const CCodeOrderParam &line : lines())
            sum += line.m_volume;
        return sum;
    }

    EventSink sink;
    FormProbe *form = nullptr;
    std::unique_ptr<COpBasketReplaceStockToolBar> toolBar = std::make_unique<COpBasketReplaceStockToolBar>(nullptr);
};

} // namespace

// --- the formulas ---

TEST_F(OrderComputation, CopiesMayBeFractional)
{
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 101)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_COPIES);
    form->cell(COpBasketParamsWidget::CellCopies)->setDouble(2.5);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 1, 101), 1, 0, 100, 0, 1), 252);
}

TEST_F(OrderComputation, MoneyByWeightAndTheFuturesMultiple)
{
    setQuote("SH", "600000", 10);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 101)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_MONEY);
    form->cell(COpBasketParamsWidget::CellMoney)->setDouble(100000);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 0.5, 0), 1, 0, 100, 0, 1), 5000);
    // No price or no weight in the sum sizes to nothing.
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 0.5, 0), 0, 0, 100, 0, 1), 0);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600001", 0.5, 0), 1, 0, 100, 0, 1), 0);

    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_futures"}, true);
    FormProbe futures(nullptr);
    futures.setCurrentOperationType(TOT_FUTURE);
    addInstrument("CFFEX", "IF2412", 300);
    setQuote("CFFEX", "IF2412", 4000);
    const int index = futures.volumnCombobox()->findData(VT_MONEY);
    ASSERT_GE(index, 0);
    futures.volumnCombobox()->setCurrentIndex(index);
    futures.cell(COpBasketParamsWidget::CellMoney)->setDouble(1000000);
    // 250 contracts' worth of the index divided by the multiple 300: none.
    EXPECT_EQ(futures.getTotalVolume(row("CFFEX", "IF2412", 1, 0), 1, 0, 1, 0, 1), 0);
    futures.cell(COpBasketParamsWidget::CellMoney)->setDouble(12000000);
    EXPECT_EQ(futures.getTotalVolume(row("CFFEX", "IF2412", 1, 0), 1, 0, 1, 0, 1), 10);
}

TEST_F(OrderComputation, AnAmountBeyondAnyOrderKeepsEveryLineUnsizedAndSaysSo)
{
    // A cheap stock whose share of a huge amount passes what an order can hold must not drop
    // out and leave the dear one to take all the money.
    setQuote("SH", "600000", 2);
    setQuote("SH", "600001", 900);
    addStockAccount("a1", 1e7);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 100), row("SH", "600001", 1, 100)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_MONEY);
    for (double amount : {999999999999.0, 1e10}) {
        SCOPED_TRACE(amount);
        getMsgService()->reset();
        form->cell(COpBasketParamsWidget::CellMoney)->setDouble(amount);
        form->updateBasketConfirmData();
        ASSERT_EQ(lines().size(), 2u);
        EXPECT_EQ(totalVolume(), 0);
        ASSERT_FALSE(getMsgService()->shownMessages().empty());
        EXPECT_TRUE(getMsgService()->shownMessages().back().m_text.contains(QStringLiteral("超出可下单范围")));
    }
    form->cell(COpBasketParamsWidget::CellCopies)->setDouble(999999999);
    setMode(VT_COPIES);
    EXPECT_EQ(lines().size(), 2u);
    EXPECT_EQ(totalVolume(), 0);
}

// The strip's target per account: the mode's money shared by the accounts' weights, as their
// volumes are split; a list sized by copies aims at no money.
TEST_F(OrderComputation, AimedMoneyIsTheModesMoneySharedByTheAccountWeights)
{
    setQuote("SH", "600000", 10);
    addStockAccount("a1", 1e6);
    addStockAccount("a2", 3e6);
    form->accountsWidget()->setAccountWeight(QStringLiteral("a2"), 3);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 100)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_AVAILABLE);
    form->cell(COpBasketParamsWidget::CellRatio)->setDouble(50);
    form->updateBasketConfirmData();
    // Half of 4,000,000 available, a quarter and three quarters of it.
    const QMap<QString, double> expected{{QStringLiteral("a1"), 500000.0}, {QStringLiteral("a2"), 1500000.0}};
    EXPECT_EQ(form->aimedMoney(), expected);
    setMode(VT_COPIES);
    form->updateBasketConfirmData();
    EXPECT_TRUE(form->aimedMoney().isEmpty());
    // One account on the one-key tab: its buys spend what its sells free as well.
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a2"), false);
    form->setCurrentOperationType(TOT_ALL);
    chooseBasket(QStringLiteral("b"));
    setMode(VT_AVAILABLE);
    form->updateBasketConfirmData();
    EXPECT_TRUE(form->aimedMoney().isEmpty());
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a2"), true);
    form->updateBasketConfirmData();
    EXPECT_EQ(form->aimedMoney().size(), 2);
}

TEST_F(OrderComputation, IndexUnitValueUsesTheIndexMultiple)
{
    storeBasket(QStringLiteral("中证500"), {row("SH", "600000", 1, 100)}, QStringLiteral("000905"));
    setQuote("SH", "000905", 2000);
    setQuote("SH", "600000", 10);
    chooseBasket(QStringLiteral("中证500"));
    setMode(VT_INDEX_UNIT);
    form->cell(COpBasketParamsWidget::CellTotalLots)->setInt(3);
    double indexValue = 0;
    int indexCount = 1;
    form->getIndexDataByBasket(indexValue, indexCount);
    EXPECT_DOUBLE_EQ(indexValue, 2000);
    EXPECT_EQ(indexCount, 200);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 0.01, 0), 1, 0, 100, indexValue, indexCount), 1200);
}

TEST_F(OrderComputation, CustomGroupKeepsTheRowVolume)
{
    setQuote("SH", "600000", 10);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 101)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_MONEY);
    form->cell(COpBasketParamsWidget::CellMoney)->setDouble(100000);
    form->basketsCombo()->setBatchOp(BATCH_CUSTOM_GROUP, false);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 0.5, 777), 1, 0, 100, 0, 1), 777);
}

// --- sizing over accounts ---

TEST_F(OrderComputation, AvailableMoneyCountsAccountsWithoutDetailAsZero)
{
    addStockAccount("a1", 1000);
    addStockAccount("a2", 1000);
    addStockAccount("a3", 0, false);
    setQuote("SH", "600000", 10);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 0)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_AVAILABLE);
    form->cell(COpBasketParamsWidget::CellRatio)->setDouble(100);
    form->updateBasketConfirmData();
    // 2000 of money at 10 a share buys 200 shares, divided over all three accounts.
    EXPECT_EQ(lines().size(), 3u);
    EXPECT_EQ(totalVolume(), 200);
}

TEST_F(OrderComputation, FilteredRowsKeepTheirLinesButLeaveTheWeights)
{
    addStockAccount("a1", 0);
    setQuote("SH", "600000", 10);
    setQuote("SH", "600001", 10);
    CQuoteClient::instance()->setStoppedStock(QStringLiteral("600001.SH"), true);
    toolBar->setFilter(true);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 0), row("SH", "600001", 1, 0)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_MONEY);
    form->cell(COpBasketParamsWidget::CellMoney)->setDouble(10000);
    form->updateBasketConfirmData();
    ASSERT_EQ(lines().size(), 2u);
    // The stopped stock leaves the sum of weights, so the other row takes all the money; the
    // stopped row keeps its line, sized by its own weight, for the table to show or hide.
    EXPECT_EQ(lines()[0].m_volume, 1000);
    EXPECT_EQ(lines()[1].m_volume, 1000);

    CQuoteClient::instance()->setStoppedStock(QStringLiteral("600000.SH"), true);
    form->updateBasketConfirmData();
    ASSERT_EQ(lines().size(), 2u);
    EXPECT_EQ(totalVolume(), 0);
}

TEST_F(OrderComputation, RowsOfOneAccountAndSplitsOfTheWrongLength)
{
    addStockAccount("a1", 0);
    addStockAccount("a2", 0);
    addStockAccount("a3", 0);
    CBasketStockData own = row("SH", "600000", 1, 300);
    own.m_accountKey = "a2";
    storeBasket(QStringLiteral("b"), {own, row("SH", "600001", 1, 300), row("SH", "600002", 1, 300)});
    CTradeClient::instance()->setSplitEntrustsHandler([](const CTradeClient::CSplitEntrustsCall &call) {
        if (call.m_stockCode == "600001")
            return std::vector<int>{300};
        return std::vector<int>(call.m_accounts.size(), 100);
    });
    chooseBasket(QStringLiteral("b"));
    setMode(VT_COPIES);
    form->cell(COpBasketParamsWidget::CellCopies)->setInt(1);
    form->updateBasketConfirmData();

    std::vector<std::string> got;
    for (const CCodeOrderParam &line : lines())
        got.push_back(line.m_account->getKey());
    // The row of a2 gives one line; 600001 is dropped for its split; 600002 goes to all three.
    EXPECT_EQ(got, (std::vector<std::string>{"a2", "a1", "a2", "a3"}));
    ASSERT_FALSE(CTradeClient::instance()->splitCalls().empty());
    EXPECT_EQ(CTradeClient::instance()->splitCalls().front().m_accounts.size(), 3u);
}

TEST_F(OrderComputation, UnknownBasketEmptiesTheListAndKeepsTheTime)
{
    addStockAccount("a1", 0);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 100)});
    chooseBasket(QStringLiteral("b"));
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_FALSE(form->orderRowsLog().empty());
    const quint32 before = form->lastGenTime();

    getTimeService()->advance(60);
    getUserConfig()->baskets().remove(QStringLiteral("b"));
    form->updateBasketConfirmData();
    EXPECT_TRUE(lines().empty());
    EXPECT_TRUE(form->orderRowsLog().empty());
    EXPECT_EQ(form->lastGenTime(), before);
}

// --- quotes awaited by a run ---

class PendingQuotes : public OrderComputation
{
protected:
    void SetUp() override
    {
        OrderComputation::SetUp();
        addStockAccount("a1", 0);
        for (const char *code : {"600000", "600001", "600002"})
            ttservice::StockTypeCenter::setTypedStock(100003, "SH", code);
        storeBasket(QStringLiteral("b"),
                    {row("SH", "600000", 1, 100), row("SH", "600001", 1, 100), row("SH", "600002", 1, 100)});
        // A stored basket of its own sizes by copies first.
        form->cell(COpBasketParamsWidget::CellCopies)->setInt(1);
    }
};

TEST_F(PendingQuotes, OneRebuildAfterTheLastAwaitedQuote)
{
    chooseBasket(QStringLiteral("b"));
    EXPECT_EQ(form->pendingQuotes().size(), 3);
    ASSERT_EQ(lines().size(), 3u);
    EXPECT_EQ(totalVolume(), 0) << "a list waiting for prices must not look sized";

    const int before = sink.count(1070);
    publishQuote("SH", "600000", 10);
    publishQuote("SH", "600001", 10);
    EXPECT_EQ(sink.count(1070), before);
    publishQuote("SH", "600002", 10);
    EXPECT_EQ(sink.count(1070), before + 1);
    EXPECT_EQ(totalVolume(), 300);

    // Live subscriptions keep reporting, but nothing is awaited any more.
    publishQuote("SH", "600000", 11);
    EXPECT_EQ(sink.count(1070), before + 1);
    // A second run finds every key subscribed and asks for nothing new.
    form->updateBasketConfirmData();
    EXPECT_TRUE(form->pendingQuotes().isEmpty());
    EXPECT_EQ(totalVolume(), 300);
}

TEST_F(PendingQuotes, FuturesTabsKeepTheirVolumesWhileWaiting)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_futures"}, true);
    FormProbe futures(&sink);
    futures.setCurrentOperationType(TOT_FUTURE);
    ttservice::CAccountInfo info;
    info.m_accountKey = "f1";
    info.m_brokerType = ttservice::BROKER_TYPE_FUTURE;
    getUserConfig()->addAccount(info);
    futures.refreshAccounts();
    futures.accountsWidget()->setSelectedAccount(QStringLiteral("f1"), true);
    CBasketSetting basket;
    basket.m_name = QStringLiteral("f");
    basket.m_brokerType = ttservice::BROKER_TYPE_FUTURE;
    basket.m_stocks << row("CFFEX", "IF2412", 1, 2);
    getUserConfig()->baskets().insert(basket.m_name, basket);
    futures.updateBasketSetting();
    futures.basketsCombo()->setBasket(QStringLiteral("f"), false);
    ASSERT_EQ(futures.getCodeOrderParams()->size(), 1u);
    EXPECT_EQ(futures.pendingQuotes().size(), 1);
    EXPECT_EQ(futures.getCodeOrderParams()->front().m_volume, 2);
}

TEST_F(PendingQuotes, QuotesFromAWorkerThreadRebuildOnTheWidgetThread)
{
    chooseBasket(QStringLiteral("b"));
    const int before = sink.count(1070);
    std::thread worker([] {
        for (const char *code : {"600000", "600001", "600002"})
            publishQuote("SH", code, 10);
    });
    worker.join();
    QElapsedTimer clock;
    clock.start();
    while (sink.count(1070) == before && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_EQ(sink.count(1070), before + 1);
    EXPECT_EQ(totalVolume(), 300);
}

TEST_F(PendingQuotes, RowsThatNeedNoQuoteDropTheirSubscriptions)
{
    chooseBasket(QStringLiteral("b"));
    EXPECT_EQ(form->quoteRequestKeys().size(), 3);
    for (const char *code : {"600000", "600001", "600002"})
        publishQuote("SH", code, 10);
    storeBasket(QStringLiteral("plain"), {row("SH", "601000", 1, 100)});
    chooseBasket(QStringLiteral("plain"));
    EXPECT_TRUE(form->quoteRequestKeys().isEmpty());
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(), 0);
}

// --- row filters ---

TEST_F(OrderComputation, FiltersRemoveAndMarkRows)
{
    addStockAccount("a1", 0);
    ttservice::StockTypeCenter::setTypedStock(126, "SH", "600126");
    ttservice::StockTypeCenter::setTypedStock(100017, "SZ", "000017");
    addInstrument("SH", "600002");
    CPriceData limits;
    limits.m_market = "SH";
    limits.m_stockCode = "600002";
    limits.m_lastPrice = 9.0;
    limits.m_upStopPrice = 9.9;
    limits.m_downStopPrice = 9.0;
    CQuoteClient::instance()->setStockPrice(limits);
    CBlackAndWhiteListService::instance()->addBlackStock(QStringLiteral("a1"), QStringLiteral("600003.SH"));
    CBlackAndWhiteListService::instance()->addBlackStock(QStringLiteral("a1"), QStringLiteral("600004.SH"));
    CBlackAndWhiteListService::instance()->setWhiteStock(QStringLiteral("a1"), QStringLiteral("600004.SH"),
                                                          QStringLiteral("600005.SH"));

    auto marks = [&](QList<CBasketStockData> rows) {
        form->filterStockParam(rows);
        QStringList marked;
        for (const CBasketStockData &r : rows)
            marked << (r.m_stockCode + (r.m_filtered ? QStringLiteral("*") : QString()));
        return marked.join(QLatin1Char(' '));
    };
    QList<CBasketStockData> rows = {row("SH", "600126", 1, 1), row("SZ", "000017", 1, 1), row("SH", "600002", 1, 1),
                                    row("SH", "600003", 1, 1), row("SH", "600004", 1, 1)};
    rows[2].m_filtered = true;

    EXPECT_EQ(marks(rows), QStringLiteral("600002 600003 600004")) << "untradable codes go, old marks are reset";
    toolBar->setFilterDieTing(true);
    EXPECT_EQ(marks(rows), QStringLiteral("600002* 600003 600004"));
    toolBar->setFilterDieTing(false);
    toolBar->setFilterZhangTing(true);
    EXPECT_EQ(marks(rows), QStringLiteral("600002 600003 600004"));

    toolBar->setFilterZhangTing(false);
    toolBar->setShowReplace(true);
    toolBar->checkBox(4)->setChecked(true); // replace blacklisted stocks: a stock with a white one stays
    EXPECT_EQ(marks(rows), QStringLiteral("600002 600003* 600004"));
    toolBar->checkBox(2)->setChecked(true); // filter blacklisted stocks: all of them
    EXPECT_EQ(marks(rows), QStringLiteral("600002 600003* 600004*"));
}

// --- prices and the 30-second rule ---

TEST_F(OrderComputation, FixedPricesAreNeverRepriced)
{
    addStockAccount("a1", 0);
    CBasketStockData fixed = row("SH", "600000", 1, 100);
    fixed.m_useFixedPrice = true;
    fixed.m_price = 9.5;
    addInstrument("SH", "600000");
    storeBasket(QStringLiteral("b"), {fixed});
    CPriceData quote;
    quote.m_market = "SH";
    quote.m_stockCode = "600000";
    quote.m_lastPrice = 10;
    quote.m_askPrice1 = 10.01;
    CQuoteClient::instance()->setStockPrice(quote);
    chooseBasket(QStringLiteral("b"));
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0].m_priceType, ttservice::PRICE_TYPE_FIXED);
    EXPECT_DOUBLE_EQ(lines()[0].m_price, 9.5);

    getUserConfig()->baskets()[QStringLiteral("b")].m_stocks[0].m_useFixedPrice = false;
    form->updateBasketConfirmData();
    EXPECT_DOUBLE_EQ(lines()[0].m_price, 10.01) << "a market price follows the quote at each read";
}

// --- the form's events ---

struct CellEvent
{
    int id;
    bool recalculates;
    const char *logText; // empty: no line
};

class CellCommits : public OrderComputation, public ::testing::WithParamInterface<CellEvent>
{
};

TEST_P(CellCommits, RecalculateAndLogByCell)
{
    const CellEvent c = GetParam();
    utils::CLogCapture capture;
    const int before = sink.count(1070);
    form->handleEvent(103, c.id, 0, QStringLiteral("7"), nullptr);
    EXPECT_EQ(sink.count(1070) - before, c.recalculates ? 1 : 0);
    const QString expected = QString::fromUtf8(c.logText);
    bool found = false;
    for (const std::string &line : capture.lines())
        found = found || QString::fromStdString(line).endsWith(expected);
    if (expected.isEmpty())
        EXPECT_TRUE(capture.lines().empty());
    else
        EXPECT_TRUE(found) << c.logText;
}

INSTANTIATE_TEST_SUITE_P(Cells, CellCommits,
    ::testing::Values(CellEvent{19, true, "] User u1 Modify basket copies: 7"},
                      CellEvent{58, true, "] User u1 Modify total money: 7"},
                      CellEvent{59, true, "] User u1 Modify trade percentage rate: 7"},
                      CellEvent{51, true, "] User u1 Modify sell percentage rate: 7"},
                      CellEvent{91, true, "] User u1 Modify command percentage rate: 7"},
                      CellEvent{63, true, ""},
                      CellEvent{93, false, "] User u1 Modify contract percentage rate: 7"}));

TEST_F(OrderComputation, BasketChoiceLogsAndLocksAccountsForSellLists)
{
    addStockAccount("a1", 0);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 100)});
    utils::CLogCapture capture;
    chooseBasket(QStringLiteral("b"));
    ASSERT_FALSE(capture.lines().empty());
    EXPECT_NE(capture.lines().back().find("[TC::COpBasketParamsWidget::handleEvent] User u1 Modify basket: b"),
              std::string::npos);
    EXPECT_TRUE(form->accountsWidget()->isEnabled());
    form->handleEvent(1139, 0, 2, QString(), nullptr);
    EXPECT_FALSE(form->accountsWidget()->isEnabled());
    form->handleEvent(1139, 0, 0, QString(), nullptr);
    EXPECT_TRUE(form->accountsWidget()->isEnabled());
}

TEST_F(OrderComputation, MoneyTipFollowsTheAmount)
{
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 101)});
    chooseBasket(QStringLiteral("b"));
    setMode(VT_MONEY);
    WK::CParameterCell *money = form->cell(COpBasketParamsWidget::CellMoney);
    money->setDouble(12345);
    form->handleEvent(107, 58, 0, QString(), nullptr);
    ASSERT_FALSE(WK::CMessageTip::records().isEmpty());
    EXPECT_EQ(WK::CMessageTip::records().back().text, utils::numToChinese(12345));
    money->setDouble(0);
    form->handleEvent(107, 58, 0, QString(), nullptr);
    EXPECT_FALSE(form->findChild<WK::CMessageTip *>()->isVisible());
}

TEST_F(OrderComputation, TabChangeRecalculatesAndLogsTheWord)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
    FormProbe tabs(&sink);
    utils::CLogCapture capture;
    sink.events.clear();
    tabs.handleEvent(5, static_cast<int>(TOT_SELL), 0, QString(), nullptr);
    EXPECT_EQ(tabs.getTradeOpType(), TOT_SELL);
    EXPECT_EQ(tabs.getOperationType(), 19);
    // The tab is announced before the list that was sized for it.
    const auto tabEvent = std::find(sink.events.begin(), sink.events.end(), 1072);
    const auto listEvent = std::find(sink.events.rbegin(), sink.events.rend(), 1070);
    ASSERT_NE(tabEvent, sink.events.end());
    ASSERT_NE(listEvent, sink.events.rend());
    EXPECT_LT(tabEvent - sink.events.begin(), sink.events.rend() - listEvent);
    ASSERT_FALSE(capture.lines().empty());
    EXPECT_NE(capture.lines().back().find("User u1 Modify tradeOperType: 1024"), std::string::npos);
}

TEST_F(OrderComputation, LockFreezesTheSizingButNotTheRatio)
{
    form->handleEvent(5, 2, 0, QString(), nullptr);
    EXPECT_FALSE(form->basketsCombo()->isEnabled());
    EXPECT_FALSE(form->volumnCombobox()->isEnabled());
    EXPECT_FALSE(form->cell(COpBasketParamsWidget::CellCopies)->isEnabled());
    EXPECT_FALSE(form->cell(COpBasketParamsWidget::CellContract)->isEnabled());
    EXPECT_TRUE(form->cell(COpBasketParamsWidget::CellRatio)->isEnabled());
    form->handleEvent(5, 2, 0, QString(), nullptr);
    EXPECT_TRUE(form->basketsCombo()->isEnabled());
    EXPECT_TRUE(form->cell(COpBasketParamsWidget::CellCopies)->isEnabled());
}
