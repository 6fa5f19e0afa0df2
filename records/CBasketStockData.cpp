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
    return m_accountDisplayId == o.m_accountDisplayId && m_market == o.m_market && m_stockCode == o.m_stockCode
        && m_stockName == o.m_stockName && ttservice::isEqual(m_weight, o.m_weight) && m_volume == o.m_volume
        && m_operationType == o.m_operationType && m_filtered == o.m_filtered && m_touchType == o.m_touchType
        && m_touchPrice == o.m_touchPrice && m_price == o.m_price && m_useFixedPrice == o.m_useFixedPrice
        && m_accountKey == o.m_accountKey && m_entrustBs == o.m_entrustBs && m_hedgeFlag == o.m_hedgeFlag;
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
