#include "CPositionDetail.h"

#include "StockKey.h"

namespace ttservice {

std::string CPositionDetail::getKey() const
{
    return utils::vqStockKey(m_market, m_stockCode);
}

void CPositionDetail::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("mk", m_market);
    builder.append("cd", m_stockCode);
    builder.append("nm", m_stockName);
    builder.append("vl", static_cast<long long>(m_volume));
    builder.append("sv", static_cast<long long>(m_sellableVolume));
}

void CPositionDetail::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CPositionDetail *b = partial ? dynamic_cast<const CPositionDetail *>(base) : nullptr;
    const CPositionDetail d = b ? *b : CPositionDetail();
    m_market = bsonString(obj, "mk", d.m_market);
    m_stockCode = bsonString(obj, "cd", d.m_stockCode);
    m_stockName = bsonString(obj, "nm", d.m_stockName);
    m_volume = bsonInt64(obj, "vl", d.m_volume);
    m_sellableVolume = bsonInt64(obj, "sv", d.m_sellableVolume);
}

} // namespace ttservice
