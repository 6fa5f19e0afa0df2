#include "CProductInfo.h"

namespace ttservice {

void CProductInfo::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("id", m_productId);
    builder.append("nm", m_productName);
}

void CProductInfo::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CProductInfo *b = partial ? dynamic_cast<const CProductInfo *>(base) : nullptr;
    const CProductInfo d = b ? *b : CProductInfo();
    m_productId = bsonInt(obj, "id", d.m_productId);
    m_productName = bsonString(obj, "nm", d.m_productName);
}

} // namespace ttservice
