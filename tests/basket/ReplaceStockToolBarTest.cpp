#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsLineEdit.h"

#include "CAutoExpandToolBar.h"
#include "CCheckBox.h"
#include "CCreatePortfolioKeyboard.h"
#include "CMessageTip.h"
#include "CSimpleTextWidget.h"

#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include "../platform/EventRecorder.h"

#include <QSignalSpy>

#include <memory>
#include <vector>

using namespace TC;

namespace {

using Bar = COpBasketReplaceStockToolBar;

// How many times this event with this id reached the recorder.
int count(const EventRecorder &recorder, int event, int id)
{
    int n = 0;
    for (const EventRecorder::Seen &seen : recorder.seen)
        n += seen.event == event && seen.id == id ? 1 : 0;
    return n;
}

void switchPortfolioModule() { luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_portfolio"}, true); }

void storeBasket(const QString &name, const QStringList &codes, const std::vector<double> &weights = {})
{
    QList<CBasketStockData> rows;
    for (int i = 0; i < codes.size(); ++i)
        rows << sample::row("SH", codes[i].toLatin1().constData(), weights.empty() ? 1.0 : weights[size_t(i)], 0);
    sample::storeBasket(name, rows);
}

void suspend(const QString &code) { CQuoteClient::instance()->setStoppedStock(code + QStringLiteral(".SH"), true); }

// A stock with its limits at 11 and 9, last traded at last. The tick of 0.25 is one that a
// double holds exactly, so that "one tick away" is a sharp boundary.
void quote(const QString &code, double last)
{
    sample::addInstrument("SH", code.toStdString(), 0x7fffffff, std::string(), 100, 0.25);
    CQuoteClient::instance()->setStockPrice(sample::quote("SH", code.toStdString(), last, ttservice::NO_VALUE, 11.0, 9.0));
}

class ReplaceToolBarTest : public SubstituteTest
{
protected:
    // Built on demand: whether the bar has a portfolio keyboard is decided when it is made.
    Bar &bar()
    {
        if (!m_bar)
            m_bar = new Bar(parent.get());
        return *m_bar;
    }
    // A new bar under a new parent, on empty substitutes.
    void fresh()
    {
        SetUp();
        m_bar = nullptr;
        parent = std::make_unique<EventRecorder>();
    }
    void tick(int id, bool on = true) { bar().checkBox(id)->setChecked(on); }
    static int lastFilter(const QSignalSpy &spy) { return spy.isEmpty() ? -1 : spy.last().at(0).toInt(); }

    std::unique_ptr<EventRecorder> parent = std::make_unique<EventRecorder>();

private:
    Bar *m_bar = nullptr;
};

// Each tick sends the filter word and tells the form; the tab word's and the replace row's
// hiding are checked below.
TEST_F(ReplaceToolBarTest, eachTickSendsItsBitAndTellsTheForm)
{
    const struct { int id, bit; bool (Bar::*query)() const; } rows[] = {{1, 1, &Bar::isFilter},           {16, 16, &Bar::isFilterZhangTing},   {32, 32, &Bar::isFilterDieTing},
                {128, 128, &Bar::isFilterDirection}, {2, 2, &Bar::isFilterBlacklist},  {4, 4, &Bar::isReplaceBlacklist},
                {8, 0, &Bar::isReplaceETF}, // replacing has no bit: the table does not filter by it
                {256, 256, nullptr}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.id);
        fresh();
        QSignalSpy spy(&bar(), &Bar::sigSetFilter);
        ASSERT_NE(bar().checkBox(row.id), nullptr);
        for (const bool on : {true, false}) {
            tick(row.id, on);
            EXPECT_EQ(lastFilter(spy), on ? row.bit : 0);
            EXPECT_EQ(count(*parent, 1074, row.id), on ? 1 : 2);
            if (row.query) {
                EXPECT_EQ((bar().*row.query)(), on);
            }
        }
    }
}

TEST_F(ReplaceToolBarTest, theFilterBoxesFollowTheTabWord)
{
    const struct { quint64 word; bool stop, rise, fall, direction; } rows[] = {{512, true, true, true, true},    {1024, true, true, true, true},     {2048, true, true, true, false},
                {8192, true, true, true, false},  {4096, false, false, false, false}, {16384, false, false, false, false},
                {0x80000, true, false, false, false}};
    for (int id : {1, 16, 32, 128})
        tick(id);
    for (const auto &row : rows) {
        SCOPED_TRACE(row.word);
        bar().setTradeOperationType(row.word);
        EXPECT_EQ(fields(bar().tradeOperationType(), bar().isFilter(), bar().isFilterZhangTing(), bar().isFilterDieTing(),
                         bar().isFilterDirection()),
                  fields(row.word, row.stop, row.rise, row.fall, row.direction));
        // Back on the buy tab every box shows again with its tick.
        bar().setTradeOperationType(512);
        EXPECT_TRUE(bar().isFilter() && bar().isFilterZhangTing() && bar().isFilterDieTing() && bar().isFilterDirection());
    }
}

// A hidden box reads as off however it was left, and keeps its tick for when it shows again.
TEST_F(ReplaceToolBarTest, aHiddenRowReadsAsOffAndABoxFoldedForWantOfRoomStillCounts)
{
    for (int id : {1, 2, 4, 8})
        tick(id);
    bar().setToolBarShow(false);
    EXPECT_FALSE(bar().isFilter() || bar().isReplaceBlacklist());
    bar().setToolBarShow(true);
    EXPECT_TRUE(bar().isFilter() && bar().isReplaceBlacklist());
    bar().setShowReplace(false);
    EXPECT_FALSE(bar().isFilterBlacklist() || bar().isReplaceBlacklist() || bar().isReplaceETF());
    EXPECT_TRUE(bar().checkBox(2)->isChecked() && bar().checkBox(4)->isChecked() && bar().checkBox(8)->isChecked());
    bar().setShowReplace(true);
    EXPECT_TRUE(bar().isFilterBlacklist() && bar().isReplaceBlacklist() && bar().isReplaceETF());

    fresh();
    bar().setGeometry(0, 0, 120, 48);
    parent->resize(120, 48);
    parent->show();
    bar().toolBar()->relayout();
    ASSERT_TRUE(bar().toolBar()->isFolded(bar().checkBox(4)));
    tick(4);
    EXPECT_TRUE(bar().isReplaceBlacklist());
    EXPECT_EQ(count(*parent, 1074, 4), 1);
}

// Ticks set by code are silent: the setters send the filter once each, a hidden box keeps its bit.
TEST_F(ReplaceToolBarTest, settersTickSilentlyAndSendTheFilterOnce)
{
    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    bar().setFilterBox(0, true);
    bar().setFilterBox(2, true);
    bar().setFilterBox(3, true);
    bar().setFilterBox(-1, true);
    EXPECT_EQ(fields(bar().isFilter(), bar().isFilterZhangTing(), bar().isFilterDieTing(), bar().isFilterDirection(), spy.count()),
              "true|false|true|false|0");

    bar().setFilterZhangdie(true);
    bar().setFilterDieTing(false);
    ASSERT_EQ(spy.count(), 2);
    EXPECT_EQ(lastFilter(spy), 1 | 16);

    bar().setFilterDirection(true);
    bar().setTradeOperationType(4096);
    bar().updateFilter();
    EXPECT_FALSE(bar().isFilter());
    EXPECT_EQ(lastFilter(spy), 1 | 16 | 128);
    EXPECT_TRUE(parent->seen.empty());
}

// The keyboard comes with the portfolio module (what its tick sends: the placing tests); only
// lists that can make a portfolio enable it.
TEST_F(ReplaceToolBarTest, onlyListsThatCanMakeAPortfolioEnableTheKeyboard)
{
    const struct { std::vector<int> operations; bool enabled; } rows[] = {{{}, false},   {{6}, true},   {{8}, true},   {{10}, true},  {{17}, true},        {{19}, true},
                {{18}, false}, {{7}, false},  {{20}, false}, {{25}, false}, {{18, 18, 6}, true}};
    EXPECT_TRUE(bar().portfolioKeyboard() == nullptr && !bar().isCreatePortfolio());
    fresh();
    switchPortfolioModule();
    WK::CCreatePortfolioKeyboard *keyboard = bar().portfolioKeyboard();
    ASSERT_NE(keyboard, nullptr);
    for (const auto &row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.operations));
        keyboard->setCheckAndEnable(true, !row.enabled);
        std::vector<ttservice::CCodeOrderParam> lines(row.operations.size());
        for (size_t i = 0; i < lines.size(); ++i)
            lines[i].m_operationType = ttservice::EOperationType(row.operations[i]);
        bar().setPortfolioEnabled(lines);
        EXPECT_EQ(keyboard->isEnabled(), row.enabled);
        EXPECT_TRUE(keyboard->isCreatePortfolio()) << "the tick stays as it was";
    }
}

