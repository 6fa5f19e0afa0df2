#pragma once

#include "BasketServicesExport.h"
#include "CAccountData.h"
#include "CQueryDataReq.h"
#include "TTError.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <string>

namespace ttservice {

// The client's data centre: the data of every account the user can see, by account key.
// Reached through TraderCenter::instance()->getDataCenter().
class BASKET_SERVICES_EXPORT IDataCenter
{
public:
    // Called when a query has been answered, with the request and the outcome.
    using QueryCallback = boost::function<void(boost::shared_ptr<CQueryDataReq>, const utils::TTError &)>;

    virtual ~IDataCenter() = default;

    // The shared data of the account with this key (IData::getKey of its CAccountInfo), null if
    // the data centre does not know it. The same object is returned on every call.
    virtual boost::shared_ptr<CAccountData> getAccountData(const std::string &accountKey) const = 0;

    // Asks the client to refresh the data of one kind (m_dataType) of one account (m_account).
    // The answer goes into that account's data; callback may be empty. flags is passed on to the
    // client's transport (0 for an ordinary query). Returns false if the query could not be sent.
    virtual bool queryData(boost::shared_ptr<CQueryDataReq> request, const QueryCallback &callback, int flags) = 0;
};

} // namespace ttservice
