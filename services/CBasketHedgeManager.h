#pragma once

#include "BasketServicesExport.h"
#include "CBasketHedgeParam.h"
#include "COrderCommand.h"

#include <boost/shared_ptr.hpp>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace TC {

// The client's hedge service: takes over a hedged basket instruction (it places the basket
// and its futures hedge itself) and keeps the hedge parameters of placed orders.
//
// Here both are recorded and nothing is placed. User-interface thread only.
class BASKET_SERVICES_EXPORT CBasketHedgeManager final
{
public:
    struct CBasketCommandCall
    {
        boost::shared_ptr<ttservice::COrderCommand> m_command;
        bool m_manual = false;
    };
    struct CSaveHedgeParamCall
    {
        std::string m_key;
        ttservice::CBasketHedgeParam m_param;
    };

    // The one instance in the process, created on first use; never null, never freed.
    static CBasketHedgeManager *instance();

    // Takes over a hedged instruction; manual is true when the user placed it from the panel.
    // With a route set on the trade service, its lines leave over that route.
    void onBasketCommand(boost::shared_ptr<ttservice::COrderCommand> command, bool manual);

    // Stores the hedge parameters of an order under key; see TC::saveHedgeParam.
    bool saveHedgeParam(const std::string &key, const ttservice::CBasketHedgeParam &param);
    // The parameters last stored under key, null if none.
    boost::shared_ptr<ttservice::CBasketHedgeParam> hedgeParam(const std::string &key) const;

    // --- control surface (tests and the demo host) ---
    const std::vector<CBasketCommandCall> &basketCommands() const { return m_commandCalls; }
    const std::vector<CSaveHedgeParamCall> &savedHedgeParams() const { return m_saveCalls; }
    // Called after each recorded onBasketCommand (the demo prints what the service took over).
    void setBasketCommandObserver(std::function<void(const CBasketCommandCall &)> observer);
    // No recorded calls and no stored parameters; the observer stays.
    void reset();

private:
    CBasketHedgeManager() = default;

    std::vector<CBasketCommandCall> m_commandCalls;
    std::vector<CSaveHedgeParamCall> m_saveCalls;
    std::map<std::string, ttservice::CBasketHedgeParam> m_params;
    std::function<void(const CBasketCommandCall &)> m_commandObserver;
};

// The hedge service's store of hedge parameters: keeps param under key (the order tag's
// "<tag key>____<tag name>____<sequence>"). Always succeeds here.
bool saveHedgeParam(std::string key, const ttservice::CBasketHedgeParam &param);

} // namespace TC
