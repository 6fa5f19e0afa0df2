#pragma once

#include "CBasketStockData.h"
#include "PanelEnums.h"

#include <QFlags>
#include <QString>

// Free functions of the user configuration service over baskets and the temporary lists
// ("batches") that a basket picker can hold instead of a stored basket.
namespace TC {

// The display name of a batch flag, as the basket pickers show it:
//   1 BATCH_BUY           "批量买入组合"
//   2 BATCH_SELL          "批量卖出组合"
//   4 BATCH_POSITION_SELL "持仓卖出组合"
//   8 BATCH_CLIPBOARD     "剪贴板组合"
//   16 (buy and sell)     "调仓组合"
//   32 (custom group)     "自定义组合"
// Any other word (0, 64 for the system groups, a combination of flags) has no name and gives
// an empty text.
QString batchFlagName(QFlags<ETempBatchOrderFlag> flags);

// The flag of a batch name: the inverse of batchFlagName; 0 for a name that is no batch.
QFlags<ETempBatchOrderFlag> nameBatchFlag(QString name);

// The order of basket rows: by market, then code, then account key, as
// CBasketStockCompareTraits::compare, so that a search by bisection with compare finds what
// this order sorted.
bool basketStockLessThan(const CBasketStockData &a, const CBasketStockData &b);

} // namespace TC
