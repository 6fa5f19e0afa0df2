#include "StockTypeCacheCenter.h"

#include <map>
#include <mutex>
#include <utility>

namespace ttservice {
namespace {

struct CacheTable
{
    std::mutex mutex;
    std::map<std::pair<std::string, std::string>, StockTypeCache> entries;
};

CacheTable &table()
{
    static CacheTable t;
    return t;
}

} // namespace

boost::shared_ptr<StockTypeCache> StockTypeCacheCenter::getTypeStockCache(const std::string &market,
                                                                          const std::string &code)
{
    CacheTable &t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    const auto it = t.entries.find(std::make_pair(market, code));
    // Each caller gets its own copy, so that no reader sees a later change half made.
    return boost::shared_ptr<StockTypeCache>(new StockTypeCache(it == t.entries.end() ? StockTypeCache() : it->second));
}

boost::shared_ptr<StockTypeCache> StockTypeCacheCenter::getTypeStockCache(const QString &market, const QString &code)
{
    return getTypeStockCache(market.toStdString(), code.toStdString());
}

void StockTypeCacheCenter::setTypeStockCache(const std::string &market, const std::string &code,
                                             const StockTypeCache &kinds)
{
    CacheTable &t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.entries[std::make_pair(market, code)] = kinds;
}

void StockTypeCacheCenter::reset()
{
    CacheTable &t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.entries.clear();
}

} // namespace ttservice
