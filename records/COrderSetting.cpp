#include "COrderSetting.h"

namespace ttservice {

void COrderSetting::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("sa", m_stepIsAbsolute);
    builder.append("sv", m_stepValue);
    builder.append("sr", m_stepRate);
    builder.append("kv", m_keepValidTime);
    builder.append("vs", m_validSeconds);
    builder.append("sf", m_stepFlag);
    builder.append("st", static_cast<long long>(m_startTime));
    builder.append("et", static_cast<long long>(m_endTime));
    builder.append("pt", m_priceType);
    builder.append("ot", m_orderType);
    builder.append("fp", m_fixedPrice);
}

void COrderSetting::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const COrderSetting *b = partial ? dynamic_cast<const COrderSetting *>(base) : nullptr;
    const COrderSetting d = b ? *b : COrderSetting();
    m_stepIsAbsolute = bsonBool(obj, "sa", d.m_stepIsAbsolute);
    m_stepValue = bsonDouble(obj, "sv", d.m_stepValue);
    m_stepRate = bsonDouble(obj, "sr", d.m_stepRate);
    m_keepValidTime = bsonBool(obj, "kv", d.m_keepValidTime);
    m_validSeconds = bsonInt(obj, "vs", d.m_validSeconds);
    m_stepFlag = bsonInt(obj, "sf", d.m_stepFlag);
    m_startTime = static_cast<time_t>(bsonInt64(obj, "st", d.m_startTime));
    m_endTime = static_cast<time_t>(bsonInt64(obj, "et", d.m_endTime));
    m_priceType = bsonInt(obj, "pt", d.m_priceType);
    m_orderType = bsonInt(obj, "ot", d.m_orderType);
    m_fixedPrice = bsonDouble(obj, "fp", d.m_fixedPrice);
}

} // namespace ttservice
