// Lists from other sources than a stored basket (handed-over positions, account positions), the
// engines that rewrite a list (suspended stocks, black stocks) and the money of a one-key order.
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "COpBasketsLineEdit.h"

#include "CBlackAndWhiteListService.h"
#include "CCheckBox.h"
#include "CMemoryDataCenter.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CTradeClient.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"
#include "TraderCenter.h"

#include <QComboBox>

#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;
using sample::row;
using sample::setQuote;

namespace {

class FormProbe : public COpBasketParamsWidget
{
public:
    using COpBasketParamsWidget::COpBasketParamsWidget;
    using COpBasketParamsWidget::calcOneKeyAvailableMoney;
    using COpBasketParamsWidget::updateAccountsSlo;
};

struct Held { const char *code; double volume; double sellable; };

class ListSources : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        form = std::make_unique<FormProbe>(nullptr);
        form->setReplaceToolBar(toolBar.get());
        form->setCurrentOperationType(TOT_BUY);
        toolBar->setShowReplace(true);
        for (const char *code : {"600000", "600001", "600002", "600003", "600004", "510300", "510500"})
            sample::addInstrument("SH", code);
    }

    void addAccount(const std::string &key, double available, const std::vector<Held> &held = {},
                    ttservice::EVQBrokerType type = ttservice::BROKER_TYPE_STOCK, bool select = true)
    {
        std::vector<ttservice::CPositionStatics> positions;
        for (const Held &h : held)
            positions.push_back(sample::held("SH", h.code, h.volume, h.sellable));
        sample::addAccount(key, type, available, positions);
        form->refreshAccounts();
        if (select)
            form->accountsWidget()->setSelectedAccount(QString::fromStdString(key), true);
    }

    void storeBasket(const QString &name, const QList<CBasketStockData> &rows)
    {
        sample::storeBasket(name, rows);
        form->updateBasketSetting();
    }

    void setMode(int mode)
    {
        const int index = form->volumnCombobox()->findData(mode);
        ASSERT_GE(index, 0);
        form->volumnCombobox()->setCurrentIndex(index);
    }

    CPositionParam position(const std::string &account, const char *code, int64_t volume)
    {
        CPositionParam p;
        p.m_account = getUserConfig()->getAccountData(QString::fromStdString(account)).get();
        p.m_market = QStringLiteral("SH");
        p.m_stockCode = QString::fromLatin1(code);
        p.m_volume = volume;
        return p;
    }

    const std::vector<CCodeOrderParam> &lines() { return *form->getCodeOrderParams(); }

    // "account code volume" per line, in list order.
    std::vector<std::string> shown()
    {
        std::vector<std::string> out;
        for (const CCodeOrderParam &line : lines())
            out.push_back((line.m_account ? line.m_account->getKey() : std::string("-")) + " " + line.m_stockInfo.m_stockCode
                          + " " + std::to_string(line.m_volume));
        return out;
    }

    std::unique_ptr<COpBasketReplaceStockToolBar> toolBar = std::make_unique<COpBasketReplaceStockToolBar>(nullptr);
    std::unique_ptr<FormProbe> form;
};

} // namespace

// --- the sell ratio ---

TEST(SellRatio, NearestLotHalvesUpCappedAtTheHolding)
{
    const struct { int64_t held; double ratio; int unit; int64_t expected; } cases[] = {
        {133, 1.0, 100, 133},       // all of it, odd lot included
        {133, 0.5, 100, 100},       // 66 + 50 = 116 -> 100
        {150, 0.5, 100, 100},       // 75 + 50 = 125 -> 100
        {150, 0.6, 100, 100},       // 90 + 50 = 140 -> 100
        {100, 0.99, 100, 100},      // one lot or less: all of it
        {1000, 1.5, 100, 1000},     // above 100%: what is held
        {1000, 0.35, 100, 400},     // 350 + 50 = 400: a half goes up
        {1000, 0.349, 100, 300},
        {1000, 0.999995, 100, 1000}, // within the tolerance of 100%
        {0, 0.5, 100, 0},
        {7, 0.5, 1, 3},             // a unit of one: 3.5 truncates to 3
    };
    for (const auto &c : cases) {
        EXPECT_EQ(COpBasketParamsWidget::sellRatioVolume(c.held, c.ratio, c.unit), c.expected)
            << c.held << " at " << c.ratio << " in lots of " << c.unit;
    }
}

// --- handed-over lists ---

