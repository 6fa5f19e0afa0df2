// The pieces of the position exchange dialog: the target basket table, the position table, the
// account tree and the portfolio picker.
#include "CExChangeBasketTable.h"
#include "CExchangePositionAccountTreeWidget.h"
#include "CExchangePositionTable.h"
#include "COpBasketsLineEdit.h"
#include "COpBasketsPortfolioComboBox.h"
#include "COpBasketsPortfolioTree.h"

#include "CBaseTableColumnPushButtonDelegate.h"
#include "CComboBox.h"
#include "COddEvenRowTable.h"
#include "CParameterCell.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "ConfirmTestSupport.h"
#include "LuaModuleCtrl.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "StockTypeCenter.h"
#include "SubstituteFixture.h"
#include "TraderCenter.h"

#include <gtest/gtest.h>

#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace TC;
using sample::addInstrument;
using sample::row;
using sample::setQuote;
using sample::storeBasket;

namespace {

using Root = confirmtest::Recorder;

boost::shared_ptr<ttservice::CAccountData> addAccount(const std::string &key, const std::vector<ttservice::CPositionStatics> &held = {})
{
    ttservice::CAccountInfo info;
    info.m_accountKey = key;
    info.m_accountId = "id-" + key;
    info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    getUserConfig()->addAccount(info, ttservice::CAccountDetail(), held);
    return ttservice::TraderCenter::instance()->getDataCenter()->getAccountData(key);
}

ttservice::CPositionStatics position(const char *code, double volume, int64_t available, double marketValue,
                                     int direction = 48)
{
    ttservice::CPositionStatics p;
    p.m_market = code[0] == 'I' ? "CFFEX" : "SH";
    p.m_stockCode = code;
    p.m_stockName = std::string("n") + code;
    p.m_volume = volume;
    p.m_availableVolume = available;
    p.m_lastPrice = 10;
    p.m_marketValue = marketValue;
    p.m_direction = direction;
    return p;
}

// --- the target basket table ---

class BasketTable : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        for (const char *code : {"600000", "600001", "600002", "600003"})
            addInstrument("SH", code);
        account = addAccount("a1");
    }

    CExChangeBasketTable *makeTable(quint64 word = TOT_ALL)
    {
        delete table;
        table = new CExChangeBasketTable(&root, word);
        table->setAccount(account);
        return table;
    }

    void chooseBasket(const QString &name) { table->basketEdit()->setBasket(name, false); }
    void sizeByCopies(int copies)
    {
        table->copiesCell()->setInt(copies);
        table->handleEvent(103, CExChangeBasketTable::COPIES_ID, 0, QString(), nullptr);
    }

    // The money sizing, as the user sets it: the combo, then the amount.
    void sizeByMoney(double money)
    {
        table->sizeCombo()->setCurrentIndex(1);
        table->handleEvent(64, CExChangeBasketTable::COMBO_ID, 1, QString(), nullptr);
        table->moneyCell()->setDouble(money);
        table->handleEvent(103, CExChangeBasketTable::MONEY_ID, 0, QString(), nullptr);
    }

    // code -> volume of the target rows, and the volumes the table shows.
    std::map<std::string, int64_t> volumes() const
    {
        std::map<std::string, int64_t> out;
        QVector<CBasketStockData> rows;
        table->getBasketStockParam(rows);
        for (const CBasketStockData &r : rows)
            out[r.m_stockCode.toStdString()] = r.m_volume;
        for (int id = 0; id < table->table()->dataRowCount(); ++id)
            EXPECT_EQ(table->table()->itemLonglong(id, CExChangeBasketTable::COL_VOLUME),
                      out[table->table()->itemText(id, CExChangeBasketTable::COL_CODE).toStdString()]);
        return out;
    }

    Root root;
    boost::shared_ptr<ttservice::CAccountData> account;
    CExChangeBasketTable *table = nullptr;
};

