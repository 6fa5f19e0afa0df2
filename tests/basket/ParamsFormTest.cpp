#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"

#include "CComboxNameWidget.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "LuaModuleCtrl.h"
#include "SubstituteFixture.h"

#include <QComboBox>

#include <memory>
#include <vector>

using namespace TC;

namespace {

const std::list<std::string> kAllTabs = {"mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits",
                                         "mdl_order_compose_futures", "mdl_order_compose_one_key_futures",
                                         "mdl_order_compose_hgt", "mdl_order_compose_sgt"};

void switchOn(const std::list<std::string> &modules)
{
    luawrapper::LuaModuleCtrl::instance()->setModules(modules, true);
}

void storeBasket(const QString &name, int kind, const QString &indexCode = QString(),
                 ttservice::EVQBrokerType broker = ttservice::BROKER_TYPE_STOCK)
{
    CBasketSetting basket;
    basket.m_name = name;
    basket.m_basketKind = kind;
    basket.m_brokerType = broker;
    basket.m_indexMarket = QStringLiteral("SH");
    basket.m_indexCode = indexCode;
    CBasketStockData row;
    row.m_market = QStringLiteral("SH");
    row.m_stockCode = QStringLiteral("600000");
    basket.m_stocks << row;
    getUserConfig()->baskets().insert(name, basket);
}

std::vector<int> modes(const COpBasketParamsWidget &form)
{
    std::vector<int> result;
    for (int i = 0; i < form.volumnCombobox()->count(); ++i)
        result.push_back(form.volumnCombobox()->itemData(i).toInt());
    return result;
}

std::vector<int> tabIds(const COpBasketParamsWidget &form)
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

    std::unique_ptr<COpBasketParamsWidget> makeForm()
    {
        auto form = std::make_unique<COpBasketParamsWidget>(nullptr);
        form->setReplaceToolBar(toolBar.get());
        return form;
    }

