#include "CTimeService.h"

#include <ctime>

namespace TC {

long long CTimeService::currentTime() const
{
    return m_systemClock ? static_cast<long long>(std::time(nullptr)) : m_frozenTime;
}

void CTimeService::setCurrentTime(long long seconds)
{
    m_systemClock = false;
    m_frozenTime = seconds;
}

void CTimeService::advance(long long seconds)
{
    setCurrentTime(currentTime() + seconds);
}

void CTimeService::useSystemClock(bool on)
{
    if (!on)
        m_frozenTime = currentTime();
    m_systemClock = on;
}

void CTimeService::reset()
{
    m_systemClock = false;
    m_frozenTime = DEFAULT_TIME;
}

CTimeService *getTimeService()
{
    static CTimeService service;
    return &service;
}

} // namespace TC
