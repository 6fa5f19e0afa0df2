#pragma once

#include "BasketServicesExport.h"
#include "CInstrumentDetail.h"

#include <boost/shared_ptr.hpp>

#include <QString>

#include <map>
#include <unordered_map>
#include <mutex>
#include <string>
#include <vector>

namespace TC {

// The client's instrument service: what is known of each tradable code.
//
// Lookups accept an instrument in three forms:
//   - the stock key "<code>.<market>" ("600000.SH", "IF2401.CFFEX");
//   - the market followed by the code ("SH600000"), as pasted rows are looked up;
//   - the code alone ("IF2401"), which finds the first instrument of that code, futures
//     exchanges first (a futures contract code names one instrument).
// Thread-safe.
class BASKET_SERVICES_EXPORT CExchangeClient final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static CExchangeClient *instance();

    // Whether the instrument is known.
    bool hasCode(QString code) const;
    // Whether code names a known instrument of a futures exchange (any of the three forms).
    bool hasFuture(QString code) const;
    // The price tick of the instrument, 0 if it is unknown.
    double getCodePriceTick(QString code) const;
    // A copy of the instrument's record, null if it is unknown.
    boost::shared_ptr<ttservice::CInstrumentDetail> getCodeInfo(QString code) const;
    // The trading unit of the instrument written as getCodeInfo takes it; -1 when unknown.
    // Reads the unit alone, without a copy of the record: sizing asks it for every line.
    int getCodeTradeUnit(const std::string &code) const;
    // The stock market ("SH", "SZ" ...) of a known instrument with this code, not on a futures
    // exchange; the instrument in market hint wins when there are several. Empty when there is
    // none: a futures code or an unknown code.
    std::string getMarketByStockCode(std::string code, std::string hint) const;
    // The instruments a user typing text looks for: those whose code starts with text, or whose
    // name contains it, both regardless of case; only those of the stock markets (SH, SZ and
    // their long names) when stockMarketsOnly. Sorted by code, then market; at most limit of
    // them, the first in that order. Nothing for an empty text or a limit below 1.
    std::vector<ttservice::CInstrumentDetail> findInstruments(const QString &text, int limit,
                                                              bool stockMarketsOnly = false) const;

    // --- control surface (tests and the demo host) ---
    // Adds or replaces an instrument (by market and code).
    void addInstrument(const ttservice::CInstrumentDetail &detail);
    void removeInstrument(const std::string &market, const std::string &code);
    int instrumentCount() const;
    // No instruments.
    void reset();

private:
    CExchangeClient() = default;
    // Called with m_mutex held.
    const ttservice::CInstrumentDetail *find(const QString &text) const;
    const ttservice::CInstrumentDetail *find(const std::string &key) const;

    mutable std::mutex m_mutex;

    // By stock key, in key order for the searches.
    std::map<std::string, ttservice::CInstrumentDetail> m_instruments;
    // The same records hashed by stock key: a sizing asks for every line's instrument, so the
    // exact look-up must not walk the tree.
    std::unordered_map<std::string, const ttservice::CInstrumentDetail *> m_byKey;
    // Stock keys by code, in the order of adding.
    std::unordered_map<std::string, std::vector<std::string>> m_keysByCode;
    // Market and code joined plainly ("SH600000") to the keys of the instruments written so.
    std::unordered_map<std::string, std::vector<std::string>> m_keysByJoined;
};

} // namespace TC
