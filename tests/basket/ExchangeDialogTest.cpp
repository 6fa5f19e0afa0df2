// The position exchange from the form: "调仓" opens the dialog of the tab, "确定" puts its sells
// and buys into the form's order list.
#include "CExChangeBasketTable.h"
#include "CExchangePositionAccountTreeWidget.h"
#include "CExchangePositionTable.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COpBasketsExchangePositionWidget.h"
#include "COpBasketsLineEdit.h"
#include "COperationBasketWidget.h"
#include "COptBasketExchangePositionDialog.h"

#include "CBaseWidget.h"
#include "COddEvenRowTable.h"
#include "COpAccountsWidget.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "OperationHelpers.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace TC;
using sample::addInstrument;

namespace {

class Root : public WK::CBaseWidget
{
public:
    Root() : WK::CBaseWidget(QStringLiteral("root"), false, nullptr) {}
};

ttservice::CPositionStatics held(const char *market, const char *code, double volume, int direction = 48)
{
    ttservice::CPositionStatics p;
    p.m_market = market;
    p.m_stockCode = code;
    p.m_volume = volume;
    p.m_canUseVolume = volume;
    p.m_availableVolume = static_cast<int64_t>(volume);
    p.m_direction = direction;
    return p;
}

void addFuture(const char *code) { addInstrument("CFFEX", code, 300, std::string(), 1); }

class ExchangeDialog : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        luawrapper::LuaModuleCtrl::instance()->setModules(
            {"mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_one_key_futures",
             "mdl_order_compose_adjust_position"},
            true);
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        // The confirmation table caps a line at what can be traded: prices are needed.
        for (const char *code : {"600000", "600001", "600002"}) {
            addInstrument("SH", code);
            sample::setQuote("SH", code, 10);
        }
        addFuture("IF01");
        addFuture("IC01");
        sample::setQuote("CFFEX", "IF01", 4000);
        sample::setQuote("CFFEX", "IC01", 5000);
        addAccount("a1", ttservice::BROKER_TYPE_STOCK, {held("SH", "600000", 1000), held("SH", "600001", 500)});
        addAccount("a2", ttservice::BROKER_TYPE_STOCK, {held("SH", "600002", 800)});
        addAccount("f1", ttservice::BROKER_TYPE_FUTURE, {held("CFFEX", "IF01", 3)});

        using sample::row;
        sample::storeBasket(QStringLiteral("t"), {row("SH", "600000", 1, 400), row("SH", "600002", 1, 300)});
        sample::storeBasket(QStringLiteral("ft"), {row("CFFEX", "IF01", 1, 1), row("CFFEX", "IC01", 1, 2, ttservice::OT_SELL)},
                            ttservice::BROKER_TYPE_FUTURE);

        widget = new COperationBasketWidget(&root);
        form()->refreshAccounts();
    }

    static void addAccount(const std::string &key, ttservice::EVQBrokerType type,
                           const std::vector<ttservice::CPositionStatics> &positions)
    {
        sample::addAccount(key, type, 1e8, positions);
    }

    COpBasketParamsWidget *form() const { return widget->paramsWidget(); }

    // The tab button, the account ticked, then "调仓".
    COptBasketExchangePositionDialog *open(quint64 tab, const char *account)
    {
        form()->handleEvent(5, static_cast<int>(tab), 0, QString(), nullptr);
        form()->accountsWidget()->setSelectedAccount(QString::fromLatin1(account), true);
        form()->handleEvent(5, 107, 0, QString(), nullptr);
        return form()->exchangeDialog(tab);
    }

    // "code operation volume" of every line of the form, by code.
    std::map<std::string, std::pair<int, int64_t>> lines() const
    {
        std::map<std::string, std::pair<int, int64_t>> out;
        for (const ttservice::CCodeOrderParam &line : *form()->getCodeOrderParams())
            out[line.m_account->getKey() + " " + line.m_stockInfo.m_stockCode] = {line.m_operationType, line.m_volume};
        return out;
    }

    Root root;
    COperationBasketWidget *widget = nullptr;
};

// Confirmed after the form moved to another tab, the lines land on the dialog's tab.
TEST_F(ExchangeDialog, OneKeyTabExchangesTheChosenAccountsStocks)
{
    COptBasketExchangePositionDialog *dialog = open(TOT_ALL, "a1");
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(form()->exchangeDialog(TOT_ONEKEY_FUTURE), nullptr);

    dialog->exchangeWidget()->getBasketTable()->basketEdit()->setBasket(QStringLiteral("t"), false);
    form()->handleEvent(5, static_cast<int>(TOT_BUY), 0, QString(), nullptr);

    dialog->handleEvent(5, COptBasketExchangePositionDialog::OK_ID, 0, QString(), nullptr);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(form()->getTradeOpType(), TOT_ALL);
    EXPECT_EQ(form()->basketsCombo()->currentText(), QStringLiteral("调仓组合"));
    EXPECT_EQ(lines(), (std::map<std::string, std::pair<int, int64_t>>{
                           {"a1 600000", {ttservice::OT_SELL, 600}},
                           {"a1 600001", {ttservice::OT_SELL, 500}},
                           {"a1 600002", {ttservice::OT_BUY, 300}}}));
}

