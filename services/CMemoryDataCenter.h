#pragma once

#include "BasketServicesExport.h"
#include "IDataCenter.h"

#include <map>
#include <mutex>
#include <vector>

namespace ttservice {

// The data centre of this library: account data held in memory, filled by tests and the demo
// host. Queries are recorded and answered at once with success, without changing any data.
// Thread-safe.
class BASKET_SERVICES_EXPORT CMemoryDataCenter final : public IDataCenter
{
public:
    boost::shared_ptr<CAccountData> getAccountData(const std::string &accountKey) const override;
    bool queryData(boost::shared_ptr<CQueryDataReq> request, const QueryCallback &callback, int flags) override;

    // --- control surface (tests and the demo host) ---
    struct CQueryCall
    {
        boost::shared_ptr<CQueryDataReq> m_request;
        bool m_hasCallback = false;
        int m_flags = 0;
    };

    // Makes (or replaces) the data of an account; returns it for filling.
    boost::shared_ptr<CAccountData> addAccount(boost::shared_ptr<CAccountInfo> info);
    void removeAccount(const std::string &accountKey);
    std::vector<CQueryCall> queries() const;
    // No accounts, no recorded queries.
    void reset();

private:
    mutable std::mutex m_mutex;
    std::map<std::string, boost::shared_ptr<CAccountData>> m_accounts;
    std::vector<CQueryCall> m_queries;
};

} // namespace ttservice