TEST_F(ReplaceToolBarTest, warnsOnlyForAStoredBasketWithSuspendedStocksWhenReplacing)
{
    const struct { const char *name; bool stored, suspended, ticked, replaceShown, tickAfterChoosing, tip; } rows[] = {{"suspendedStock", true, true, true, true, false, true},   {"noSuspendedStock", true, false, true, true, false, false},
                {"basketNotStored", false, true, true, true, false, false}, {"replaceUnticked", true, true, false, true, false, false},
                {"replaceHidden", true, true, true, false, false, false},   {"tickedAfterChoosing", true, true, true, true, true, true}};
    const QString name = QStringLiteral("替换篮");
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        fresh();
        if (row.stored)
            storeBasket(name, {QStringLiteral("600000"), QStringLiteral("600001"), QStringLiteral("600002")});
        if (row.suspended)
            suspend(QStringLiteral("600001"));
        bar().setShowReplace(row.replaceShown);
        if (row.ticked && !row.tickAfterChoosing)
            tick(8);
        bar().replaceBasketEdit()->setBasket(name, true);
        if (row.ticked && row.tickAfterChoosing)
            tick(8);

        EXPECT_EQ(bar().basket(), name);
        EXPECT_EQ(count(*parent, 1074, 64), 1);
        const QVector<WK::MessageTipRecord> tips = WK::CMessageTip::records();
        ASSERT_EQ(tips.size(), row.tip ? 1 : 0);
        if (row.tip) {
            EXPECT_EQ(tips[0].text, QStringLiteral("替换的篮子中有停盘股"));
        }
    }

    // Unticking (after the last row) refreshes the table without a tip.
    WK::CMessageTip::clearRecords();
    tick(8, false);
    EXPECT_TRUE(WK::CMessageTip::records().isEmpty());
    EXPECT_EQ(count(*parent, 1074, 8), 2);
}

