#include "CBasketHedgeParam.h"

namespace ttservice {

void CBasketHedgeParam::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("en", m_enabled);
    builder.append("ht", m_hedgeType);
    builder.append("cc", m_contractCode);
    builder.append("cm", m_contractMarket);
    builder.append("hr", m_hedgeRatio);
    builder.append("cv", m_contractVolume);
}

void CBasketHedgeParam::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CBasketHedgeParam *b = partial ? dynamic_cast<const CBasketHedgeParam *>(base) : nullptr;
    const CBasketHedgeParam d = b ? *b : CBasketHedgeParam();
    m_enabled = bsonBool(obj, "en", d.m_enabled);
    m_hedgeType = bsonInt(obj, "ht", d.m_hedgeType);
    m_contractCode = bsonString(obj, "cc", d.m_contractCode);
    m_contractMarket = bsonString(obj, "cm", d.m_contractMarket);
    m_hedgeRatio = bsonDouble(obj, "hr", d.m_hedgeRatio);
    m_contractVolume = bsonInt(obj, "cv", d.m_contractVolume);
}

} // namespace ttservice
