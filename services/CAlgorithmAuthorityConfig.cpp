#include "CAlgorithmAuthorityConfig.h"

namespace TC {

CAlgorithmAuthorityConfig &CAlgorithmAuthorityConfig::instance()
{
    static CAlgorithmAuthorityConfig config;
    return config;
}

bool CAlgorithmAuthorityConfig::bCheckAuthority(const std::vector<ttservice::CCodeOrderParam> &orders,
                                                const std::string &buyStrategy, const std::string &sellStrategy)
{
    m_calls.push_back(CCheckCall{orders, buyStrategy, sellStrategy});
    return m_result;
}

void CAlgorithmAuthorityConfig::reset()
{
    m_result = true;
    m_calls.clear();
}

} // namespace TC
