#pragma once

#include "CCodeOrderParam.h"
#include "COrderSetting.h"
#include "CPriceData.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <QString>

#include <string>

// Free functions of the user configuration service over operations and order lines.
namespace TC {

// Whether the operation takes the buy side of the market: buys, margin buys, buys to return
// stock, opening long, closing short, one-key buys (ttservice::isBuyOperation).
bool isBuy(ttservice::EOperationType operation);

// Whether the operation closes a futures position: 6 to 9, 14 and 15.
bool isClose(ttservice::EOperationType operation);

// The side of an operation as a plain buy (18) or sell (19); -1 stays -1.
ttservice::EOperationType getBuyOrSellType(ttservice::EOperationType operation);

// The operation of the other direction, used when the user flips a line:
// 18 <-> 19, 20 <-> 24, 21 <-> 22, 1010 <-> 1011, 0 <-> 3, 14 <-> 15, 6 <-> 8, 7 <-> 9,
// 10 <-> 12, 11 <-> 13. Any other value comes back as it is.
ttservice::EOperationType swapOperationType(ttservice::EOperationType operation);

// The name of an operation as the tables and buttons show it:
//   0 "开多", 3 "开空", 6 and 7 "平多", 8 and 9 "平空", 10 and 11 "卖出", 12 and 13 "买入",
//   14 "平多", 15 "平空", 18 "买入", 19 "卖出", 20 "融资买入", 21 "融券卖出", 22 "买券还券",
//   24 "卖券还款", 25 "资金", 1010 "专项融券卖出", 1011 "专项买券还券", 1024 "资金划转";
//   -1 gives an empty text, any other number its decimal text.
QString operationToString(int operation);

// Whether a sub-instruction with this status may still be ordered: only SUB_COMMAND_ORDER.
bool isSubCmdOrder(ttservice::ESubCommandStatus status);

// Sets the price bounds m_priceLimitLow and m_priceLimitHigh of line from the setting's price
// step around calcPrice, the price the line was sized at. The rule of this library:
//   - band: the setting's m_stepValue when m_stepIsAbsolute, else m_stepRate x calcPrice;
//     a band without a value, or not above 0, is no band;
//   - a buy (isBuy(operation)) may go up: high = calcPrice + band, low = the day's fall limit;
//     a sell may go down: low = calcPrice - band, high = the day's rise limit;
//     without a band the open bound is the day's limit on that side;
//   - bounds never pass the day's limits of quote; a limit the quote lacks leaves NO_VALUE;
//   - without calcPrice (NO_VALUE) or without quote both bounds become NO_VALUE.
void fixPriceRange(const ttservice::COrderSetting &setting, ttservice::CCodeOrderParam &line, double calcPrice,
                   ttservice::EOperationType operation, boost::shared_ptr<CPriceData> quote);

// Whether two lines are of one instrument (on any accounts). The lines of a list come grouped
// by instrument, so passes over it compare with the line before instead of building a key.
inline bool sameInstrument(const ttservice::CCodeOrderParam &a, const ttservice::CCodeOrderParam &b)
{
    return a.m_stockInfo.m_stockCode == b.m_stockInfo.m_stockCode && a.m_stockInfo.m_market == b.m_stockInfo.m_market;
}

} // namespace TC

namespace ttservice {

// The short direction word of an operation for the futures position lists: 18 "买" and 19 "卖";
// any other operation as TC::operationToString names it. UTF-8.
std::string operationValueToString(int operation);

} // namespace ttservice
