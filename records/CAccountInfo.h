#pragma once

#include "BasketRecordsExport.h"
#include "IData.h"
#include "TradeEnums.h"

#include <string>

namespace ttservice {

// An account as the client knows it: its key and what is shown of it.
class BASKET_RECORDS_EXPORT CAccountInfo : public IData
{
public:
    std::string m_accountKey;   // unique key, what the services look accounts up by
    std::string m_accountId;    // the broker's account number
    std::string m_accountName;  // the user's name for it
    std::string m_productName;  // the product (fund) the account belongs to
    EVQBrokerType m_brokerType = BROKER_TYPE_NONE;
    int m_accountType = 0;      // 3 marks a credit account in data queries

    std::string getKey() const override { return m_accountKey; }
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
