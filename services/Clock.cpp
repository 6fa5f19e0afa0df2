#include "Clock.h"

#include <atomic>
#include <chrono>

namespace utils {
namespace {

// The frozen reading is kept as the bit pattern of a double so that it can live in one atomic:
// timing lines are written from whatever thread does the work.
std::atomic<bool> g_frozen{false};
std::atomic<double> g_frozenValue{0.0};

double steadyMSec()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

double clockMSec()
{
    return g_frozen.load() ? g_frozenValue.load() : steadyMSec();
}

void setClockMSec(double msec)
{
    g_frozenValue.store(msec);
    g_frozen.store(true);
}

void advanceClockMSec(double msec)
{
    if (!g_frozen.load())
        return;
    double current = g_frozenValue.load();
    while (!g_frozenValue.compare_exchange_weak(current, current + msec)) {
    }
}

void useSteadyClockMSec()
{
    g_frozen.store(false);
}

bool isClockMSecFrozen()
{
    return g_frozen.load();
}

} // namespace utils
