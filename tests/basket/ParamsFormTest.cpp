#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "PriceLimits.h"

#include "CComboxNameWidget.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "LuaModuleCtrl.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <QCheckBox>
#include <QComboBox>

#include <memory>
#include <vector>

using namespace TC;
using P = COpBasketParamsWidget;

namespace {

const std::list<std::string> kAllTabs = {"mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits",
                                         "mdl_order_compose_futures", "mdl_order_compose_one_key_futures",
                                         "mdl_order_compose_hgt", "mdl_order_compose_sgt"};

void switchOn(const std::list<std::string> &modules)
{
    luawrapper::LuaModuleCtrl::instance()->setModules(modules, true);
}

// A basket of one row of the given kind: 0 the user's own, 1 and 2 of an index, 3 an ETF's.
void storeBasket(const QString &name, int kind, const QString &indexCode = QString())
{
    sample::storeBasket(name, {sample::row("SH", "600000", 0, 0)}, ttservice::BROKER_TYPE_STOCK, kind, indexCode);
}

std::vector<int> modes(const P &form)
{
    std::vector<int> result;
    for (int i = 0; i < form.volumnCombobox()->count(); ++i)
        result.push_back(form.volumnCombobox()->itemData(i).toInt());
    return result;
}

std::vector<int> tabIds(const P &form)
{
    std::vector<int> ids;
    for (quint64 word : {0x200u, 0x400u, 0x800u, 0x2000u, 0x1000u, 0x4000u, 0x80000u}) {
        if (form.tabGroup()->button(static_cast<int>(word)))
            ids.push_back(static_cast<int>(word));
    }
    return ids;
}

class ParamsForm : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
    }

    std::unique_ptr<P> makeForm()
    {
        auto form = std::make_unique<P>(nullptr);
        form->setReplaceToolBar(toolBar.get());
        return form;
    }

    static void chooseBasket(P &form, const QString &name)
    {
        form.basketsCombo()->setBasket(name, false);
        form.resetVolumnCombobox();
    }

    std::unique_ptr<COpBasketReplaceStockToolBar> toolBar = std::make_unique<COpBasketReplaceStockToolBar>(nullptr);
};

} // namespace

TEST_F(ParamsForm, TabsFollowTheModules)
{
    EXPECT_EQ(tabIds(*makeForm()), (std::vector<int>{0x200, 0x400}));

    switchOn({"mdl_order", "mdl_order_compose_one_key_futures"});
    // One-key futures needs the futures module as well.
    EXPECT_EQ(tabIds(*makeForm()), (std::vector<int>{0x200, 0x400}));

    switchOn(kAllTabs);
    EXPECT_EQ(tabIds(*makeForm()), (std::vector<int>{0x200, 0x400, 0x800, 0x2000, 0x1000, 0x4000, 0x80000}));
}

TEST_F(ParamsForm, EachTabSetsOperationAndTheAccountsAndBasketsItOffers)
{
    switchOn(kAllTabs);
    auto form = makeForm();
    const struct { quint64 word; int operation, brokerType; } cases[] = {
        {0x200, 18, 2}, {0x400, 19, 2}, {0x800, -1, 2}, {0x1000, 0, 1}, {0x4000, -1, 1}, {0x80000, -1, 7}, {0x100000, -1, 11}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.word);
        form->setCurrentOperationType(c.word);
        EXPECT_EQ(fields(form->getTradeOpType(), form->getOperationType(), form->basketsCombo()->getBrokerType(),
                         form->accountsWidget()->tradeOpType()),
                  fields(c.word, c.operation, c.brokerType, c.word));
    }
    // A word between buy and sell refreshes the tab on view.
    form->setCurrentOperationType(0x400);
    form->setCurrentOperationType(600);
    EXPECT_EQ(fields(form->getTradeOpType(), form->getOperationType()), "1024|19");
}

