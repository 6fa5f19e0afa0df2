#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"

#include "CBlackAndWhiteListService.h"
#include "CCheckBox.h"
#include "CLogCapture.h"
#include "CMessageTip.h"
#include "CMsgService.h"
#include "ChineseNumerals.h"
#include "LuaModuleCtrl.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CTimeService.h"
#include "CAccountData.h"
#include "IDataCenter.h"
#include "TraderCenter.h"
#include "CTradeClient.h"
#include "StockTypeCenter.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <memory>
#include <thread>

using namespace TC;
using ttservice::CCodeOrderParam;
using sample::row;
using sample::setQuote;
using P = COpBasketParamsWidget;

namespace {

// Opens the row filters to the tests.
class FormProbe : public P
{
public:
    using P::COpBasketParamsWidget;
    using P::filterStockParam;
};

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

    void addStockAccount(const std::string &key, double available)
    {
        sample::addAccount(key, ttservice::BROKER_TYPE_STOCK, available);
        select(key);
    }

    void select(const std::string &key)
    {
        form->refreshAccounts();
        form->accountsWidget()->setSelectedAccount(QString::fromStdString(key), true);
    }

    void storeBasket(const QString &name, const QList<CBasketStockData> &rows, const QString &indexCode = QString())
    {
        sample::storeBasket(name, rows, ttservice::BROKER_TYPE_STOCK, indexCode.isEmpty() ? 0 : 1, indexCode);
        form->updateBasketSetting();
    }

    // Chooses the basket as the user does: the picker reports the choice and the form sizes it.
    void chooseBasket(const QString &name) { form->basketsCombo()->setBasket(name, false); }
    void useBasket(const QList<CBasketStockData> &rows)
    {
        storeBasket(QStringLiteral("b"), rows);
        chooseBasket(QStringLiteral("b"));
    }

    // Sizes the list anew by the mode with its cell set to the value.
    void sizeBy(int mode, int cell, double value)
    {
        setMode(mode);
        form->cell(cell)->setDouble(value);
        form->updateBasketConfirmData();
    }

    void setMode(int mode)
    {
        const int index = form->volumnCombobox()->findData(mode);
        ASSERT_GE(index, 0) << "mode " << mode << " not offered";
        form->volumnCombobox()->setCurrentIndex(index);
    }

    const std::vector<CCodeOrderParam> &lines() { return *form->getCodeOrderParams(); }

    int64_t totalVolume()
    {
        int64_t sum = 0;
        for (const CCodeOrderParam &line : lines())
            sum += line.m_volume;
        return sum;
    }

    int count(int event) const
    {
        return static_cast<int>(std::count_if(sink.seen.begin(), sink.seen.end(),
                                              [event](const EventRecorder::Seen &s) { return s.event == event; }));
    }

    EventRecorder sink;
    FormProbe *form = nullptr;
    std::unique_ptr<COpBasketReplaceStockToolBar> toolBar = std::make_unique<COpBasketReplaceStockToolBar>(nullptr);
};

} // namespace

// --- the formulas ---

TEST_F(OrderComputation, RowTotalByMode)
{
    setQuote("SH", "600000", 10);
    useBasket({row("SH", "600000", 1, 101)});
    const struct { const char *name; int mode, cell; double value; CBasketStockData row; double sumWeight; int expected; }
        cases[] = {
            {"fractionalCopies", VT_COPIES, P::CellCopies, 2.5, row("SH", "600000", 1, 101), 1, 252},
            {"moneyByWeight", VT_MONEY, P::CellMoney, 100000, row("SH", "600000", 0.5, 0), 1, 5000},
            {"noWeightInTheSum", VT_MONEY, P::CellMoney, 100000, row("SH", "600000", 0.5, 0), 0, 0},
            {"noPrice", VT_MONEY, P::CellMoney, 100000, row("SH", "600001", 0.5, 0), 1, 0},
        };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        setMode(c.mode);
        form->cell(c.cell)->setDouble(c.value);
        EXPECT_EQ(form->getTotalVolume(c.row, c.sumWeight, 0, 100, 0, 1), c.expected);
    }
    // A custom group states its own volumes.
    form->basketsCombo()->setBatchOp(BATCH_CUSTOM_GROUP, false);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 0.5, 777), 1, 0, 100, 0, 1), 777);
}

