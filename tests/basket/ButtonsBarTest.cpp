#include "COpBasketParamsButtonsBar.h"
#include "COpOneKeyFutureButtonsBarSettingWidget.h"

#include "CBaseWidget.h"
#include "CCheckBox.h"
#include "CLogCapture.h"
#include "CLogCenter.h"
#include "COpButton.h"
#include "CPushButton.h"
#include "CRadioButtonGroup.h"
#include "CSimpleTextWidget.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "PanelEnums.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

#include <cfloat>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using TC::COpBasketParamsButtonsBar;
using TC::COpButton;
using TC::COpOneKeyFutureButtonsBarSettingWidget;
using ttservice::EOperationType;

// The bar's owner: records every event that reaches it as "event,id,value,text" and takes it.
class RecordingParent : public WK::CBaseWidget
{
public:
    RecordingParent()
        : WK::CBaseWidget(QStringLiteral("recordingParent"), false, nullptr)
    {
    }

    bool handleEvent(int event, int id, int value, QString text, void *) override
    {
        received << QStringLiteral("%1,%2,%3,%4").arg(event).arg(id).arg(value).arg(text);
        return true;
    }

    QStringList received;
};

EOperationType op(int value) { return static_cast<EOperationType>(value); }

// Test names of the table rows.
const auto rowName = [](const auto &info) { return std::string(info.param.name); };

std::string logLine(const void *object, const char *method, const std::string &text)
{
    return "[" + utils::CLogCenter::addressText(object) + "] [" + method + "] " + text;
}

class ButtonsBarTest : public SubstituteTest
{
protected:
    // The user's kind decides the button texts, so it is set before the bar is made.
    COpBasketParamsButtonsBar *makeBar(bool pbManager = false)
    {
        TC::getUserConfig()->setPbManager(pbManager);
        bar = new COpBasketParamsButtonsBar(host.get());
        return bar;
    }

    std::unique_ptr<RecordingParent> host = std::make_unique<RecordingParent>();
    COpBasketParamsButtonsBar *bar = nullptr;
};

// --- parameter text ---

struct ParamCase {
    const char *name;
    QString text, param, closeText, hedgeText;
};

class ButtonsBarParamTest : public ButtonsBarTest, public ::testing::WithParamInterface<ParamCase> {};

TEST_P(ButtonsBarParamTest, SetParamShowsAndKeepsTheFuturesSetting)
{
    makeBar()->setParam(QStringLiteral("1:50"));
    bar->setParam(GetParam().text);
    EXPECT_EQ(bar->param(), GetParam().param);
    EXPECT_EQ(bar->closeTypeText()->text(), GetParam().closeText);
    EXPECT_EQ(bar->hedgeFlagText()->text(), GetParam().hedgeText);
    // the box opens with what the bar holds
    EXPECT_EQ(bar->settingWidget()->isCloseTodayFirst(), bar->isCloseTodayFirst());
    EXPECT_EQ(bar->settingWidget()->getHedgeType(), bar->getHedgeFlag());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ButtonsBarParamTest,
    ::testing::Values(ParamCase{"Empty", "", "0:49", "优先平昨", "投机"},
                      ParamCase{"TodayHedge", "1:51", "1:51", "优先平今", "套保"},
                      ParamCase{"YesterdayArbitrage", "0:50", "0:50", "优先平昨", "套利"},
                      ParamCase{"FlagMissing", "1", "1:49", "优先平今", "投机"},
                      ParamCase{"FlagNotANumber", "0:x", "0:49", "优先平昨", "投机"},
                      ParamCase{"OnlyOneMeansToday", "2:51", "0:51", "优先平昨", "套保"},
                      // an unknown flag is kept but leaves the text as it stands
                      ParamCase{"UnknownFlag", "0:52", "0:52", "优先平昨", "套利"}), rowName);

TEST_F(ButtonsBarTest, SetParamLogsTheLoadedSetting)
{
    utils::CLogCapture capture;
    makeBar()->setParam(QStringLiteral("1:51"));
    EXPECT_EQ(capture.lines(), std::vector<std::string>{logLine(bar, "TC::COpBasketParamsButtonsBar::setParam",
                                                               "load future speculation HedgeType : 51, CloseTodayFirst : 1")});
}

