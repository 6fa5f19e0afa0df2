#pragma once

#include "BasketServicesExport.h"
#include "CAccountInfo.h"
#include "IData.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace ttservice {

// A request to the data centre to refresh one kind of data of one account
// (IDataCenter::queryData). The answer lands in the account's data, where later reads find it.
class BASKET_SERVICES_EXPORT CQueryDataReq : public IData
{
public:
    int m_dataType = 0;
    boost::shared_ptr<CAccountInfo> m_account;

    // The account's key, empty without an account.
    std::string getKey() const override { return m_account ? m_account->getKey() : std::string(); }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    // Reads the data type; an account is never read back from BSON.
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
