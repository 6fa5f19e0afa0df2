#include "TradeUnits.h"

#include "CExchangeClient.h"
#include "StockKey.h"

#include <algorithm>

namespace ttservice {

bool isFutureMarket(const std::string &market)
{
    static const char *const kMarkets[] = {"DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "IF", "CFFEX", "INE"};
    return std::find(std::begin(kMarkets), std::end(kMarkets), market) != std::end(kMarkets);
}

bool isStockMarket(const std::string &market)
{
    static const char *const kMarkets[] = {"SH", "SSE", "SZ", "SZSE"};
    return std::find(std::begin(kMarkets), std::end(kMarkets), market) != std::end(kMarkets);
}

int getTradeMinUnit(std::string market, std::string code)
{
    const int unit = TC::CExchangeClient::instance()->getCodeTradeUnit(utils::vqStockKey(market, code));
    if (unit != -1)
        return unit;
    return isFutureMarket(market) ? 1 : 100;
}

int getUiMinUnit(std::string market, std::string code, bool isBuy)
{
    if (!isBuy)
        return 1;
    return std::max(1, getTradeMinUnit(std::move(market), std::move(code)));
}

int getStockTradeUnit(std::string market, std::string code)
{
    return std::max(1, getTradeMinUnit(std::move(market), std::move(code)));
}

} // namespace ttservice
