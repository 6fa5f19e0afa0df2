#include "CTradeStatistics.h"

namespace TC {

CTradeStatistics *CTradeStatistics::instance()
{
    static CTradeStatistics statistics;
    return &statistics;
}

bool CTradeStatistics::checkMinAndInterval(std::vector<ttservice::CCodeOrderParam> &orders)
{
    m_calls.push_back(orders);
    return m_result;
}

void CTradeStatistics::reset()
{
    m_result = true;
    m_calls.clear();
}

} // namespace TC
