// Sizing a large basket: 1000 stocks over 20 accounts, every quote present, as a trader's form
// recalculates it on each change of a cell.
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"

#include "CExchangeClient.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "SubstituteReset.h"

#include <benchmark/benchmark.h>

#include <QComboBox>

namespace {

void fillClient(int stocks, int accounts)
{
    TC::resetAllSubstitutes();
    TC::getUserConfig()->setRole(90);
    TC::CBasketSetting basket;
    basket.m_name = QStringLiteral("大篮子");
    for (int i = 0; i < stocks; ++i) {
        const std::string code = std::to_string(600000 + i);
        ttservice::CInstrumentDetail detail;
        detail.m_market = "SH";
        detail.m_stockCode = code;
        TC::CExchangeClient::instance()->addInstrument(detail);
        TC::CPriceData quote;
        quote.m_market = "SH";
        quote.m_stockCode = code;
        quote.m_lastPrice = 10 + i % 50;
        quote.m_lastClose = quote.m_lastPrice;
        quote.m_askPrice1 = quote.m_lastPrice + 0.01;
        TC::CQuoteClient::instance()->setStockPrice(quote);
        TC::CBasketStockData row;
        row.m_market = QStringLiteral("SH");
        row.m_stockCode = QString::fromStdString(code);
        row.m_weight = 1.0 / stocks;
        row.m_volume = 100 * (1 + i % 10);
        basket.m_stocks << row;
    }
    TC::getUserConfig()->baskets().insert(basket.m_name, basket);
    for (int i = 0; i < accounts; ++i) {
        ttservice::CAccountInfo info;
        info.m_accountKey = "acc" + std::to_string(i);
        info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
        ttservice::CAccountDetail detail;
        detail.m_available = 1e7;
        detail.m_totalAsset = 2e7;
        TC::getUserConfig()->addAccount(info, detail);
    }
}

// mode: the sizing mode the form uses (0 by copies, 1 by money).
void BM_GenOperation(benchmark::State &state)
{
    const int stocks = 1000;
    const int accounts = 20;
    fillClient(stocks, accounts);
    TC::COpBasketParamsWidget form(nullptr);
    form.setCurrentOperationType(TC::TOT_BUY);
    form.refreshAccounts();
    for (const QString &key : form.accountsWidget()->getDisplayedAccounts())
        form.accountsWidget()->setSelectedAccount(key, true);
    form.basketsCombo()->setBasket(QStringLiteral("大篮子"), false);
    form.volumnCombobox()->setCurrentIndex(form.volumnCombobox()->findData(int(state.range(0))));
    form.cell(TC::COpBasketParamsWidget::CellCopies)->setInt(3);
    form.cell(TC::COpBasketParamsWidget::CellMoney)->setDouble(5e7);

    for (auto _ : state) {
        form.updateBasketConfirmData();
        benchmark::DoNotOptimize(form.getCodeOrderParams()->data());
    }
    if (form.getCodeOrderParams()->size() != size_t(stocks * accounts))
        state.SkipWithError("the basket did not size to one line per stock and account");
    state.counters["lines"] = double(form.getCodeOrderParams()->size());
}
BENCHMARK(BM_GenOperation)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
