#include "CBasketSetting.h"

namespace TC {

ttservice::ETradePlatform CBasketSetting::tradePlatform() const
{
    return m_entries.isEmpty() ? ttservice::TRADE_PLATFORM_NONE : m_entries.first().m_tradePlatform;
}

} // namespace TC
