#pragma once

// Shared pieces of the confirmation table's tests: a form that records events, accounts,
// instruments, quotes and order lines of SH stocks.
#include "CExchangeClient.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"

#include "CCodeOrderParam.h"

#include "SampleMarket.h"
#include "../platform/EventRecorder.h"

#include <string>
#include <vector>

namespace confirmtest {

using TC::CPriceData;
using TC::CQuoteClient;
using TC::CExchangeClient;
using TC::getUserConfig;
using ttservice::CCodeOrderParam;
using ttservice::EOperationType;
using ttservice::EVQBrokerType;

// The form above the table, and the owner of other widgets under test.
using FormStub = EventRecorder;
using Recorder = EventRecorder;

struct Held
{
    std::string code;
    double canUse;
};

// An account with money and positions in SH.
inline void addAccount(const std::string &key, EVQBrokerType type, double money, const std::vector<Held> &held = {})
{
    std::vector<ttservice::CPositionStatics> positions;
    for (const Held &h : held)
        positions.push_back(sample::held("SH", h.code, h.canUse, h.canUse));
    sample::addAccount(key, type, money, positions);
}

inline void addInstrument(const std::string &market, const std::string &code, int multiple = 1)
{
    sample::addInstrument(market, code, multiple, code + "name");
}

// A quote of a stock trading well within its limits unless told otherwise.
inline CPriceData quote(const std::string &market, const std::string &code, double last, double lastClose = 10.0,
                        double up = 100.0, double down = 1.0)
{
    return sample::quote(market, code, last, lastClose, up, down);
}

inline CCodeOrderParam line(const std::string &accountKey, const std::string &code, int operation, int64_t volume,
                     EVQBrokerType type = ttservice::BROKER_TYPE_STOCK, const std::string &market = "SH")
{
    CCodeOrderParam param;
    param.m_account.reset(new ttservice::CAccountInfo);
    param.m_account->m_accountKey = accountKey;
    param.m_account->m_accountId = accountKey;
    param.m_account->m_brokerType = type;
    param.m_operationType = static_cast<EOperationType>(operation);
    param.m_stockInfo = ttservice::CStockInfo(market, code, code + "name");
    param.m_volume = volume;
    return param;
}

// A quoted stock of SH with an instrument record.
inline void addStock(const std::string &code, double last, double lastClose = 10.0)
{
    addInstrument("SH", code);
    CQuoteClient::instance()->setStockPrice(quote("SH", code, last, lastClose));
}

} // namespace confirmtest
