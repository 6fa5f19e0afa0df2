#include "CStockInfo.h"

#include "StockKey.h"

#include <utility>

namespace ttservice {

CStockInfo::CStockInfo(std::string market, std::string code, std::string name)
    : m_market(std::move(market)), m_stockCode(std::move(code)), m_stockName(std::move(name))
{
}

std::string CStockInfo::getKey() const
{
    return utils::vqStockKey(m_market, m_stockCode);
}

void CStockInfo::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("mk", m_market);
    builder.append("ei", m_exchangeId);
    builder.append("cd", m_stockCode);
    builder.append("nm", m_stockName);
}

void CStockInfo::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CStockInfo *b = partial ? dynamic_cast<const CStockInfo *>(base) : nullptr;
    const CStockInfo d = b ? *b : CStockInfo();
    m_market = bsonString(obj, "mk", d.m_market);
    m_exchangeId = bsonString(obj, "ei", d.m_exchangeId);
    m_stockCode = bsonString(obj, "cd", d.m_stockCode);
    m_stockName = bsonString(obj, "nm", d.m_stockName);
}

} // namespace ttservice
