#pragma once

#include "BasketServicesExport.h"
#include "TradeEnums.h"

#include <map>
#include <string>
#include <tuple>

namespace ttservice {

// The client's names of enumeration values, for display. Built in:
//   "ttservice::EEntrustBS":        48 "买入", 49 "卖出"
//   "ttservice::EHedge_Flag_Type":  49 "投机", 50 "套利", 51 "套保"
//   "ttservice::EVQBrokerType":     1 "期货", 2 "股票", 3 "信用", 7 "沪港通", 11 "深港通"
//   "ttservice::EOperationType":    the names of TC::operationToString
// The trader type picks a variant of the table where the client has one; this library has one
// table for all. A value without a name gives its decimal text. Texts are UTF-8.
// User-interface thread only.
class BASKET_SERVICES_EXPORT TypeManager final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static TypeManager *instance();

    std::string getEnumItemName(std::string enumName, int value, EVqTraderType traderType) const;

    // --- control surface (tests and the demo host) ---
    void setEnumItemName(const std::string &enumName, int value, const std::string &text);
    // The built-in names only.
    void reset();

private:
    TypeManager();

    std::map<std::tuple<std::string, int>, std::string> m_names;
};

} // namespace ttservice
