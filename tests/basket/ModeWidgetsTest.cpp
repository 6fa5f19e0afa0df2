#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include "CGlobalOrderParamTable.h"
#include "CTrdAlgoBaseTable.h"

#include "CPushButton.h"
#include "CPushButtonGroup.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QSignalSpy>

#include <functional>
#include <utility>
#include <vector>

namespace {

using ttservice::COrderSetting;

void setStep(TC::COpBasketStockParamsWidget *block, double step)
{
    COrderSetting setting;
    block->table()->saveOpParam(QString(), setting);
    setting.m_stepValue = step;
    block->table()->loadOpParam(setting, 0.01);
}

double step(TC::COpBasketStockParamsWidget *block)
{
    COrderSetting setting;
    block->table()->saveOpParam(QString(), setting);
    return setting.m_stepValue;
}

void press(WK::CPushButtonGroup *group, int id)
{
    ASSERT_NE(group->button(id), nullptr) << id;
    group->button(id)->click();
}

class ModeWidgets : public SubstituteTest
{
protected:
    EventRecorder parent;
};

// --- credit ---

TEST_F(ModeWidgets, creditFirstVisitKeepsTheBlockButStillTellsTheForm)
{
    auto *credit = new TC::COpBasketCrdBuySellWidget(&parent);
    TC::COpBasketStockParamsWidget *block = credit->getParamWidget();
    setStep(block, 0.05);

    press(credit->buttonGroup(), 109);
    EXPECT_EQ(credit->currentOpt(), 21);
    EXPECT_EQ(block->operationType(), 18) << "a first visit changes nothing in the block";
    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 5);
    EXPECT_EQ(parent.seen[0].id, 0x2000);

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

TEST_F(ModeWidgets, creditInstructionLocksTheButtonsEvenOnTheCurrentOperation)
{
    auto *credit = new TC::COpBasketCrdBuySellWidget(&parent);
    credit->setCurrentOpt(ttservice::OT_SELL_TO_REPAY);
    EXPECT_EQ(credit->buttonGroup()->checkedId(), 53);
    EXPECT_FALSE(credit->buttonGroup()->isEnabled());

    auto *again = new TC::COpBasketCrdBuySellWidget(&parent);
    again->setParam(QStringLiteral("24"));
    again->setCurrentOpt(ttservice::OT_SELL_TO_REPAY);
    EXPECT_EQ(again->buttonGroup()->checkedId(), 53);
    EXPECT_FALSE(again->buttonGroup()->isEnabled());
    EXPECT_TRUE(parent.seen.empty());
}

struct StoredOperation {
    const char *name;
    const char *text;
    int checkedId;
};

class CreditText : public ModeWidgets, public ::testing::WithParamInterface<StoredOperation>
{
};

TEST_P(CreditText, storedOperationChecksItsButton)
{
    auto *credit = new TC::COpBasketCrdBuySellWidget(&parent);
    credit->setParam(QString::fromLatin1(GetParam().text));
    EXPECT_EQ(credit->buttonGroup()->checkedId(), GetParam().checkedId);
    // What the block keeps and shows belongs to the operation of the checked button, the one the
    // order leaves as.
    EXPECT_EQ(credit->currentOptMemory(), credit->currentOpt());
}

const StoredOperation kStored[] = {
    {"marginBuyChecksTheLastButton", "20%20%{}", 53},
    {"shortSellChecksTheLastButton", "21", 53},
    {"plainBuy", "18", 108},
    {"plainSell", "19", 109},
    {"buyToReturn", "22", 52},
    {"damaged", "x%%%", 53},
};

INSTANTIATE_TEST_SUITE_P(Texts, CreditText, ::testing::ValuesIn(kStored),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(ModeWidgets, creditTextKeepsTheSettingsOfVisitedOperationsAndOfTheShownOne)
{
    auto *source = new TC::COpBasketCrdBuySellWidget(&parent);
    setStep(source->getParamWidget(), 0.4);
    press(source->buttonGroup(), 52);
    setStep(source->getParamWidget(), 0.7);
    const QString text = source->param();
    EXPECT_TRUE(text.startsWith(QStringLiteral("22%20%"))) << text.toStdString();

    // The block of a new panel, which has visited nothing.
    auto *target = new TC::COpBasketCrdBuySellWidget(&parent);
    target->setParam(text);
    EXPECT_DOUBLE_EQ(target->orderSettings().value(20).m_stepValue, 0.4);
    EXPECT_DOUBLE_EQ(target->orderSettings().value(22).m_stepValue, 0.7);

    // Older texts kept what 108 showed under the plain buy.
    auto *older = new TC::COpBasketCrdBuySellWidget(&parent);
    older->setParam(QStringLiteral("18%18%") + text.section(QLatin1Char('%'), 2, 2));
    EXPECT_EQ(older->buttonGroup()->checkedId(), 108);
    EXPECT_DOUBLE_EQ(step(older->getParamWidget()), 0.4);
}

// Each credit operation keeps the order type it was left with: through the block's text and
// when the trader comes back to the operation.
TEST_F(ModeWidgets, creditOperationsKeepTheirOrderTypes)
{
    auto *source = new TC::COpBasketCrdBuySellWidget(&parent);
    TC::CGlobalOrderParamTable *table = source->getParamWidget()->table();
    press(source->buttonGroup(), 108);
    ASSERT_TRUE(table->setOrderType(5));
    press(source->buttonGroup(), 52);
    ASSERT_TRUE(table->setOrderType(4));
    press(source->buttonGroup(), 108);
    EXPECT_EQ(table->orderType(), 5);
    press(source->buttonGroup(), 52);
    EXPECT_EQ(table->orderType(), 4);

    auto *target = new TC::COpBasketCrdBuySellWidget(&parent);
    target->setParam(source->param());
    EXPECT_EQ(target->getParamWidget()->table()->orderType(), 4);
    press(target->buttonGroup(), 108);
    EXPECT_EQ(target->getParamWidget()->table()->orderType(), 5);

    // Saved on 融资买入, whose own number reads back as the last button.
    press(source->buttonGroup(), 108);
    auto *again = new TC::COpBasketCrdBuySellWidget(&parent);
    again->setParam(source->param());
    EXPECT_EQ(again->buttonGroup()->checkedId(), 108);
    EXPECT_EQ(again->getParamWidget()->table()->orderType(), 5);
    EXPECT_EQ(again->param(), source->param());
}

// --- futures ---

TEST_F(ModeWidgets, futuresPressChangesTheBlockAndTellsTheFuturesWord)
{
    auto *futures = new TC::COpBasketFtrBuySellWidget(&parent);
    TC::COpBasketStockParamsWidget *block = futures->getParamWidget();
    EXPECT_EQ(block->operationType(), 0);
    press(futures->buttonGroup(), 55);
    EXPECT_EQ(futures->currentOpt(), 3);
    EXPECT_EQ(block->operationType(), 3);
    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].id, 0x1000);

