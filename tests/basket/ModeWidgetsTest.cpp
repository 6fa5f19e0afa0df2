// The blocks of order parameters: one block's memory per operation, and the tabs' mode widgets
// (credit, futures, one-key) that switch it.
#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include "CGlobalOrderParamTable.h"
#include "CTrdAlgoBaseTable.h"

#include "CPushButton.h"
#include "CPushButtonGroup.h"
#include "CTimeService.h"

#include <QComboBox>
#include <QSignalSpy>

#include <functional>
#include <utility>
#include <vector>

namespace {

using TC::COpBasketStockParamsWidget;
using ttservice::CCodeOrderParam;
using ttservice::COrderSetting;

COrderSetting settingOf(COpBasketStockParamsWidget *block)
{
    COrderSetting setting;
    block->table()->saveOpParam(QString(), setting);
    return setting;
}

void setStep(COpBasketStockParamsWidget *block, double step)
{
    COrderSetting setting = settingOf(block);
    setting.m_stepValue = step;
    block->table()->loadOpParam(setting, 0.01);
}

double step(COpBasketStockParamsWidget *block) { return settingOf(block).m_stepValue; }

double twapInterval(COpBasketStockParamsWidget *block)
{
    return block->table()->getTrdAlgoBaseTable(4)->value(TC::CTrdAlgoBaseTable::ItemOrderInterval);
}

void setTwapInterval(COpBasketStockParamsWidget *block, double seconds)
{
    block->table()->getTrdAlgoBaseTable(4)->setValue(TC::CTrdAlgoBaseTable::ItemOrderInterval, seconds);
}

void press(WK::CPushButtonGroup *group, int id)
{
    ASSERT_NE(group->button(id), nullptr) << id;
    group->button(id)->click();
}

class ModeWidgets : public SubstituteTest
{
protected:
    COpBasketStockParamsWidget *makeBlock()
    {
        return new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_STOCK, &parent, ttservice::VQ_TRADER_BASKET);
    }

    EventRecorder parent;
};

TEST_F(ModeWidgets, eachOperationGetsBackWhatWasLastSetForIt)
{
    COpBasketStockParamsWidget *block = makeBlock();
    setStep(block, 0.05);
    setTwapInterval(block, 45);

    block->setOperationType(19);
    // The first setting kept stands for every operation not visited yet.
    EXPECT_EQ(block->settings().keys(), QList<int>{-2});
    EXPECT_EQ(block->trdParams().keys(), QList<int>{-2});
    EXPECT_DOUBLE_EQ(step(block), 0.05);
    EXPECT_DOUBLE_EQ(twapInterval(block), 45);

    setStep(block, 0.2);
    block->table()->setPriceType(1);
    setTwapInterval(block, 10);
    block->setOperationType(18);
    EXPECT_EQ(block->settings().keys(), (QList<int>{-2, 19}));
    EXPECT_DOUBLE_EQ(step(block), 0.05);
    EXPECT_EQ(block->getPriceType(), TC::COrderParamBaseTable::PRICE_TYPE_OPPOSITE);
    EXPECT_DOUBLE_EQ(twapInterval(block), 45);

    block->setOperationType(19);
    EXPECT_DOUBLE_EQ(step(block), 0.2);
    EXPECT_EQ(block->getPriceType(), 1);
    EXPECT_DOUBLE_EQ(twapInterval(block), 10);
    EXPECT_EQ(block->table()->operationType(), 19);

    // Without memory the text is the table's own.
    COpBasketStockParamsWidget *plain = makeBlock();
    plain->setSaveParam(false);
    setStep(plain, 0.05);
    plain->setOperationType(19);
    setStep(plain, 0.3);
    plain->setOperationType(18);
    EXPECT_TRUE(plain->settings().isEmpty());
    EXPECT_DOUBLE_EQ(step(plain), 0.3);
    EXPECT_EQ(plain->param(), plain->table()->param());
}

