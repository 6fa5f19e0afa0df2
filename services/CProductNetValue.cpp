#include "CProductNetValue.h"

namespace ttservice {

std::string CProductNetValue::genKey(int productId)
{
    return "product_" + std::to_string(productId);
}

void CProductNetValue::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("id", m_productId);
    bsonAppendDouble(builder, "nv", m_netValue);
}

void CProductNetValue::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CProductNetValue *b = partial ? dynamic_cast<const CProductNetValue *>(base) : nullptr;
    const CProductNetValue d = b ? *b : CProductNetValue();
    m_productId = bsonInt(obj, "id", d.m_productId);
    m_netValue = bsonDouble(obj, "nv", d.m_netValue);
}

} // namespace ttservice
