#pragma once

#include "BasketServicesExport.h"
#include "StockTypeCache.h"

#include <boost/shared_ptr.hpp>

#include <QString>

#include <string>

namespace ttservice {

// The client's cache of instrument kinds (ETF, fund, B share ...), by market and code.
// Thread-safe.
class BASKET_SERVICES_EXPORT StockTypeCacheCenter final
{
public:
    // The kinds of the instrument; never null: an unknown instrument answers false to every test.
    static boost::shared_ptr<StockTypeCache> getTypeStockCache(const std::string &market, const std::string &code);
    static boost::shared_ptr<StockTypeCache> getTypeStockCache(const QString &market, const QString &code);
    // For literals on both sides, which would fit both of the others.
    static boost::shared_ptr<StockTypeCache> getTypeStockCache(const char *market, const char *code)
    {
        return getTypeStockCache(std::string(market), std::string(code));
    }

    // --- control surface (tests and the demo host) ---
    static void setTypeStockCache(const std::string &market, const std::string &code, const StockTypeCache &kinds);
    // Every instrument of no special kind.
    static void reset();
};

} // namespace ttservice