TEST_F(ModeWidgets, anotherBlockReadsTheMemoryBack)
{
    COpBasketStockParamsWidget *source = makeBlock();
    setStep(source, 0.05);
    setTwapInterval(source, 45);
    source->setOperationType(19);
    setStep(source, 0.2);
    source->table()->setOrderType(13);
    source->table()->resetStrategyType(13, QStringLiteral("SWITCH"));
    // Operation 19 has no algorithm entry of its own until it is left.
    setTwapInterval(source, 10);
    const QString onView = source->param();
    source->setOperationType(18);
    source->setOperationType(19);
    const QString text = source->param();

    COpBasketStockParamsWidget *target = makeBlock();
    target->setOperationType(19);
    target->setParam(text);
    EXPECT_EQ(target->settings().keys(), source->settings().keys()) << text.toStdString();
    EXPECT_DOUBLE_EQ(step(target), 0.2);
    EXPECT_EQ(target->getOrderType(), 13);
    EXPECT_EQ(target->table()->getAlgoStrategyType(), "SWITCH");
    EXPECT_EQ(target->table()->loadCheckParam(), source->table()->loadCheckParam());

    // The algorithm numbers come back for the operation on view and for those not visited.
    COpBasketStockParamsWidget *fresh = makeBlock();
    fresh->setOperationType(19);
    fresh->setParam(onView);
    EXPECT_DOUBLE_EQ(twapInterval(fresh), 10);
    fresh->setOperationType(20);
    EXPECT_DOUBLE_EQ(twapInterval(fresh), 45) << "an operation not visited starts from the first one kept";
}

// 2024-01-02 00:00:00 in Beijing, the day of the time service's default reading.
constexpr long long kDefaultDay = TC::CTimeService::DEFAULT_TIME - (9 * 3600 + 30 * 60);

TEST_F(ModeWidgets, theSharedOrderTypeDoesNotChangeTheTextOfOperationsLeftEarlier)
{
    // The order type was changed after operation 18 was left; a block restored on 18 that then
    // moves on to 19 keeps 18 again with the type on view. Its text must still be the same.
    COpBasketStockParamsWidget *source = makeBlock();
    source->setOperationType(18);
    setStep(source, 0.05);
    source->setOperationType(19);
    source->table()->setOrderType(13);
    const QString text = source->param();

    COpBasketStockParamsWidget *target = makeBlock();
    target->setOperationType(18);
    target->setParam(text);
    target->setOperationType(19);
    EXPECT_EQ(target->param(), text);
    EXPECT_EQ(target->getOrderType(), 13);
    target->setOperationType(18);
    EXPECT_DOUBLE_EQ(step(target), 0.05);
    EXPECT_EQ(target->getOrderType(), 13);
}

TEST_F(ModeWidgets, olderTextWithoutEqualsResetsTheSettingToTheTradingDay)
{
    TC::CGlobalOrderParamTable older(ttservice::BROKER_TYPE_STOCK, true, nullptr, 1, ttservice::VQ_TRADER_BASKET, 0);
    older.setFlag(0x1103fff);
    older.setPriceType(2);
    older.setCheckParam(QString());
    COrderSetting stepped;
    stepped.m_stepValue = 0.5;
    older.loadOpParam(stepped, 0.01);

    COpBasketStockParamsWidget *block = makeBlock();
    block->setParam(older.param());
    EXPECT_EQ(block->getPriceType(), 2);
    EXPECT_EQ(block->table()->loadCheckParam(), QStringLiteral("0*1"));
    ASSERT_TRUE(block->settings().contains(-2));
    const COrderSetting kept = block->settings().value(-2);
    EXPECT_EQ(kept.m_startTime, kDefaultDay + 9 * 3600 + 30 * 60);
    EXPECT_EQ(kept.m_endTime, kDefaultDay + 15 * 3600);
    EXPECT_DOUBLE_EQ(step(block), 0.0);
}

TEST_F(ModeWidgets, damagedTextsLeaveAWorkingBlock)
{
    for (const char *text : {"=", ":::", "checkedIds=:currentOrderType=x:TrdParams=a`b:7=notjson:", "=:=:=",
                             "5TrdParams=VWAP`:19={;}:", "currentOrderType=99"}) {
        COpBasketStockParamsWidget *block = makeBlock();
        block->setParam(QString::fromLatin1(text));
        EXPECT_TRUE(block->table()->offeredOrderTypes().contains(block->getOrderType())) << text;
        block->setOperationType(19);
        EXPECT_FALSE(block->param().isEmpty()) << text;
    }
}

