#include "CBasketStockData.h"

#include "StockKey.h"

namespace TC {

QString CBasketStockData::key() const
{
    return QString::fromStdString(utils::vqStockKey(m_market.toStdString(), m_stockCode.toStdString()));
}

QString CBasketStockData::toString() const
{
    const QString direction = m_operationType == ttservice::OT_SELL ? QStringLiteral("卖出") : QStringLiteral("买入");
    return m_stockCode + QLatin1Char('\t') + m_stockName + QLatin1Char('\t') + QString::number(m_volume)
        + QLatin1Char('\t') + QString::number(m_weight, 'g', 10) + QLatin1Char('\t') + direction;
}

bool CBasketStockData::operator==(const CBasketStockData &o) const
{
    return m_market == o.m_market && m_stockCode == o.m_stockCode && m_accountKey == o.m_accountKey;
}

int CBasketStockCompareTraits::compare(const CBasketStockData &a, const CBasketStockData &b)
{
    if (int c = QString::compare(a.m_market, b.m_market))
        return c;
    if (int c = QString::compare(a.m_stockCode, b.m_stockCode))
        return c;
    return a.m_accountKey.compare(b.m_accountKey);
}

} // namespace TC
