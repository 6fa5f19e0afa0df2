#pragma once

#include "BasketServicesExport.h"
#include "TradeEnums.h"

#include <string>

namespace ttservice {

// Order types, their algorithm parameter names and the platforms they run on, as this library
// numbers them:
//
//   order type | parameter name | algorithm | platform
//   4          | "TWAP"         | yes       | 1
//   5          | "VWAP"         | yes       | 1
//   8          | "POV"          | yes       | 1
//   9          | "ICEBERG"      | yes       | 1
//   10         | "SNIPER"       | yes       | 1
//   11         | "STEPPER"      | yes       | 1
//   12         | "T0"           | no        | 2
//   13         | "VQALGO"       | yes       | 3
//   14         | "VWAPPLUS"     | yes       | 3
//   any other  | ""             | no        | 0
class BASKET_SERVICES_EXPORT DataHelper final
{
public:
    // The platform the order type runs on (table above); 0 for a plain order.
    static ETradePlatform getPlatformTypeByOrderType(EOrderType orderType);
    // ORDER_TYPE_NONE (-1) for a name that is no order type's.
    static EOrderType getOrderTypeByParamString(std::string name);
    // The algorithm parameter name of the order type (table above); empty for a plain order.
    static std::string getParamStringByOrderType(EOrderType orderType);
    // Whether orders of this type are run by an algorithm (table above).
    static bool isAlgoOrderType(EOrderType orderType);
    // Whether the operation takes the buy side of the market (ttservice::isBuyOperation).
    static bool isBuy(EOperationType operation);
};

} // namespace ttservice