// The stocks at a limit still trade and are not counted; without weights every row weighs the same.
TEST_F(ReplaceToolBarTest, theStopPercentIsTheWeightOfTheSuspendedStocks)
{
    const QStringList codes = {QStringLiteral("600000"), QStringLiteral("600001"), QStringLiteral("600002"), QStringLiteral("600003")};
    // weights: of the four rows, the first of them suspended.
    const struct { std::vector<double> weights; const char *text; } rows[] = {{{1, 1, 1, 1}, "停盘股权重占比:25.00%"}, {{3, 1, 1, 1}, "停盘股权重占比:50.00%"}, {{0, 0, 0, 0}, "停盘股权重占比:25.00%"}};
    // One suspended, one at the rise limit, one in between, one within a tick of the fall limit.
    suspend(QStringLiteral("600000"));
    quote(QStringLiteral("600001"), 11.0);
    quote(QStringLiteral("600002"), 10.0);
    quote(QStringLiteral("600003"), 9.125);
    for (const auto &row : rows) {
        storeBasket(QStringLiteral("篮子"), codes, row.weights);
        bar().setStopPercentText(QStringLiteral("篮子"));
        EXPECT_EQ(bar().stopPercentText()->text(), QString::fromUtf8(row.text));
    }
    storeBasket(QStringLiteral("篮子"), {QStringLiteral("600000")});
    bar().setStopPercentText(QStringLiteral("篮子"));
    EXPECT_EQ(bar().stopPercentText()->text(), QStringLiteral("停盘股权重占比:100.00%"));
    bar().setStopPercentText(QStringLiteral("别的篮子"));
    EXPECT_EQ(bar().stopPercentText()->text(), QStringLiteral("停盘股权重占比:0.00%"));
}

} // namespace