TEST_F(ModeWidgets, singleCodeLinesTakePricesStepsAndValidityFromTheLatestQuote)
{
    sample::addInstrument("SH", "600000");
    sample::setBook("SH", "600000", 10.0, 10.02, 9.99, 11.0, 9.0);
    // An expected step of NO_VALUE: the step is cleared.
    const struct {
        const char *name;
        ttservice::EPriceType priceType;
        bool absolute;
        double stepValue, stepRate, expectedPrice, expectedStep;
    } cases[] = {{"fixedPriceKeptStepCleared", ttservice::PRICE_TYPE_FIXED, true, 0.05, 0, 12.34, ttservice::NO_VALUE},
                 {"stepRoundedToTheTick", ttservice::PRICE_TYPE_LAST, true, 0.123, 0, 10.0, 0.12},
                 {"stepAboveHalfATickRoundsUp", ttservice::PRICE_TYPE_LAST, true, 0.1251, 0, 10.0, 0.13},
                 {"stepFromRateOfThePrice", ttservice::PRICE_TYPE_ASK1, false, 0, 0.0123, 10.02, 0.12}};
    for (const auto &row : cases) {
        SCOPED_TRACE(row.name);
        COpBasketStockParamsWidget *block = makeBlock();
        COrderSetting setting;
        setting.m_stepIsAbsolute = row.absolute;
        setting.m_stepValue = row.stepValue, setting.m_stepRate = row.stepRate;
        setting.m_validSeconds = 60, setting.m_stepFlag = 1;
        block->table()->loadOpParam(setting, 0.001);

        CCodeOrderParam line;
        line.m_stockInfo = ttservice::CStockInfo("SH", "600000");
        line.m_operationType = ttservice::OT_BUY;
        line.m_priceType = row.priceType, line.m_price = 12.34, line.m_volume = 500;
        std::vector<CCodeOrderParam> lines{line, line};
        lines[1].m_stockInfo.m_stockCode = "600001"; // without a quote: left as it came
        block->updateSingleCodeOrderParam(lines);

        EXPECT_NEAR(lines[0].m_price, row.expectedPrice, 1e-9);
        if (ttservice::isNoValue(row.expectedStep))
            EXPECT_TRUE(ttservice::isNoValue(lines[0].m_priceStep)) << lines[0].m_priceStep;
        else
            EXPECT_NEAR(lines[0].m_priceStep, row.expectedStep, 1e-9);
        // The first line's volume and validity; the second, without a quote, left as it came.
        EXPECT_EQ(fields(lines[0].m_volume, lines[0].m_validFrom - TC::CTimeService::DEFAULT_TIME,
                         lines[0].m_validTo - TC::CTimeService::DEFAULT_TIME, lines[1].m_price, lines[1].m_validTo),
                  "500|0|60|12.34|0");
    }
}

TEST_F(ModeWidgets, creditFirstVisitKeepsTheBlockButStillTellsTheForm)
{
    auto *credit = new TC::COpBasketCrdBuySellWidget(&parent);
    TC::COpBasketStockParamsWidget *block = credit->getParamWidget();
    setStep(block, 0.05);

    press(credit->buttonGroup(), 109);
    EXPECT_EQ(credit->currentOpt(), 21);
    EXPECT_EQ(block->operationType(), 18) << "a first visit changes nothing in the block";
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{5, 0x2000, 0, QString()}}));

    setStep(block, 0.3);
    press(credit->buttonGroup(), 108);
    setStep(block, 0.7);
    press(credit->buttonGroup(), 109); // now 21 was kept
    EXPECT_EQ(block->operationType(), 21);
    EXPECT_DOUBLE_EQ(step(block), 0.3);
    press(credit->buttonGroup(), 108);
    EXPECT_DOUBLE_EQ(step(block), 0.7);
    EXPECT_EQ(parent.seen.size(), 4u);
}

TEST_F(ModeWidgets, creditStoredOperationChecksItsButtonAndAnInstructionLocksThem)
{
    const struct {
        const char *text;
        int checkedId;
    } cases[] = {{"20%20%{}", 53}, {"21", 53}, {"18", 108}, {"19", 109}, {"22", 52}, {"x%%%", 53}, {"24", 53}};
    for (const auto &c : cases) {
        auto *credit = new TC::COpBasketCrdBuySellWidget(&parent);
        credit->setParam(QString::fromLatin1(c.text));
        EXPECT_EQ(credit->buttonGroup()->checkedId(), c.checkedId) << c.text;
        // What the block keeps and shows belongs to the operation of the checked button, the one
        // the order leaves as.
        EXPECT_EQ(credit->currentOptMemory(), credit->currentOpt()) << c.text;
        // An instruction's operation locks the buttons, even the one already on.
        credit->setCurrentOpt(ttservice::OT_SELL_TO_REPAY);
        EXPECT_EQ(credit->buttonGroup()->checkedId(), 53) << c.text;
        EXPECT_FALSE(credit->buttonGroup()->isEnabled()) << c.text;
    }
    EXPECT_TRUE(parent.seen.empty());
}

