#include "CQuoteClient.h"

#include "QuoteSubscription.h"
#include "StockKey.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>

namespace TC {
namespace {

QString keyOf(const CPriceData &price)
{
    return QString::fromStdString(utils::vqStockKey(price.m_market, price.m_stockCode));
}

} // namespace

CQuoteClient *CQuoteClient::instance()
{
    // Never destroyed: requests held by objects that outlive main() may still release.
    static CQuoteClient *client = new CQuoteClient;
    return client;
}

boost::shared_ptr<CPriceData> CQuoteClient::getStockPrice(QString stockKey) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_prices.find(stockKey);
    return it == m_prices.end() ? boost::shared_ptr<CPriceData>() : it->second;
}

bool CQuoteClient::isStoppedStock(QString stockKey) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_stopped.count(stockKey) != 0;
}

void CQuoteClient::publishQuote(const CPriceData &price)
{
    const QString key = keyOf(price);
    const boost::shared_ptr<CPriceData> shared(new CPriceData(price));
    std::vector<SubscriptionPtr> targets;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_prices[key] = shared;
        const auto it = m_subscriptions.find(key);
        if (it != m_subscriptions.end())
            targets = it->second;
    }
    // Called outside the client's lock: a callback may subscribe, release or publish.
    for (const SubscriptionPtr &subscription : targets)
        subscription->deliver(shared);
}

void CQuoteClient::setStockPrice(const CPriceData &price)
{
    const boost::shared_ptr<CPriceData> shared(new CPriceData(price));
    std::lock_guard<std::mutex> lock(m_mutex);
    m_prices[keyOf(price)] = shared;
}

void CQuoteClient::removeStockPrice(const QString &stockKey)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_prices.erase(stockKey);
}

void CQuoteClient::setStoppedStock(const QString &stockKey, bool stopped)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (stopped)
        m_stopped.insert(stockKey);
    else
        m_stopped.erase(stockKey);
}

void CQuoteClient::setReplayLastQuoteOnRequest(bool on)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_replayLastQuote = on;
}

int CQuoteClient::subscriptionCount(const QString &stockKey) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_subscriptions.find(stockKey);
    return it == m_subscriptions.end() ? 0 : static_cast<int>(it->second.size());
}

int CQuoteClient::subscriptionCount() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    int count = 0;
    for (const auto &entry : m_subscriptions)
        count += static_cast<int>(entry.second.size());
    return count;
}

void CQuoteClient::reset()
{
    std::unordered_map<QString, std::vector<SubscriptionPtr>> cutOff;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_prices.clear();
        m_stopped.clear();
        m_replayLastQuote = false;
        cutOff.swap(m_subscriptions);
    }
    for (const auto &entry : cutOff) {
        for (const SubscriptionPtr &subscription : entry.second)
            subscription->kill();
    }
}

void CQuoteClient::subscribe(const SubscriptionPtr &subscription)
{
    boost::shared_ptr<CPriceData> replay;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_subscriptions[subscription->m_stockKey].push_back(subscription);
        if (m_replayLastQuote) {
            const auto it = m_prices.find(subscription->m_stockKey);
            if (it != m_prices.end())
                replay = it->second;
        }
    }
    if (!replay || !QCoreApplication::instance())
        return;
    // Never from within makeRequest: the caller has not stored its request yet. The weak
    // pointer lets a request released before the event loop comes round go quietly.
    const std::weak_ptr<CQuoteSubscription> weak = subscription;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [weak, replay]() {
            if (const SubscriptionPtr alive = weak.lock())
                alive->deliver(replay);
        },
        Qt::QueuedConnection);
}

void CQuoteClient::unsubscribe(const SubscriptionPtr &subscription)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_subscriptions.find(subscription->m_stockKey);
    if (it == m_subscriptions.end())
        return;
    std::vector<SubscriptionPtr> &list = it->second;
    list.erase(std::remove(list.begin(), list.end(), subscription), list.end());
    if (list.empty())
        m_subscriptions.erase(it);
}

bool isStoppedStock(QString market, QString code)
{
    return CQuoteClient::instance()->isStoppedStock(
        QString::fromStdString(utils::vqStockKey(market.toStdString(), code.toStdString())));
}

} // namespace TC
