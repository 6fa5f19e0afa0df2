#include "COpBasketParamsButtonsBar.h"
#include "COpOneKeyFutureButtonsBarSettingWidget.h"

#include "COpButton.h"
#include "CRadioButtonGroup.h"
#include "CSimpleTextWidget.h"
#include "CWidgetList.h"
#include "ConfirmTestSupport.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QRadioButton>

#include <memory>

namespace {

using TC::COpBasketParamsButtonsBar;
using TC::COpButton;
using TC::COpOneKeyFutureButtonsBarSettingWidget;
using ttservice::EOperationType;

EOperationType op(int value) { return static_cast<EOperationType>(value); }

class ButtonsBarTest : public SubstituteTest
{
protected:
    COpBasketParamsButtonsBar *makeBar()
    {
        host = std::make_unique<confirmtest::Recorder>();
        bar = new COpBasketParamsButtonsBar(host.get());
        return bar;
    }
    WK::CRadioButtonGroup *group(const char *name) const
    {
        return bar->settingWidget()->findChild<WK::CRadioButtonGroup *>(QLatin1String(name));
    }

    std::unique_ptr<confirmtest::Recorder> host;
    COpBasketParamsButtonsBar *bar = nullptr;
};

TEST_F(ButtonsBarTest, setParamShowsAndKeepsTheFuturesSetting)
{
    const struct {
        QString text, param, closeText, hedgeText;
    } rows[] = {{"", "0:49", "优先平昨", "投机"},       {"1:51", "1:51", "优先平今", "套保"}, {"0:50", "0:50", "优先平昨", "套利"},
                {"1", "1:49", "优先平今", "投机"},      {"0:x", "0:49", "优先平昨", "投机"},  {"2:51", "0:51", "优先平昨", "套保"},
                // an unknown flag is kept but leaves the text as it stands
                {"0:52", "0:52", "优先平昨", "套利"}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        makeBar()->setParam(QStringLiteral("1:50"));
        bar->setParam(row.text);
        EXPECT_EQ(bar->param(), row.param);
        EXPECT_EQ(bar->closeTypeText()->text(), row.closeText);
        EXPECT_EQ(bar->hedgeFlagText()->text(), row.hedgeText);
        // the box opens with what the bar holds
        EXPECT_EQ(bar->settingWidget()->isCloseTodayFirst(), bar->isCloseTodayFirst());
        EXPECT_EQ(bar->settingWidget()->getHedgeType(), bar->getHedgeFlag());
    }
}

TEST_F(ButtonsBarTest, theCloseOrderPicksTheFuturesOperationToPlace)
{
    const struct {
        quint64 tab;
        int op;
        bool closeTodayFirst;
        int expected;
    } rows[] = {{TC::TOT_FUTURE, 14, true, 6},          {TC::TOT_FUTURE, 14, false, 7},         {TC::TOT_FUTURE, 15, true, 8},
                {TC::TOT_FUTURE, 15, false, 9},         {TC::TOT_FUTURE, 18, false, 18},        {TC::TOT_FUTURE, 12, true, 12},
                {TC::TOT_ONEKEY_FUTURE, 11, true, 10},  {TC::TOT_ONEKEY_FUTURE, 10, false, 11}, {TC::TOT_ONEKEY_FUTURE, 19, false, 11},
                {TC::TOT_ONEKEY_FUTURE, 13, true, 12},  {TC::TOT_ONEKEY_FUTURE, 18, false, 13}, {TC::TOT_ONEKEY_FUTURE, 14, false, 7},
                {TC::TOT_ONEKEY_FUTURE, 15, true, 8},   {TC::TOT_ONEKEY_FUTURE, 0, true, 0},    {TC::TOT_SELL, 14, true, 14}};
    makeBar();
    for (const auto &row : rows) {
        SCOPED_TRACE(::testing::Message() << "tab " << row.tab << " op " << row.op << " today " << row.closeTodayFirst);
        bar->setParam(row.closeTodayFirst ? QStringLiteral("1:49") : QStringLiteral("0:49"));
        bar->setOperationType(op(row.op), row.tab);
        EXPECT_EQ(bar->getFutureOptType(op(row.op)), row.expected);
    }
}

TEST_F(ButtonsBarTest, anInstructionsOperationSetsTheCloseOrder)
{
    makeBar();
    // One-key: yesterday variants are 7, 9, 11, 13; everything else, known or not, closes today first.
    const std::pair<int, bool> oneKey[] = {{6, true},  {7, false}, {8, true},  {9, false}, {10, true},
                                           {11, false}, {12, true}, {13, false}, {0, true},  {18, true}};
    for (const auto &[value, today] : oneKey) {
        bar->setFutureOneKeyOptType(op(value), ttservice::HEDGE_FLAG_HEDGE);
        EXPECT_EQ(bar->isCloseTodayFirst(), today) << "op " << value;
        EXPECT_EQ(bar->settingWidget()->isCloseTodayFirst(), today) << "op " << value;
    }
    EXPECT_EQ(bar->getHedgeFlag(), ttservice::HEDGE_FLAG_HEDGE);
    EXPECT_EQ(bar->hedgeFlagText()->text(), QStringLiteral("套保"));

    // Buy and sell: the form's operation comes back.
    const struct {
        int op, result;
        bool today;
    } buySell[] = {{3, 3, true}, {6, 14, true}, {7, 14, false}, {8, 15, true}, {9, 15, false}, {0, 0, true}};
    for (const auto &r : buySell) {
        bar->setParam(r.today ? QStringLiteral("0:49") : QStringLiteral("1:49"));
        EXPECT_EQ(bar->setFutureBuySellOptType(op(r.op), ttservice::HEDGE_FLAG_ARBITRAGE), r.result) << "op " << r.op;
        EXPECT_EQ(bar->isCloseTodayFirst(), r.today) << "op " << r.op;
    }
    EXPECT_EQ(bar->hedgeFlagText()->text(), QStringLiteral("套利"));
}

TEST_F(ButtonsBarTest, eventsAreAnsweredAndPassedOn)
{
    const struct {
        int event, id, value;
        QStringList delivered;
    } rows[] = {{5, 2, 1, {"1046,0,0,"}}, {5, 3, 0, {"1046,0,0,"}},   {5, 4, 0, {"1046,0,0,"}},   {5, 7, 0, {}},
                {9, 5, 0, {"1142,5,0,t"}}, {9, 9, 0, {}},             {60, 8, 1, {}}, // the instruction box is no futures setting
                {60, 3, 1, {"1147,3,1,t"}}, {61, 3, 1, {}},            {85, 49, 0, {"1147,49,0,t"}}, {1234, 1, 2, {"1234,1,2,t"}}};
    for (const auto &row : rows) {
        SCOPED_TRACE(::testing::Message() << row.event << "," << row.id);
        EXPECT_TRUE(makeBar()->handleEvent(row.event, row.id, row.value, QStringLiteral("t"), nullptr));
        EXPECT_EQ(host->received, row.delivered);
    }
    makeBar();
    for (COpButton *button : {bar->buyButton(), bar->sellButton(), bar->orderButton()})
        button->click();
    EXPECT_EQ(host->received, (QStringList{"1046,0,0,", "1046,0,0,", "1046,0,0,"}));
}

TEST_F(ButtonsBarTest, choosingInTheBoxUpdatesTheBarAtOnce)
{
    makeBar()->setOperationType(op(14), TC::TOT_ONEKEY_FUTURE);
    ASSERT_TRUE(group("hedge_group") && group("close_group"));
    group("hedge_group")->button(50)->click();
    EXPECT_EQ(bar->hedgeFlagText()->text(), QStringLiteral("套利"));
    group("close_group")->button(COpOneKeyFutureButtonsBarSettingWidget::kCloseTodayFirstId)->click();
    EXPECT_EQ(bar->closeTypeText()->text(), QStringLiteral("优先平今"));
    // the radio already chosen tells the bar all the same
    group("close_group")->button(COpOneKeyFutureButtonsBarSettingWidget::kCloseTodayFirstId)->click();
    EXPECT_EQ(host->received, (QStringList{"1147,0,1,0", "1147,0,1,1", "1147,0,1,1"}));
    EXPECT_EQ(bar->param(), QStringLiteral("1:50"));
    EXPECT_EQ(bar->getFutureOptType(op(14)), 6);

    // A change from the box keeps the close text hidden where the tab hides it.
    makeBar()->setOperationType(op(0), TC::TOT_FUTURE);
    EXPECT_TRUE(bar->handleEvent(1043, 0, 1, QStringLiteral("1"), nullptr));
    EXPECT_FALSE(bar->closeTypeText()->isVisibleTo(bar));
    EXPECT_TRUE(bar->hedgeFlagText()->isVisibleTo(bar));
    EXPECT_TRUE(bar->isCloseTodayFirst());
}

} // namespace
