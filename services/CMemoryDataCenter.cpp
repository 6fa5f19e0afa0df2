#include "CMemoryDataCenter.h"

#include <utility>

namespace ttservice {

boost::shared_ptr<CAccountData> CMemoryDataCenter::getAccountData(const std::string &accountKey) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_accounts.find(accountKey);
    return it == m_accounts.end() ? boost::shared_ptr<CAccountData>() : it->second;
}

bool CMemoryDataCenter::queryData(boost::shared_ptr<CQueryDataReq> request, const QueryCallback &callback, int flags)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_queries.push_back(CQueryCall{request, !callback.empty(), flags});
    }
    // Answered outside the lock: the callback may read account data.
    if (callback)
        callback(request, utils::TTError());
    return true;
}

boost::shared_ptr<CAccountData> CMemoryDataCenter::addAccount(boost::shared_ptr<CAccountInfo> info)
{
    if (!info)
        return {};
    const std::string key = info->getKey();
    boost::shared_ptr<CAccountData> data(new CAccountData(std::move(info)));
    std::lock_guard<std::mutex> lock(m_mutex);
    m_accounts[key] = data;
    return data;
}

void CMemoryDataCenter::removeAccount(const std::string &accountKey)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_accounts.erase(accountKey);
}

std::vector<CMemoryDataCenter::CQueryCall> CMemoryDataCenter::queries() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_queries;
}

void CMemoryDataCenter::reset()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_accounts.clear();
    m_queries.clear();
}

} // namespace ttservice