TEST_F(OrderComputation, FuturesMoneyIsDividedByTheMultiple)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_futures"}, true);
    FormProbe futures(nullptr);
    futures.setCurrentOperationType(TOT_FUTURE);
    sample::addInstrument("CFFEX", "IF2412", 300);
    setQuote("CFFEX", "IF2412", 4000);
    futures.volumnCombobox()->setCurrentIndex(futures.volumnCombobox()->findData(VT_MONEY));
    ASSERT_EQ(futures.getCurrentVolumnType(), VT_MONEY);
    // 250 contracts' worth of the index divided by the multiple 300: none.
    futures.cell(P::CellMoney)->setDouble(1000000);
    EXPECT_EQ(futures.getTotalVolume(row("CFFEX", "IF2412", 1, 0), 1, 0, 1, 0, 1), 0);
    futures.cell(P::CellMoney)->setDouble(12000000);
    EXPECT_EQ(futures.getTotalVolume(row("CFFEX", "IF2412", 1, 0), 1, 0, 1, 0, 1), 10);
}

TEST_F(OrderComputation, IndexUnitValueUsesTheIndexMultiple)
{
    storeBasket(QStringLiteral("中证500"), {row("SH", "600000", 1, 100)}, QStringLiteral("000905"));
    setQuote("SH", "000905", 2000);
    setQuote("SH", "600000", 10);
    chooseBasket(QStringLiteral("中证500"));
    setMode(VT_INDEX_UNIT);
    form->cell(P::CellTotalLots)->setInt(3);
    double indexValue = 0;
    int indexCount = 1;
    form->getIndexDataByBasket(indexValue, indexCount);
    EXPECT_DOUBLE_EQ(indexValue, 2000);
    EXPECT_EQ(indexCount, 200);
    EXPECT_EQ(form->getTotalVolume(row("SH", "600000", 0.01, 0), 1, 0, 100, indexValue, indexCount), 1200);
}

TEST_F(OrderComputation, AnAmountBeyondAnyOrderKeepsEveryLineUnsizedAndSaysSo)
{
    // A cheap stock whose share of a huge amount passes what an order can hold must not drop
    // out and leave the dear one to take all the money.
    setQuote("SH", "600000", 2);
    setQuote("SH", "600001", 900);
    addStockAccount("a1", 1e7);
    useBasket({row("SH", "600000", 1, 100), row("SH", "600001", 1, 100)});
    setMode(VT_MONEY);
    for (double amount : {999999999999.0, 1e10}) {
        SCOPED_TRACE(amount);
        getMsgService()->reset();
        form->cell(P::CellMoney)->setDouble(amount);
        form->updateBasketConfirmData();
        ASSERT_EQ(lines().size(), 2u);
        EXPECT_EQ(totalVolume(), 0);
        EXPECT_TRUE(shownMessages().contains(QStringLiteral("超出可下单范围"))) << shownMessages().toStdString();
    }
    form->cell(P::CellCopies)->setDouble(999999999);
    setMode(VT_COPIES);
    EXPECT_EQ(lines().size(), 2u);
    EXPECT_EQ(totalVolume(), 0);
}

// --- sizing over accounts ---