    void chooseBasket(COpBasketParamsWidget &form, const QString &name)
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

struct TabCase
{
    const char *name;
    quint64 word;
    int operation;
    int brokerType;
    bool hedgeShown;
};

class TabSwitch : public ParamsForm, public ::testing::WithParamInterface<TabCase>
{
};

TEST_P(TabSwitch, SetsOperationPickerAndHedge)
{
    const TabCase &c = GetParam();
    switchOn(kAllTabs);
    switchOn({"mdl_order_compose_hedge"});
    getUserConfig()->setUserAuth(1, true);
    auto form = makeForm();
    form->show();
    form->setCurrentOperationType(c.word);
    EXPECT_EQ(form->getTradeOpType(), c.word);
    EXPECT_EQ(form->getOperationType(), c.operation);
    EXPECT_EQ(form->basketsCombo()->getBrokerType(), c.brokerType);
    ASSERT_NE(form->hedgeWidget(), nullptr);
    EXPECT_EQ(form->hedgeWidget()->isVisible(), c.hedgeShown);
    EXPECT_EQ(form->accountsWidget()->tradeOpType(), c.word);
}

INSTANTIATE_TEST_SUITE_P(Tabs, TabSwitch,
    ::testing::Values(TabCase{"buy", 0x200, 18, 2, true}, TabCase{"sell", 0x400, 19, 2, true},
                      TabCase{"oneKey", 0x800, -1, 2, false}, TabCase{"futures", 0x1000, 0, 1, false},
                      TabCase{"oneKeyFutures", 0x4000, -1, 1, false}, TabCase{"shanghaiConnect", 0x80000, -1, 7, false},
                      TabCase{"shenzhenConnect", 0x100000, -1, 11, false}),
    [](const ::testing::TestParamInfo<TabCase> &info) { return std::string(info.param.name); });

TEST_F(ParamsForm, WordBetweenBuyAndSellRefreshesTheCurrentTab)
{
    auto form = makeForm();
    form->setCurrentOperationType(0x400);
    form->setCurrentOperationType(600);
    EXPECT_EQ(form->getTradeOpType(), 0x400u);
    EXPECT_EQ(form->getOperationType(), 19);
}

TEST_F(ParamsForm, EachTabKeepsItsAccountChoice)
{
    ttservice::CAccountInfo stock;
    stock.m_accountKey = "s1";
    stock.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    getUserConfig()->addAccount(stock);
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

TEST_F(ParamsForm, ConnectWordMapsToTheEnabledKind)
{
    switchOn({"mdl_order", "mdl_order_compose_sgt"});
    auto form = makeForm();
    EXPECT_EQ(form->getGgtTradeOpType(0x80000), 0x100000u);
    form->setCurrentOperationType(0x80000);
    EXPECT_EQ(form->ggtOpType(), 0x100000u);
    switchOn({"mdl_order_compose_hgt"});
    auto both = makeForm();
    EXPECT_EQ(both->getGgtTradeOpType(0x80000), 0x80000u);
}

struct ComboCase
{
    const char *name;
    quint64 word;
    int basketKind; // -1: no basket chosen
    const char *indexCode;
    std::vector<int> modes;
};

class VolumnCombo : public ParamsForm, public ::testing::WithParamInterface<ComboCase>
{
};

TEST_P(VolumnCombo, OffersTheModesOfTabAndBasket)
{
    const ComboCase &c = GetParam();
    switchOn(kAllTabs);
    if (c.basketKind >= 0)
        storeBasket(QStringLiteral("篮子"), c.basketKind, QString::fromLatin1(c.indexCode));
    auto form = makeForm();
    form->setCurrentOperationType(c.word);
    if (c.basketKind >= 0)
        chooseBasket(*form, QStringLiteral("篮子"));
    EXPECT_EQ(modes(*form), c.modes);
}

INSTANTIATE_TEST_SUITE_P(Tabs, VolumnCombo,
    ::testing::Values(ComboCase{"futures", 0x1000, -1, "", {0, 1, 2}},
                      ComboCase{"connect", 0x80000, -1, "", {0, 1}},
                      ComboCase{"oneKey", 0x800, -1, "", {0, 1, 2, 3, 4}},
                      ComboCase{"buyWithoutBasket", 0x200, -1, "", {}},
                      ComboCase{"ownBasket", 0x200, 0, "", {0, 1, 2, 3, 4}},
                      ComboCase{"indexBasketOnBuy", 0x200, 1, "000300", {1, 2, 3, 4, 6}},
                      ComboCase{"otherIndexCode", 0x200, 1, "000001", {1, 2, 3, 4}},
                      ComboCase{"indexBasketOnSell", 0x400, 1, "000905", {1, 2, 3, 4}},
                      ComboCase{"indexKindTwo", 0x200, 2, "000016", {1, 2, 3, 4}},
                      ComboCase{"etfBasket", 0x2000, 3, "", {0}}),
    [](const ::testing::TestParamInfo<ComboCase> &info) { return std::string(info.param.name); });

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

struct VisibleCase
{
    const char *name;
    quint64 word;
    int mode;
    int batchFlags;
    std::vector<int> shownCells;
    bool volumnRowShown;
};

class ItemsVisible : public ParamsForm, public ::testing::WithParamInterface<VisibleCase>
{
};

TEST_P(ItemsVisible, ShowsTheCellOfTheModeOrTheSellRatio)
{
    const VisibleCase &c = GetParam();
    auto form = makeForm();
    form->show();
    form->setCurrentOperationType(c.word);
    form->setItemsVisible(c.mode, c.batchFlags);
    std::vector<int> shown;
    for (int which = COpBasketParamsWidget::CellCopies; which <= COpBasketParamsWidget::CellTotalLots; ++which) {
        if (form->cell(which)->isVisible())
            shown.push_back(which);
    }
    EXPECT_EQ(shown, c.shownCells);
    EXPECT_EQ(form->volumnRow()->isVisible(), c.volumnRowShown);
}

using P = COpBasketParamsWidget;
INSTANTIATE_TEST_SUITE_P(Modes, ItemsVisible,
    ::testing::Values(VisibleCase{"copies", 0x200, 0, -1, {P::CellCopies}, true},
                      VisibleCase{"money", 0x200, 1, -1, {P::CellMoney}, true},
                      VisibleCase{"netValueUsesRatio", 0x200, 2, -1, {P::CellRatio}, true},
                      VisibleCase{"availableUsesRatio", 0x200, 3, -1, {P::CellRatio}, true},
                      VisibleCase{"assetRatio", 0x200, 4, -1, {P::CellAssetRatio}, true},
                      VisibleCase{"contractLots", 0x200, 5, -1, {P::CellContract}, true},
                      VisibleCase{"indexLots", 0x200, 6, -1, {P::CellTotalLots}, true},
                      VisibleCase{"batchSellOnSellTab", 0x400, 2, 2, {P::CellRatio, P::CellSellRatio}, false},
                      VisibleCase{"batchSellOnBuyTab", 0x200, 0, 2, {P::CellCopies}, true},
                      VisibleCase{"positionSellOnSellTab", 0x400, 0, 4, {P::CellSellRatio}, false},
                      VisibleCase{"positionSellOnBuyTab", 0x200, 1, 4, {P::CellCopies}, true}),
    [](const ::testing::TestParamInfo<VisibleCase> &info) { return std::string(info.param.name); });

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

TEST_F(ParamsForm, MoneyUnitFollowsTheTab)
{
    switchOn(kAllTabs);
    auto form = makeForm();
    form->setCurrentOperationType(0x80000);
    EXPECT_EQ(form->cell(P::CellMoney)->unit(), QStringLiteral("港币"));
    form->setCurrentOperationType(0x200);
    EXPECT_EQ(form->cell(P::CellMoney)->unit(), QStringLiteral("元"));
}

TEST_F(ParamsForm, ContractRowOnlyWithItsModule)
{
    EXPECT_EQ(makeForm()->contractRow(), nullptr);
    switchOn({"mdl_order", "mdl_order_credit_has_special_opt", "mdl_order_compose_credits"});
    auto form = makeForm();
    ASSERT_NE(form->contractRow(), nullptr);
    form->show();
    form->setCurrentOperationType(0x2000);
    EXPECT_FALSE(form->contractRow()->isVisible());
}

TEST_F(ParamsForm, AdjustButtonOnTheOneKeyTabs)
{
    switchOn(kAllTabs);
    switchOn({"mdl_order_compose_adjust_position"});
    auto form = makeForm();
    form->show();
    ASSERT_NE(form->adjustButton(), nullptr);
    EXPECT_EQ(form->adjustButton()->text(), QStringLiteral("调仓"));
    EXPECT_FALSE(form->adjustButton()->isVisible());
    form->setCurrentOperationType(0x800);
    EXPECT_TRUE(form->adjustButton()->isVisible());
    form->setCurrentOperationType(0x4000);
    EXPECT_TRUE(form->adjustButton()->isVisible());
    form->setCurrentOperationType(0x1000);
    EXPECT_FALSE(form->adjustButton()->isVisible());
}

TEST_F(ParamsForm, IndexVolumeByMarketAndCode)
{
    EXPECT_EQ(P::getIndexVolume(QStringLiteral("SH"), QStringLiteral("000300")), 300);
    EXPECT_EQ(P::getIndexVolume(QStringLiteral("SH"), QStringLiteral("000905")), 200);
    EXPECT_EQ(P::getIndexVolume(QStringLiteral("SH"), QStringLiteral("000016")), 300);
    EXPECT_EQ(P::getIndexVolume(QStringLiteral("SZ"), QStringLiteral("000300")), 1);
    EXPECT_EQ(P::getIndexVolume(QStringLiteral("SH"), QStringLiteral("000001")), 1);
}

TEST_F(ParamsForm, EntrustmentOnlyForTouchOrdersOnStockTabs)
{
    switchOn(kAllTabs);
    auto form = makeForm();
    form->show();
    form->updateEntrustVisible(true);
    EXPECT_TRUE(form->entrustCombo()->isVisible());
    form->updateEntrustVisible(false);
    EXPECT_FALSE(form->entrustCombo()->isVisible());
    form->setCurrentOperationType(0x1000);
    form->updateEntrustVisible(true);
    EXPECT_FALSE(form->entrustCombo()->isVisible());
}
