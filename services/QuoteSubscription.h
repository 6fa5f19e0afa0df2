#pragma once

#include "BasketServicesExport.h"
#include "CPriceData.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <QString>

#include <mutex>

namespace TC {

// The state one CQuoteRequest shares with the quote client (not part of the service interface).
//
// m_mutex is held while the callback runs and while the request's release marks the
// subscription dead, so that a callback never starts after the release has returned. It is
// recursive because a callback may release its own request.
struct BASKET_SERVICES_EXPORT CQuoteSubscription
{
    QString m_stockKey;
    boost::function<void(boost::shared_ptr<CPriceData>)> m_callback;
    std::recursive_mutex m_mutex;
    bool m_alive = true; // guarded by m_mutex

    // Calls the callback unless the subscription has been released.
    void deliver(const boost::shared_ptr<CPriceData> &price)
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        if (m_alive && m_callback)
            m_callback(price);
    }

    void kill()
    {
        std::lock_guard<std::recursive_mutex> lock(m_mutex);
        m_alive = false;
    }
};

} // namespace TC
