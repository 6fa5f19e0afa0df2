// Docks the installed panel the way a client does, for a portfolio manager: the user chooses a
// basket for an account, presses the order button, and the order must reach the trading service.
// Exits 0 only if the recorded placeCommands call carries the basket's lines.

#include "CBasketOperationPanel.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CBasketSetting.h"
#include "CBasketStockData.h"
#include "CExchangeClient.h"
#include "COpAccountsWidget.h"
#include "CPriceData.h"
#include "CQuoteClient.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "SubstituteReset.h"

#include <QApplication>

#include <cstdio>
#include <memory>
#include <set>
#include <string>

namespace {

constexpr int kManagerRole = 90;
const char *const kCodes[] = {"600000", "600036", "601318"};

int fail(const char *what)
{
    std::fprintf(stderr, "basket-host: FAIL: %s\n", what);
    return 1;
}

// The client's side: a manager, one stock account with money, the instruments and their quotes,
// one stored basket.
void fillServices()
{
    TC::resetAllSubstitutes();
    TC::getUserConfig()->setRole(kManagerRole);
    TC::getUserConfig()->setUserId("host-user");
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);

    ttservice::CAccountInfo account;
    account.m_accountKey = "acc-1";
    account.m_accountId = "acc-1";
    account.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    ttservice::CAccountDetail detail;
    detail.m_available = 1e7;
    TC::getUserConfig()->addAccount(account, detail);

    TC::CBasketSetting basket;
    basket.m_name = QStringLiteral("host basket");
    for (const char *code : kCodes) {
        ttservice::CInstrumentDetail instrument;
        instrument.m_market = "SH";
        instrument.m_stockCode = code;
        TC::CExchangeClient::instance()->addInstrument(instrument);
        TC::CPriceData quote;
        quote.m_market = "SH";
        quote.m_stockCode = code;
        quote.m_lastPrice = 10;
        quote.m_askPrice1 = 10.01;
        quote.m_bidPrice1 = 9.99;
        TC::CQuoteClient::instance()->setStockPrice(quote);

        TC::CBasketStockData row;
        row.m_market = QStringLiteral("SH");
        row.m_stockCode = QString::fromLatin1(code);
        row.m_weight = 1;
        row.m_volume = 300;
        row.m_operationType = ttservice::OT_BUY;
        basket.m_stocks << row;
    }
    TC::getUserConfig()->baskets().insert(basket.m_name, basket);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    fillServices();

    auto panel = std::make_unique<TC::CBasketOperationPanel>(1, nullptr);
    panel->resize(1400, 800);
    panel->show();
    TC::COperationBasketWidget *basketWidget = panel->basketWidget();
    if (!basketWidget)
        return fail("a manager's panel has no basket widget");
    TC::COpBasketParamsWidget *form = basketWidget->paramsWidget();
    if (!form || !form->accountsWidget() || !form->basketsCombo())
        return fail("the panel's form lacks its account picker or basket picker");

    // The user ticks the account and chooses the basket; the panel sizes the list.
    form->refreshAccounts();
    form->accountsWidget()->setSelectedAccount(QStringLiteral("acc-1"), true);
    form->updateBasketSetting();
    form->basketsCombo()->setBasket(QStringLiteral("host basket"), false);
    QApplication::processEvents();

    // The order button.
    basketWidget->handleEvent(1046, 0, 0, QString(), nullptr);
    QApplication::processEvents();

    // The call was recorded by the trading service the host also reaches: one instance in the
    // process, whichever library asks for it.
    const std::vector<TC::CPlaceCommandsCall> &calls = TC::CTradeClient::instance()->placedCommands();
    if (calls.size() != 1)
        return fail("expected exactly one placeCommands call");
    const TC::CPlaceCommandsCall &call = calls.front();
    if (call.m_orders.empty())
        return fail("the placeCommands call has no order lines");
    std::set<std::string> codes;
    for (const ttservice::CCodeOrderParam &line : call.m_orders) {
        if (!line.m_account || line.m_account->m_accountKey != "acc-1")
            return fail("an order line is not for the chosen account");
        if (line.m_volume <= 0)
            return fail("an order line has no volume");
        codes.insert(line.m_stockInfo.m_stockCode);
    }
    if (codes != std::set<std::string>(std::begin(kCodes), std::end(kCodes)))
        return fail("the order lines do not name exactly the basket's codes");
    if (call.m_basketName != "host basket")
        return fail("the call does not name the basket");

    std::printf("basket-host: OK: placeCommands with %zu lines of basket \"%s\": %s\n", call.m_orders.size(),
                call.m_basketName.c_str(), call.jsonString().c_str());
    panel.reset();
    return 0;
}
