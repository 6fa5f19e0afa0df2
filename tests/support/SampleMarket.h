#pragma once

#include "CExchangeClient.h"
#include "CQuoteClient.h"

#include <string>

// Instruments and last prices for tests that size or check order lists.
namespace sample {

// An instrument with its contract multiple (none by default), name, smallest lot and price tick.
inline void addInstrument(const std::string &market, const std::string &code, int multiple = 0x7fffffff,
                          const std::string &name = std::string(), int tradeUnit = 100, double priceTick = 0.01)
{
    ttservice::CInstrumentDetail detail;
    detail.m_market = market;
    detail.m_stockCode = code;
    detail.m_stockName = name;
    detail.m_volumeMultiple = multiple;
    detail.m_tradeUnit = tradeUnit;
    detail.m_priceTick = priceTick;
    TC::CExchangeClient::instance()->addInstrument(detail);
}

// A quote with the day's previous close and price limits.
inline TC::CPriceData quote(const std::string &market, const std::string &code, double last,
                            double close = ttservice::NO_VALUE, double up = ttservice::NO_VALUE,
                            double down = ttservice::NO_VALUE)
{
    TC::CPriceData quote;
    quote.m_market = market;
    quote.m_stockCode = code;
    quote.m_lastPrice = last;
    quote.m_lastClose = close;
    quote.m_upStopPrice = up;
    quote.m_downStopPrice = down;
    return quote;
}

// Stores a quote as the last one of its instrument, without telling subscribers.
inline void setQuote(const std::string &market, const std::string &code, double last,
                     double close = ttservice::NO_VALUE)
{
    TC::CQuoteClient::instance()->setStockPrice(quote(market, code, last, close));
}

// Stores a quote as the last one and tells the subscribers, as the feed does.
inline void publishQuote(const std::string &market, const std::string &code, double last,
                         double close = ttservice::NO_VALUE)
{
    TC::CQuoteClient::instance()->publishQuote(quote(market, code, last, close));
}

} // namespace sample

// Accounts, baskets and full quotes for the panel's form tests.
#include "CBasketSetting.h"
#include "CUserConfig.h"

#include <QList>
#include <QString>

#include <vector>

namespace sample {

// A position of an account: what it holds and what of it may be sold now.
inline ttservice::CPositionStatics held(const std::string &market, const std::string &code, double volume,
                                        double canUse)
{
    ttservice::CPositionStatics position;
    position.m_market = market;
    position.m_stockCode = code;
    position.m_volume = volume;
    position.m_canUseVolume = canUse;
    return position;
}

// An account of the user (logged in) with its money and positions; a credit one is of type 3.
inline void addAccount(const std::string &key, ttservice::EVQBrokerType broker, double available,
                       const std::vector<ttservice::CPositionStatics> &positions = {})
{
    ttservice::CAccountInfo info;
    info.m_accountKey = key;
    info.m_accountId = key;
    info.m_brokerType = broker;
    info.m_accountType = broker == ttservice::BROKER_TYPE_CREDIT ? 3 : 0;
    ttservice::CAccountDetail detail;
    detail.m_accountKey = key;
    detail.m_available = available;
    TC::getUserConfig()->addAccount(info, detail, positions);
}

inline TC::CBasketStockData row(const char *market, const char *code, double weight, int64_t volume,
                                ttservice::EOperationType operation = ttservice::OT_BUY)
{
    TC::CBasketStockData r;
    r.m_market = QString::fromLatin1(market);
    r.m_stockCode = QString::fromLatin1(code);
    r.m_weight = weight;
    r.m_volume = volume;
    r.m_operationType = operation;
    return r;
}

// Stores a basket of the user's own (kind 0) or an index basket (kind 1, with its index in SH).
inline void storeBasket(const QString &name, const QList<TC::CBasketStockData> &rows,
                        ttservice::EVQBrokerType broker = ttservice::BROKER_TYPE_STOCK, int kind = 0,
                        const QString &indexCode = QString())
{
    TC::CBasketSetting basket;
    basket.m_name = name;
    basket.m_basketKind = kind;
    basket.m_brokerType = broker;
    basket.m_indexMarket = QStringLiteral("SH");
    basket.m_indexCode = indexCode;
    basket.m_stocks = rows;
    TC::getUserConfig()->baskets().insert(name, basket);
}

// Stores a quote with the best prices and the day's limits, without telling subscribers.
inline void setBook(const std::string &market, const std::string &code, double last, double ask, double bid,
                    double up = ttservice::NO_VALUE, double down = ttservice::NO_VALUE)
{
    TC::CPriceData book = quote(market, code, last, ttservice::NO_VALUE, up, down);
    book.m_askPrice1 = ask;
    book.m_bidPrice1 = bid;
    TC::CQuoteClient::instance()->setStockPrice(book);
}

} // namespace sample