TEST_F(ExchangeDialog, OneKeyFuturesTabExchangesContractsBySide)
{
    COptBasketExchangePositionDialog *dialog = open(TOT_ONEKEY_FUTURE, "f1");
    ASSERT_NE(dialog, nullptr);
    COpBasketsExchangePositionWidget *body = dialog->exchangeWidget();
    EXPECT_EQ(body->getBasketTable()->basketEdit()->getBrokerType(), ttservice::BROKER_TYPE_FUTURE);
    body->getBasketTable()->basketEdit()->setBasket(QStringLiteral("ft"), false);

    dialog->handleEvent(5, COptBasketExchangePositionDialog::OK_ID, 0, QString(), nullptr);
    const auto result = lines();
    ASSERT_EQ(result.size(), 2u);
    // Long 3 against a target of 1: close 2. Short 2 of a contract not held: open 2.
    const auto ifSide = static_cast<ttservice::EOperationType>(result.at("f1 IF01").first);
    const auto icSide = static_cast<ttservice::EOperationType>(result.at("f1 IC01").first);
    EXPECT_EQ(fields(result.at("f1 IF01").second, isClose(ifSide), result.at("f1 IC01").second, isBuy(icSide), isClose(icSide)),
              "2|true|2|false|false");
}

TEST_F(ExchangeDialog, CancelPlacesNothingAndNoAccountGivesNoLines)
{
    COptBasketExchangePositionDialog *dialog = open(TOT_ALL, "a1");
    dialog->exchangeWidget()->getBasketTable()->basketEdit()->setBasket(QStringLiteral("t"), false);
    dialog->handleEvent(5, COptBasketExchangePositionDialog::CANCEL_ID, 0, QString(), nullptr);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(form()->basketsCombo()->currentText(), QStringLiteral("调仓组合"));

    COptBasketExchangePositionDialog fresh(nullptr, TOT_ALL);
    QVector<CPositionParam> result(1);
    fresh.getExchangePositionParam(result);
    EXPECT_TRUE(result.isEmpty());
}

TEST_F(ExchangeDialog, ChoosingAnotherAccountShowsItsPositionsAndSizesForIt)
{
    COptBasketExchangePositionDialog *dialog = open(TOT_ALL, "a1");
    form()->accountsWidget()->setSelectedAccount(QStringLiteral("a2"), true);
    COpBasketsExchangePositionWidget *body = dialog->exchangeWidget();
    CExchangePositionAccountTreeWidget *tree = body->getAccountTree();
    QTreeWidgetItem *second = nullptr;
    for (int i = 0; i < tree->rootItem()->childCount(); ++i) {
        if (tree->rootItem()->child(i)->data(0, CExchangePositionAccountTreeWidget::KEY_ROLE).toString() == QStringLiteral("a2"))
            second = tree->rootItem()->child(i);
    }
    ASSERT_NE(second, nullptr);
    body->slotAccountChange(second, 0);
    EXPECT_EQ(body->getPositionTable()->table()->itemText(0, CExchangePositionTable::COL_CODE), QStringLiteral("600002"));

    body->getBasketTable()->basketEdit()->setBasket(QStringLiteral("t"), false);
    EXPECT_EQ(body->getBasketTable()->table()->itemText(0, CExChangeBasketTable::COL_ACCOUNT), QStringLiteral("a2"));
    dialog->handleEvent(5, COptBasketExchangePositionDialog::OK_ID, 0, QString(), nullptr);
    EXPECT_EQ(lines(), (std::map<std::string, std::pair<int, int64_t>>{
                           {"a2 600002", {ttservice::OT_SELL, 500}}, {"a2 600000", {ttservice::OT_BUY, 400}}}));
}

TEST_F(ExchangeDialog, AStockPickedWhileTheDialogIsShownJoinsItsTarget)
{
    COptBasketExchangePositionDialog *dialog = open(TOT_ALL, "a1");
    ttservice::CStockInfo stock;
    stock.m_market = "SH";
    stock.m_stockCode = "600001";
    stock.m_stockName = "n600001";
    form()->addOneBascketData(stock);
    ASSERT_EQ(dialog->exchangeWidget()->getBasketTable()->stockList().size(), 1);
    EXPECT_EQ(dialog->exchangeWidget()->getBasketTable()->stockList().at(0).m_stockCode, QStringLiteral("600001"));

    dialog->hide();
    form()->addOneBascketData(stock);
    EXPECT_EQ(dialog->exchangeWidget()->getBasketTable()->stockList().size(), 1);
}

} // namespace
