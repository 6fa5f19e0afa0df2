// The confirmation table at a trader's scale: 1000 stocks on 20 accounts, 20,000 lines, every
// quote present.
#include "COpBasketConfirmWidget.h"

#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "SubstituteReset.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kStocks = 1000;
constexpr int kAccounts = 20;

TC::CPriceData quoteOf(int stock, double shift)
{
    TC::CPriceData quote;
    quote.m_market = "SH";
    quote.m_stockCode = std::to_string(600000 + stock);
    quote.m_lastPrice = 10 + stock % 50 + shift;
    quote.m_lastClose = 10 + stock % 50;
    quote.m_upStopPrice = quote.m_lastClose * 1.1;
    quote.m_downStopPrice = quote.m_lastClose * 0.9;
    return quote;
}

// The client's data and the order list: one buy line per stock and account.
std::vector<ttservice::CCodeOrderParam> fillClient()
{
    TC::resetAllSubstitutes();
    for (int i = 0; i < kStocks; ++i) {
        ttservice::CInstrumentDetail detail;
        detail.m_market = "SH";
        detail.m_stockCode = std::to_string(600000 + i);
        detail.m_stockName = "stock" + std::to_string(i);
        detail.m_volumeMultiple = 1;
        TC::CExchangeClient::instance()->addInstrument(detail);
        TC::CQuoteClient::instance()->setStockPrice(quoteOf(i, 0.0));
    }
    std::vector<ttservice::CCodeOrderParam> lines;
    lines.reserve(kStocks * kAccounts);
    for (int a = 0; a < kAccounts; ++a) {
        ttservice::CAccountInfo info;
        info.m_accountKey = "acc" + std::to_string(a);
        info.m_accountId = "8800" + std::to_string(a);
        info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
        ttservice::CAccountDetail detail;
        detail.m_accountKey = info.m_accountKey;
        detail.m_available = 1e9;
        TC::getUserConfig()->addAccount(info, detail);
        const boost::shared_ptr<ttservice::CAccountInfo> account(new ttservice::CAccountInfo(info));
        for (int i = 0; i < kStocks; ++i) {
            ttservice::CCodeOrderParam line;
            line.m_account = account;
            line.m_operationType = ttservice::OT_BUY;
            line.m_stockInfo = ttservice::CStockInfo("SH", std::to_string(600000 + i), "stock" + std::to_string(i));
            line.m_volume = 100 * (1 + i % 10);
            lines.push_back(line);
        }
    }
    return lines;
}

void BM_LoadParams(benchmark::State &state)
{
    const std::vector<ttservice::CCodeOrderParam> source = fillClient();
    TC::COpBasketConfirmWidget widget(nullptr);
    std::vector<ttservice::CCodeOrderParam> lines;
    for (auto _ : state) {
        state.PauseTiming();
        lines = source;
        state.ResumeTiming();
        widget.loadParams(&lines);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(source.size()));
}
BENCHMARK(BM_LoadParams)->Unit(benchmark::kMillisecond);

// One quote walks every line of the list.
void BM_OnLatestPrice(benchmark::State &state)
{
    std::vector<ttservice::CCodeOrderParam> lines = fillClient();
    TC::COpBasketConfirmWidget widget(nullptr);
    widget.loadParams(&lines);
    const boost::shared_ptr<TC::CPriceData> quote(new TC::CPriceData(quoteOf(500, 0.01)));
    for (auto _ : state)
        widget.onLatestPrice(quote);
}
BENCHMARK(BM_OnLatestPrice)->Unit(benchmark::kMicrosecond);

// The timer's tick once a quote of every stock has marked all 20,000 rows changed.
void BM_TickAfterQuotes(benchmark::State &state)
{
    std::vector<ttservice::CCodeOrderParam> lines = fillClient();
    TC::COpBasketConfirmWidget widget(nullptr);
    widget.loadParams(&lines);
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ++round;
        for (int i = 0; i < kStocks; ++i)
            TC::CQuoteClient::instance()->publishQuote(quoteOf(i, 0.01 * (round % 7)));
        state.ResumeTiming();
        widget.slotTimeout();
    }
}
BENCHMARK(BM_TickAfterQuotes)->Unit(benchmark::kMillisecond);

} // namespace