TEST_F(BasketTable, MoneyIsSpreadByWeightInWholeUnits)
{
    const char *codes[] = {"600000", "600001", "600002", "600003"};
    const struct { const char *name; std::vector<double> weights; double money, last; std::vector<int64_t> expected; } rows[] = {
        {"quarterOfAMillionAtTen", {1, 1, 1, 1}, 1000000, 10, {25000, 25000, 25000, 25000}},
        {"weightsSummingToZero", {1, -1, 0}, 1000000, 10, {0, 0, 0}},
        {"hundredFiftySharesRoundToHundred", {1}, 1500, 10, {100}},
        {"belowOneUnitGivesNothing", {1, 1}, 1500, 10, {0, 0}},
        {"unequalWeights", {3, 1}, 100000, 20, {3700, 1200}}};
    for (const auto &c : rows) {
        SCOPED_TRACE(c.name);
        QList<CBasketStockData> stocks;
        for (size_t i = 0; i < c.weights.size(); ++i) {
            stocks.push_back(row("SH", codes[i], c.weights[i], 700));
            setQuote("SH", codes[i], c.last);
        }
        storeBasket(QStringLiteral("w"), stocks);
        makeTable();
        chooseBasket(QStringLiteral("w"));
        sizeByMoney(c.money);
        const std::map<std::string, int64_t> shown = volumes();
        for (size_t i = 0; i < c.expected.size(); ++i)
            EXPECT_EQ(shown.at(codes[i]), c.expected[i]) << codes[i];
        // Every key already has a price: nothing is awaited.
        EXPECT_TRUE(table->pendingKeys().isEmpty());
    }
}

TEST_F(BasketTable, CopiesMultiplyTheStoredVolumesRepurchasesNeverStandAndDamagedVolumesSizeToNothing)
{
    ttservice::StockTypeCenter::setTypedStock(126, "SH", "204001");
    storeBasket(QStringLiteral("c"), {row("SH", "600000", 1, 300), row("SH", "204001", 1, 100), row("SH", "600001", 1, 50)});
    makeTable();
    chooseBasket(QStringLiteral("c"));
    sizeByCopies(3);
    EXPECT_EQ(volumes(), (std::map<std::string, int64_t>{{"600000", 900}, {"600001", 150}}));
    EXPECT_EQ(table->table()->dataRowCount(), 2);
    EXPECT_EQ(table->table()->statText(CExChangeBasketTable::COL_VOLUME), QStringLiteral("1050"));
    EXPECT_EQ(table->table()->itemText(0, CExChangeBasketTable::COL_ACCOUNT), QStringLiteral("id-a1"));

    storeBasket(QStringLiteral("d"), {row("SH", "600000", 1, INT64_MAX / 2), row("SH", "600001", 1, -300)});
    makeTable();
    chooseBasket(QStringLiteral("d"));
    sizeByCopies(3);
    EXPECT_EQ(volumes(), (std::map<std::string, int64_t>{{"600000", 0}, {"600001", 0}}));
}

TEST_F(BasketTable, WithoutAccountRowsStayEmptyAndAnUnstoredBasketGivesNothing)
{
    storeBasket(QStringLiteral("c"), {row("SH", "600000", 1, 300)});
    table = new CExChangeBasketTable(&root, TOT_ALL);
    chooseBasket(QStringLiteral("c"));
    EXPECT_EQ(table->table()->dataRowCount(), 1);
    EXPECT_TRUE(table->table()->itemText(0, CExChangeBasketTable::COL_CODE).isEmpty());

    table->setAccount(account);
    EXPECT_EQ(table->table()->itemText(0, CExChangeBasketTable::COL_CODE), QStringLiteral("600000"));

    table->basketEdit()->setBasket(QStringLiteral("gone"), true);
    EXPECT_EQ(table->table()->dataRowCount(), 0);
    EXPECT_TRUE(table->stockList().isEmpty());
}

