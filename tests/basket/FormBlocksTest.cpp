#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CComboBox.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CPushButtonGroup.h"
#include "CWidgetList.h"
#include "CTimeService.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "SampleMarket.h"
#include "Fields.h"
#include "SubstituteFixture.h"

#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

const std::list<std::string> kAllTabs = {"mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits",
                                         "mdl_order_compose_futures", "mdl_order_compose_one_key_futures",
                                         "mdl_order_compose_hgt", "mdl_order_compose_sgt", "mdl_order_compose_hedge"};

class FormBlocks : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserAuth(1, true);
        luawrapper::LuaModuleCtrl::instance()->setModules(kAllTabs, true);
    }

    void make()
    {
        widget = std::make_unique<COperationBasketWidget>(nullptr);
        form = widget->paramsWidget();
    }

    void onTab(quint64 word) { form->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr); }

    std::unique_ptr<COperationBasketWidget> widget;
    COpBasketParamsWidget *form = nullptr;
};

// Which side's block prices each line is checked on the orders that leave (the placing tests, per
// tab); here a line the trader switches to sell takes the sell side's parameters and keeps its
// volume, and the options of one side are copied to the other.
TEST_F(FormBlocks, aLineSwitchedToSellTakesTheSellSidesTypesAndOptionsAreShared)
{
    make();
    onTab(TOT_ALL);
    form->buySellWidget()->getBuyParam()->table()->setPriceType(2);
    form->buySellWidget()->getSellParam()->table()->setPriceType(1);
    form->buySellWidget()->getSellParam()->table()->setOrderType(5);
    CCodeOrderParam line;
    line.m_operationType = ttservice::OT_SELL;
    line.m_volume = 300;
    line.m_priceType = ttservice::PRICE_TYPE_LAST;
    widget->handleEvent(1075, 0, 19, QString(), &line);
    EXPECT_EQ(fields(line.m_priceType, line.m_orderType, line.m_volume), "1|5|300");

    CGlobalOrderParamTable *buy = form->buySellWidget()->getBuyParam()->table();
    CGlobalOrderParamTable *sell = form->buySellWidget()->getSellParam()->table();
    buy->setCheckParam(QStringLiteral("1"));
    form->handleEvent(1203, 0, 0, QString(), buy);
    EXPECT_EQ(sell->loadCheckParam(), QStringLiteral("1"));
    sell->setCheckParam(QString());
    form->handleEvent(1203, 0, 0, QString(), sell);
    EXPECT_EQ(buy->loadCheckParam(), QString());
}

TEST_F(FormBlocks, creditOperationComesFromItsButtonsAndTheContractKind)
{
    luawrapper::LuaModuleCtrl::instance()->setModule("mdl_order_credit_has_special_opt", true);
    make();
    onTab(TOT_CREDIT);
    EXPECT_EQ(form->getOperationType(), 20);
    EXPECT_TRUE(form->contractRow()->isHidden());

    auto *buttons = form->crdWidget()->buttonGroup();
    buttons->button(109)->click(); // the widget tells the form, which takes the new operation
    EXPECT_EQ(form->getOperationType(), 21);
    EXPECT_FALSE(form->contractRow()->isHidden());
    form->contractCombo()->setCurrentIndex(form->contractCombo()->findData(49));
    EXPECT_EQ(form->getOptTypeByCompact(), 1010);
    buttons->button(52)->click();
    EXPECT_EQ(form->getOptTypeByCompact(), 1011);
    buttons->button(53)->click();
    EXPECT_EQ(form->getOperationType(), 24);
    EXPECT_TRUE(form->contractRow()->isHidden());
}

TEST_F(FormBlocks, eachTabKeepsItsOwnTemporaryLists)
{
    make();
    onTab(TOT_BUY);
    form->setBatchOp(BATCH_CLIPBOARD, true);
    ASSERT_TRUE(form->basketsCombo()->getAllFlag().testFlag(BATCH_CLIPBOARD));
    onTab(TOT_SELL);
    EXPECT_FALSE(form->basketsCombo()->getAllFlag().testFlag(BATCH_CLIPBOARD));
    onTab(TOT_BUY);
    EXPECT_TRUE(form->basketsCombo()->getAllFlag().testFlag(BATCH_CLIPBOARD));
}

// Without the one-key block its types are unknown and its shortcut places nothing.
TEST_F(FormBlocks, shortcutPlacesOnlyWhereTheOneKeyBlockExists)
{
    make();
    // Without accounts or basket the press is refused with a message: the sign that it got there.
    form->doShortCutOrder(400, nullptr); // already on the buy tab: places
    const size_t refusals = getMsgService()->shownMessages().size();
    EXPECT_GE(refusals, 1u);

    luawrapper::LuaModuleCtrl::instance()->setModule("mdl_order_compose_basket_buy_sell", false);
    make();
    form->doShortCutOrder(400, nullptr);
    EXPECT_EQ(getMsgService()->shownMessages().size(), refusals);
    form->setCurrentOperationType(TOT_ALL);
    EXPECT_EQ(form->buySellWidget(), nullptr);
    EXPECT_EQ(fields(form->getPriceType(18), form->getOrderType(19)), "-1|-1");
}

TEST_F(FormBlocks, linesAreRefreshedOnlyAfterThirtySeconds)
{
    sample::addInstrument("SH", "600000");
    sample::setBook("SH", "600000", 10, 10.01, 9.99);
    sample::addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e6);
    sample::storeBasket(QStringLiteral("b"), {sample::row("SH", "600000", 1, 100)});
    make();
    form->refreshAccounts();
    form->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    ASSERT_EQ(form->getCodeOrderParams()->size(), 1u);
    const CCodeOrderParam &line = form->getCodeOrderParams()->front();
    EXPECT_EQ(line.m_validFrom, CTimeService::DEFAULT_TIME);

    getTimeService()->advance(29);
    form->updateCodeOrderParam();
    EXPECT_EQ(line.m_validFrom, CTimeService::DEFAULT_TIME);
    getTimeService()->advance(2);
    form->updateCodeOrderParam();
    EXPECT_EQ(line.m_validFrom, CTimeService::DEFAULT_TIME + 31);
}

} // namespace