    futures->setCurrentOpt(ttservice::OT_CLOSE_LONG);
    EXPECT_EQ(futures->buttonGroup()->checkedId(), 56);
    EXPECT_EQ(block->operationType(), 14);
    EXPECT_TRUE(futures->buttonGroup()->isEnabled());
    EXPECT_EQ(futures->getParamWidget()->table()->offeredOrderTypes(), (QVector<int>{0, 4}));
}

TEST_F(ModeWidgets, futuresTextRestoresTheCurrentOperationsSetting)
{
    auto *source = new TC::COpBasketFtrBuySellWidget(&parent);
    setStep(source->getParamWidget(), 0.2);
    press(source->buttonGroup(), 57);
    setStep(source->getParamWidget(), 0.6);
    press(source->buttonGroup(), 54);
    press(source->buttonGroup(), 57);

    auto *target = new TC::COpBasketFtrBuySellWidget(&parent);
    target->setParam(source->param());
    EXPECT_EQ(target->buttonGroup()->checkedId(), 57);
    EXPECT_DOUBLE_EQ(step(target->getParamWidget()), 0.6);
    EXPECT_DOUBLE_EQ(target->orderSettings().value(0).m_stepValue, 0.2);
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
        COrderSetting setting;
        block->table()->saveOpParam(QString(), setting);
        setting.m_priceType = ttservice::PRICE_TYPE_LAST;
        setting.m_stepValue = 0.2;
        setting.m_validSeconds = 30;
        block->table()->loadOpParam(setting, 0.01);

        visit.second();
        EXPECT_EQ(block->getPriceType(), ttservice::PRICE_TYPE_LAST);
        EXPECT_DOUBLE_EQ(step(block), 0.2);
        block->table()->saveOpParam(QString(), setting);
        EXPECT_EQ(setting.m_validSeconds, 30);
    }
}