// --- futures operations ---

struct FutureOptCase {
    const char *name;
    quint64 tab;
    int op;
    bool closeTodayFirst;
    int expected;
};

class FutureOptTypeTest : public ButtonsBarTest, public ::testing::WithParamInterface<FutureOptCase> {};

TEST_P(FutureOptTypeTest, CloseOrderPicksTheOperationToPlace)
{
    const FutureOptCase &c = GetParam();
    makeBar()->setParam(c.closeTodayFirst ? QStringLiteral("1:49") : QStringLiteral("0:49"));
    bar->setOperationType(op(c.op), c.tab);
    EXPECT_EQ(bar->getFutureOptType(op(c.op)), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FutureOptTypeTest,
    ::testing::Values(FutureOptCase{"FutureCloseLongToday", TC::TOT_FUTURE, 14, true, 6},
                      FutureOptCase{"FutureCloseLongYesterday", TC::TOT_FUTURE, 14, false, 7},
                      FutureOptCase{"FutureCloseShortToday", TC::TOT_FUTURE, 15, true, 8},
                      FutureOptCase{"FutureCloseShortYesterday", TC::TOT_FUTURE, 15, false, 9},
                      FutureOptCase{"FutureBuyUnchanged", TC::TOT_FUTURE, 18, false, 18},
                      FutureOptCase{"FutureOneKeyOpUnchanged", TC::TOT_FUTURE, 12, true, 12},
                      FutureOptCase{"OneKeySellToday", TC::TOT_ONEKEY_FUTURE, 11, true, 10},
                      FutureOptCase{"OneKeySellYesterday", TC::TOT_ONEKEY_FUTURE, 10, false, 11},
                      FutureOptCase{"OneKeySellFromSell", TC::TOT_ONEKEY_FUTURE, 19, false, 11},
                      FutureOptCase{"OneKeyBuyToday", TC::TOT_ONEKEY_FUTURE, 13, true, 12},
                      FutureOptCase{"OneKeyBuyFromBuy", TC::TOT_ONEKEY_FUTURE, 18, false, 13},
                      FutureOptCase{"OneKeyCloseLong", TC::TOT_ONEKEY_FUTURE, 14, false, 7},
                      FutureOptCase{"OneKeyCloseShort", TC::TOT_ONEKEY_FUTURE, 15, true, 8},
                      FutureOptCase{"OneKeyOpenUnchanged", TC::TOT_ONEKEY_FUTURE, 0, true, 0},
                      FutureOptCase{"StockTabUnchanged", TC::TOT_SELL, 14, true, 14}), rowName);

TEST_F(ButtonsBarTest, OneKeyInstructionSetsCloseOrderFromItsOperation)
{
    makeBar();
    // yesterday variants are 7, 9, 11, 13; everything else, known or not, closes today first
    const std::pair<int, bool> rows[] = {{6, true},  {7, false},  {8, true}, {9, false}, {10, true},
                                         {11, false}, {12, true}, {13, false}, {0, true}, {18, true}};
    for (const auto &[value, today] : rows) {
        bar->setFutureOneKeyOptType(op(value), ttservice::HEDGE_FLAG_HEDGE);
        EXPECT_EQ(bar->isCloseTodayFirst(), today) << "op " << value;
        EXPECT_EQ(bar->settingWidget()->isCloseTodayFirst(), today) << "op " << value;
    }
    EXPECT_EQ(bar->getHedgeFlag(), ttservice::HEDGE_FLAG_HEDGE);
    EXPECT_EQ(bar->hedgeFlagText()->text(), QStringLiteral("套保"));
}

TEST_F(ButtonsBarTest, BuySellInstructionGivesTheFormsOperationAndLogs)
{
    makeBar();
    const struct {
        int op, result;
        bool today;
    } rows[] = {{3, 3, true}, {6, 14, true}, {7, 14, false}, {8, 15, true}, {9, 15, false}, {0, 0, true}};
    for (const auto &r : rows) {
        bar->setParam(r.today ? QStringLiteral("0:49") : QStringLiteral("1:49"));
        EXPECT_EQ(bar->setFutureBuySellOptType(op(r.op), ttservice::HEDGE_FLAG_ARBITRAGE), r.result) << "op " << r.op;
        EXPECT_EQ(bar->isCloseTodayFirst(), r.today) << "op " << r.op;
    }
    EXPECT_EQ(bar->hedgeFlagText()->text(), QStringLiteral("套利"));

    utils::CLogCapture capture;
    bar->setFutureBuySellOptType(op(9), ttservice::HEDGE_FLAG_SPECULATION);
    EXPECT_EQ(capture.lines(),
              std::vector<std::string>{logLine(bar, "TC::COpBasketParamsButtonsBar::setFutureBuySellOptType",
                                               "set future patch eOptType : 9 HedgeType : 49, CloseTodayFirst : 0 "
                                               "by operationType : 15")});
}

// --- what each tab shows ---

// Which widgets would show: buy, sell, order, setting button, close text, hedge text, the
// right list, the rate texts, the box's close row.
QString shownState(const COpBasketParamsButtonsBar *bar)
{
    const QWidget *widgets[] = {bar->buyButton(),    bar->sellButton(),    bar->orderButton(),
                                bar->settingButton(), bar->closeTypeText(), bar->hedgeFlagText(),
                                bar->rightList(),     bar->buyParityText()};
    QString state;
    for (const QWidget *w : widgets)
        state += w->isVisibleTo(bar) ? QLatin1Char('1') : QLatin1Char('0');
    return state + (bar->settingWidget()->isCloseTypeVisible() ? QLatin1Char('1') : QLatin1Char('0'));
}

void setAllShown(COpBasketParamsButtonsBar *bar, bool shown)
{
    QWidget *widgets[] = {bar->buyButton(),     bar->sellButton(),    bar->orderButton(),
                          bar->settingButton(),  bar->closeTypeText(), bar->hedgeFlagText(),
                          bar->rightList(),      bar->buyParityText(), bar->sellParityText()};
    for (QWidget *w : widgets)
        w->setVisible(shown);
    bar->settingWidget()->setCloseTypeVisible(shown);
}

struct TabCase {
    const char *name;
    quint64 tab;
    int op;
    const char *shown; // as shownState; the box's close row counts only on the futures tabs
};

class ButtonsBarTabTest : public ButtonsBarTest, public ::testing::WithParamInterface<TabCase> {};

TEST_P(ButtonsBarTabTest, ShowsTheButtonsAndTextsOfTheTab)
{
    makeBar();
    const bool futures = GetParam().tab == TC::TOT_FUTURE || GetParam().tab == TC::TOT_ONEKEY_FUTURE;
    for (const bool before : {true, false}) {
        setAllShown(bar, before);
        bar->setOperationType(op(GetParam().op), GetParam().tab);
        QString state = shownState(bar);
        if (!futures)
            state.chop(1);
        EXPECT_EQ(state, QLatin1String(GetParam().shown)) << "from all " << (before ? "shown" : "hidden");
        EXPECT_EQ(bar->sellParityText()->isVisibleTo(bar), bar->buyParityText()->isVisibleTo(bar));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Tabs, ButtonsBarTabTest,
    ::testing::Values(TabCase{"BuyTabBuy", TC::TOT_BUY, 18, "10000010"},
                      TabCase{"BuyTabMarginBuy", TC::TOT_BUY, 20, "10000010"},
                      TabCase{"SellTabSell", TC::TOT_SELL, 19, "01000010"},
                      TabCase{"SellTabShortSell", TC::TOT_SELL, 21, "01000010"},
                      TabCase{"AllTab", TC::TOT_ALL, 18, "00100010"},
                      TabCase{"CreditTab", TC::TOT_CREDIT, 22, "00100010"},
                      TabCase{"HgtTab", TC::TOT_HGT, 18, "00100011"},
                      TabCase{"SgtTab", TC::TOT_SGT, 19, "00100011"},
                      TabCase{"FutureOpen", TC::TOT_FUTURE, 0, "001101000"},
                      TabCase{"FutureCloseLong", TC::TOT_FUTURE, 14, "001111001"},
                      TabCase{"FutureCloseShort", TC::TOT_FUTURE, 15, "001111001"},
                      TabCase{"OneKeyFuture", TC::TOT_ONEKEY_FUTURE, 18, "001111001"}), rowName);

TEST_F(ButtonsBarTest, OtherOperationOnStockTabChangesNoButton)
{
    makeBar();
    for (const int first : {18, 19}) {
        bar->setOperationType(op(first), TC::TOT_SELL);
        const QString state = shownState(bar).left(6);
        const QString sellText = bar->sellButton()->text();
        bar->setOperationType(op(24), TC::TOT_SELL);
        EXPECT_EQ(shownState(bar).left(6), state) << "after op " << first;
        EXPECT_EQ(bar->sellButton()->text(), sellText);
    }
}

TEST_F(ButtonsBarTest, ButtonTextsFollowTheUsersKind)
{
    const struct {
        bool pb;
        const char *buy, *sell, *order, *sellOnTab;
    } rows[] = {{false, "买 入", "卖 出", "下 单", "卖出"}, {true, "建议买入", "建议卖出", "建议下单", "建议卖出"}};
    for (const auto &r : rows) {
        makeBar(r.pb);
        EXPECT_EQ(bar->buyButton()->text(), QString::fromUtf8(r.buy));
        EXPECT_EQ(bar->sellButton()->text(), QString::fromUtf8(r.sell));
        EXPECT_EQ(bar->orderButton()->text(), QString::fromUtf8(r.order));
        bar->setOperationType(op(19), TC::TOT_SELL);
        EXPECT_EQ(bar->sellButton()->text(), QString::fromUtf8(r.sellOnTab));
        delete bar;
    }
}

TEST_F(ButtonsBarTest, ParitiesShowOnConnectTabsOnly)
{
    makeBar()->setOperationType(op(18), TC::TOT_ALL);
    bar->setParities(0.9, 0.8);
    EXPECT_EQ(bar->buyParityText()->text(), QStringLiteral("买入汇率:0.00  "));

    bar->setOperationType(op(18), TC::TOT_HGT);
    bar->setParities(0.912345678, DBL_MAX);
    EXPECT_EQ(bar->buyParityText()->text(), QStringLiteral("买入汇率:0.91235"));
    EXPECT_EQ(bar->sellParityText()->text(), QStringLiteral("卖出汇率:非法值"));
}

// --- events ---

struct EventCase {
    const char *name;
    int event, id, value;
    QStringList delivered;
};

class ButtonsBarEventTest : public ButtonsBarTest, public ::testing::WithParamInterface<EventCase> {};

TEST_P(ButtonsBarEventTest, AnswersAndPassesOn)
{
    const EventCase &c = GetParam();
    EXPECT_TRUE(makeBar()->handleEvent(c.event, c.id, c.value, QStringLiteral("t"), nullptr));
    EXPECT_EQ(host->received, c.delivered);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ButtonsBarEventTest,
    ::testing::Values(EventCase{"OrderButton", 5, 2, 1, {"1046,0,0,"}},
                      EventCase{"BuyButton", 5, 3, 0, {"1046,0,0,"}},
                      EventCase{"SellButton", 5, 4, 0, {"1046,0,0,"}},
                      EventCase{"OtherButton", 5, 7, 0, {}},
                      EventCase{"PatchLink", 9, 5, 0, {"1142,5,0,t"}},
                      EventCase{"OtherLink", 9, 9, 0, {}},
                      EventCase{"CommandBoxToggled", 60, 8, 1, {}},
                      EventCase{"OtherBoxToggled", 60, 3, 1, {"1147,3,1,t"}},
                      EventCase{"OtherBoxClicked", 61, 3, 1, {}},
                      EventCase{"RadioChosen", 85, 49, 0, {"1147,49,0,t"}},
                      EventCase{"UnknownClimbs", 1234, 1, 2, {"1234,1,2,t"}}), rowName);

TEST_F(ButtonsBarTest, PressingAnOrderButtonAsksToPlace)
{
    makeBar();
    for (COpButton *button : {bar->buyButton(), bar->sellButton(), bar->orderButton()})
        button->click();
    EXPECT_EQ(host->received, (QStringList{"1046,0,0,", "1046,0,0,", "1046,0,0,"}));
}

TEST_F(ButtonsBarTest, CommandChangeBoxIsOnAndItsClickIsLogged)
{
    TC::getUserConfig()->setUserName(QStringLiteral("trader1"));
    makeBar();
    EXPECT_TRUE(bar->getCommandChange());
    bar->setCommandChangeVisible(true);
    EXPECT_TRUE(bar->commandChangeBox()->isVisibleTo(bar));
    host->show();

    utils::CLogCapture capture;
    QTest::mouseClick(bar->commandChangeBox(), Qt::LeftButton);
    EXPECT_FALSE(bar->getCommandChange());
    EXPECT_EQ(capture.lines(), std::vector<std::string>{logLine(bar, "TC::COpBasketParamsButtonsBar::handleEvent",
                                                               "User trader1 Modify trader change checkbox : 0")});
    bar->setCommandChange(true);
    EXPECT_TRUE(bar->getCommandChange());
    // the instruction box is no futures setting
    EXPECT_TRUE(host->received.isEmpty());
}

// --- the setting box ---

TEST_F(ButtonsBarTest, ChoosingInTheBoxUpdatesTheBarAtOnce)
{
    makeBar()->setOperationType(op(14), TC::TOT_ONEKEY_FUTURE);
    COpOneKeyFutureButtonsBarSettingWidget *box = bar->settingWidget();
    auto *hedgeGroup = box->findChild<WK::CRadioButtonGroup *>(QStringLiteral("hedge_group"));
    auto *closeGroup = box->findChild<WK::CRadioButtonGroup *>(QStringLiteral("close_group"));
    ASSERT_TRUE(hedgeGroup && closeGroup);

    utils::CLogCapture capture;
    hedgeGroup->button(50)->click();
    EXPECT_EQ(capture.lines(),
              std::vector<std::string>{logLine(box, "TC::COpOneKeyFutureButtonsBarSettingWidget::handleEvent",
                                               "future speculation hedgeType change : 49 to 50")});
    EXPECT_EQ(bar->hedgeFlagText()->text(), QStringLiteral("套利"));

    closeGroup->button(COpOneKeyFutureButtonsBarSettingWidget::kCloseTodayFirstId)->click();
    EXPECT_EQ(bar->closeTypeText()->text(), QStringLiteral("优先平今"));
    // the radio already chosen tells the bar all the same
    closeGroup->button(COpOneKeyFutureButtonsBarSettingWidget::kCloseTodayFirstId)->click();
    EXPECT_EQ(host->received, (QStringList{"1147,0,1,0", "1147,0,1,1", "1147,0,1,1"}));
    EXPECT_EQ(bar->param(), QStringLiteral("1:50"));
    EXPECT_EQ(bar->getFutureOptType(op(14)), 6);
}

TEST_F(ButtonsBarTest, BoxChangeKeepsTheCloseTextHiddenWhereTheTabHidesIt)
{
    makeBar()->setOperationType(op(0), TC::TOT_FUTURE);
    EXPECT_TRUE(bar->handleEvent(1043, 0, 1, QStringLiteral("1"), nullptr));
    EXPECT_FALSE(bar->closeTypeText()->isVisibleTo(bar));
    EXPECT_TRUE(bar->hedgeFlagText()->isVisibleTo(bar));
    EXPECT_TRUE(bar->isCloseTodayFirst());
}

TEST_F(ButtonsBarTest, BoxChecksTheRadiosOfItsValues)
{
    COpOneKeyFutureButtonsBarSettingWidget box(ttservice::HEDGE_FLAG_HEDGE, true, nullptr);
    auto *hedgeGroup = box.findChild<WK::CRadioButtonGroup *>(QStringLiteral("hedge_group"));
    auto *closeGroup = box.findChild<WK::CRadioButtonGroup *>(QStringLiteral("close_group"));
    EXPECT_EQ(QPoint(hedgeGroup->checkedId(), closeGroup->checkedId()), QPoint(51, 102));
    box.setHedgeType(ttservice::HEDGE_FLAG_SPECULATION);
    box.setCheckState(false);
    EXPECT_EQ(QPoint(hedgeGroup->checkedId(), closeGroup->checkedId()), QPoint(49, 103));
}

struct PlacementCase {
    const char *name;
    QPoint button, expected;
    QRect available;
};

class SettingBoxPlacementTest : public ::testing::TestWithParam<PlacementCase> {};

TEST_P(SettingBoxPlacementTest, StaysInsideTheAvailableArea)
{
    const PlacementCase &c = GetParam();
    EXPECT_EQ(COpBasketParamsButtonsBar::settingBoxPosition(c.button, QSize(250, 126), c.available), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SettingBoxPlacementTest,
    ::testing::Values(PlacementCase{"RoomBelowRight", {100, 100}, {100, 100}, {0, 0, 800, 600}},
                      PlacementCase{"LowerRightOpensAboveLeft", {780, 580}, {530, 454}, {0, 0, 800, 600}},
                      PlacementCase{"TouchingBottomFlips", {100, 474}, {100, 348}, {0, 0, 800, 600}},
                      PlacementCase{"OneAboveBottomStays", {100, 473}, {100, 473}, {0, 0, 800, 600}},
                      PlacementCase{"SmallAreaClampsTopLeft", {250, 180}, {100, 100}, {100, 100, 200, 100}},
                      PlacementCase{"OffsetScreen", {1900, 1000}, {1650, 874}, {1000, 0, 1000, 1040}}), rowName);

TEST_F(ButtonsBarTest, SettingButtonAtLowerRightOpensTheBoxAboveLeft)
{
    makeBar()->setOperationType(op(14), TC::TOT_ONEKEY_FUTURE);
    bar->setParam(QStringLiteral("1:51"));
    host->show();
    QScreen *screen = QGuiApplication::primaryScreen();
    ASSERT_TRUE(screen);
    const QRect area = screen->availableGeometry();
    WK::CPushButton *button = bar->settingButton();
    const QPoint corner = area.bottomRight() - QPoint(button->width() - 1, button->height() - 1);
    host->move(host->pos() + corner - button->mapToGlobal(QPoint(0, 0)));
    const QPoint buttonPos = button->mapToGlobal(QPoint(0, 0));
    ASSERT_EQ(buttonPos, corner);

    utils::CLogCapture capture;
    button->click();
    COpOneKeyFutureButtonsBarSettingWidget *box = bar->settingWidget();
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(box->pos(), buttonPos - QPoint(box->width(), box->height()));
    EXPECT_TRUE(area.contains(box->geometry()));
    EXPECT_EQ(box->getHedgeType(), ttservice::HEDGE_FLAG_HEDGE);
    EXPECT_TRUE(box->isCloseTodayFirst());
    EXPECT_EQ(capture.lines(),
              std::vector<std::string>{"TC::COpBasketParamsButtonsBar::handleEvent : spec push button clicked, 6"});
    box->hide();
}

// --- the order button ---

TEST(OpButtonTest, ColoursFollowTheTypeAndTextTurnsBoldOnHover)
{
    const struct {
        int type;
        const char *normal, *hover, *text;
    } rows[] = {{3, "clr_basket_param_buy_btn_nomal", "clr_basket_param_buy_btn_hover", "clr_global_rise"},
                {0, "clr_basket_param_sell_btn_nomal", "clr_basket_param_sell_btn_hover", "clr_global_fall"},
                {1, "clr_basket_param_order_btn_nomal", "clr_basket_param_order_btn_hover", "clr_accent"}};
    for (const auto &r : rows) {
        COpButton button(7, r.type, nullptr);
        button.setFontKeys(QStringLiteral("tc_fnt_operation_btn_text_price"), QString(), QString());
        button.setBoldOnHover(true);
        EXPECT_EQ(button.currentBackgroundKey(), QLatin1String(r.normal));
        EXPECT_EQ(button.currentTextKey(), QLatin1String(r.text));
        EXPECT_FALSE(button.currentTextFont().bold());

        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(&button, &enter);
        EXPECT_EQ(button.currentBackgroundKey(), QLatin1String(r.hover));
        EXPECT_TRUE(button.currentTextFont().bold()) << "type " << r.type;
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&button, &leave);
        EXPECT_FALSE(button.currentTextFont().bold());

    }
}

} // namespace
