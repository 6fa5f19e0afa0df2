#pragma once

#include "BasketServicesExport.h"

#include <list>
#include <set>
#include <string>

namespace luawrapper {

// The deployment's feature switches. A deployment switches modules on by key ("mdl_order",
// "mdl_order_compose_futures" ...); a tab or block of the panel whose modules are not all on is
// left out.
//
// Group keys such as "mdl_order" and "mdl_auth" are modules like any other. Callers name the
// group beside the module (checkModule({"mdl_order", "mdl_order_portfolio"})), so that turning a
// group off turns off everything under it.
//
// User-interface thread only.
class BASKET_SERVICES_EXPORT LuaModuleCtrl final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static LuaModuleCtrl *instance();

    // True when every named module is on; an empty list names nothing and is true.
    // Static so that it reads the same whether called on the class or on instance().
    static bool checkModule(const std::list<std::string> &modules);

    // --- control surface (tests and the demo host) ---
    void setModule(const std::string &module, bool on);
    void setModules(const std::list<std::string> &modules, bool on);
    bool isModuleOn(const std::string &module) const;
    const std::set<std::string> &modulesOn() const { return m_modules; }
    // Every module off.
    void reset();

private:
    LuaModuleCtrl() = default;

    std::set<std::string> m_modules;
};

} // namespace luawrapper
