#include "CExchangeClient.h"

#include "StockKey.h"
#include "TradeUnits.h"

#include <algorithm>

namespace TC {

CExchangeClient *CExchangeClient::instance()
{
    static CExchangeClient client;
    return &client;
}

const ttservice::CInstrumentDetail *CExchangeClient::find(const QString &text) const
{
    return find(text.toStdString());
}

const ttservice::CInstrumentDetail *CExchangeClient::find(const std::string &key) const
{
    if (key.empty())
        return nullptr;
    const auto exact = m_byKey.find(key);
    if (exact != m_byKey.end())
        return exact->second;

    // "SH600000": a known market in front of a known code of that market; of several, the
    // first in key order.
    const auto joined = m_keysByJoined.find(key);
    if (joined != m_keysByJoined.end() && !joined->second.empty())
        return m_byKey.at(*std::min_element(joined->second.begin(), joined->second.end()));

    // The code alone: futures first, then in the order of adding.
    const auto byCode = m_keysByCode.find(key);
    if (byCode == m_keysByCode.end())
        return nullptr;
    const ttservice::CInstrumentDetail *first = nullptr;
    for (const std::string &stockKey : byCode->second) {
        const ttservice::CInstrumentDetail &detail = *m_byKey.at(stockKey);
        if (ttservice::isFutureMarket(detail.m_market))
            return &detail;
        if (!first)
            first = &detail;
    }
    return first;
}

bool CExchangeClient::hasCode(QString code) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return find(code) != nullptr;
}

bool CExchangeClient::hasFuture(QString code) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const ttservice::CInstrumentDetail *detail = find(code);
    return detail && ttservice::isFutureMarket(detail->m_market);
}

double CExchangeClient::getCodePriceTick(QString code) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const ttservice::CInstrumentDetail *detail = find(code);
    return detail ? detail->m_priceTick : 0.0;
}

boost::shared_ptr<ttservice::CInstrumentDetail> CExchangeClient::getCodeInfo(QString code) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const ttservice::CInstrumentDetail *detail = find(code);
    return detail ? boost::shared_ptr<ttservice::CInstrumentDetail>(new ttservice::CInstrumentDetail(*detail))
                  : boost::shared_ptr<ttservice::CInstrumentDetail>();
}

int CExchangeClient::getCodeTradeUnit(const std::string &code) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const ttservice::CInstrumentDetail *detail = find(code);
    return detail ? detail->m_tradeUnit : -1;
}

std::string CExchangeClient::getMarketByStockCode(std::string code, std::string hint) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto byCode = m_keysByCode.find(code);
    if (byCode == m_keysByCode.end())
        return std::string();
    std::string market;
    for (const std::string &stockKey : byCode->second) {
        const ttservice::CInstrumentDetail &detail = *m_byKey.at(stockKey);
        if (ttservice::isFutureMarket(detail.m_market))
            continue;
        if (!hint.empty() && detail.m_market == hint)
            return detail.m_market;
        if (market.empty())
            market = detail.m_market;
    }
    return market;
}

std::vector<ttservice::CInstrumentDetail> CExchangeClient::findInstruments(const QString &text, int limit,
                                                                          bool stockMarketsOnly) const
{
    std::vector<ttservice::CInstrumentDetail> found;
    if (text.isEmpty() || limit < 1)
        return found;
    std::lock_guard<std::mutex> lock(m_mutex);
    // A short text matches thousands of instruments; only the kept few are copied.
    std::vector<const ttservice::CInstrumentDetail *> matches;
    for (const auto &entry : m_instruments) {
        const ttservice::CInstrumentDetail &detail = entry.second;
        if (stockMarketsOnly && !ttservice::isStockMarket(detail.m_market))
            continue;
        if (QString::fromStdString(detail.m_stockCode).startsWith(text, Qt::CaseInsensitive)
            || QString::fromStdString(detail.m_stockName).contains(text, Qt::CaseInsensitive))
            matches.push_back(&detail);
    }
    // Keys join code and market with a dot, which sorts before the digits and letters of a
    // longer code but not before every character a code may hold; sort by the parts themselves.
    const auto byCodeThenMarket = [](const ttservice::CInstrumentDetail *a, const ttservice::CInstrumentDetail *b) {
        return a->m_stockCode != b->m_stockCode ? a->m_stockCode < b->m_stockCode : a->m_market < b->m_market;
    };
    const auto kept = static_cast<std::ptrdiff_t>(std::min(matches.size(), static_cast<std::size_t>(limit)));
    std::partial_sort(matches.begin(), matches.begin() + kept, matches.end(), byCodeThenMarket);
    found.reserve(static_cast<std::size_t>(kept));
    for (std::ptrdiff_t i = 0; i < kept; ++i)
        found.push_back(*matches[static_cast<std::size_t>(i)]);
    return found;
}

void CExchangeClient::addInstrument(const ttservice::CInstrumentDetail &detail)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const std::string key = utils::vqStockKey(detail.m_market, detail.m_stockCode);
    if (m_instruments.find(key) == m_instruments.end()) {
        m_keysByCode[detail.m_stockCode].push_back(key);
        m_keysByJoined[detail.m_market + detail.m_stockCode].push_back(key);
    }
    ttservice::CInstrumentDetail &stored = m_instruments[key];
    stored = detail;
    m_byKey[key] = &stored;
}

void CExchangeClient::removeInstrument(const std::string &market, const std::string &code)
{
    const std::string key = utils::vqStockKey(market, code);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_instruments.erase(key) == 0)
        return;
    m_byKey.erase(key);
    std::vector<std::string> &keys = m_keysByCode[code];
    keys.erase(std::remove(keys.begin(), keys.end(), key), keys.end());
    if (keys.empty())
        m_keysByCode.erase(code);
    std::vector<std::string> &joined = m_keysByJoined[market + code];
    joined.erase(std::remove(joined.begin(), joined.end(), key), joined.end());
    if (joined.empty())
        m_keysByJoined.erase(market + code);
}

int CExchangeClient::instrumentCount() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_instruments.size());
}

void CExchangeClient::reset()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_instruments.clear();
    m_byKey.clear();
    m_keysByCode.clear();
    m_keysByJoined.clear();
}

} // namespace TC
