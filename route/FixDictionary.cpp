#include "FixDictionary.h"

#include <quickfix/DataDictionary.h>
#include <quickfix/DataDictionaryProvider.h>
#include <quickfix/FixFieldNumbers.h>
#include <quickfix/Session.h>
#include <quickfix/SessionSettings.h>

#include <map>

namespace TC {

namespace {

FIX::DataDictionary groupOf(std::initializer_list<int> fields)
{
    FIX::DataDictionary dd;
    for (int field : fields)
        dd.addField(field);
    return dd;
}

} // namespace

void ownDictionary(FIX::SessionSettings &settings)
{
    // A session's settings cannot be replaced in place: the whole set is made again.
    FIX::SessionSettings remade;
    remade.set(settings.get());
    for (const FIX::SessionID &id : settings.getSessions()) {
        FIX::Dictionary dictionary = settings.get(id);
        if (!dictionary.has(FIX::DATA_DICTIONARY) && !dictionary.has(FIX::TRANSPORT_DATA_DICTIONARY))
            dictionary.setBool(FIX::USE_DATA_DICTIONARY, false);
        remade.set(id, dictionary);
    }
    settings = remade;
}

void useBasketDictionary(const FIX::SessionSettings &settings, FIX::Session *session)
{
    if (!session || settings.get(session->getSessionID()).getBool(FIX::USE_DATA_DICTIONARY))
        return;
    auto dd = std::make_shared<FIX::DataDictionary>();
    using namespace FIX::FIELD;
    FIX::DataDictionary params = groupOf({StrategyParameterName, StrategyParameterType, StrategyParameterValue});
    FIX::DataDictionary listOrders = groupOf({ClOrdID, ListSeqNo, Account, Symbol, SecurityExchange, Side,
                                              OrderQty, CashOrderQty, OrdType, Price, TimeInForce, PositionEffect,
                                              CashMargin, TargetStrategy, NoStrategyParameters, TransactTime});
    listOrders.addGroup("E", NoStrategyParameters, StrategyParameterName, params);
    dd->addGroup("E", NoOrders, ClOrdID, listOrders);
    dd->addGroup("D", NoStrategyParameters, StrategyParameterName, params);
    FIX::DataDictionary statusOrders =
        groupOf({ClOrdID, CumQty, OrdStatus, LeavesQty, CxlQty, AvgPx, OrdRejReason, ListStatusText, Text});
    dd->addGroup("N", NoOrders, ClOrdID, statusOrders);
    FIX::DataDictionaryProvider provider;
    provider.addTransportDataDictionary(FIX::BeginString("FIX.4.4"), dd);
    session->setDataDictionaryProvider(provider);
}

std::string exchangeOfMarket(const std::string &market)
{
    static const std::map<std::string, std::string> codes = {
        {"SH", "XSHG"},   {"SZ", "XSHE"},   {"BJ", "BJSE"},   {"HK", "XHKG"},   {"CFFEX", "CFFEX"},
        {"SHFE", "XSGE"}, {"DCE", "XDCE"},  {"CZCE", "XZCE"}, {"INE", "XINE"},  {"GFEX", "GFEX"},
    };
    const auto it = codes.find(market);
    return it == codes.end() ? market : it->second;
}

} // namespace TC
