// The confirmation table case by case. A row's pairing with its line through deletions, sorts
// and filters, and the ticked rows an order takes, are walked by the integrity sessions.
#include "COpBasketConfirmWidget.h"
#include "CBasketSizingSummary.h"
#include "COpBasketReplaceStockToolBar.h"

#include "CCheckBox.h"
#include "CDoubleValidator.h"
#include "CIntValidator.h"
#include "COrderParamTable.h"
#include "CTableCellEvent.h"
#include "CTableColumnFilterPopup.h"
#include "CTableModel.h"

#include "CBlackAndWhiteListService.h"
#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "StockTypeCacheCenter.h"
#include "StockTypeCenter.h"

#include "ConfirmTestSupport.h"
#include "Fields.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace TC;
using ttservice::CCodeOrderParam;
using ttservice::EVQBrokerType;
using Widget = COpBasketConfirmWidget;
using namespace confirmtest;

namespace {

class ConfirmWidgetTest : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        form = std::make_unique<FormStub>();
        widget = new Widget(form.get());
    }

    // A new widget on empty substitutes, for the next row of a table of cases.
    void fresh()
    {
        form.reset();
        lines.clear();
        SetUp();
    }
    void load(std::vector<CCodeOrderParam> list)
    {
        lines = std::move(list);
        widget->loadParams(&lines);
    }
    // Buys of 100 of each of these stocks of SH, quoted at 10, for "a1".
    static std::vector<CCodeOrderParam> buysOf(std::initializer_list<const char *> codes)
    {
        std::vector<CCodeOrderParam> buys;
        for (const char *code : codes) {
            addStock(code, 10.0);
            buys.push_back(line("a1", code, 18, 100));
        }
        return buys;
    }
    static CCodeOrderParam moneyLine(double money, int64_t volume = 0)
    {
        CCodeOrderParam l = line("a1", "600000", 25, volume);
        l.m_money = money;
        return l;
    }
    // The table's replace bar, on a tab.
    COpBasketReplaceStockToolBar *replaceBar(quint64 tab)
    {
        auto *bar = new COpBasketReplaceStockToolBar(form.get());
        bar->setTradeOperationType(tab);
        widget->setReplaceToolBar(bar);
        return bar;
    }
    COrderParamTable *table() const { return widget->table(); }
    // The totals line's volume and value.
    std::string totals() const { return fields(table()->statText(Widget::COL_VOLUME), table()->statText(Widget::COL_COST)); }
    QString cell(int row, int column) const { return table()->itemText(row, column); }
    std::vector<std::string> listedCodes() const
    {
        std::vector<std::string> codes;
        for (const CCodeOrderParam &l : lines)
            codes.push_back(l.m_stockInfo.m_stockCode);
        return codes;
    }
    // The user's click on a cell, as the table delivers it.
    void click(int row, int column)
    {
        WK::CTableCellEvent event(row, column, QString::number(column));
        widget->handleEvent(WK::TE_CELL_CLICKED, row, column, event.m_text, &event);
    }

    // Destroyed after the widget, which works on it.
    std::vector<CCodeOrderParam> lines;
    std::unique_ptr<FormStub> form;
    Widget *widget = nullptr;
};

// ---- load ----------------------------------------------------------------------------------

TEST_F(ConfirmWidgetTest, LoadCutsASellToTheAvailableQuantityInTheLineItself)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 0.0, {{"600000", 600}});
    addStock("600000", 10.0);
    widget->setOperationType(19);
    load({line("a1", "600000", 19, 1000)});

    // The line, its cell and value, the totals and the quotes asked for.
    EXPECT_EQ(fields(lines[0].m_volume, table()->itemLonglong(0, Widget::COL_VOLUME), cell(0, Widget::COL_COST), totals(),
                     widget->quoteRequestCount()),
              "600|600|6000.00|600|6000.00|1");

    // An empty list after it leaves no editor, no subscription and no totals behind.
    std::vector<CCodeOrderParam> empty;
    widget->loadParams(&empty);
    EXPECT_EQ(fields(table()->rowCount(), table()->columnValidator(Widget::COL_VOLUME) == nullptr,
                     CQuoteClient::instance()->subscriptionCount(), totals()),
              "0|true|0|0|0.00");
}

