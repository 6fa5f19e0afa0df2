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
#include "SubstituteFixture.h"

#include "../platform/EventRecorder.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalSpy>

#include <memory>
#include <ostream>
#include <string>
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

void switchPortfolioModule()
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_portfolio"}, true);
}

void storeBasket(const QString &name, const QStringList &codes)
{
    CBasketSetting setting;
    setting.m_name = name;
    for (const QString &code : codes) {
        CBasketStockData row;
        row.m_market = QStringLiteral("SH");
        row.m_stockCode = code;
        row.m_weight = 1.0;
        setting.m_stocks.append(row);
    }
    getUserConfig()->baskets().insert(name, setting);
}

void suspend(const QString &code)
{
    CQuoteClient::instance()->setStoppedStock(code + QStringLiteral(".SH"), true);
}

// A stock with its limits at 11 and 9, last traded at last. The tick of 0.25 is one that a
// double holds exactly, so that "one tick away" is a sharp boundary.
void quote(const QString &code, double last)
{
    ttservice::CInstrumentDetail detail;
    detail.m_market = "SH";
    detail.m_stockCode = code.toStdString();
    detail.m_priceTick = 0.25;
    CExchangeClient::instance()->addInstrument(detail);
    CPriceData price;
    price.m_market = "SH";
    price.m_stockCode = code.toStdString();
    price.m_lastPrice = last;
    price.m_upStopPrice = 11.0;
    price.m_downStopPrice = 9.0;
    CQuoteClient::instance()->setStockPrice(price);
}

class ReplaceToolBarTest : public SubstituteTest
{
protected:
    // Built on demand: whether the bar has a portfolio keyboard is decided when it is made.
    Bar &bar()
    {
        if (!m_bar)
            m_bar = new Bar(&parent);
        return *m_bar;
    }
    void tick(int id, bool on = true) { bar().checkBox(id)->setChecked(on); }
    int lastFilter(const QSignalSpy &spy) const { return spy.isEmpty() ? -1 : spy.last().at(0).toInt(); }

    EventRecorder parent;

private:
    Bar *m_bar = nullptr;
};

// --- the query rule: a box counts only if it exists, is visible and is ticked ---

struct QueryCase {
    const char *name;
    int id;
    bool (Bar::*query)() const;
    void (*hide)(Bar &);
};

void PrintTo(const QueryCase &c, std::ostream *os)
{
    *os << c.name;
}

void hideByFuturesTab(Bar &bar) { bar.setTradeOperationType(4096); }
void hideByCreditTab(Bar &bar) { bar.setTradeOperationType(2048); }
void hideReplace(Bar &bar) { bar.setShowReplace(false); }

class QueryRule : public ReplaceToolBarTest, public ::testing::WithParamInterface<QueryCase>
{
};

TEST_P(QueryRule, TrueOnlyWhenVisibleAndTicked)
{
    const QueryCase &c = GetParam();
    ASSERT_NE(bar().checkBox(c.id), nullptr);
    EXPECT_FALSE((bar().*c.query)()) << "boxes start unticked";

    tick(c.id);
    EXPECT_TRUE((bar().*c.query)());

    c.hide(bar());
    EXPECT_TRUE(bar().checkBox(c.id)->isChecked());
    EXPECT_FALSE((bar().*c.query)()) << "a hidden box reads as off however it was left";

    tick(c.id, false);
    EXPECT_FALSE((bar().*c.query)());
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, QueryRule,
    ::testing::Values(QueryCase{"filterStop", 1, &Bar::isFilter, hideByFuturesTab},
                      QueryCase{"filterRise", 16, &Bar::isFilterZhangTing, hideByFuturesTab},
                      QueryCase{"filterFall", 32, &Bar::isFilterDieTing, hideByFuturesTab},
                      QueryCase{"filterDirection", 128, &Bar::isFilterDirection, hideByCreditTab},
                      QueryCase{"filterBlacklist", 2, &Bar::isFilterBlacklist, hideReplace},
                      QueryCase{"replaceBlacklist", 4, &Bar::isReplaceBlacklist, hideReplace},
                      QueryCase{"replaceStop", 8, &Bar::isReplaceETF, hideReplace}),
    [](const ::testing::TestParamInfo<QueryCase> &info) { return std::string(info.param.name); });

TEST_F(ReplaceToolBarTest, HiddenFirstRowReadsAsOff)
{
    tick(1);
    tick(4);
    bar().setToolBarShow(false);
    EXPECT_FALSE(bar().isFilter());
    EXPECT_FALSE(bar().isReplaceBlacklist());
    EXPECT_EQ(bar().height(), 25);
    bar().setToolBarShow(true);
    EXPECT_TRUE(bar().isFilter());
    EXPECT_TRUE(bar().isReplaceBlacklist());
    EXPECT_EQ(bar().height(), 48);
}

