#include "CQueryDataReq.h"

namespace ttservice {

void CQueryDataReq::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("dt", m_dataType);
    builder.append("ak", getKey());
}

void CQueryDataReq::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CQueryDataReq *b = partial ? dynamic_cast<const CQueryDataReq *>(base) : nullptr;
    m_dataType = bsonInt(obj, "dt", b ? b->m_dataType : 0);
}

} // namespace ttservice
