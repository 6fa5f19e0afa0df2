#include "CQuoteRequest.h"

#include "CQuoteClient.h"
#include "QuoteSubscription.h"

#include <utility>

namespace TC {

CQuoteRequest::CQuoteRequest(QString stockKey, std::shared_ptr<CQuoteSubscription> subscription)
    : m_stockKey(std::move(stockKey)), m_subscription(std::move(subscription))
{
}

boost::shared_ptr<CQuoteRequest> CQuoteRequest::makeRequest(QString stockKey, const Callback &callback)
{
    auto subscription = std::make_shared<CQuoteSubscription>();
    subscription->m_stockKey = stockKey;
    subscription->m_callback = callback;
    boost::shared_ptr<CQuoteRequest> request(new CQuoteRequest(std::move(stockKey), subscription));
    CQuoteClient::instance()->subscribe(subscription);
    return request;
}

CQuoteRequest::~CQuoteRequest()
{
    CQuoteClient::instance()->unsubscribe(m_subscription);
    // Waits for a callback running on another thread; after this no callback starts.
    m_subscription->kill();
}

} // namespace TC
