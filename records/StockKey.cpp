#include "StockKey.h"

namespace utils {

std::string vqStockKey(const std::string &market, const std::string &code)
{
    return code + '.' + market;
}

bool splitStockKey(const std::string &key, std::string &market, std::string &code)
{
    const std::string::size_type dot = key.rfind('.');
    if (dot == std::string::npos)
        return false;
    code = key.substr(0, dot);
    market = key.substr(dot + 1);
    return true;
}

} // namespace utils