TEST_F(ReplaceToolBarTest, BoxFoldedForWantOfRoomStillCounts)
{
    bar().setGeometry(0, 0, 120, 48);
    parent.resize(120, 48);
    parent.show();
    bar().toolBar()->relayout();
    WK::CCheckBox *last = bar().checkBox(4);
    ASSERT_TRUE(bar().toolBar()->isFolded(last));

    tick(4);
    EXPECT_TRUE(bar().isReplaceBlacklist());
    EXPECT_EQ(count(parent, 1074, 4), 1);
}

// --- which filter boxes a tab has ---

struct TabCase {
    const char *name;
    quint64 word;
    bool stop;
    bool rise;
    bool fall;
    bool direction;
};

void PrintTo(const TabCase &c, std::ostream *os)
{
    *os << c.name;
}

class TabVisibility : public ReplaceToolBarTest, public ::testing::WithParamInterface<TabCase>
{
};

TEST_P(TabVisibility, FilterBoxesFollowTheTabWord)
{
    const TabCase &c = GetParam();
    for (int id : {1, 16, 32, 128})
        tick(id);
    bar().setTradeOperationType(c.word);
    EXPECT_EQ(bar().tradeOperationType(), c.word);
    EXPECT_EQ(bar().isFilter(), c.stop);
    EXPECT_EQ(bar().isFilterZhangTing(), c.rise);
    EXPECT_EQ(bar().isFilterDieTing(), c.fall);
    EXPECT_EQ(bar().isFilterDirection(), c.direction);

    // Back on the buy tab every box shows again with its tick.
    bar().setTradeOperationType(512);
    EXPECT_TRUE(bar().isFilter() && bar().isFilterZhangTing() && bar().isFilterDieTing() && bar().isFilterDirection());
}

INSTANTIATE_TEST_SUITE_P(
    Words, TabVisibility,
    ::testing::Values(TabCase{"buy", 512, true, true, true, true},
                      TabCase{"sell", 1024, true, true, true, true},
                      TabCase{"buyAndSell", 2048, true, true, true, false},
                      TabCase{"credit", 8192, true, true, true, false},
                      TabCase{"futures", 4096, false, false, false, false},
                      TabCase{"oneKeyFutures", 16384, false, false, false, false},
                      TabCase{"hongKongConnect", 0x80000, true, false, false, false}),
    [](const ::testing::TestParamInfo<TabCase> &info) { return std::string(info.param.name); });

// --- the word of sigSetFilter ---

struct BitCase {
    const char *name;
    int id;
    int bit;
};

void PrintTo(const BitCase &c, std::ostream *os)
{
    *os << c.name;
}

class FilterBits : public ReplaceToolBarTest, public ::testing::WithParamInterface<BitCase>
{
};