TEST_F(ConfirmWidgetTest, TheFirstLineAloneChoosesTheEditorOfTheQuantity)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e6);
    addStock("600000", 10.0);
    const CCodeOrderParam money = moneyLine(5000.0);
    load({money, line("a1", "600000", 18, 100)});
    auto *decimals = qobject_cast<WK::CDoubleValidator *>(table()->columnValidator(Widget::COL_VOLUME));
    ASSERT_NE(decimals, nullptr) << "a money line first: every row takes decimals";
    EXPECT_EQ(decimals->decimals(), 3);
    EXPECT_TRUE(table()->submitEdit(1, Widget::COL_VOLUME, QStringLiteral("150.5")));

    load({line("a1", "600000", 18, 100), money});
    EXPECT_NE(qobject_cast<WK::CIntValidator *>(table()->columnValidator(Widget::COL_VOLUME)), nullptr);
    EXPECT_FALSE(table()->submitEdit(1, Widget::COL_VOLUME, QStringLiteral("150.5")));
}

TEST_F(ConfirmWidgetTest, TheLastPriceTakesTheDecimalsOfTheTickOfTypedInstruments)
{
    // typed: type 100024, the price shows the decimals of its tick.
    const struct { const char *market, *code; bool typed, fundKind; double last; const char *shown; } rows[] = {
        {"SH", "600000", false, true, 1.2345, "1.23"},      {"SH", "510300", true, true, 1.2346, "1.235"},
        {"SH", "600000", true, false, 1.2345, "1.23"},      {"SHO", "10000001", true, false, 0.12346, "0.1235"},
        {"IF", "TF2403", true, false, 101.2346, "101.235"}, {"SF", "cu2405", true, false, 71230.4, "71230"},
        {"XX", "1", true, false, 3.456, "3.46"}};
    for (const auto &c : rows) {
        SCOPED_TRACE(std::string(c.market) + " " + c.code);
        fresh();
        addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
        addInstrument(c.market, c.code);
        CQuoteClient::instance()->setStockPrice(quote(c.market, c.code, c.last));
        if (c.typed)
            ttservice::StockTypeCenter::setTypedStock(100024, c.market, c.code);
        if (c.fundKind) {
            ttservice::StockTypeCache kinds;
            kinds.m_fund = true;
            ttservice::StockTypeCacheCenter::setTypeStockCache(c.market, c.code, kinds);
        }
        load({line("a1", c.code, 18, 1, ttservice::BROKER_TYPE_STOCK, c.market)});
        EXPECT_EQ(cell(0, Widget::COL_LAST_PRICE), QString::fromLatin1(c.shown));
    }
}

// ---- edits ---------------------------------------------------------------------------------

TEST_F(ConfirmWidgetTest, AVolumeEditRoundsToTheLotAndCapsWhatIsSold)
{
    // volumeAfter: in the cell and in the line alike.
    const struct { const char *name; EVQBrokerType broker; int operation; const char *typed; int64_t volumeAfter; } rows[] = {
        {"stockAccountRoundsABuyDown", ttservice::BROKER_TYPE_STOCK, 18, "1350", 1300},
        {"creditAccountRoundsAMarginBuyDown", ttservice::BROKER_TYPE_CREDIT, 20, "1350", 1300},
        {"futuresAccountIsHeldToWhatItCanTrade", ttservice::BROKER_TYPE_FUTURE, 18, "1350", 1000},
        {"aSellMayEndInAnOddLot", ttservice::BROKER_TYPE_STOCK, 19, "550", 550},
        {"aBuyMayExceedTheAvailable", ttservice::BROKER_TYPE_STOCK, 18, "5000", 5000},
        {"aSellAboveTheAvailableTakesTheAvailable", ttservice::BROKER_TYPE_STOCK, 19, "700", 600}};
    for (const auto &c : rows) {
        SCOPED_TRACE(c.name);
        fresh();
        // 10,000 of money buys 1,000 at 10; 600 can be sold.
        addAccount("a1", c.broker, 10000.0, {{"600000", 600}});
        addStock("600000", 10.0);
        widget->setOperationType(c.operation);
        load({line("a1", "600000", c.operation, 500, c.broker)});
        EXPECT_TRUE(table()->submitEdit(0, Widget::COL_VOLUME, QString::fromLatin1(c.typed)));
        EXPECT_EQ(table()->itemLonglong(0, Widget::COL_VOLUME), c.volumeAfter);
        EXPECT_EQ(lines[0].m_volume, c.volumeAfter);
    }
}