// Each credit operation keeps the step and order type it was left with: when the trader comes
// back to it and through the block's text, into a new panel that has visited nothing. The
// futures block keeps its operations' memory the same way.
TEST_F(ModeWidgets, creditOperationsKeepTheirSettingsAndOrderTypes)
{
    auto *source = new TC::COpBasketCrdBuySellWidget(&parent);
    TC::CGlobalOrderParamTable *table = source->getParamWidget()->table();
    setStep(source->getParamWidget(), 0.4);
    ASSERT_TRUE(table->setOrderType(5));
    press(source->buttonGroup(), 52);
    setStep(source->getParamWidget(), 0.7);
    ASSERT_TRUE(table->setOrderType(4));
    press(source->buttonGroup(), 108);
    EXPECT_EQ(table->orderType(), 5);
    press(source->buttonGroup(), 52);
    EXPECT_EQ(table->orderType(), 4);
    const QString text = source->param();
    EXPECT_TRUE(text.startsWith(QStringLiteral("22%20%"))) << text.toStdString();

    auto *target = new TC::COpBasketCrdBuySellWidget(&parent);
    target->setParam(text);
    EXPECT_DOUBLE_EQ(target->orderSettings().value(20).m_stepValue, 0.4);
    EXPECT_DOUBLE_EQ(target->orderSettings().value(22).m_stepValue, 0.7);
    EXPECT_EQ(target->getParamWidget()->table()->orderType(), 4);
    press(target->buttonGroup(), 108);
    EXPECT_EQ(target->getParamWidget()->table()->orderType(), 5);

    // Older texts kept what 108 showed under the plain buy.
    auto *older = new TC::COpBasketCrdBuySellWidget(&parent);
    older->setParam(QStringLiteral("18%18%") + text.section(QLatin1Char('%'), 2, 2));
    EXPECT_EQ(older->buttonGroup()->checkedId(), 108);
    EXPECT_DOUBLE_EQ(step(older->getParamWidget()), 0.4);

    // Saved on 融资买入, whose own number reads back as the last button.
    press(source->buttonGroup(), 108);
    auto *again = new TC::COpBasketCrdBuySellWidget(&parent);
    again->setParam(source->param());
    EXPECT_EQ(again->buttonGroup()->checkedId(), 108);
    EXPECT_EQ(again->getParamWidget()->table()->orderType(), 5);
    EXPECT_EQ(again->param(), source->param());
}

TEST_F(ModeWidgets, futuresPressChangesTheBlockAndTellsTheFuturesWord)
{
    auto *futures = new TC::COpBasketFtrBuySellWidget(&parent);
    TC::COpBasketStockParamsWidget *block = futures->getParamWidget();
    press(futures->buttonGroup(), 55);
    EXPECT_EQ(futures->currentOpt(), 3);
    EXPECT_EQ(block->operationType(), 3);
    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].id, 0x1000);

    futures->setCurrentOpt(ttservice::OT_CLOSE_LONG);
    EXPECT_EQ(futures->buttonGroup()->checkedId(), 56);
    EXPECT_EQ(block->operationType(), 14);
    EXPECT_TRUE(futures->buttonGroup()->isEnabled()) << "unlike the credit block's, an instruction locks nothing";

    // A user's change in the block climbs to the form.
    auto *combo = block->table()->findChild<QComboBox *>(QStringLiteral("order_type_combo"));
    ASSERT_NE(combo, nullptr);
    combo->setCurrentIndex(combo->findData(4));
    Q_EMIT combo->activated(combo->currentIndex());
    ASSERT_EQ(parent.seen.size(), 2u);
    EXPECT_EQ(parent.seen[1].event, 114);
    EXPECT_EQ(block->getOrderType(), 4);
}

// What the trader sets before the first change of operation is what every operation not
// visited yet starts from; the block's own start on its first operation is no change.
TEST_F(ModeWidgets, futuresFirstVisitStartsFromWhatWasSetBefore)
{
    auto *futures = new TC::COpBasketFtrBuySellWidget(&parent);
    auto *oneKey = new TC::COpBasketFtrOneKeyWidget(&parent);
    const std::vector<std::pair<TC::COpBasketStockParamsWidget *, std::function<void()>>> firstVisits = {
        {futures->getParamWidget(), [&] { press(futures->buttonGroup(), 56); }},
        {oneKey->getBuyParam(), [&] { oneKey->getBuyParam()->setOperationType(ttservice::OT_SELL); }},
        {oneKey->getSellParam(), [&] { oneKey->getSellParam()->setOperationType(ttservice::OT_BUY); }}};
    for (const auto &visit : firstVisits) {
        TC::COpBasketStockParamsWidget *block = visit.first;
        COrderSetting setting = settingOf(block);
        setting.m_priceType = ttservice::PRICE_TYPE_LAST, setting.m_stepValue = 0.2, setting.m_validSeconds = 30;
        block->table()->loadOpParam(setting, 0.01);

        visit.second();
        EXPECT_EQ(block->getPriceType(), ttservice::PRICE_TYPE_LAST);
        EXPECT_DOUBLE_EQ(step(block), 0.2);
        EXPECT_EQ(settingOf(block).m_validSeconds, 30);
    }
}