// The strip's target per account: the mode's money shared by the accounts' weights, as their
// volumes are split; a list sized by copies aims at no money.
TEST_F(OrderComputation, AimedMoneyIsTheModesMoneySharedByTheAccountWeights)
{
    setQuote("SH", "600000", 10);
    addStockAccount("a1", 1e6);
    addStockAccount("a2", 3e6);
    form->accountsWidget()->setAccountWeight(QStringLiteral("a2"), 3);
    useBasket({row("SH", "600000", 1, 100)});
    sizeBy(VT_AVAILABLE, P::CellRatio, 50);
    // Half of 4,000,000 available, a quarter and three quarters of it.
    const QMap<QString, double> expected{{QStringLiteral("a1"), 500000.0}, {QStringLiteral("a2"), 1500000.0}};
    EXPECT_EQ(form->aimedMoney(), expected);
    // The total-asset mode takes its own cell: a quarter of 8,000,000 of assets is the same sum.
    for (const auto &[key, asset] : {std::make_pair("a1", 2e6), std::make_pair("a2", 6e6)})
        ttservice::TraderCenter::instance()->getDataCenter()->getAccountData(key)->getAccountDetail()->m_totalAsset = asset;
    sizeBy(VT_ASSET_RATIO, P::CellAssetRatio, 25);
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

TEST_F(OrderComputation, AvailableMoneyCountsAccountsWithoutDetailAsZero)
{
    addStockAccount("a1", 1000);
    addStockAccount("a2", 1000);
    ttservice::CAccountInfo bare;
    bare.m_accountKey = "a3";
    bare.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    getUserConfig()->addAccountWithoutDetail(bare);
    select("a3");
    setQuote("SH", "600000", 10);
    useBasket({row("SH", "600000", 1, 0)});
    sizeBy(VT_AVAILABLE, P::CellRatio, 100);
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
    useBasket({row("SH", "600000", 1, 0), row("SH", "600001", 1, 0)});
    sizeBy(VT_MONEY, P::CellMoney, 10000);
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

// Where the form sizes each row by its own side, the tab words the side of its lines; one
// account on the one-key tab buys what its money allows, in whole lots only.
TEST_F(OrderComputation, RowSidesAndWholeLotsByTab)
{
    setQuote("SH", "600000", 10);
    setQuote("SH", "600001", 10);
    const struct { const char *name; quint64 tab; ttservice::EVQBrokerType broker; std::vector<std::string> expected; } cases[] = {
        {"oneKeyOneAccount", TOT_ALL, ttservice::BROKER_TYPE_STOCK, {"18 100", "19 100"}},
        {"credit", TOT_CREDIT, ttservice::BROKER_TYPE_CREDIT, {"20 100", "21 100"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        form->setCurrentOperationType(c.tab);
        sample::addAccount(c.name, c.broker, 1e6);
        select(c.name);
        useBasket({row("SH", "600000", 1, 150), row("SH", "600001", 1, 100, ttservice::OT_SELL)});
        sizeBy(VT_COPIES, P::CellCopies, 1);
        std::vector<std::string> got;
        for (const CCodeOrderParam &line : lines())
            got.push_back(std::to_string(int(line.m_operationType)) + " " + std::to_string(line.m_volume));
        EXPECT_EQ(got, c.expected);
    }
}

TEST_F(OrderComputation, RowsOfOneAccountAndSplitsOfTheWrongLength)
{
    for (const char *key : {"a1", "a2", "a3"})
        addStockAccount(key, 0);
    CBasketStockData own = row("SH", "600000", 1, 300);
    own.m_accountKey = "a2";
    storeBasket(QStringLiteral("b"), {own, row("SH", "600001", 1, 300), row("SH", "600002", 1, 300)});
    CTradeClient::instance()->setSplitEntrustsHandler([](const CTradeClient::CSplitEntrustsCall &call) {
        if (call.m_stockCode == "600001")
            return std::vector<int>{300};
        return std::vector<int>(call.m_accounts.size(), 100);
    });
    chooseBasket(QStringLiteral("b"));
    sizeBy(VT_COPIES, P::CellCopies, 1);

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
    useBasket({row("SH", "600000", 1, 100)});
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
        // A stored basket of its own sizes by copies first.
        form->cell(P::CellCopies)->setInt(1);
        useBasket({row("SH", "600000", 1, 100), row("SH", "600001", 1, 100), row("SH", "600002", 1, 100)});
    }
};

TEST_F(PendingQuotes, OneRebuildAfterTheLastAwaitedQuote)
{
    EXPECT_EQ(form->pendingQuotes().size(), 3);
    ASSERT_EQ(lines().size(), 3u);
    EXPECT_EQ(totalVolume(), 0) << "a list waiting for prices must not look sized";

    const int before = count(1070);
    sample::publishQuote("SH", "600000", 10);
    sample::publishQuote("SH", "600001", 10);
    EXPECT_EQ(count(1070), before);
    sample::publishQuote("SH", "600002", 10);
    EXPECT_EQ(count(1070), before + 1);
    EXPECT_EQ(totalVolume(), 300);

    // Live subscriptions keep reporting, but nothing is awaited any more.
    sample::publishQuote("SH", "600000", 11);
    EXPECT_EQ(count(1070), before + 1);
    // A second run finds every key subscribed and asks for nothing new.
    form->updateBasketConfirmData();
    EXPECT_TRUE(form->pendingQuotes().isEmpty());
    EXPECT_EQ(totalVolume(), 300);

    // Rows that need no quote drop the subscriptions.
    EXPECT_EQ(form->quoteRequestKeys().size(), 3);
    storeBasket(QStringLiteral("plain"), {row("SH", "601000", 1, 100)});
    chooseBasket(QStringLiteral("plain"));
    EXPECT_TRUE(form->quoteRequestKeys().isEmpty());
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(), 0);
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
    sample::storeBasket(QStringLiteral("f"), {row("CFFEX", "IF2412", 1, 2)}, ttservice::BROKER_TYPE_FUTURE);
    futures.updateBasketSetting();
    futures.basketsCombo()->setBasket(QStringLiteral("f"), false);
    ASSERT_EQ(futures.getCodeOrderParams()->size(), 1u);
    EXPECT_EQ(futures.pendingQuotes().size(), 1);
    EXPECT_EQ(futures.getCodeOrderParams()->front().m_volume, 2);
}

TEST_F(PendingQuotes, QuotesFromAWorkerThreadRebuildOnTheWidgetThread)
{
    const int before = count(1070);
    std::thread worker([] {
        for (const char *code : {"600000", "600001", "600002"})
            sample::publishQuote("SH", code, 10);
    });
    worker.join();
    QElapsedTimer clock;
    clock.start();
    while (count(1070) == before && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_EQ(count(1070), before + 1);
    EXPECT_EQ(totalVolume(), 300);
}

// --- row filters and prices ---

TEST_F(OrderComputation, FiltersRemoveAndMarkRows)
{
    addStockAccount("a1", 0);
    ttservice::StockTypeCenter::setTypedStock(126, "SH", "600126");
    ttservice::StockTypeCenter::setTypedStock(100017, "SZ", "000017");
    sample::addInstrument("SH", "600002");
    sample::setBook("SH", "600002", 9.0, ttservice::NO_VALUE, ttservice::NO_VALUE, 9.9, 9.0);
    CBlackAndWhiteListService *lists = CBlackAndWhiteListService::instance();
    lists->addBlackStock(QStringLiteral("a1"), QStringLiteral("600003.SH"));
    lists->addBlackStock(QStringLiteral("a1"), QStringLiteral("600004.SH"));
    lists->setWhiteStock(QStringLiteral("a1"), QStringLiteral("600004.SH"), QStringLiteral("600005.SH"));

    QList<CBasketStockData> rows = {row("SH", "600126", 1, 1), row("SZ", "000017", 1, 1), row("SH", "600002", 1, 1),
                                    row("SH", "600003", 1, 1), row("SH", "600004", 1, 1)};
    rows[2].m_filtered = true;
    auto marks = [&]() {
        QList<CBasketStockData> filtered = rows;
        form->filterStockParam(filtered);
        QStringList marked;
        for (const CBasketStockData &r : filtered)
            marked << (r.m_stockCode + (r.m_filtered ? QStringLiteral("*") : QString()));
        return marked.join(QLatin1Char(' '));
    };
    EXPECT_EQ(marks(), QStringLiteral("600002 600003 600004")) << "untradable codes go, old marks are reset";
    toolBar->setFilterDieTing(true);
    EXPECT_EQ(marks(), QStringLiteral("600002* 600003 600004"));
    toolBar->setFilterDieTing(false);
    toolBar->setFilterZhangTing(true);
    EXPECT_EQ(marks(), QStringLiteral("600002 600003 600004"));

    toolBar->setFilterZhangTing(false);
    toolBar->setShowReplace(true);
    toolBar->checkBox(4)->setChecked(true); // replace blacklisted stocks: a stock with a white one stays
    EXPECT_EQ(marks(), QStringLiteral("600002 600003* 600004"));
    toolBar->checkBox(2)->setChecked(true); // filter blacklisted stocks: all of them
    EXPECT_EQ(marks(), QStringLiteral("600002 600003* 600004*"));
}

TEST_F(OrderComputation, FixedPricesAreNeverRepriced)
{
    addStockAccount("a1", 0);
    CBasketStockData fixed = row("SH", "600000", 1, 100);
    fixed.m_useFixedPrice = true;
    fixed.m_price = 9.5;
    sample::addInstrument("SH", "600000");
    storeBasket(QStringLiteral("b"), {fixed});
    sample::setBook("SH", "600000", 10, 10.01, ttservice::NO_VALUE);
    chooseBasket(QStringLiteral("b"));
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0].m_priceType, ttservice::PRICE_TYPE_FIXED);
    EXPECT_DOUBLE_EQ(lines()[0].m_price, 9.5);

    getUserConfig()->baskets()[QStringLiteral("b")].m_stocks[0].m_useFixedPrice = false;
    form->updateBasketConfirmData();
    EXPECT_DOUBLE_EQ(lines()[0].m_price, 10.01) << "a market price follows the quote at each read";
}

// --- the form's events ---

// A committed sizing cell sizes the list again (the contract ratio does not) and leaves a line
// of the user and the value in the log.
TEST_F(OrderComputation, CellCommitsRecalculateAndAreLogged)
{
    const struct { int id; bool recalculates, logged; } cases[] = {
        {19, true, true}, {58, true, true}, {59, true, true}, {51, true, true},
        {91, true, true}, {63, true, false}, {93, false, true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.id);
        utils::CLogCapture capture;
        const int before = count(1070);
        form->handleEvent(103, c.id, 0, QStringLiteral("7"), nullptr);
        EXPECT_EQ(count(1070) - before, c.recalculates ? 1 : 0);
        const QString line = capture.lines().size() == 1 ? QString::fromStdString(capture.lines()[0]) : QString();
        EXPECT_EQ(line.contains(QStringLiteral("] User u1 Modify ")) && line.endsWith(QStringLiteral(": 7")), c.logged)
            << capture.lines().size() << " lines";
    }
}

TEST_F(OrderComputation, BasketChoiceLocksAccountsForSellLists)
{
    addStockAccount("a1", 0);
    useBasket({row("SH", "600000", 1, 100)});
    EXPECT_TRUE(form->accountsWidget()->isEnabled());
    form->handleEvent(1139, 0, 2, QString(), nullptr);
    EXPECT_FALSE(form->accountsWidget()->isEnabled());
    form->handleEvent(1139, 0, 0, QString(), nullptr);
    EXPECT_TRUE(form->accountsWidget()->isEnabled());
}

TEST_F(OrderComputation, MoneyTipFollowsTheAmount)
{
    useBasket({row("SH", "600000", 1, 101)});
    setMode(VT_MONEY);
    WK::CParameterCell *money = form->cell(P::CellMoney);
    money->setDouble(12345);
    form->handleEvent(107, 58, 0, QString(), nullptr);
    ASSERT_FALSE(WK::CMessageTip::records().isEmpty());
    EXPECT_EQ(WK::CMessageTip::records().back().text, utils::numToChinese(12345));
    money->setDouble(0);
    form->handleEvent(107, 58, 0, QString(), nullptr);
    EXPECT_FALSE(form->findChild<WK::CMessageTip *>()->isVisible());
}

TEST_F(OrderComputation, TabChangeAnnouncesTheTabBeforeItsList)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
    FormProbe tabs(&sink);
    sink.seen.clear();
    tabs.handleEvent(5, static_cast<int>(TOT_SELL), 0, QString(), nullptr);
    EXPECT_EQ(tabs.getTradeOpType(), TOT_SELL);
    EXPECT_EQ(tabs.getOperationType(), 19);
    // The tab is announced before the list that was sized for it.
    std::vector<int> events;
    for (const EventRecorder::Seen &s : sink.seen)
        events.push_back(s.event);
    const auto tabEvent = std::find(events.begin(), events.end(), 1072);
    const auto listEvent = std::find(events.rbegin(), events.rend(), 1070);
    ASSERT_NE(tabEvent, events.end());
    ASSERT_NE(listEvent, events.rend());
    EXPECT_LT(tabEvent - events.begin(), events.rend() - listEvent);
}

TEST_F(OrderComputation, LockFreezesTheSizingButNotTheRatio)
{
    // The basket picker, the sizing combo, the copies, contract and ratio cells.
    form->handleEvent(5, 2, 0, QString(), nullptr);
    EXPECT_EQ(fields(form->basketsCombo()->isEnabled(), form->volumnCombobox()->isEnabled(), form->cell(P::CellCopies)->isEnabled(),
                     form->cell(P::CellContract)->isEnabled(), form->cell(P::CellRatio)->isEnabled()),
              "false|false|false|false|true");
    form->handleEvent(5, 2, 0, QString(), nullptr);
    EXPECT_TRUE(form->basketsCombo()->isEnabled() && form->cell(P::CellCopies)->isEnabled());
}