TEST_F(ListSources, BatchSellTakesItsAccountsFromTheRowsAndAppliesTheRatio)
{
    addAccount("a1", 0, {}, ttservice::BROKER_TYPE_STOCK, false);
    addAccount("a2", 0, {}, ttservice::BROKER_TYPE_STOCK, false);
    setQuote("SH", "600000", 10);
    form->batchPositions({position("a1", "600000", 1500), position("a2", "600000", 133), position("a2", "600001", 90)},
                         BATCH_SELL);
    EXPECT_EQ(form->getTradeOpType(), TOT_SELL);
    EXPECT_EQ(form->basketsCombo()->batchOp(), ETempBatchOrderFlags(BATCH_SELL));
    EXPECT_EQ(form->accountsWidget()->getSelectedAccounts(), (QSet<QString>{QStringLiteral("a1"), QStringLiteral("a2")}))
        << "the picker shows exactly the accounts of the rows";
    EXPECT_EQ(shown(), (std::vector<std::string>{"a1 600000 1500", "a2 600000 133", "a2 600001 90"}));
    for (const CCodeOrderParam &line : lines())
        EXPECT_EQ(line.m_operationType, ttservice::OT_SELL);

    form->cell(COpBasketParamsWidget::CellSellRatio)->setDouble(50);
    form->updateBasketConfirmData();
    EXPECT_EQ(shown(), (std::vector<std::string>{"a1 600000 800", "a2 600000 100", "a2 600001 90"}));

    // Unticking every account changes nothing: the rows name their accounts.
    form->accountsWidget()->clearCheckStatus();
    form->updateBasketConfirmData();
    EXPECT_EQ(lines().size(), 3u);
}

TEST_F(ListSources, BatchBuyWeighsByMarketValueOrByVolumeWithoutAPrice)
{
    addAccount("a1", 1e6);
    setQuote("SH", "600000", 10);
    setQuote("SH", "600001", 20);
    form->batchPositions({position("a1", "600000", 1000), position("a1", "600001", 1000)}, BATCH_BUY);
    EXPECT_EQ(form->getTradeOpType(), TOT_BUY);
    setMode(VT_MONEY);
    form->cell(COpBasketParamsWidget::CellMoney)->setDouble(90000);
    form->updateBasketConfirmData();
    // Weights 10,000 and 20,000: 30,000 and 60,000 of the money, 3,000 shares each.
    EXPECT_EQ(shown(), (std::vector<std::string>{"a1 600000 3000", "a1 600001 3000"}));
}

TEST_F(ListSources, PositionSellListsTheHoldingsOfTheSelectedAccounts)
{
    addAccount("a1", 0, {{"600000", 1500, 1500}, {"600001", 133, 133}, {"600002", 500, 0}});
    addAccount("a2", 0, {{"600003", 800, 300}});
    addAccount("a3", 0, {{"600004", 800, 800}}, ttservice::BROKER_TYPE_STOCK, false);
    form->setCurrentOperationType(TOT_SELL);
    form->basketsCombo()->setBatchOp(BATCH_POSITION_SELL, true);
    EXPECT_EQ(shown(), (std::vector<std::string>{"a1 600000 1500", "a1 600001 133", "a1 600002 0", "a2 600003 300"}))
        << "what can be sold now, of the ticked accounts only; an empty position keeps its line";

    form->cell(COpBasketParamsWidget::CellSellRatio)->setDouble(50);
    form->updateBasketConfirmData();
    EXPECT_EQ(shown(), (std::vector<std::string>{"a1 600000 800", "a1 600001 100", "a1 600002 0", "a2 600003 200"}));
    EXPECT_EQ(COpBasketParamsWidget::getAccoutPositions(QStringLiteral("a1")).size(), 3u);
    EXPECT_TRUE(COpBasketParamsWidget::getAccoutPositions(QStringLiteral("nobody")).empty());
}

// --- suspended stocks into a substitute basket ---

class EtfReplacement : public ListSources
{
protected:
    void SetUp() override
    {
        ListSources::SetUp();
        addAccount("a1", 1e6);
        addAccount("a2", 1e6);
        setQuote("SH", "600000", 10, 10);
        setQuote("SH", "600001", 10, 10);
        CQuoteClient::instance()->setStoppedStock(QStringLiteral("600001.SH"), true);
        storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 1000), row("SH", "600001", 1, 1000)});
        setQuote("SH", "510300", 4, 4);
        setQuote("SH", "510500", 5, 5);
        toolBar->checkBox(8)->setChecked(true);
    }

    void useSubstitute(const QList<CBasketStockData> &rows)
    {
        storeBasket(QStringLiteral("etf"), rows);
        toolBar->replaceBasketEdit()->setBasket(QStringLiteral("etf"), false);
        form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    }
};

