#pragma once

#include <string>

namespace utils {

// The key under which quotes, instruments and lists know a stock: "<code>.<market>", for
// example "600000.SH". Code and market are kept as given.
std::string vqStockKey(const std::string &market, const std::string &code);

// The inverse: market and code of a key; false for a text without a market part.
bool splitStockKey(const std::string &key, std::string &market, std::string &code);

} // namespace utils
