#pragma once

#include "CPriceData.h"

#include <atomic>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

// A market that moves: a worker thread walks every instrument's price a little at each tick and
// publishes the quote through the quote service, from its own thread as the client's feed does.
class CSimulatedMarket final
{
public:
    // Instruments with their starting quote; prices move by at most one percent a tick and
    // stay within the day's limits.
    explicit CSimulatedMarket(std::vector<TC::CPriceData> instruments, int intervalMs = 500);
    ~CSimulatedMarket();

    CSimulatedMarket(const CSimulatedMarket &) = delete;
    CSimulatedMarket &operator=(const CSimulatedMarket &) = delete;

    // Publishes every instrument once on the calling thread, so quotes are there from the start.
    void publishAll();
    void start();
    void stop();

private:
    void run();
    void step();

    std::vector<TC::CPriceData> m_quotes;
    std::vector<double> m_ticks; // of each quote's instrument
    int m_intervalMs = 500;
    std::mt19937 m_random{20261123u};
    std::mutex m_mutex;
    std::atomic<bool> m_running{false};
    std::thread m_thread;
};
