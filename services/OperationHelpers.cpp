#include "OperationHelpers.h"

#include "DoubleCompare.h"
#include "OperationSide.h"

#include <algorithm>
#include <utility>

namespace TC {

using namespace ttservice;

bool isBuy(EOperationType operation)
{
    return isBuyOperation(operation);
}

bool isClose(EOperationType operation)
{
    switch (operation) {
    case OT_CLOSE_LONG_TODAY:
    case OT_CLOSE_LONG_YESTERDAY:
    case OT_CLOSE_SHORT_TODAY:
    case OT_CLOSE_SHORT_YESTERDAY:
    case OT_CLOSE_LONG:
    case OT_CLOSE_SHORT:
        return true;
    default:
        return false;
    }
}

EOperationType getBuyOrSellType(EOperationType operation)
{
    if (operation == OT_NONE)
        return OT_NONE;
    return isBuy(operation) ? OT_BUY : OT_SELL;
}

EOperationType swapOperationType(EOperationType operation)
{
    static const std::pair<EOperationType, EOperationType> kPairs[] = {
        {OT_BUY, OT_SELL},
        {OT_MARGIN_BUY, OT_SELL_TO_REPAY},
        {OT_SHORT_SELL, OT_BUY_TO_RETURN},
        {OT_SPECIAL_SHORT_SELL, OT_SPECIAL_BUY_TO_RETURN},
        {OT_OPEN_LONG, OT_OPEN_SHORT},
        {OT_CLOSE_LONG, OT_CLOSE_SHORT},
        {OT_CLOSE_LONG_TODAY, OT_CLOSE_SHORT_TODAY},
        {OT_CLOSE_LONG_YESTERDAY, OT_CLOSE_SHORT_YESTERDAY},
        {OT_ONEKEY_SELL_TODAY, OT_ONEKEY_BUY_TODAY},
        {OT_ONEKEY_SELL_YESTERDAY, OT_ONEKEY_BUY_YESTERDAY},
    };
    for (const auto &pair : kPairs) {
        if (operation == pair.first)
            return pair.second;
        if (operation == pair.second)
            return pair.first;
    }
    return operation;
}

QString operationToString(int operation)
{
    switch (operation) {
    case OT_NONE:
        return QString();
    case OT_OPEN_LONG:
        return QStringLiteral("开多");
    case OT_OPEN_SHORT:
        return QStringLiteral("开空");
    case OT_CLOSE_LONG_TODAY:
    case OT_CLOSE_LONG_YESTERDAY:
    case OT_CLOSE_LONG:
        return QStringLiteral("平多");
    case OT_CLOSE_SHORT_TODAY:
    case OT_CLOSE_SHORT_YESTERDAY:
    case OT_CLOSE_SHORT:
        return QStringLiteral("平空");
    case OT_ONEKEY_SELL_TODAY:
    case OT_ONEKEY_SELL_YESTERDAY:
    case OT_SELL:
        return QStringLiteral("卖出");
    case OT_ONEKEY_BUY_TODAY:
    case OT_ONEKEY_BUY_YESTERDAY:
    case OT_BUY:
        return QStringLiteral("买入");
    case OT_MARGIN_BUY:
        return QStringLiteral("融资买入");
    case OT_SHORT_SELL:
        return QStringLiteral("融券卖出");
    case OT_BUY_TO_RETURN:
        return QStringLiteral("买券还券");
    case OT_SELL_TO_REPAY:
        return QStringLiteral("卖券还款");
    case OT_MONEY:
        return QStringLiteral("资金");
    case OT_SPECIAL_SHORT_SELL:
        return QStringLiteral("专项融券卖出");
    case OT_SPECIAL_BUY_TO_RETURN:
        return QStringLiteral("专项买券还券");
    case OT_MONEY_TRANSFER:
        return QStringLiteral("资金划转");
    default:
        return QString::number(operation);
    }
}

bool isSubCmdOrder(ESubCommandStatus status)
{
    return status == SUB_COMMAND_ORDER;
}

void fixPriceRange(const COrderSetting &setting, CCodeOrderParam &line, double calcPrice,
                   EOperationType operation, boost::shared_ptr<CPriceData> quote)
{
    line.m_priceLimitLow = NO_VALUE;
    line.m_priceLimitHigh = NO_VALUE;
    if (!quote || isNoValue(calcPrice))
        return;

    const double band = setting.m_stepIsAbsolute ? setting.m_stepValue
                                           : (hasValue(setting.m_stepRate) ? setting.m_stepRate * calcPrice : NO_VALUE);
    const bool hasBand = hasValue(band) && isGreater(band, 0.0);
    const double riseLimit = quote->m_upStopPrice;
    const double fallLimit = quote->m_downStopPrice;

    if (isBuy(operation)) {
        line.m_priceLimitLow = fallLimit;
        double high = hasBand ? calcPrice + band : riseLimit;
        if (hasValue(high) && hasValue(riseLimit))
            high = std::min(high, riseLimit);
        line.m_priceLimitHigh = high;
    } else {
        line.m_priceLimitHigh = riseLimit;
        double low = hasBand ? calcPrice - band : fallLimit;
        if (hasValue(low) && hasValue(fallLimit))
            low = std::max(low, fallLimit);
        line.m_priceLimitLow = low;
    }
}

} // namespace TC

namespace ttservice {

std::string operationValueToString(int operation)
{
    if (operation == OT_BUY)
        return "买";
    if (operation == OT_SELL)
        return "卖";
    return TC::operationToString(operation).toStdString();
}

} // namespace ttservice
