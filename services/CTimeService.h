#pragma once

#include "BasketServicesExport.h"

namespace TC {

// The client's time service: the trading day's clock as the exchange sees it, in seconds since
// the epoch. Order lines take their validity window from it.
//
// User-interface thread only.
class BASKET_SERVICES_EXPORT CTimeService final
{
public:
    // A fixed reading (2024-01-02 09:30:00 in Beijing) that tests can rely on.
    static constexpr long long DEFAULT_TIME = 1704159000LL;

    // Seconds since the epoch: the frozen reading after reset(), the machine's clock after
    // useSystemClock(true).
    long long currentTime() const;

    // --- control surface (tests and the demo host) ---
    // Freezes the clock at this reading.
    void setCurrentTime(long long seconds);
    void advance(long long seconds);
    // Follows the machine's clock (the state at start-up) or freezes at the current reading.
    void useSystemClock(bool on);
    // Frozen at DEFAULT_TIME.
    void reset();

private:
    friend CTimeService *getTimeService();
    CTimeService() = default;

    bool m_systemClock = true;
    long long m_frozenTime = DEFAULT_TIME;
};

// The time service of the client; never null.
CTimeService *getTimeService();

} // namespace TC
