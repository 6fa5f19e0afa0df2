#include "CPriceData.h"

#include "OperationSide.h"

namespace TC {
namespace {

bool usable(double price)
{
    return ttservice::hasValue(price) && !ttservice::isZero(price);
}

double withTicks(double price, ttservice::EOperationType op, const boost::shared_ptr<ttservice::CAutoPriceParam> &autoPrice)
{
    if (!autoPrice || !usable(price))
        return price;
    const double offset = 0.01 * autoPrice->m_tickOffset;
    return ttservice::isBuyOperation(op) ? price + offset : price - offset;
}

} // namespace

double CPriceData::referencePrice() const
{
    if (usable(m_lastPrice))
        return m_lastPrice;
    if (usable(m_lastClose))
        return m_lastClose;
    return ttservice::NO_VALUE;
}

double CPriceData::getPriceForOrder(ttservice::EPriceType priceType, ttservice::EOperationType op,
                                    ttservice::EOrderType, int,
                                    boost::shared_ptr<ttservice::CAutoPriceParam> autoPrice) const
{
    double price = ttservice::NO_VALUE;
    switch (priceType) {
    case ttservice::PRICE_TYPE_LAST:
        price = m_lastPrice;
        break;
    case ttservice::PRICE_TYPE_BID1:
        price = m_bidPrice1;
        break;
    case ttservice::PRICE_TYPE_ASK1:
        price = m_askPrice1;
        break;
    case ttservice::PRICE_TYPE_UP_LIMIT:
        price = m_upStopPrice;
        break;
    case ttservice::PRICE_TYPE_DOWN_LIMIT:
        price = m_downStopPrice;
        break;
    default:
        price = ttservice::isBuyOperation(op) ? m_askPrice1 : m_bidPrice1;
        break;
    }
    if (!usable(price))
        price = referencePrice();
    return withTicks(price, op, autoPrice);
}

double CPriceData::getPriceForCalc(ttservice::EPriceType priceType, ttservice::EOperationType op,
                                   ttservice::EOrderType orderType, int reserved,
                                   boost::shared_ptr<ttservice::CAutoPriceParam> autoPrice) const
{
    if (usable(m_lastPrice))
        return withTicks(m_lastPrice, op, autoPrice);
    return getPriceForOrder(priceType, op, orderType, reserved, autoPrice);
}

} // namespace TC