TEST_F(ModeWidgets, aUserChangeInABlockClimbsToTheForm)
{
    auto *futures = new TC::COpBasketFtrBuySellWidget(&parent);
    auto *combo = futures->getParamWidget()->table()->findChild<QComboBox *>(QStringLiteral("order_type_combo"));
    ASSERT_NE(combo, nullptr);
    combo->setCurrentIndex(combo->findData(4));
    Q_EMIT combo->activated(combo->currentIndex());
    ASSERT_EQ(parent.seen.size(), 1u);
    EXPECT_EQ(parent.seen[0].event, 114);
    EXPECT_EQ(futures->getParamWidget()->getOrderType(), 4);
}

// --- one-key buy and sell ---

TEST_F(ModeWidgets, buySellPressTellsTheOperationOfTheWord)
{
    auto *widget = new TC::COpBasketBuySellWidget(ttservice::BROKER_TYPE_STOCK, &parent);
    QSignalSpy spy(widget, &TC::COpBasketBuySellWidget::sigSetOperation);
    EXPECT_TRUE(widget->isCurrentBuy());

    press(widget->buttonGroup(), 109);
    EXPECT_FALSE(widget->isCurrentBuy());
    EXPECT_TRUE(widget->getBuyParam()->isHidden());
    widget->handleEvent(5, 7, 0, QString(), nullptr); // neither side: the sell operation
    widget->switchMode(0x2000);
    widget->handleEvent(5, 108, 0, QString(), nullptr);
    widget->handleEvent(5, 7, 0, QString(), nullptr);

    ASSERT_EQ(spy.count(), 4);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 19);
    EXPECT_EQ(spy.at(1).at(0).toInt(), 19);
    EXPECT_EQ(spy.at(2).at(0).toInt(), 20);
    EXPECT_EQ(spy.at(3).at(0).toInt(), 21);
    EXPECT_EQ(widget->buttonGroup()->button(108)->text(), QStringLiteral("融资买入"));
    EXPECT_EQ(widget->getBuyParam()->operationType(), 20);
    EXPECT_EQ(widget->getSellParam()->operationType(), 21);
    EXPECT_TRUE(parent.seen.empty());

    widget->setCheckByID(3);
    EXPECT_TRUE(widget->getBuyParam()->isHidden());
    EXPECT_TRUE(widget->getSellParam()->isHidden());
}

TEST_F(ModeWidgets, stockSellSideHidesTheMoneyOfItsAlgorithms)
{
    auto *stock = new TC::COpBasketBuySellWidget(ttservice::BROKER_TYPE_STOCK, &parent);
    const TC::CTrdAlgoBaseTable *sellAlgo = stock->getSellParam()->table()->getTrdAlgoBaseTable(13);
    const TC::CTrdAlgoBaseTable *buyAlgo = stock->getBuyParam()->table()->getTrdAlgoBaseTable(13);
    EXPECT_TRUE(sellAlgo->isItemHidden(TC::CTrdAlgoBaseTable::ItemMoneyLimit));
    EXPECT_TRUE(sellAlgo->isItemHidden(TC::CTrdAlgoBaseTable::ItemMoneyRate));
    EXPECT_FALSE(buyAlgo->isItemHidden(TC::CTrdAlgoBaseTable::ItemMoneyLimit));
    EXPECT_TRUE(stock->getBuyParam()->table()->isAlgTableHidden());
    EXPECT_FALSE(stock->getBuyParam()->saveParamEnabled());

    stock->getBuyParam()->table()->setOrderType(14);
    EXPECT_EQ(stock->getBuyParam()->table()->getAlgoStrategyType(), "VWAPPLUS");
}

// --- one-key futures ---

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
    EXPECT_EQ(target->getBuyParam()->getPriceType(), 2);
    EXPECT_EQ(target->getSellParam()->getPriceType(), 1);
    EXPECT_EQ(target->getSellParam()->getOrderType(), 4);
    EXPECT_DOUBLE_EQ(step(target->getSellParam()), 0.4);
    EXPECT_EQ(target->currentOpt(), 18) << "the text does not touch the buttons";

    target->handleEvent(5, 61, 0, QString(), nullptr);
    EXPECT_TRUE(target->getBuyParam()->isHidden());
    EXPECT_FALSE(target->getSellParam()->isHidden());
    EXPECT_TRUE(parent.seen.empty());
}

} // namespace
