#pragma once

#include "TradeEnums.h"

namespace ttservice {

// Whether an operation takes the buy side of the market: buys, margin buys, buys to return
// stock, opening long and closing short (all their today/yesterday variants), one-key buys.
bool isBuyOperation(EOperationType op);

} // namespace ttservice