TEST_F(ParamsForm, EachTabKeepsItsAccountChoice)
{
    sample::addAccount("s1", ttservice::BROKER_TYPE_STOCK, 0);
    auto form = makeForm();
    form->accountsWidget()->setSelectedAccount(QStringLiteral("s1"), true);
    form->setCurrentOperationType(0x400);
    form->accountsWidget()->clearCheckStatus();
    form->setCurrentOperationType(0x200);
    EXPECT_EQ(form->accountsWidget()->getSelectedAccounts(), QSet<QString>{QStringLiteral("s1")});
    // A tab whose memory is empty leaves the ticks as the last tab had them.
    form->setCurrentOperationType(0x400);
    EXPECT_EQ(form->accountsWidget()->getSelectedAccounts(), QSet<QString>{QStringLiteral("s1")});
    EXPECT_EQ(form->accountParams().value(0x200), QStringLiteral("s1:1"));
    EXPECT_EQ(form->accountParams().value(0x400), QString());
}

// The select-all box says what the list shows, whoever ticked the accounts (a restored panel
// ticks them one by one).
TEST_F(ParamsForm, TheSelectAllBoxSaysWhetherEveryEnabledAccountIsTicked)
{
    sample::addAccount("s1", ttservice::BROKER_TYPE_STOCK, 0);
    sample::addAccount("s2", ttservice::BROKER_TYPE_STOCK, 0);
    auto form = makeForm();
    COpAccountsWidget *accounts = form->accountsWidget();
    const QCheckBox *all = nullptr;
    for (const QCheckBox *box : accounts->findChildren<QCheckBox *>())
        all = box->text() == QStringLiteral("全选") ? box : all;
    ASSERT_TRUE(all);
    const struct { const char *key; bool tick; bool enable; bool allShown; } steps[] = {
        {"s1", true, true, false}, {"s2", true, true, true}, {"s1", false, true, false}, {"s1", false, false, true}};
    for (const auto &step : steps) {
        accounts->setSelectedAccount(QString::fromLatin1(step.key), step.tick);
        accounts->setAccountEnabled(QString::fromLatin1(step.key), step.enable);
        EXPECT_EQ(all->isChecked(), step.allShown) << step.key << step.tick << step.enable;
    }
}