TEST_F(ConfirmWidgetTest, AnEditRecomputesTheValueAndTheTotals)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e6);
    addStock("600000", 10.0);
    addStock("600001", 5.0);
    load({line("a1", "600000", 18, 100), line("a1", "600001", 18, 200)});
    ASSERT_EQ(totals(), "300|2000.00");
    ASSERT_TRUE(table()->submitEdit(1, Widget::COL_VOLUME, QStringLiteral("1000")));
    EXPECT_EQ(cell(1, Widget::COL_COST), QStringLiteral("5000.00"));
    EXPECT_EQ(totals(), "1100|6000.00");
}

TEST_F(ConfirmWidgetTest, OnlyAMixedListInTheFullTableSwitchesDirections)
{
    const struct { int confirmType, listOperation; bool switches; } rows[] = {{1, 18, false}, {0, -1, false}, {1, -1, true}};
    for (const auto &c : rows) {
        SCOPED_TRACE(::testing::Message() << "table " << c.confirmType << " list " << c.listOperation);
        fresh();
        addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e6, {{"600000", 300}});
        addStock("600000", 10.0);
        widget->setOpConfirmType(c.confirmType);
        widget->setOperationType(c.listOperation);
        load({line("a1", "600000", 18, 500)});

        click(0, Widget::COL_VOLUME);
        EXPECT_EQ(lines[0].m_operationType, 18) << "only column 4 switches";
        click(0, Widget::COL_OPERATION);
        if (!c.switches) {
            EXPECT_TRUE(form->seen.empty());
            EXPECT_EQ(lines[0].m_operationType, 18);
            continue;
        }
        // The form pairs the line first, then keeps the switch for the next recalculation.
        ASSERT_EQ(form->seen.size(), 2u);
        EXPECT_EQ((std::vector<int>{form->seen[0].event, form->seen[0].value, form->seen[1].event}), (std::vector<int>{1075, 19, 1076}));
        EXPECT_TRUE(form->seen[0].data == &lines[0] && form->seen[1].data == &lines[0]) << "both name the line";
        EXPECT_EQ(lines[0].m_operationType, 19);
        // A sell is cut to what the position can deliver.
        EXPECT_EQ(lines[0].m_volume, 300);
        EXPECT_EQ(table()->itemLonglong(0, Widget::COL_AVAILABLE), 300);
        EXPECT_EQ(cell(0, Widget::COL_COST), QStringLiteral("3000.00"));

        click(0, Widget::COL_OPERATION);
        EXPECT_EQ(lines[0].m_operationType, 18);
        EXPECT_EQ(lines[0].m_volume, 300) << "switching back does not restore the cut";
    }
    // A money line's switch cuts nothing, so nothing is rewritten: its money stays shown.
    load({moneyLine(8000.0)});
    click(0, Widget::COL_OPERATION);
    EXPECT_EQ(cell(0, Widget::COL_VOLUME), QStringLiteral("8000.00"));
    EXPECT_EQ(lines[0].m_money, 8000.0);
    EXPECT_EQ(table()->statText(Widget::COL_VOLUME), QStringLiteral("8000.00"));
}

