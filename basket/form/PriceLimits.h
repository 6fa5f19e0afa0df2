#pragma once

#include "BasketExport.h"

#include <QString>

namespace TC {

// Whether a stock trades at its rise (fall) limit: the last price is closer to the limit than
// one price tick, or beyond it. Exactly one tick away is not at the limit.
BASKETPANEL_EXPORT bool isUpperLimitStock(QString market, QString code, double last, double limit);
BASKETPANEL_EXPORT bool isLowerLimitStock(QString market, QString code, double last, double limit);

} // namespace TC
