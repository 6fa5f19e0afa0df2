#include "CAccountDetail.h"

namespace ttservice {

void CAccountDetail::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("ak", m_accountKey);
    bsonAppendDouble(builder, "av", m_available);
    bsonAppendDouble(builder, "ta", m_totalAsset);
    bsonAppendDouble(builder, "mv", m_marketValue);
}

void CAccountDetail::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CAccountDetail *b = partial ? dynamic_cast<const CAccountDetail *>(base) : nullptr;
    const CAccountDetail d = b ? *b : CAccountDetail();
    m_accountKey = bsonString(obj, "ak", d.m_accountKey);
    m_available = bsonDouble(obj, "av", d.m_available);
    m_totalAsset = bsonDouble(obj, "ta", d.m_totalAsset);
    m_marketValue = bsonDouble(obj, "mv", d.m_marketValue);
}

} // namespace ttservice