// ---- filters and status --------------------------------------------------------------------

TEST_F(ConfirmWidgetTest, FallLimitBeatsRiseLimitBeatsSuspension)
{
    // tab: the toolbar hides boxes by tab.
    const struct { const char *name; bool suspended; double last, up, down; quint64 tab; bool filtered;
                   Widget::EOpConfirmFilterStatus status; } rows[] = {
        {"plainStock", false, 10.0, 11.0, 9.0, 512, false, Widget::OCFS_NORMAL},
        {"suspended", true, 10.0, 11.0, 9.0, 512, true, Widget::OCFS_SUSPENDED},
        {"riseLimitOverSuspended", true, 11.0, 11.0, 9.0, 512, true, Widget::OCFS_RISE_LIMIT},
        {"fallLimitOverRiseLimit", true, 10.0, 10.0, 10.0, 512, true, Widget::OCFS_FALL_LIMIT},
        {"zeroPriceAtZeroFallLimit", false, 0.0, 11.0, 0.0, 512, true, Widget::OCFS_FALL_LIMIT},
        {"hiddenBoxesFilterNothing", true, 10.0, 10.0, 10.0, 4096, false, Widget::OCFS_NORMAL}};
    for (const auto &c : rows) {
        SCOPED_TRACE(c.name);
        fresh();
        COpBasketReplaceStockToolBar *bar = replaceBar(c.tab);
        bar->setFilter(true);
        bar->setFilterZhangTing(true);
        bar->setFilterDieTing(true);
        CQuoteClient::instance()->setStockPrice(quote("SH", "600000", c.last, 10.0, c.up, c.down));
        CQuoteClient::instance()->setStoppedStock(QStringLiteral("600000.SH"), c.suspended);
        Widget::EOpConfirmFilterStatus status = Widget::OCFS_NORMAL;
        EXPECT_EQ(widget->isParamFilter(line("a1", "600000", 18, 100), status), c.filtered);
        EXPECT_EQ(status, c.status);
    }
}

TEST_F(ConfirmWidgetTest, LinesTheSwitchesLeaveOutMoveToTheEndInTheirOrderAndStartUnticked)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    for (const char *code : {"600000", "600002"})
        CQuoteClient::instance()->setStoppedStock(QString::fromLatin1(code) + QStringLiteral(".SH"), true);
    replaceBar(512)->setFilter(true);
    load(buysOf({"600000", "600001", "600002", "600003", "600004"}));

    EXPECT_EQ(listedCodes(), (std::vector<std::string>{"600001", "600003", "600004", "600000", "600002"}));
    for (int row = 0; row < 5; ++row)
        EXPECT_EQ(table()->isItemChecked(row, Widget::COL_CHECK), row < 3) << row;
    EXPECT_EQ(cell(3, Widget::COL_STATUS), QStringLiteral("停盘"));
}

TEST(ConfirmFilterValues, AreComparedByTheFiltersType)
{
    const struct { int type; QSet<QString> values; const char *value; bool passes; } rows[] = {
        {0, {"SH"}, "SH", true},          {0, {"sh"}, "SH", false}, // equal is case sensitive
        {0, {"600"}, "600000", false},     {1, {"pf"}, "SPF500", true}, // contain ignores case
        {1, {"x", "50"}, "SPF500", true},  {1, {""}, "SPF500", false}, // an empty member matches nothing
        {7, {"x"}, "SPF500", true}};                                   // an unknown type passes all
    for (const auto &c : rows)
        EXPECT_EQ(Widget::testFilter(c.type, c.values, QString::fromUtf8(c.value)), c.passes) << c.type << " " << c.value;
}

