#include "CPositionStatics.h"

#include "StockKey.h"

namespace ttservice {

std::string CPositionStatics::getKey() const
{
    return utils::vqStockKey(m_market, m_stockCode);
}

void CPositionStatics::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("mk", m_market);
    builder.append("cd", m_stockCode);
    builder.append("nm", m_stockName);
    builder.append("vo", m_volume);
    builder.append("cu", m_canUseVolume);
    bsonAppendDouble(builder, "co", m_cost);
    builder.append("di", m_direction);
    builder.append("av", static_cast<long long>(m_availableVolume));
    bsonAppendDouble(builder, "lp", m_lastPrice);
    bsonAppendDouble(builder, "mv", m_marketValue);
}

void CPositionStatics::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CPositionStatics *b = partial ? dynamic_cast<const CPositionStatics *>(base) : nullptr;
    const CPositionStatics d = b ? *b : CPositionStatics();
    m_market = bsonString(obj, "mk", d.m_market);
    m_stockCode = bsonString(obj, "cd", d.m_stockCode);
    m_stockName = bsonString(obj, "nm", d.m_stockName);
    m_volume = bsonDouble(obj, "vo", d.m_volume);
    m_canUseVolume = bsonDouble(obj, "cu", d.m_canUseVolume);
    m_cost = bsonDouble(obj, "co", d.m_cost);
    m_direction = bsonInt(obj, "di", d.m_direction);
    m_availableVolume = bsonInt64(obj, "av", d.m_availableVolume);
    m_lastPrice = bsonDouble(obj, "lp", d.m_lastPrice);
    m_marketValue = bsonDouble(obj, "mv", d.m_marketValue);
}

} // namespace ttservice
