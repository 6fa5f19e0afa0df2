#include "CAccountInfo.h"

namespace ttservice {

void CAccountInfo::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("ak", m_accountKey);
    builder.append("ai", m_accountId);
    builder.append("an", m_accountName);
    builder.append("pn", m_productName);
    builder.append("bt", static_cast<int>(m_brokerType));
    builder.append("at", m_accountType);
}

void CAccountInfo::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CAccountInfo *b = partial ? dynamic_cast<const CAccountInfo *>(base) : nullptr;
    const CAccountInfo d = b ? *b : CAccountInfo();
    m_accountKey = bsonString(obj, "ak", d.m_accountKey);
    m_accountId = bsonString(obj, "ai", d.m_accountId);
    m_accountName = bsonString(obj, "an", d.m_accountName);
    m_productName = bsonString(obj, "pn", d.m_productName);
    m_brokerType = static_cast<EVQBrokerType>(bsonInt(obj, "bt", d.m_brokerType));
    m_accountType = bsonInt(obj, "at", d.m_accountType);
}

} // namespace ttservice