// A line at 0 says why, per line: what belongs to the instrument (suspended, no quote, less than
// a lot) is the same on every account, what belongs to the account (its black list, its money,
// its holding) is not. A buy beyond the account's money is cut to what it can pay, here 0.
TEST_F(ConfirmWidgetTest, ALineAtZeroSaysWhyOnEveryAccount)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    addAccount("a2", ttservice::BROKER_TYPE_STOCK, 500.0);
    for (const char *code : {"600001", "600002", "600004"})
        addStock(code, 10.0);
    addInstrument("SH", "600003");
    CQuoteClient::instance()->setStoppedStock(QStringLiteral("600001.SH"), true);
    CBlackAndWhiteListService::instance()->addBlackStock(QStringLiteral("a2"), QStringLiteral("600002.SH"));
    load({line("a1", "600001", 18, 0), line("a2", "600001", 18, 0), line("a1", "600002", 18, 0),
          line("a2", "600002", 18, 0), line("a1", "600003", 18, 0), line("a2", "600003", 18, 0),
          line("a1", "600004", 18, 0), line("a2", "600004", 18, 0), line("a1", "600004", 19, 0),
          line("a2", "600004", 18, 100), line("a1", "600004", 18, 100)});
    std::vector<std::string> shown;
    for (int i = 0; i < table()->rowCount(); ++i) {
        const CCodeOrderParam *l = widget->getParamByRowIndex(i);
        shown.push_back(l->m_account->m_accountKey + " " + l->m_stockInfo.m_stockCode + " "
                        + std::to_string(int(l->m_operationType)) + " "
                        + cell(table()->rowID(i), Widget::COL_STATUS).toStdString());
    }
    const std::vector<std::string> expected{
        "a1 600001 18 停牌",   "a2 600001 18 停牌",   "a1 600002 18 不足一手", "a2 600002 18 黑名单",
        "a1 600003 18 无行情", "a2 600003 18 无行情", "a1 600004 18 不足一手", "a2 600004 18 资金不足",
        "a1 600004 19 无可用", "a2 600004 18 资金不足", "a1 600004 18 -"};
    EXPECT_EQ(shown, expected);

    // The strip under the table counts the same reasons; a line typed down to 0 has no status
    // of its own, and with a quote it is short of a lot or of money.
    EXPECT_TRUE(table()->submitEdit(table()->rowID(10), Widget::COL_VOLUME, QStringLiteral("0")));
    const CBasketSizingSummary::Summary summary = CBasketSizingSummary::compute(*widget, QString());
    ASSERT_EQ(summary.m_accounts.size(), 2);
    using Reasons = QMap<QString, int>;
    EXPECT_EQ(summary.m_accounts[0].m_zeroLines,
              (Reasons{{"停牌", 1}, {"不足一手", 2}, {"无行情", 1}, {"无可用", 1}, {"不足一手或资金不足", 1}}));
    EXPECT_EQ(summary.m_accounts[1].m_zeroLines, (Reasons{{"停牌", 1}, {"黑名单", 1}, {"无行情", 1}, {"资金不足", 2}}));

    // Opened, the strip is as tall as its three lines (the list and one per account), and
    // closed again as short as before.
    CBasketSizingSummary strip(nullptr);
    strip.setTable(widget);
    strip.refresh();
    const int closed = strip.sizeHint().height();
    strip.setCollapsed(false);
    EXPECT_EQ(strip.text().count(QLatin1Char('\n')), 2);
    EXPECT_GE(strip.sizeHint().height(), 3 * strip.fontMetrics().lineSpacing());
    strip.setCollapsed(true);
    EXPECT_EQ(strip.sizeHint().height(), closed);
}