TEST_F(BasketTable, MoneySizingWaitsForEveryQuoteThenFollowsAndKeepsHandEdits)
{
    storeBasket(QStringLiteral("w"), {row("SH", "600000", 1, 700), row("SH", "600001", 1, 700)});
    makeTable();
    chooseBasket(QStringLiteral("w"));
    EXPECT_TRUE(table->quoteRequestKeys().isEmpty()) << "sizing by copies needs no price";
    sizeByMoney(200000);

    // No prices yet: nothing is sized, and the stored volume of a copy is not shown as if it were.
    EXPECT_EQ(volumes(), (std::map<std::string, int64_t>{{"600000", 0}, {"600001", 0}}));
    EXPECT_EQ(table->pendingKeys().size(), 2);
    QStringList requested = table->quoteRequestKeys();
    requested.sort();
    EXPECT_EQ(requested, (QStringList{QStringLiteral("600000.SH"), QStringLiteral("600001.SH")}));

    sample::publishQuote("SH", "600000", 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(volumes().at("600000"), 0) << "sized before the last awaited quote";

    sample::publishQuote("SH", "600001", 20);
    QCoreApplication::processEvents();
    EXPECT_EQ(volumes(), (std::map<std::string, int64_t>{{"600000", 10000}, {"600001", 5000}}));

    // The user's volume stands while the market moves the other row.
    ASSERT_TRUE(table->table()->submitEdit(1, CExChangeBasketTable::COL_VOLUME, QStringLiteral("700")));
    sample::publishQuote("SH", "600000", 20);
    ASSERT_TRUE(QTest::qWaitFor([this] { return volumes().at("600000") == 5000; }, 3000));
    EXPECT_EQ(volumes().at("600001"), 700);

    // A new amount starts afresh.
    sizeByMoney(400000);
    EXPECT_EQ(volumes(), (std::map<std::string, int64_t>{{"600000", 10000}, {"600001", 10000}}));

    table->unrequestAll();
    EXPECT_TRUE(table->quoteRequestKeys().isEmpty());
}

TEST_F(BasketTable, QuotesFromTheFeedsThreadSizeOnTheWidgetsThread)
{
    storeBasket(QStringLiteral("w"), {row("SH", "600000", 1, 700), row("SH", "600001", 3, 700)});
    makeTable();
    chooseBasket(QStringLiteral("w"));
    sizeByMoney(400000);
    std::thread feed([] {
        sample::publishQuote("SH", "600000", 10);
        sample::publishQuote("SH", "600001", 20);
    });
    feed.join();
    ASSERT_TRUE(QTest::qWaitFor([this] { return volumes().at("600001") == 15000; }, 3000));
    EXPECT_EQ(volumes().at("600000"), 10000);
}

TEST_F(BasketTable, AnAddedStockStandsOnceAndOutlivesFollowing)
{
    storeBasket(QStringLiteral("c"), {row("SH", "600000", 1, 300)});
    makeTable();
    chooseBasket(QStringLiteral("c"));
    ttservice::CStockInfo stock("SH", "600002", "n600002");
    table->addOneBascketData(stock);
    table->addOneBascketData(stock);
    ASSERT_EQ(table->stockList().size(), 2);
    EXPECT_EQ(table->stockList().at(1).m_operationType, ttservice::OT_BUY);
    EXPECT_DOUBLE_EQ(table->stockList().at(1).m_weight, 1.0);

    // A change of copies sizes the added row with the others; a new basket drops it.
    sizeByCopies(2);
    EXPECT_EQ(table->stockList().size(), 2);
    chooseBasket(QStringLiteral("c"));
    EXPECT_EQ(table->stockList().size(), 1);
}

TEST_F(BasketTable, FuturesVariantSizesContractsAndSwitchesDirections)
{
    addInstrument("CFFEX", "IF2512", 300, std::string(), 1);
    setQuote("CFFEX", "IF2512", 4000);
    storeBasket(QStringLiteral("f"), {row("CFFEX", "IF2512", 1, 2), row("SH", "600000", 1, 5, ttservice::OT_SELL)});
    makeTable(TOT_ONEKEY_FUTURE);
    chooseBasket(QStringLiteral("f"));
    auto *buttons = qobject_cast<WK::CBaseTableColumnPushButtonDelegate *>(
        table->table()->view()->itemDelegateForColumn(CExChangeBasketTable::COL_DIRECTION));
    ASSERT_NE(buttons, nullptr);
    ASSERT_TRUE(buttons->click(0));
    EXPECT_EQ(table->stockList().at(0).m_operationType, ttservice::OT_SELL);
    ASSERT_TRUE(buttons->click(0));

    // By money, a contract costs its price times its multiple: 2,400,000 buys two lots at 4000.
    sizeByMoney(4800000);
    EXPECT_EQ(volumes().at("IF2512"), 2);
    QMap<QString, QMap<int, CBasketStockData>> map;
    table->getBasketStockParam(map);
    EXPECT_EQ(map.value(QStringLiteral("IF2512")).keys(), QList<int>{ttservice::OT_BUY});
}

// --- the position table ---

class PositionTable : public SubstituteTest
{
protected:
    CExchangePositionTable *makeTable(quint64 word = TOT_ALL)
    {
        delete table;
        table = new CExchangePositionTable(&root, word);
        return table;
    }

    Root root;
    CExchangePositionTable *table = nullptr;
};

TEST_F(PositionTable, TheAvailableValueIsTheAvailableShareOfTheMarketValue)
{
    // More available than held (a late position push) is worth no more than the holding.
    const struct { double volume; int64_t available; double marketValue; QString shown; } rows[] = {
        {1000, 1000, 10000, "10000.00"}, {1000, 400, 10000, "4000.00"}, {1000, 0, 10000, "0.00"},
        {1000, 1500, 10000, "10000.00"}, {1000, 1000, ttservice::NO_VALUE, "-"}};
    for (const auto &c : rows) {
        SCOPED_TRACE(c.available);
        makeTable()->setAccount(addAccount("a1", {position("600000", c.volume, c.available, c.marketValue)}));
        EXPECT_EQ(table->table()->itemText(0, CExchangePositionTable::COL_AVAILABLE_VALUE), c.shown);
        EXPECT_EQ(table->table()->statText(CExchangePositionTable::COL_AVAILABLE_VALUE), c.shown == "-" ? QStringLiteral("0.00") : c.shown);
    }
}

TEST_F(PositionTable, ShowsHeldPositionsWithoutRepurchasesOrEmptyOnesAndTotalsThem)
{
    ttservice::StockTypeCenter::setTypedStock(100017, "SZ", "131810");
    makeTable()->setAccount(addAccount("a1", {position("600000", 1000, 1000, 10000), position("131810", 100, 100, 10000),
                                              position("600001", 0, 0, 0), position("600002", 500, 200, 6000),
                                              position("600003", std::nan(""), 0, 0)}));
    ASSERT_EQ(table->table()->dataRowCount(), 2);
    EXPECT_EQ(table->table()->itemText(1, CExchangePositionTable::COL_CODE), QStringLiteral("600002"));
    // The totals of the volume, the available volume, the market value and the available value.
    EXPECT_EQ(fields(table->table()->statText(CExchangePositionTable::COL_VOLUME), table->table()->statText(CExchangePositionTable::COL_AVAILABLE),
                     table->table()->statText(CExchangePositionTable::COL_MARKET_VALUE),
                     table->table()->statText(CExchangePositionTable::COL_AVAILABLE_VALUE)),
              "1500|1200|16000.00|12400.00");

    QVector<CBasketStockData> rows;
    table->getBasketStockParam(rows);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[1].m_volume, 500) << "the exchange starts from the whole holding";

    table->setAccount(addAccount("empty"));
    EXPECT_EQ(table->table()->dataRowCount(), 0);
    EXPECT_EQ(table->table()->statText(CExchangePositionTable::COL_VOLUME), QStringLiteral("0"));
}

