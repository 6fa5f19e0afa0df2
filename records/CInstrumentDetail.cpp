#include "CInstrumentDetail.h"

#include "StockKey.h"

namespace ttservice {

std::string CInstrumentDetail::getKey() const
{
    return utils::vqStockKey(m_market, m_stockCode);
}

void CInstrumentDetail::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("mk", m_market);
    builder.append("cd", m_stockCode);
    builder.append("nm", m_stockName);
    builder.append("pt", m_priceTick);
    builder.append("vm", m_volumeMultiple);
    builder.append("tu", m_tradeUnit);
}

void CInstrumentDetail::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CInstrumentDetail *b = partial ? dynamic_cast<const CInstrumentDetail *>(base) : nullptr;
    const CInstrumentDetail d = b ? *b : CInstrumentDetail();
    m_market = bsonString(obj, "mk", d.m_market);
    m_stockCode = bsonString(obj, "cd", d.m_stockCode);
    m_stockName = bsonString(obj, "nm", d.m_stockName);
    m_priceTick = bsonDouble(obj, "pt", d.m_priceTick);
    m_volumeMultiple = bsonInt(obj, "vm", d.m_volumeMultiple);
    m_tradeUnit = bsonInt(obj, "tu", d.m_tradeUnit);
}

} // namespace ttservice
