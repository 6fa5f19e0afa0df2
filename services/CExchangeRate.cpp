#include "CExchangeRate.h"

namespace ttservice {

void CExchangeRate::appendElements(bson::BSONObjBuilder &builder) const
{
    bsonAppendDouble(builder, "br", m_buyRate);
    bsonAppendDouble(builder, "sr", m_sellRate);
    bsonAppendDouble(builder, "bf", m_buyFloat);
    bsonAppendDouble(builder, "sf", m_sellFloat);
}

void CExchangeRate::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CExchangeRate *b = partial ? dynamic_cast<const CExchangeRate *>(base) : nullptr;
    const CExchangeRate d = b ? *b : CExchangeRate();
    m_buyRate = bsonDouble(obj, "br", d.m_buyRate);
    m_sellRate = bsonDouble(obj, "sr", d.m_sellRate);
    m_buyFloat = bsonDouble(obj, "bf", d.m_buyFloat);
    m_sellFloat = bsonDouble(obj, "sf", d.m_sellFloat);
}

} // namespace ttservice
