#pragma once

#include "BasketServicesExport.h"
#include "CPriceData.h"

#include <boost/shared_ptr.hpp>

#include <QHash>
#include <QString>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace TC {

class CQuoteRequest;
struct CQuoteSubscription;

// The client's quote service: the last quote of each instrument, suspended instruments, and
// the subscriptions of CQuoteRequest.
//
// Here quotes come from tests and the demo host's simulated market through publishQuote. A
// quote is delivered to the live subscriptions of its key on the publishing thread, so a test
// can publish from a worker thread exactly as the client's feed does. Every operation is
// thread-safe.
class BASKET_SERVICES_EXPORT CQuoteClient final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static CQuoteClient *instance();

    // The last quote published for stockKey ("600000.SH"), null if none has come. The record is
    // shared with the subscribers and is never changed after publishing: treat it as read-only.
    boost::shared_ptr<CPriceData> getStockPrice(QString stockKey) const;
    // Whether trading in the instrument is suspended today.
    bool isStoppedStock(QString stockKey) const;

    // --- control surface (tests and the demo host) ---
    // Stores the quote as the last one of its key (utils::vqStockKey of m_market and m_stockCode)
    // and calls the live callbacks of that key on this thread, in the order they subscribed.
    void publishQuote(const CPriceData &price);
    // Stores the quote as the last one without calling anybody.
    void setStockPrice(const CPriceData &price);
    void removeStockPrice(const QString &stockKey);
    void setStoppedStock(const QString &stockKey, bool stopped);
    // When on, a new request gets the last quote of its key once, later, from the application's
    // event loop (as the client's feed sends a snapshot on subscribing). Off after reset().
    void setReplayLastQuoteOnRequest(bool on);
    // Live subscriptions of one key, and of all keys.
    int subscriptionCount(const QString &stockKey) const;
    int subscriptionCount() const;
    // No quotes, nothing suspended, no replay. Live subscriptions are cut off: their callbacks
    // are not called any more, and releasing them later is harmless.
    void reset();

private:
    friend class CQuoteRequest;
    using SubscriptionPtr = std::shared_ptr<CQuoteSubscription>;

    CQuoteClient() = default;
    void subscribe(const SubscriptionPtr &subscription);
    void unsubscribe(const SubscriptionPtr &subscription);

    mutable std::mutex m_mutex;
    // Hashed: a market round looks every quoted key up twice, and a sizing once per line.
    std::unordered_map<QString, boost::shared_ptr<CPriceData>> m_prices;
    std::unordered_set<QString> m_stopped;
    std::unordered_map<QString, std::vector<SubscriptionPtr>> m_subscriptions;
    bool m_replayLastQuote = false;
};

// Whether trading in the instrument of this market and code is suspended today
// (CQuoteClient::isStoppedStock of its stock key).
bool isStoppedStock(QString market, QString code);

} // namespace TC
