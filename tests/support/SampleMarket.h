#pragma once

#include "CExchangeClient.h"
#include "CQuoteClient.h"

#include <string>

// Instruments and last prices for tests that size or check order lists.
namespace sample {

inline void addInstrument(const std::string &market, const std::string &code, int multiple = 0x7fffffff,
                          const std::string &name = std::string())
{
    ttservice::CInstrumentDetail detail;
    detail.m_market = market;
    detail.m_stockCode = code;
    detail.m_stockName = name;
    detail.m_volumeMultiple = multiple;
    TC::CExchangeClient::instance()->addInstrument(detail);
}

// Stores a quote as the last one of its instrument, without telling subscribers.
inline void setQuote(const std::string &market, const std::string &code, double last,
                     double close = ttservice::NO_VALUE)
{
    TC::CPriceData quote;
    quote.m_market = market;
    quote.m_stockCode = code;
    quote.m_lastPrice = last;
    quote.m_lastClose = close;
    TC::CQuoteClient::instance()->setStockPrice(quote);
}

} // namespace sample