TEST_F(ConfirmWidgetTest, AFilterIsCountedAndRowsKeepTheirColoursAndReasons)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    addStock("600000", 10.0);
    addStock("600001", 10.0);
    CQuoteClient::instance()->setStoppedStock(QStringLiteral("600001.SH"), true);
    replaceBar(512)->checkBox(8)->setChecked(true);
    load({line("a1", "600000", 18, 100), line("a1", "600001", 18, 0)});

    auto suspendedRow = [this] {
        for (int i = 0; i < table()->rowCount(); ++i) {
            if (widget->getParamByRowIndex(i)->m_stockInfo.m_stockCode == "600001")
                return table()->rowID(i);
        }
        return -1;
    };
    auto expectSuspendedRowAsLoaded = [&] {
        const int row = suspendedRow();
        ASSERT_GE(row, 0);
        EXPECT_EQ(table()->model()->itemColorKey(row, Widget::COL_NAME), QStringLiteral("clr_global_rise"));
        EXPECT_EQ(cell(row, Widget::COL_STATUS), QStringLiteral("停牌")) << "a line at 0 says why";
    };
    expectSuspendedRowAsLoaded();

    table()->setColumnFilter(Widget::COL_CODE, WK::FT_EQUAL, {QStringLiteral("600001")});
    EXPECT_EQ(table()->statText(Widget::COL_ACCOUNT), QStringLiteral("筛选隐藏1行"));
    expectSuspendedRowAsLoaded();

    table()->setColumnFilter(Widget::COL_CODE, WK::FT_EQUAL, QSet<QString>());
    EXPECT_EQ(table()->rowCount(), 2);
    EXPECT_EQ(table()->statText(Widget::COL_ACCOUNT), QString());
    expectSuspendedRowAsLoaded();
}

TEST_F(ConfirmWidgetTest, FilterMenuListsRawValuesAndRowsComeBackAsLoaded)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    addStock("600000", 10.0);
    load({moneyLine(5000.5, 42), line("a1", "600000", 18, 100)});
    EXPECT_EQ(table()->showFilterPopup(Widget::COL_MARKET)->values(), QStringList{QStringLiteral("SH")});
    const QStringList volumeValues = table()->showFilterPopup(Widget::COL_VOLUME)->values();
    EXPECT_EQ(QSet<QString>(volumeValues.cbegin(), volumeValues.cend()),
              (QSet<QString>{QStringLiteral("5000.5"), QStringLiteral("100")}));

    table()->setColumnFilter(Widget::COL_VOLUME, WK::FT_EQUAL, {QStringLiteral("5000.5")});
    ASSERT_EQ(table()->rowCount(), 1);
    // A rebuilt row shows what the load showed: the money line's quantity is its money, which
    // is what the order carries, and it has no instrument of its own.
    EXPECT_EQ(cell(0, Widget::COL_MARKET), QStringLiteral("-"));
    EXPECT_EQ(cell(0, Widget::COL_VOLUME), QStringLiteral("5000.50"));
}

TEST_F(ConfirmWidgetTest, TotalsOfAMoneyListAddDoublesAndSkipUnknownValues)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    addStock("600000", 10.0);
    CQuoteClient::instance()->setStockPrice(quote("SH", "600009", 10.0)); // no instrument record
    const CCodeOrderParam money = moneyLine(1234.5);
    load({money, line("a1", "600000", 18, 300), line("a1", "600009", 18, 200)});

    EXPECT_EQ(cell(2, Widget::COL_COST), QStringLiteral("-"));
    EXPECT_EQ(totals(), "1734.50|3000.00");

    load({line("a1", "600000", 18, 300), money});
    EXPECT_EQ(table()->statText(Widget::COL_VOLUME), QStringLiteral("1534"));
}

// ---- value and live quotes -----------------------------------------------------------------

TEST_F(ConfirmWidgetTest, RecalcCostValuesALine)
{
    const struct { const char *name; int operation; bool repurchase, instrument, price; int multiple; double expected; } rows[] = {
        {"volumeTimesPriceTimesMultiple", 18, false, true, true, 3, 75.0},
        {"stockWithoutMultipleCountsOnce", 18, false, true, true, 0x7fffffff, 25.0},
        {"repurchaseIsWorthAHundredAUnit", 18, true, false, false, 1, 1000.0},
        {"moneyLineIsItsMoney", 1024, false, false, false, 1, 777.0},
        {"noInstrumentIsUnknown", 18, false, false, true, 1, ttservice::NO_VALUE},
        {"noPriceIsUnknown", 18, false, true, false, 1, ttservice::NO_VALUE}};
    for (const auto &c : rows) {
        SCOPED_TRACE(c.name);
        fresh();
        if (c.instrument)
            addInstrument("SZ", "131810", c.multiple);
        if (c.price)
            CQuoteClient::instance()->setStockPrice(quote("SZ", "131810", 2.5));
        if (c.repurchase)
            ttservice::StockTypeCenter::setTypedStock(126, "SH", "131810"); // the code is tested under SH
        CCodeOrderParam l = line("a1", "131810", c.operation, 10, ttservice::BROKER_TYPE_STOCK, "SZ");
        l.m_money = 777.0;
        EXPECT_DOUBLE_EQ(widget->recalcCost(&l), c.expected);
    }
}

