#include "StockTypeCenter.h"

#include <mutex>
#include <set>
#include <tuple>

namespace ttservice {
namespace {

struct TypeTable
{
    std::mutex mutex;
    std::set<std::tuple<int, std::string, std::string>> entries;
};

TypeTable &table()
{
    static TypeTable t;
    return t;
}

} // namespace

bool StockTypeCenter::isTypedStock(int typeId, const std::string &market, const std::string &code)
{
    TypeTable &t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.entries.count(std::make_tuple(typeId, market, code)) != 0;
}

bool StockTypeCenter::isTypedStock(int typeId, const QString &market, const QString &code)
{
    return isTypedStock(typeId, market.toStdString(), code.toStdString());
}

void StockTypeCenter::setTypedStock(int typeId, const std::string &market, const std::string &code, bool typed)
{
    TypeTable &t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (typed)
        t.entries.insert(std::make_tuple(typeId, market, code));
    else
        t.entries.erase(std::make_tuple(typeId, market, code));
}

void StockTypeCenter::reset()
{
    TypeTable &t = table();
    std::lock_guard<std::mutex> lock(t.mutex);
    t.entries.clear();
}

} // namespace ttservice
