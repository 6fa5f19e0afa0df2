#include "CQuoteClient.h"
#include "CQuoteRequest.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

using TC::CPriceData;
using TC::CQuoteClient;
using TC::CQuoteRequest;

namespace {

const QString kKey = QStringLiteral("600000.SH");

CPriceData quote(const char *code, double last) { return sample::quote("SH", code, last); }

// Counts the quotes a callback received and remembers the last price and thread.
struct Receiver
{
    std::atomic<int> count{0};
    std::atomic<double> lastPrice{0.0};
    std::mutex mutex;
    std::thread::id thread;

    CQuoteRequest::Callback callback()
    {
        return [this](boost::shared_ptr<CPriceData> price) {
            {
                std::lock_guard<std::mutex> lock(mutex);
                thread = std::this_thread::get_id();
            }
            lastPrice = price->m_lastPrice;
            ++count;
        };
    }
};

class QuoteSubscription : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
    void TearDown() override { TC::resetAllSubstitutes(); }
};

} // namespace

TEST_F(QuoteSubscription, CallbackRunsWhileTheRequestLivesAndNeverAfterReleaseAndTheLastQuoteIsKept)
{
    EXPECT_FALSE(CQuoteClient::instance()->getStockPrice(kKey));
    Receiver receiver;
    boost::shared_ptr<CQuoteRequest> request = CQuoteRequest::makeRequest(kKey, receiver.callback());
    EXPECT_EQ(receiver.count, 0) << "makeRequest must not call back by itself";

    CQuoteClient::instance()->publishQuote(quote("600000", 10.5));
    EXPECT_EQ(receiver.count, 1);
    EXPECT_DOUBLE_EQ(receiver.lastPrice, 10.5);

    request.reset();
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(kKey), 0);
    CQuoteClient::instance()->publishQuote(quote("600000", 11.0));
    EXPECT_EQ(receiver.count, 1);
    const boost::shared_ptr<CPriceData> price = CQuoteClient::instance()->getStockPrice(kKey);
    ASSERT_TRUE(price);
    EXPECT_DOUBLE_EQ(price->m_lastPrice, 11.0) << "the last quote is kept for getStockPrice";
}

TEST_F(QuoteSubscription, EverySubscriberOfTheKeyGetsTheQuoteAndOtherKeysDoNot)
{
    Receiver first, second, other;
    const auto a = CQuoteRequest::makeRequest(kKey, first.callback());
    const auto b = CQuoteRequest::makeRequest(kKey, second.callback());
    const auto c = CQuoteRequest::makeRequest(QStringLiteral("600036.SH"), other.callback());
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(kKey), 2);

    CQuoteClient::instance()->publishQuote(quote("600000", 9.9));
    EXPECT_EQ(fields(first.count.load(), second.count.load(), other.count.load()), "1|1|0");
}

TEST_F(QuoteSubscription, QuotePublishedOnAWorkerThreadIsDeliveredOnThatThread)
{
    Receiver receiver;
    const auto request = CQuoteRequest::makeRequest(kKey, receiver.callback());
    std::thread::id worker;
    std::thread publisher([&worker] {
        worker = std::this_thread::get_id();
        CQuoteClient::instance()->publishQuote(quote("600000", 12.0));
    });
    publisher.join();
    EXPECT_EQ(receiver.count, 1);
    std::lock_guard<std::mutex> lock(receiver.mutex);
    EXPECT_EQ(receiver.thread, worker);
    EXPECT_NE(receiver.thread, std::this_thread::get_id());
}

TEST_F(QuoteSubscription, ReleaseWaitsForACallbackRunningOnAnotherThread)
{
    std::mutex mutex;
    std::condition_variable changed;
    bool inCallback = false;
    bool mayLeave = false;
    std::atomic<bool> callbackDone{false};

    boost::shared_ptr<CQuoteRequest> request =
        CQuoteRequest::makeRequest(kKey, [&](boost::shared_ptr<CPriceData>) {
            std::unique_lock<std::mutex> lock(mutex);
            inCallback = true;
            changed.notify_all();
            changed.wait(lock, [&] { return mayLeave; });
            callbackDone = true;
        });

    std::thread publisher([] { CQuoteClient::instance()->publishQuote(quote("600000", 10.0)); });
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [&] { return inCallback; });
    }
    std::atomic<bool> releaseReturned{false};
    std::thread releaser([&] {
        request.reset();
        releaseReturned = true;
    });
    // The release cannot finish while the callback runs.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(releaseReturned) << "release returned while its callback was still running";
    {
        std::lock_guard<std::mutex> lock(mutex);
        mayLeave = true;
    }
    changed.notify_all();
    releaser.join();
    EXPECT_TRUE(callbackDone);
    publisher.join();
}