TEST_F(EtfReplacement, TheMoneyOfASuspendedStockBuysTheSubstitutes)
{
    const std::vector<std::string> kept = {"a1 600000 500", "a2 600000 500", "a1 600001 0", "a2 600001 0"};
    const struct { const char *name; QList<CBasketStockData> substitute; std::vector<std::string> added; } cases[] = {
        // 1000 x 10 of suspended money: a quarter buys 625 of 510300, three quarters 1500 of
        // 510500; each split over the two accounts in whole lots, no odd lot on a buy.
        {"byWeight", {row("SH", "510300", 1, 0), row("SH", "510500", 3, 0)},
         {"a1 510300 300", "a2 510300 300", "a1 510500 800", "a2 510500 700"}},
        // 5,000 each: 1,250 of 510300 (600 a side, the odd 50 left out) and 1,000 of 510500.
        {"zeroWeightsShareEqually", {row("SH", "510300", 0, 0), row("SH", "510500", 0, 0)},
         {"a1 510300 600", "a2 510300 600", "a1 510500 500", "a2 510500 500"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        useSubstitute(c.substitute);
        std::vector<std::string> expected = kept;
        expected.insert(expected.end(), c.added.begin(), c.added.end());
        EXPECT_EQ(shown(), expected);
    }

    CQuoteClient::instance()->setStoppedStock(QStringLiteral("510300.SH"), true);
    CQuoteClient::instance()->setStoppedStock(QStringLiteral("510500.SH"), true);
    form->updateBasketConfirmData();
    EXPECT_EQ(shown(), kept) << "with every substitute suspended nothing is bought in their place";

    // A stock already in the list: 10,000 buys 1,000 more of 600000, split 500/500, all landing
    // on the last line of the key.
    useSubstitute({row("SH", "600000", 1, 0)});
    EXPECT_EQ(shown(), (std::vector<std::string>{"a1 600000 500", "a2 600000 1500", "a1 600001 0", "a2 600001 0"}));
}

TEST_F(EtfReplacement, OnlyAPlainBuyIsReplaced)
{
    useSubstitute({row("SH", "510300", 1, 0)});
    ASSERT_EQ(lines().size(), 6u);
    form->setCurrentOperationType(TOT_ALL);
    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    for (const CCodeOrderParam &line : lines())
        EXPECT_NE(line.m_stockInfo.m_stockCode, "510300") << "the one-key tab is not replaced";

    form->setCurrentOperationType(TOT_BUY);
    toolBar->checkBox(8)->setChecked(false);
    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    EXPECT_EQ(lines().size(), 4u) << "without the box the suspended lines stay as they are";
}

// --- black stocks into white stocks ---

class BlacklistReplacement : public ListSources
{
protected:
    void SetUp() override
    {
        ListSources::SetUp();
        addAccount("a1", 1e6);
        addAccount("a2", 1e6);
        setQuote("SH", "600000", 10);
        setQuote("SH", "600001", 33);
        setQuote("SH", "600002", 10);
        setQuote("SH", "600003", 5);
        lists()->setWhiteStock(QStringLiteral("a1"), QStringLiteral("600000.SH"), QStringLiteral("600001.SH"));
        lists()->setWhiteStock(QStringLiteral("a1"), QStringLiteral("600002.SH"), QStringLiteral("600001.SH"));
        lists()->setWhiteStock(QStringLiteral("a2"), QStringLiteral("600003.SH"), QStringLiteral("688999.SH"));
    }

    static CBlackAndWhiteListService *lists() { return CBlackAndWhiteListService::instance(); }

    void choose(const QList<CBasketStockData> &rows)
    {
        storeBasket(QStringLiteral("b"), rows);
        form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    }
};

TEST_F(BlacklistReplacement, BlackStocksOfABuyAreReplacedOrLeftUnbought)
{
    // Box 4 replaces black stocks, box 2 filters them.
    const struct { const char *name; int box; quint64 tab; QList<CBasketStockData> rows; std::vector<std::string> expected; }
        cases[] = {
            {"noBoxTicked", 0, TOT_BUY, {row("SH", "600000", 1, 2000)}, {"a1 600000 1000", "a2 600000 1000"}},
            // a1: 1000 at 10 gives 303 at 33, 300 after the lot, twice, on one line; a2 is not black.
            {"replacedInWholeLots", 4, TOT_BUY, {row("SH", "600000", 1, 2000), row("SH", "600002", 1, 2000)},
            {"a2 600000 1000", "a2 600002 1000", "a1 600001 600"}},
            {"unknownWhiteStockBuysNothing", 4, TOT_BUY, {row("SH", "600003", 1, 2000)}, {"a1 600003 1000", "a2 600003 0"}},
            {"aBlackStockMayBeSold", 4, TOT_SELL, {row("SH", "600000", 1, 2000, ttservice::OT_SELL)},
            {"a1 600000 1000", "a2 600000 1000"}},
            {"filteredInItsAccountOnly", 2, TOT_BUY, {row("SH", "600000", 1, 2000), row("SH", "600002", 1, 2000)},
            {"a1 600000 0", "a2 600000 1000", "a1 600002 0", "a2 600002 1000"}},
        };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        toolBar->checkBox(2)->setChecked(c.box == 2);
        toolBar->checkBox(4)->setChecked(c.box == 4);
        form->setCurrentOperationType(c.tab);
        getMsgService()->reset();
        choose(c.rows);
        EXPECT_EQ(shown(), c.expected);
        if (QLatin1String(c.name) == QLatin1String("unknownWhiteStockBuysNothing")) {
            form->updateBasketConfirmData(); // told once for the same outcome, however often sized
            EXPECT_EQ(shownMessages(), QStringLiteral("黑名单股票没有可替换的白名单股票, 不买入: a2 600003.SH"));
        }
    }
}

// --- the money of a one-key order ---

TEST_F(ListSources, OneKeyMoneyCoversTheBuysWithCashOrWithWhatTheSellsBringIn)
{
    setQuote("SH", "600000", 1);
    setQuote("SH", "600001", 1);
    storeBasket(QStringLiteral("b"), {row("SH", "600000", 1, 100)});
    form->setCurrentOperationType(TOT_ALL);
    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    setMode(VT_COPIES);
    form->cell(COpBasketParamsWidget::CellCopies)->setDouble(1);

    const struct { const char *name; double available; int64_t buy, sell; double sellable, expected; } cases[] = {
        {"cashCoversTheBuys", 100, 100, 0, 0, 100},
        {"withinTheTolerance", 99.999995, 100, 0, 0, 99.999995},
        {"sellsCoverTheRest", 50, 100, 60, 60, 110},
        {"exactlyUsedUpIsShort", 50, 100, 50, 50, 0},
        {"onlyWhatCanBeSoldCounts", 50, 100, 1000, 30, 0},
        {"sellableCappedStillCovers", 50, 100, 1000, 60, 110},
    };
    int n = 0;
    for (const auto &c : cases) {
        const std::string key = "k" + std::to_string(n++);
        addAccount(key, c.available, {{"600001", c.sellable, c.sellable}}, ttservice::BROKER_TYPE_STOCK, false);
        const QList<CBasketStockData> rows = {row("SH", "600000", 1, c.buy),
                                              row("SH", "600001", 1, c.sell, ttservice::OT_SELL)};
        EXPECT_NEAR(form->calcOneKeyAvailableMoney(rows, QString::fromStdString(key), 2, 0), c.expected, 1e-9) << c.name;
    }
    EXPECT_EQ(form->calcOneKeyAvailableMoney({row("SH", "600000", 1, 100)}, QStringLiteral("nobody"), 1, 0), 0.0)
        << "no account detail, no money";
}

TEST_F(ListSources, AccountLimitsAreAskedForLoggedInCreditAccountsOnly)
{
    addAccount("c1", 0, {}, ttservice::BROKER_TYPE_CREDIT);
    addAccount("c2", 0, {}, ttservice::BROKER_TYPE_CREDIT);
    addAccount("s1", 0);
    CTradeClient::instance()->setLoginStatus("c2", static_cast<ttservice::EBROKER_LOGIN_STATUS>(1));
    form->updateAccountsSlo();
    const auto center = boost::dynamic_pointer_cast<ttservice::CMemoryDataCenter>(
        ttservice::TraderCenter::instance()->getDataCenter());
    ASSERT_TRUE(center);
    const auto queries = center->queries();
    ASSERT_EQ(queries.size(), 1u);
    EXPECT_EQ(queries.front().m_request->m_dataType, 13904);
    EXPECT_EQ(queries.front().m_request->getKey(), "c1");
}
