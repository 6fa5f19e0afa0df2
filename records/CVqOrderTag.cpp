#include "CVqOrderTag.h"

namespace ttservice {

void CVqOrderTag::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("tn", m_orderTagName);
    builder.append("tk", m_orderTagKey);
    builder.append("ts", m_orderTagSeq);
}

void CVqOrderTag::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CVqOrderTag *b = partial ? dynamic_cast<const CVqOrderTag *>(base) : nullptr;
    const CVqOrderTag d = b ? *b : CVqOrderTag();
    m_orderTagName = bsonString(obj, "tn", d.m_orderTagName);
    m_orderTagKey = bsonString(obj, "tk", d.m_orderTagKey);
    m_orderTagSeq = bsonInt(obj, "ts", d.m_orderTagSeq);
}

} // namespace ttservice