TEST_F(ParamsForm, OffersTheModesOfTabAndBasket)
{
    switchOn(kAllTabs);
    // A basket kind of -1: no basket chosen.
    const struct { const char *name; quint64 word; int basketKind; const char *indexCode; std::vector<int> modes; } cases[] = {
        {"futures", 0x1000, -1, "", {0, 1, 2}},          {"connect", 0x80000, -1, "", {0, 1}},
        {"oneKey", 0x800, -1, "", {0, 1, 2, 3, 4}},       {"buyWithoutBasket", 0x200, -1, "", {}},
        {"ownBasket", 0x200, 0, "", {0, 1, 2, 3, 4}},     {"indexBasketOnBuy", 0x200, 1, "000300", {1, 2, 3, 4, 6}},
        {"otherIndexCode", 0x200, 1, "000001", {1, 2, 3, 4}}, {"indexBasketOnSell", 0x400, 1, "000905", {1, 2, 3, 4}},
        {"indexKindTwo", 0x200, 2, "000016", {1, 2, 3, 4}}, {"etfBasket", 0x2000, 3, "", {0}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QString name = QString::fromLatin1(c.name);
        if (c.basketKind >= 0)
            storeBasket(name, c.basketKind, QString::fromLatin1(c.indexCode));
        auto form = makeForm();
        form->setCurrentOperationType(c.word);
        if (c.basketKind >= 0)
            chooseBasket(*form, name);
        EXPECT_EQ(modes(*form), c.modes);
    }
}

TEST_F(ParamsForm, SavedModeFallsBackToTheFirstItemWhenGone)
{
    storeBasket(QStringLiteral("沪深300"), 1, QStringLiteral("000300"));
    auto form = makeForm();
    chooseBasket(*form, QStringLiteral("沪深300"));
    QComboBox *combo = form->volumnCombobox();
    combo->setCurrentIndex(combo->findData(6));
    ASSERT_EQ(form->getCurrentVolumnType(), 6);
    form->setCurrentOperationType(0x400);
    EXPECT_EQ(form->getCurrentVolumnType(), 1);
    form->setCurrentOperationType(0x200);
    combo->setCurrentIndex(combo->findData(3));
    form->setCurrentOperationType(0x400);
    EXPECT_EQ(form->getCurrentVolumnType(), 3);
}

TEST_F(ParamsForm, AutoHedgeAddsAndRemovesTheContractMode)
{
    switchOn({"mdl_order", "mdl_order_compose_hedge"});
    getUserConfig()->setUserAuth(1, true);
    storeBasket(QStringLiteral("自选"), 0);
    auto form = makeForm();
    chooseBasket(*form, QStringLiteral("自选"));
    form->hedgeWidget()->setAutoHedge(true);
    form->resetVolumnTypeByAutoHedge();
    EXPECT_EQ(modes(*form), (std::vector<int>{0, 1, 2, 3, 4, 5}));
    form->resetVolumnTypeByAutoHedge();
    EXPECT_EQ(modes(*form).size(), 6u);

    QComboBox *combo = form->volumnCombobox();
    combo->setCurrentIndex(combo->findData(5));
    form->hedgeWidget()->setAutoHedge(false);
    form->resetVolumnTypeByAutoHedge();
    EXPECT_EQ(modes(*form), (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(form->getCurrentVolumnType(), 0);
}

TEST_F(ParamsForm, ShowsTheCellOfTheModeOrTheSellRatio)
{
    // The amount the sizing reads is the one cell shown: a mode's own, or the sell ratio's.
    const struct { const char *name; quint64 word; int mode, batchFlags; std::vector<int> shownCells; bool volumnRowShown; } cases[] = {
        {"availableUsesRatio", 0x200, 3, -1, {P::CellRatio}, true},
        {"indexLots", 0x200, 6, -1, {P::CellTotalLots}, true},
        {"batchSellOnSellTab", 0x400, 2, 2, {P::CellRatio, P::CellSellRatio}, false},
        {"batchSellOnBuyTab", 0x200, 0, 2, {P::CellCopies}, true},
        {"positionSellOnSellTab", 0x400, 0, 4, {P::CellSellRatio}, false},
        {"positionSellOnBuyTab", 0x200, 1, 4, {P::CellCopies}, true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        auto form = makeForm();
        form->show();
        form->setCurrentOperationType(c.word);
        form->setItemsVisible(c.mode, c.batchFlags);
        std::vector<int> shown;
        for (int which = P::CellCopies; which <= P::CellTotalLots; ++which) {
            if (form->cell(which)->isVisible())
                shown.push_back(which);
        }
        EXPECT_EQ(shown, c.shownCells);
        EXPECT_EQ(form->volumnRow()->isVisible(), c.volumnRowShown);
    }
}

TEST_F(ParamsForm, SellTabTakesFractionalCopies)
{
    auto form = makeForm();
    form->setCurrentOperationType(0x400);
    form->resetCopiesValidator(2.5);
    EXPECT_DOUBLE_EQ(form->cell(P::CellCopies)->toDouble(), 2.5);
    form->setCurrentOperationType(0x200);
    form->resetCopiesValidator(2.5);
    EXPECT_DOUBLE_EQ(form->cell(P::CellCopies)->toDouble(), 2.0);
}

TEST_F(ParamsForm, PriceLimitsMarkWithinOneTickOrBeyond)
{
    // A tick that binary doubles hold exactly, so "exactly one tick" is exact.
    sample::addInstrument("SH", "600000", 0x7fffffff, std::string(), 100, 0.25);
    const struct { const char *name, *market, *code; double last, limit; bool upper, lower; } cases[] = {
        {"atTheLimit", "SH", "600000", 11.00, 11.00, true, true},
        {"lessThanOneTickBelow", "SH", "600000", 10.875, 11.00, true, true},
        {"exactlyOneTickBelow", "SH", "600000", 10.75, 11.00, false, true},
        {"exactlyOneTickAbove", "SH", "600000", 11.25, 11.00, true, false},
        {"wellBelow", "SH", "600000", 10.50, 11.00, false, true},
        {"aboveTheLimit", "SH", "600000", 11.50, 11.00, true, false},
        {"unknownInstrumentHasNoTickBelow", "SZ", "000001", 9.99, 10.0, false, true},
        {"unknownInstrumentHasNoTickAbove", "SZ", "000001", 10.01, 10.0, true, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QString market = QString::fromLatin1(c.market), code = QString::fromLatin1(c.code);
        EXPECT_EQ(isUpperLimitStock(market, code, c.last, c.limit), c.upper);
        EXPECT_EQ(isLowerLimitStock(market, code, c.last, c.limit), c.lower);
    }
}
