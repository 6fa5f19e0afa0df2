#pragma once

#include "BasketServicesExport.h"
#include "CPriceData.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QString>

#include <memory>

namespace TC {

struct CQuoteSubscription;

// One subscription to the quotes of one instrument. It lasts as long as the request object:
// releasing the last shared pointer ends it.
//
// Threads. The callback runs on the thread that publishes the quote, which is in general not
// the user-interface thread. A callback never runs concurrently with itself, and never starts
// after the release of its request has returned: a release on one thread waits for a callback
// that is running on another. A callback may release its own request and make or release
// others; it must not release a request whose callback is at that moment running on another
// thread and waiting for this one.
class BASKET_SERVICES_EXPORT CQuoteRequest final
{
public:
    using Callback = boost::function<void(boost::shared_ptr<CPriceData>)>;

    // Subscribes callback to the quotes of stockKey (utils::vqStockKey form, "600000.SH").
    // The callback is not called from within makeRequest; it is called for each quote published
    // after this call, and, if the quote client replays last quotes, once with the last quote
    // from the application's event loop.
    static boost::shared_ptr<CQuoteRequest> makeRequest(QString stockKey, const Callback &callback);

    ~CQuoteRequest();
    CQuoteRequest(const CQuoteRequest &) = delete;
    CQuoteRequest &operator=(const CQuoteRequest &) = delete;

    QString stockKey() const { return m_stockKey; }

private:
    CQuoteRequest(QString stockKey, std::shared_ptr<CQuoteSubscription> subscription);

    QString m_stockKey;
    std::shared_ptr<CQuoteSubscription> m_subscription;
};

} // namespace TC