TEST_P(FilterBits, EachTickedBoxGivesItsBitAndTellsTheForm)
{
    const BitCase &c = GetParam();
    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    tick(c.id);
    EXPECT_EQ(lastFilter(spy), c.bit);
    EXPECT_EQ(count(parent, 1074, c.id), 1);
    tick(c.id, false);
    EXPECT_EQ(lastFilter(spy), 0);
    EXPECT_EQ(count(parent, 1074, c.id), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, FilterBits,
    ::testing::Values(BitCase{"filterStop", 1, 1}, BitCase{"filterBlacklist", 2, 2}, BitCase{"replaceBlacklist", 4, 4},
                      BitCase{"filterRise", 16, 16}, BitCase{"filterFall", 32, 32},
                      BitCase{"filterDirection", 128, 128}, BitCase{"autoRefresh", 256, 256},
                      BitCase{"replaceStopHasNoBit", 8, 0}),
    [](const ::testing::TestParamInfo<BitCase> &info) { return std::string(info.param.name); });

TEST_F(ReplaceToolBarTest, HiddenBoxKeepsItsBit)
{
    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    bar().setFilter(true);
    bar().setFilterDirection(true);
    bar().setTradeOperationType(4096);
    bar().updateFilter();
    EXPECT_FALSE(bar().isFilter());
    EXPECT_EQ(lastFilter(spy), 1 | 128);
}

TEST_F(ReplaceToolBarTest, SettersSendTheFilterOnceAndNoEvent)
{
    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    bar().setFilterZhangdie(true);
    bar().setFilterDieTing(false);
    ASSERT_EQ(spy.count(), 2);
    EXPECT_EQ(lastFilter(spy), 16);
    EXPECT_TRUE(parent.seen.empty());
}

TEST_F(ReplaceToolBarTest, SetFilterBoxTicksSilently)
{
    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    bar().setFilterBox(0, true);
    bar().setFilterBox(2, true);
    bar().setFilterBox(3, true);
    bar().setFilterBox(-1, true);
    EXPECT_TRUE(bar().isFilter());
    EXPECT_FALSE(bar().isFilterZhangTing());
    EXPECT_TRUE(bar().isFilterDieTing());
    EXPECT_FALSE(bar().isFilterDirection());
    EXPECT_EQ(spy.count(), 0);
    EXPECT_TRUE(parent.seen.empty());
}

// --- the portfolio keyboard, under its module switch ---

TEST_F(ReplaceToolBarTest, WithoutThePortfolioModuleThereIsNoKeyboard)
{
    EXPECT_EQ(bar().portfolioKeyboard(), nullptr);
    EXPECT_FALSE(bar().isCreatePortfolio());
    EXPECT_EQ(bar().getPortfolioName(), std::string());
    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    bar().updateFilter();
    EXPECT_EQ(lastFilter(spy), 0);
}

TEST_F(ReplaceToolBarTest, KeyboardOffersPortfoliosAndGivesBit512)
{
    ttservice::CPortfolio portfolio;
    portfolio.m_portfolioKey = "p1";
    portfolio.m_portfolioName = "成长一号";
    getUserConfig()->addPortfolio(portfolio);
    switchPortfolioModule();
    WK::CCreatePortfolioKeyboard *keyboard = bar().portfolioKeyboard();
    ASSERT_NE(keyboard, nullptr);
    EXPECT_EQ(keyboard->portfolioNames(), QStringList{QStringLiteral("成长一号")});

    QSignalSpy spy(&bar(), &Bar::sigSetFilter);
    keyboard->setPortfolioNameText(QStringLiteral("新组合"));
    keyboard->checkBox()->click();
    EXPECT_TRUE(bar().isCreatePortfolio());
    EXPECT_EQ(bar().getPortfolioName(), std::string("新组合"));
    EXPECT_EQ(lastFilter(spy), 512);
    EXPECT_EQ(count(parent, 1074, Bar::PORTFOLIO_KEYBOARD_ID), 1);

    bar().setShowPortfolio(false);
    EXPECT_FALSE(keyboard->isVisibleTo(&bar()));
    bar().setShowPortfolio(true);
    EXPECT_TRUE(keyboard->isVisibleTo(&bar()));
}

struct PortfolioCase {
    const char *name;
    std::vector<int> operations;
    bool enabled;
};

void PrintTo(const PortfolioCase &c, std::ostream *os)
{
    *os << c.name;
}

class PortfolioEnabled : public ReplaceToolBarTest, public ::testing::WithParamInterface<PortfolioCase>
{
};

TEST_P(PortfolioEnabled, OnlyListsThatCanMakeAPortfolioEnableTheKeyboard)
{
    const PortfolioCase &c = GetParam();
    switchPortfolioModule();
    WK::CCreatePortfolioKeyboard *keyboard = bar().portfolioKeyboard();
    ASSERT_NE(keyboard, nullptr);
    keyboard->setCheckAndEnable(true, !c.enabled);

    std::vector<ttservice::CCodeOrderParam> lines;
    for (int op : c.operations) {
        ttservice::CCodeOrderParam line;
        line.m_operationType = ttservice::EOperationType(op);
        lines.push_back(line);
    }
    bar().setPortfolioEnabled(lines);
    EXPECT_EQ(keyboard->isEnabled(), c.enabled);
    EXPECT_TRUE(keyboard->isCreatePortfolio()) << "the tick stays as it was";
}

INSTANTIATE_TEST_SUITE_P(
    Operations, PortfolioEnabled,
    ::testing::Values(PortfolioCase{"empty", {}, false}, PortfolioCase{"closeLongToday", {6}, true},
                      PortfolioCase{"closeShortToday", {8}, true}, PortfolioCase{"op10", {10}, true},
                      PortfolioCase{"op17", {17}, true}, PortfolioCase{"sell", {19}, true},
                      PortfolioCase{"buy", {18}, false}, PortfolioCase{"op7", {7}, false},
                      PortfolioCase{"credit20", {20}, false}, PortfolioCase{"money25", {25}, false},
                      PortfolioCase{"oneLineEnough", {18, 18, 6}, true}),
    [](const ::testing::TestParamInfo<PortfolioCase> &info) { return std::string(info.param.name); });

// --- the tip for a replacing basket with suspended stocks ---

struct TipCase {
    const char *name;
    bool stored;
    bool suspended;
    bool ticked;
    bool replaceShown;
    bool tickAfterChoosing;
    bool tip;
};

void PrintTo(const TipCase &c, std::ostream *os)
{
    *os << c.name;
}

class SuspendedTip : public ReplaceToolBarTest, public ::testing::WithParamInterface<TipCase>
{
};

TEST_P(SuspendedTip, WarnsOnlyForAStoredBasketWithSuspendedStocksWhenReplacing)
{
    const TipCase &c = GetParam();
    const QString name = QStringLiteral("替换篮");
    if (c.stored)
        storeBasket(name, {QStringLiteral("600000"), QStringLiteral("600001"), QStringLiteral("600002")});
    if (c.suspended)
        suspend(QStringLiteral("600001"));
    bar().setShowReplace(c.replaceShown);
    if (c.ticked && !c.tickAfterChoosing)
        tick(8);

    bar().replaceBasketEdit()->setBasket(name, true);
    if (c.ticked && c.tickAfterChoosing)
        tick(8);

    EXPECT_EQ(bar().basket(), name);
    EXPECT_EQ(count(parent, 1074, 64), 1);
    const QVector<WK::MessageTipRecord> tips = WK::CMessageTip::records();
    ASSERT_EQ(tips.size(), c.tip ? 1 : 0);
    if (c.tip) {
        EXPECT_EQ(tips[0].text, QStringLiteral("替换的篮子中有停盘股"));
        EXPECT_EQ(tips[0].anchorName, bar().replaceBasketEdit()->objectName());
        EXPECT_EQ(tips[0].alignment, 64);
        EXPECT_EQ(tips[0].level, 3);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Baskets, SuspendedTip,
    ::testing::Values(TipCase{"suspendedStock", true, true, true, true, false, true},
                      TipCase{"tickedAfterChoosing", true, true, true, true, true, true},
                      TipCase{"noSuspendedStock", true, false, true, true, false, false},
                      TipCase{"basketNotStored", false, true, true, true, false, false},
                      TipCase{"replaceUnticked", true, true, false, true, false, false},
                      TipCase{"replaceHidden", true, true, true, false, false, false}),
    [](const ::testing::TestParamInfo<TipCase> &info) { return std::string(info.param.name); });

TEST_F(ReplaceToolBarTest, UntickingReplaceRefreshesWithoutTip)
{
    storeBasket(QStringLiteral("替换篮"), {QStringLiteral("600000")});
    suspend(QStringLiteral("600000"));
    bar().replaceBasketEdit()->setBasket(QStringLiteral("替换篮"), false);
    tick(8);
    WK::CMessageTip::clearRecords();
    tick(8, false);
    EXPECT_TRUE(WK::CMessageTip::records().isEmpty());
    EXPECT_EQ(count(parent, 1074, 8), 2);
}

// --- the share of stopped stocks ---

struct PercentCase {
    const char *name;
    std::vector<double> weights; // of the four rows; the first is suspended
    const char *text;
};

void PrintTo(const PercentCase &c, std::ostream *os)
{
    *os << c.name;
}

class StopPercent : public ReplaceToolBarTest, public ::testing::WithParamInterface<PercentCase>
{
};

TEST_P(StopPercent, IsTheWeightOfTheSuspendedStocks)
{
    const PercentCase &c = GetParam();
    // One suspended, one at the rise limit, one in between, one within a tick of the fall
    // limit: the stocks at a limit still trade and are not counted.
    storeBasket(QStringLiteral("篮子"), {QStringLiteral("600000"), QStringLiteral("600001"), QStringLiteral("600002"),
                                       QStringLiteral("600003")});
    QList<CBasketStockData> &rows = getUserConfig()->baskets()[QStringLiteral("篮子")].m_stocks;
    for (int i = 0; i < rows.size(); ++i)
        rows[i].m_weight = c.weights[static_cast<size_t>(i)];
    suspend(QStringLiteral("600000"));
    quote(QStringLiteral("600001"), 11.0);
    quote(QStringLiteral("600002"), 10.0);
    quote(QStringLiteral("600003"), 9.125);

    bar().setStopPercentText(QStringLiteral("篮子"));
    EXPECT_EQ(bar().stopPercentText()->text(), QString::fromUtf8(c.text));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StopPercent,
    ::testing::Values(PercentCase{"equalWeights", {1, 1, 1, 1}, "停盘股权重占比:25.00%"},
                      PercentCase{"heavierSuspended", {3, 1, 1, 1}, "停盘股权重占比:50.00%"},
                      PercentCase{"noWeightsShareOfRows", {0, 0, 0, 0}, "停盘股权重占比:25.00%"}),
    [](const ::testing::TestParamInfo<PercentCase> &info) { return std::string(info.param.name); });

TEST_F(ReplaceToolBarTest, UnknownBasketShowsZero)
{
    storeBasket(QStringLiteral("篮子"), {QStringLiteral("600000")});
    suspend(QStringLiteral("600000"));
    bar().setStopPercentText(QStringLiteral("篮子"));
    ASSERT_EQ(bar().stopPercentText()->text(), QStringLiteral("停盘股权重占比:100.00%"));
    bar().setStopPercentText(QStringLiteral("别的篮子"));
    EXPECT_EQ(bar().stopPercentText()->text(), QStringLiteral("停盘股权重占比:0.00%"));
}

} // namespace
