#include "CMemoryCalculator.h"

#include "CQuoteClient.h"
#include "OperationHelpers.h"
#include "StockKey.h"
#include "TradeUnits.h"

#include <algorithm>
#include <cmath>

namespace ttservice {
namespace {

long long moneyVolume(double money, double price, int unit)
{
    if (money <= 0.0 || isNoValue(money))
        return 0;
    const double lots = std::floor(money / price / unit + DOUBLE_EPSILON);
    // Money beyond what a 64-bit volume can hold is no real amount; keep the result finite.
    if (lots * unit >= 9.0e18)
        return ICalculator::NO_VOLUME - 1;
    return static_cast<long long>(lots) * unit;
}

double quotePrice(const std::string &market, const std::string &code)
{
    const boost::shared_ptr<TC::CPriceData> quote =
        TC::CQuoteClient::instance()->getStockPrice(QString::fromStdString(utils::vqStockKey(market, code)));
    return quote ? quote->referencePrice() : NO_VALUE;
}

} // namespace

long long CMemoryCalculator::calcBuyVolume(boost::shared_ptr<CAccountData>, double money, const std::string &market,
                                           const std::string &code, double price, std::string &error,
                                           long long volume)
{
    if (isNoValue(price) || price <= DOUBLE_EPSILON) {
        error = "no price to size the order by";
        return NO_VOLUME;
    }
    const int unit = std::max(1, getTradeMinUnit(market, code));
    long long result = moneyVolume(money, price, unit);
    if (volume > 0)
        result = std::min(result, volume);
    return result;
}

namespace {

// The side of a futures position that an operation closes: 48 long, 49 short; 0 for others.
int closedDirection(EOperationType operation)
{
    if (operation == OT_CLOSE_LONG || operation == OT_CLOSE_LONG_TODAY || operation == OT_CLOSE_LONG_YESTERDAY)
        return 48;
    if (operation == OT_CLOSE_SHORT || operation == OT_CLOSE_SHORT_TODAY || operation == OT_CLOSE_SHORT_YESTERDAY)
        return 49;
    return 0;
}

// The position an operation sells or closes: of a futures close, the side it closes (a contract
// may be held long and short at once); else the instrument's position.
boost::shared_ptr<CPositionStatics> heldPosition(const CAccountData &account, const std::string &market,
                                                 const std::string &code, int direction)
{
    if (direction == 0)
        return account.getPositionStatic(market, code);
    for (const boost::shared_ptr<CPositionStatics> &position : account.getPositionStatics()) {
        if (position && position->m_market == market && position->m_stockCode == code && position->m_direction == direction)
            return position;
    }
    return boost::shared_ptr<CPositionStatics>();
}

} // namespace

long long CMemoryCalculator::calcAvailableVolume(boost::shared_ptr<CAccountData> account, const std::string &market,
                                                 const std::string &code, EOperationType operation,
                                                 EHedge_Flag_Type, char &, char &, double price, long long limit,
                                                 int)
{
    if (!account)
        return 0;
    long long result = 0;
    // A close (a short's close too, though it buys) is limited by the side it closes; opening a
    // short takes margin, not a holding, and is limited by money as a buy is.
    const int direction = closedDirection(operation);
    if (direction == 0 && (TC::isBuy(operation) || operation == OT_OPEN_SHORT)) {
        const boost::shared_ptr<CAccountDetail> detail = account->getAccountDetail();
        if (isNoValue(price) || price <= DOUBLE_EPSILON)
            price = quotePrice(market, code);
        if (detail && hasValue(price) && price > DOUBLE_EPSILON)
            result = moneyVolume(detail->m_available, price, std::max(1, getTradeMinUnit(market, code)));
    } else if (const boost::shared_ptr<CPositionStatics> position = heldPosition(*account, market, code, direction)) {
        result = std::max(0LL, static_cast<long long>(std::floor(position->m_canUseVolume + DOUBLE_EPSILON)));
    }
    return std::min(result, limit);
}

} // namespace ttservice