// After a filter the rows are new and no longer numbered like their lines' slots: a tick must
// light up and repaint the quoted line's own row.
TEST_F(ConfirmWidgetTest, ATickAfterAFilterLightsUpTheQuotedLinesOwnRow)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    addStock("600000", 10.0);
    addStock("600001", 20.0);
    load({line("a1", "600001", 18, 100), line("a1", "600000", 18, 100)});
    table()->setColumnFilter(Widget::COL_CODE, WK::FT_EQUAL, {QStringLiteral("600000")});
    ASSERT_EQ(table()->rowCount(), 1);
    const int row = table()->rowID(0);
    ASSERT_NE(row, 1) << "the row must not be numbered like its slot for this test to mean anything";

    CQuoteClient::instance()->publishQuote(quote("SH", "600000", 11.0, 0.0));
    widget->slotTimeout();
    EXPECT_TRUE(table()->model()->isFlashing(row, Widget::COL_COST));
    EXPECT_EQ(cell(row, Widget::COL_COST), QStringLiteral("1100.00"));
}

TEST_F(ConfirmWidgetTest, TheTickShowsOnlyTheRowsAQuoteChangedAndASellListKeepsItsFirstValues)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    addAccount("a2", ttservice::BROKER_TYPE_STOCK, 1e9);
    addStock("600000", 10.0);
    addStock("600001", 20.0);
    load({line("a1", "600000", 18, 100), line("a1", "600001", 18, 100), line("a2", "600000", 18, 200)});

    CQuoteClient::instance()->publishQuote(quote("SH", "600000", 11.0, 0.0));
    EXPECT_EQ(cell(0, Widget::COL_LAST_PRICE), QStringLiteral("10.00")) << "quotes wait for the tick";
    widget->slotTimeout();

    // Both accounts' rows of the quoted stock move; a previous close of 0 gives no change.
    EXPECT_EQ(fields(cell(0, Widget::COL_LAST_PRICE), cell(2, Widget::COL_COST), cell(2, Widget::COL_CHANGE),
                     cell(1, Widget::COL_LAST_PRICE), table()->statText(Widget::COL_COST)),
              "11.00|2200.00|0.00%|20.00|5300.00");
    // Only what a quote changed lights up: the other stock's row is not touched.
    EXPECT_TRUE(table()->model()->isFlashing(2, Widget::COL_COST));
    EXPECT_FALSE(table()->model()->isFlashing(1, Widget::COL_COST));
    EXPECT_EQ(widget->quoteRequestCount(), 2) << "one subscription per instrument, not per account";

    // The totals line follows a tick over the rows a filter leaves, and again once it is lifted.
    table()->setColumnFilter(Widget::COL_CODE, WK::FT_EQUAL, {QStringLiteral("600000")});
    EXPECT_EQ(table()->statText(Widget::COL_COST), QStringLiteral("3300.00"));
    CQuoteClient::instance()->publishQuote(quote("SH", "600000", 10.5, 0.0));
    CQuoteClient::instance()->publishQuote(quote("SH", "600001", 21.0, 0.0));
    widget->slotTimeout();
    EXPECT_EQ(table()->statText(Widget::COL_COST), QStringLiteral("3150.00"));
    table()->setColumnFilter(Widget::COL_CODE, WK::FT_EQUAL, QSet<QString>());
    CQuoteClient::instance()->publishQuote(quote("SH", "600000", 11.0, 0.0));
    widget->slotTimeout();
    EXPECT_EQ(table()->statText(Widget::COL_COST), QStringLiteral("5400.00"));

    // A sell list keeps its first values; a quote without a last price refreshes the status only.
    widget->setOperationType(19);
    CQuoteClient::instance()->publishQuote(quote("SH", "600000", 12.0));
    widget->slotTimeout();
    EXPECT_EQ(cell(0, Widget::COL_LAST_PRICE), QStringLiteral("11.00"));
    widget->setOperationType(18);
    CQuoteClient::instance()->publishQuote(quote("SH", "600000", ttservice::NO_VALUE));
    widget->slotTimeout();
    EXPECT_EQ(cell(0, Widget::COL_LAST_PRICE), QStringLiteral("12.00")) << "the earlier quote was kept";
}