TEST_F(ModeWidgets, buySellPressTellsTheOperationOfTheWord)
{
    auto *widget = new TC::COpBasketBuySellWidget(ttservice::BROKER_TYPE_STOCK, &parent);
    QSignalSpy spy(widget, &TC::COpBasketBuySellWidget::sigSetOperation);
    press(widget->buttonGroup(), 109);
    EXPECT_FALSE(widget->isCurrentBuy());
    EXPECT_TRUE(widget->getBuyParam()->isHidden());
    widget->handleEvent(5, 7, 0, QString(), nullptr); // neither side: the sell operation
    widget->switchMode(0x2000);
    widget->handleEvent(5, 108, 0, QString(), nullptr);
    widget->handleEvent(5, 7, 0, QString(), nullptr);

    QList<int> told;
    for (const QList<QVariant> &signal : spy)
        told << signal.at(0).toInt();
    EXPECT_EQ(told, (QList<int>{19, 19, 20, 21}));
    EXPECT_EQ(widget->getBuyParam()->operationType(), 20);
    EXPECT_EQ(widget->getSellParam()->operationType(), 21);
    EXPECT_TRUE(parent.seen.empty());

    widget->setCheckByID(3);
    EXPECT_TRUE(widget->getBuyParam()->isHidden());
    EXPECT_TRUE(widget->getSellParam()->isHidden());
}

// A hidden item is not sent with the algorithm: a sell carries no money limit.
TEST_F(ModeWidgets, stockSellSideHidesTheMoneyOfItsAlgorithms)
{
    auto *stock = new TC::COpBasketBuySellWidget(ttservice::BROKER_TYPE_STOCK, &parent);
    const TC::CTrdAlgoBaseTable *sellAlgo = stock->getSellParam()->table()->getTrdAlgoBaseTable(13);
    const TC::CTrdAlgoBaseTable *buyAlgo = stock->getBuyParam()->table()->getTrdAlgoBaseTable(13);
    EXPECT_EQ(fields(sellAlgo->isItemHidden(TC::CTrdAlgoBaseTable::ItemMoneyLimit), sellAlgo->isItemHidden(TC::CTrdAlgoBaseTable::ItemMoneyRate),
                     buyAlgo->isItemHidden(TC::CTrdAlgoBaseTable::ItemMoneyLimit)),
              "true|true|false");

    stock->getBuyParam()->table()->setOrderType(14);
    EXPECT_EQ(stock->getBuyParam()->table()->getAlgoStrategyType(), "VWAPPLUS");
}

TEST_F(ModeWidgets, oneKeyFuturesKeepsBothSidesInItsText)
{
    auto *source = new TC::COpBasketFtrOneKeyWidget(&parent);
    source->getBuyParam()->table()->setPriceType(2);
    source->getSellParam()->table()->setPriceType(1);
    source->getSellParam()->table()->setOrderType(4);
    setStep(source->getSellParam(), 0.4);
    source->setCheckByID(61);
    EXPECT_EQ(source->currentOpt(), 19);
    EXPECT_FALSE(source->isCurrentBuy());

    auto *target = new TC::COpBasketFtrOneKeyWidget(&parent);
    target->setParam(source->param());
    // Each side's price type, the sell side's order type and step; the text does not touch the buttons.
    EXPECT_EQ(fields(target->getBuyParam()->getPriceType(), target->getSellParam()->getPriceType(), target->getSellParam()->getOrderType(),
                     step(target->getSellParam()), target->currentOpt()),
              "2|1|4|0.4|18");

    target->handleEvent(5, 61, 0, QString(), nullptr);
    EXPECT_TRUE(target->getBuyParam()->isHidden());
    EXPECT_FALSE(target->getSellParam()->isHidden());
    EXPECT_TRUE(parent.seen.empty());
}

} // namespace
