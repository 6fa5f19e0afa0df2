#include "BasketHelpers.h"

namespace TC {
namespace {

struct BatchName
{
    int flag;
    const char *name;
};

// The flags 16 and 32 have no enumerator of their own in the shared record.
const BatchName kBatchNames[] = {
    {BATCH_BUY, "批量买入组合"},     {BATCH_SELL, "批量卖出组合"}, {BATCH_POSITION_SELL, "持仓卖出组合"},
    {BATCH_CLIPBOARD, "剪贴板组合"}, {16, "调仓组合"},             {32, "自定义组合"},
};

} // namespace

QString batchFlagName(QFlags<ETempBatchOrderFlag> flags)
{
    for (const BatchName &entry : kBatchNames) {
        if (static_cast<int>(flags) == entry.flag)
            return QString::fromUtf8(entry.name);
    }
    return QString();
}

QFlags<ETempBatchOrderFlag> nameBatchFlag(QString name)
{
    if (name.isEmpty())
        return QFlags<ETempBatchOrderFlag>();
    for (const BatchName &entry : kBatchNames) {
        if (name == QString::fromUtf8(entry.name))
            return QFlags<ETempBatchOrderFlag>(entry.flag);
    }
    return QFlags<ETempBatchOrderFlag>();
}

bool basketStockLessThan(const CBasketStockData &a, const CBasketStockData &b)
{
    return CBasketStockCompareTraits::compare(a, b) < 0;
}

} // namespace TC