// What a tick tells the view: every changed row's value is inside what it announces, and a quiet
// market's one changed row does not announce the rows it left alone.
TEST_F(ConfirmWidgetTest, ATickAnnouncesTheRowsItChangedHoweverMany)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e9);
    std::vector<CCodeOrderParam> list;
    for (int i = 0; i < 100; ++i) {
        const std::string code = std::to_string(600000 + i);
        addStock(code, 10.0);
        list.push_back(line("a1", code, 18, 100));
    }
    load(list);
    WK::CTableModel *model = table()->model();
    struct Case
    {
        int quoted; // the first this many stocks get a quote
        double last;
    };
    for (const Case &round : {Case{100, 11.0}, Case{1, 12.0}}) {
        for (int i = 0; i < round.quoted; ++i)
            CQuoteClient::instance()->publishQuote(quote("SH", std::to_string(600000 + i), round.last, 0.0));
        std::vector<bool> announced(100, false);
        const QMetaObject::Connection spy = QObject::connect(
            model, &QAbstractItemModel::dataChanged, [&](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                if (topLeft.column() > Widget::COL_COST || bottomRight.column() < Widget::COL_COST)
                    return;
                for (int visual = topLeft.row(); visual <= bottomRight.row(); ++visual) {
                    const int row = model->rowIdAt(visual);
                    if (row >= 0 && row < 100)
                        announced[static_cast<size_t>(row)] = true;
                }
            });
        widget->slotTimeout();
        QObject::disconnect(spy);
        for (int row = 0; row < 100; ++row)
            EXPECT_EQ(announced[static_cast<size_t>(row)], row < round.quoted) << round.quoted << " quoted, row " << row;
    }
}

TEST_F(ConfirmWidgetTest, TheLayoutTheUserLeftComesBackAfterARestart)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e6);
    widget->setOperationType(18);
    load(buysOf({"600000"}));
    // Columns dragged (the tick among them), one widened, one hidden.
    table()->moveColumn(Widget::COL_CHECK, 4);
    table()->moveColumn(Widget::COL_NAME, 0);
    table()->setColumnWidth(Widget::COL_CODE, 173);
    table()->setColumnVisible(Widget::COL_CHANGE, false);
    const QString left = widget->param();
    EXPECT_FALSE(left.contains(QLatin1Char('|')) || left.contains(QLatin1Char('/'))) << "a piece of the panel's text";

    FormStub restartedForm;
    Widget *restarted = new Widget(&restartedForm);
    restarted->setParam(left);
    std::vector<CCodeOrderParam> again = lines;
    restarted->loadParams(&again);
    EXPECT_EQ(restarted->table()->visualColumnOrder(), table()->visualColumnOrder());
    EXPECT_EQ(restarted->table()->columnWidth(Widget::COL_CODE), 173);
    EXPECT_FALSE(restarted->table()->isColumnVisible(Widget::COL_CHANGE));
    EXPECT_EQ(restarted->param().toStdString(), left.toStdString());
}

} // namespace