TEST_F(PositionTable, FuturesShowDirectionsAndMergeRowsOfOneSide)
{
    makeTable(TOT_ONEKEY_FUTURE)
        ->setAccount(addAccount("f1", {position("IF01", 3, 3, 3600000), position("IF01", 1, 1, 1200000, 49),
                                       position("IF01", 2, 2, 2400000)}));
    EXPECT_EQ(table->table()->statText(CExchangePositionTable::COL_VOLUME), QStringLiteral("6"));
    QMap<QString, QMap<int, CBasketStockData>> map;
    table->getBasketStockParam(map);
    EXPECT_EQ(map.value(QStringLiteral("IF01")).value(48).m_volume, 5);
    EXPECT_EQ(map.value(QStringLiteral("IF01")).value(49).m_volume, 1);
}

// --- the account tree ---

TEST_F(SubstituteTest, TheAccountTreeMakesOneAccountCurrentAndReportsItOnce)
{
    // chosen: empty for none.
    const struct { QSet<QString> selected; QString chosen; } rows[] = {{{"a3"}, "a3"}, {{"a3", "a2"}, "a1"}, {{}, "a1"}, {{"zz"}, ""}};
    for (const char *key : {"a1", "a2", "a3"})
        addAccount(key);
    for (const auto &c : rows) {
        SCOPED_TRACE(c.chosen.toStdString());
        Root root;
        auto *tree = new CExchangePositionAccountTreeWidget(&root);
        QStringList clicked;
        QObject::connect(tree, &QTreeWidget::itemClicked, [&clicked](QTreeWidgetItem *item, int) {
            clicked << item->data(0, CExchangePositionAccountTreeWidget::KEY_ROLE).toString();
        });
        tree->setAccounts({QStringLiteral("a1"), QStringLiteral("a2"), QStringLiteral("a3"), QStringLiteral("unknown")}, c.selected);

        EXPECT_EQ(tree->rootItem()->childCount(), 3);
        EXPECT_EQ(clicked, c.chosen.isEmpty() ? QStringList() : QStringList{c.chosen});
        const auto chosen = tree->getSelectAccount();
        EXPECT_EQ(chosen ? QString::fromStdString(chosen->getAccountInfo()->m_accountKey) : QString(), c.chosen);
    }
}

