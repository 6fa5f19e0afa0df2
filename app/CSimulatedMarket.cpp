#include "CSimulatedMarket.h"

#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "OrderSettling.h"
#include "StockKey.h"

#include <algorithm>
#include <chrono>
#include <cmath>

CSimulatedMarket::CSimulatedMarket(std::vector<TC::CPriceData> instruments, int intervalMs)
    : m_quotes(std::move(instruments)), m_intervalMs(intervalMs)
{
    // Every price the market makes is a whole number of its instrument's tick, as on an exchange.
    m_ticks.reserve(m_quotes.size());
    for (const TC::CPriceData &quote : m_quotes) {
        const double tick = TC::CExchangeClient::instance()->getCodePriceTick(
            QString::fromStdString(utils::vqStockKey(quote.m_market, quote.m_stockCode)));
        m_ticks.push_back(tick > 0.0 ? tick : 0.01);
    }
}

CSimulatedMarket::~CSimulatedMarket()
{
    stop();
}

void CSimulatedMarket::publishAll()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const TC::CPriceData &quote : m_quotes)
        TC::CQuoteClient::instance()->publishQuote(quote);
}

void CSimulatedMarket::start()
{
    if (m_running.exchange(true))
        return;
    m_thread = std::thread([this] { run(); });
}

void CSimulatedMarket::stop()
{
    if (!m_running.exchange(false))
        return;
    if (m_thread.joinable())
        m_thread.join();
}

void CSimulatedMarket::run()
{
    using namespace std::chrono;
    while (m_running) {
        const auto next = steady_clock::now() + milliseconds(m_intervalMs);
        step();
        // Sleep in short slices so that stop() returns quickly.
        while (m_running && steady_clock::now() < next)
            std::this_thread::sleep_for(milliseconds(20));
    }
}

void CSimulatedMarket::step()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::normal_distribution<double> move(0.0, 0.003);
    std::bernoulli_distribution ticks(0.3);
    for (size_t i = 0; i < m_quotes.size(); ++i) {
        TC::CPriceData &quote = m_quotes[i];
        // Not every instrument trades at every tick.
        if (!ticks(m_random))
            continue;
        const double tick = m_ticks[i];
        const double change = std::clamp(move(m_random), -0.01, 0.01);
        double last = quote.m_lastPrice * (1.0 + change);
        last = std::clamp(last, quote.m_downStopPrice, quote.m_upStopPrice);
        last = TC::roundToTick(last, tick);
        quote.m_lastPrice = last;
        quote.m_bidPrice1 = TC::roundToTick(std::max(quote.m_downStopPrice, last - tick), tick);
        quote.m_askPrice1 = TC::roundToTick(std::min(quote.m_upStopPrice, last + tick), tick);
        TC::CQuoteClient::instance()->publishQuote(quote);
    }
}