TEST_F(QuoteSubscription, ConcurrentPublishAndReleaseNeverCallAReleasedRequest)
{
    constexpr int kRounds = 200;
    std::atomic<bool> stop{false};
    std::thread publisher([&stop] {
        double price = 10.0;
        while (!stop)
            CQuoteClient::instance()->publishQuote(quote("600000", price += 0.01));
    });

    for (int round = 0; round < kRounds; ++round) {
        auto released = std::make_shared<std::atomic<bool>>(false);
        auto lateCalls = std::make_shared<std::atomic<int>>(0);
        boost::shared_ptr<CQuoteRequest> request =
            CQuoteRequest::makeRequest(kKey, [released, lateCalls](boost::shared_ptr<CPriceData>) {
                if (*released)
                    ++*lateCalls;
            });
        std::this_thread::yield();
        request.reset();
        *released = true;
        ASSERT_EQ(*lateCalls, 0) << "round " << round;
    }
    stop = true;
    publisher.join();
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(), 0);
}

TEST_F(QuoteSubscription, SubscribersOnSeveralThreadsWhileQuotesArePublished)
{
    std::atomic<bool> stop{false};
    std::atomic<int> lateCalls{0};
    std::thread publisher([&stop] {
        while (!stop)
            CQuoteClient::instance()->publishQuote(quote("600000", 10.0));
    });
    std::vector<std::thread> subscribers;
    for (int t = 0; t < 3; ++t) {
        subscribers.emplace_back([&lateCalls] {
            for (int i = 0; i < 100; ++i) {
                auto released = std::make_shared<std::atomic<bool>>(false);
                auto request = CQuoteRequest::makeRequest(kKey, [released, &lateCalls](boost::shared_ptr<CPriceData>) {
                    if (*released)
                        ++lateCalls;
                });
                std::this_thread::yield();
                request.reset();
                *released = true;
            }
        });
    }
    for (std::thread &s : subscribers)
        s.join();
    stop = true;
    publisher.join();
    EXPECT_EQ(lateCalls, 0);
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(), 0);
}

TEST_F(QuoteSubscription, CallbackMayReleaseItsOwnAndAnotherRequest)
{
    Receiver other;
    boost::shared_ptr<CQuoteRequest> second = CQuoteRequest::makeRequest(kKey, other.callback());
    boost::shared_ptr<CQuoteRequest> first;
    int firstCalls = 0;
    first = CQuoteRequest::makeRequest(kKey, [&](boost::shared_ptr<CPriceData>) {
        ++firstCalls;
        first.reset();
        second.reset();
    });
    // first subscribed after second, so second has been called before first releases it.
    std::thread publisher([] { CQuoteClient::instance()->publishQuote(quote("600000", 10.0)); });
    publisher.join();
    EXPECT_EQ(firstCalls, 1);
    EXPECT_EQ(other.count, 1);
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(kKey), 0);

    CQuoteClient::instance()->publishQuote(quote("600000", 10.1));
    EXPECT_EQ(firstCalls, 1);
    EXPECT_EQ(other.count, 1);
}

TEST_F(QuoteSubscription, ReplayDeliversTheLastQuoteFromTheEventLoopWhenSwitchedOnToLiveRequestsOnly)
{
    CQuoteClient::instance()->setStockPrice(quote("600000", 8.8));
    Receiver silent;
    const auto withoutReplay = CQuoteRequest::makeRequest(kKey, silent.callback());

    CQuoteClient::instance()->setReplayLastQuoteOnRequest(true);
    Receiver replayed;
    const auto withReplay = CQuoteRequest::makeRequest(kKey, replayed.callback());
    EXPECT_EQ(replayed.count, 0) << "the snapshot must not arrive inside makeRequest";
    QCoreApplication::processEvents();
    EXPECT_EQ(replayed.count, 1);
    EXPECT_DOUBLE_EQ(replayed.lastPrice, 8.8);
    EXPECT_EQ(silent.count, 0);

    Receiver released;
    CQuoteRequest::makeRequest(kKey, released.callback()).reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(released.count, 0) << "a request released before the event loop gets no replay";
}

TEST_F(QuoteSubscription, ResetCutsOffLiveSubscriptions)
{
    Receiver receiver;
    boost::shared_ptr<CQuoteRequest> request = CQuoteRequest::makeRequest(kKey, receiver.callback());
    CQuoteClient::instance()->publishQuote(quote("600000", 10.0));
    TC::resetAllSubstitutes();
    EXPECT_EQ(CQuoteClient::instance()->subscriptionCount(), 0);
    EXPECT_FALSE(CQuoteClient::instance()->getStockPrice(kKey));
    CQuoteClient::instance()->publishQuote(quote("600000", 10.5));
    EXPECT_EQ(receiver.count, 1);
    request.reset();
}