// --- the portfolio picker, alone and on the position table ---

class PortfolioPicker : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_portfolio"}, true);
        addPortfolio("p2", "成长");
        addPortfolio("p1", "价值");
        root.show();
    }

    static void addPortfolio(const std::string &key, const std::string &name, const std::string &account = "",
                             const std::vector<ttservice::CPositionStatics> &held = {})
    {
        ttservice::CPortfolio portfolio;
        portfolio.m_portfolioKey = key;
        portfolio.m_portfolioId = 11;
        portfolio.m_portfolioName = name;
        portfolio.m_portfolioCode = "JZ";
        if (!account.empty()) {
            portfolio.m_accountKeys = {account};
            portfolio.m_positions[account] = held;
        }
        getUserConfig()->addPortfolio(portfolio);
    }

    // index -1: the current positions; otherwise the index-th portfolio in key order.
    static void choose(COpBasketsPortfolioComboBox *combo, int index)
    {
        combo->showPopup();
        QTreeWidget *tree = combo->tree()->treeWidget();
        ASSERT_EQ(tree->topLevelItemCount(), 2);
        tree->setCurrentItem(index < 0 ? tree->topLevelItem(0) : tree->topLevelItem(1)->child(index));
        combo->hidePopup();
    }

    Root root;
};

TEST_F(PortfolioPicker, ChoicesGoUpWithKeyOrTextAndADeletedPortfolioFallsBackToCurrentPositions)
{
    auto *combo = new COpBasketsPortfolioComboBox(2, TOT_ALL, &root);
    choose(combo, 1);
    EXPECT_EQ(combo->currentText(), QStringLiteral("成长"));
    EXPECT_EQ(combo->getCurrentSelectedKey(), QStringLiteral("p2"));
    choose(combo, -1);
    EXPECT_EQ(combo->currentText(), QStringLiteral("当前持仓"));
    EXPECT_TRUE(combo->getCurrentSelectedKey().isEmpty());
    EXPECT_EQ(root.received, (QStringList{QStringLiteral("1149,2,2,p2"), QStringLiteral("1149,2,1,当前持仓")}));

    choose(combo, 0);
    root.received.clear();
    combo->updatePortfolioDataForCombo();
    EXPECT_EQ(root.received, QStringList{QStringLiteral("1149,2,2,p1")}) << "still there: reported again";
    getUserConfig()->portfolios().remove(QStringLiteral("p1"));
    root.received.clear();
    combo->updatePortfolioDataForCombo();
    EXPECT_EQ(combo->currentText(), QStringLiteral("当前持仓"));
    EXPECT_EQ(root.received, QStringList{QStringLiteral("1149,2,1,")});

    // Two portfolios of one name give the first key.
    addPortfolio("p1", "价值");
    addPortfolio("p0", "价值");
    choose(combo, 1); // the second "价值" in key order
    EXPECT_EQ(combo->getCurrentSelectedKey(), QStringLiteral("p0"));

    // Without the module only the current positions are offered.
    luawrapper::LuaModuleCtrl::instance()->setModule("mdl_order_portfolio", false);
    combo->tree()->refreshData();
    EXPECT_EQ(combo->tree()->treeWidget()->topLevelItemCount(), 1);
}

TEST_F(PortfolioPicker, ThePositionTableShowsTheChosenPortfoliosPositions)
{
    getUserConfig()->setHasPortfolio(true);
    const auto account = addAccount("a1", {position("600000", 1000, 1000, 10000), position("600001", 800, 800, 8000)});
    addPortfolio("p1", "价值", "a1", {position("600001", 300, 300, 3000)});
    auto *table = new CExchangePositionTable(&root, TOT_ALL);
    ASSERT_NE(table->portfolioCombo(), nullptr);
    choose(table->portfolioCombo(), 0);
    EXPECT_EQ(table->positionMode(), 2);
    EXPECT_EQ(root.received.last(), QStringLiteral("1149,2,2,p1"));

    table->setAccount(account);
    ASSERT_EQ(table->table()->dataRowCount(), 1);
    EXPECT_EQ(table->table()->itemLonglong(0, CExchangePositionTable::COL_VOLUME), 300);
    int id = 5;
    QString name, code;
    table->getPortfolioData(id, name, code);
    EXPECT_EQ(QStringLiteral("%1 %2 %3").arg(id).arg(name, code), QStringLiteral("11 价值 JZ"));
}

} // namespace
