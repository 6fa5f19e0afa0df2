#include "PriceLimits.h"

#include "CExchangeClient.h"
#include "TextHelpers.h"

#include "DoubleCompare.h"

#include <cmath>

namespace TC {
namespace {

double tickOf(const QString &market, const QString &code)
{
    return CExchangeClient::instance()->getCodePriceTick(WK::vqStockKey(market, code));
}

} // namespace

bool isUpperLimitStock(QString market, QString code, double last, double limit)
{
    // No tolerance on the first test: a tick is the smallest step the price can take.
    return tickOf(market, code) > std::fabs(last - limit) || last - limit > ttservice::DOUBLE_EPSILON;
}

bool isLowerLimitStock(QString market, QString code, double last, double limit)
{
    return tickOf(market, code) > std::fabs(last - limit) || last - limit < -ttservice::DOUBLE_EPSILON;
}

} // namespace TC
