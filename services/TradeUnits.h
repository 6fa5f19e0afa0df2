#pragma once

#include <string>

namespace ttservice {

// Whether market is a futures exchange. Each exchange is known by two names: "DF" and "DCE",
// "ZF" and "CZCE", "SF" and "SHFE", "IF" and "CFFEX"; "INE" by one.
bool isFutureMarket(const std::string &market);

// Whether market is one of the two stock exchanges, by either name: "SH" and "SSE", "SZ" and
// "SZSE". Other markets (the connect markets, futures) are neither stock market here.
bool isStockMarket(const std::string &market);

// The smallest lot in which the instrument is traded: the trade unit of the instrument service's
// record when it knows the instrument (CExchangeClient::getCodeInfo), else 1 on a futures
// exchange and 100 on every other market. May be 0 if the record says so; callers that divide
// test for it.
int getTradeMinUnit(std::string market, std::string code);

// The lot in which the user edits a volume in a table: getTradeMinUnit for a buy (never below
// 1), and 1 for a sell, since a held odd lot may be sold whole.
int getUiMinUnit(std::string market, std::string code, bool isBuy);

// The trade unit used when weights are turned into volumes: getTradeMinUnit, never below 1.
int getStockTradeUnit(std::string market, std::string code);

} // namespace ttservice
