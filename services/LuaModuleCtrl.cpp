#include "LuaModuleCtrl.h"

#include <algorithm>

namespace luawrapper {

LuaModuleCtrl *LuaModuleCtrl::instance()
{
    static LuaModuleCtrl ctrl;
    return &ctrl;
}

bool LuaModuleCtrl::checkModule(const std::list<std::string> &modules)
{
    const LuaModuleCtrl *ctrl = instance();
    return std::all_of(modules.begin(), modules.end(),
                       [ctrl](const std::string &module) { return ctrl->isModuleOn(module); });
}

void LuaModuleCtrl::setModule(const std::string &module, bool on)
{
    if (on)
        m_modules.insert(module);
    else
        m_modules.erase(module);
}

void LuaModuleCtrl::setModules(const std::list<std::string> &modules, bool on)
{
    for (const std::string &module : modules)
        setModule(module, on);
}

bool LuaModuleCtrl::isModuleOn(const std::string &module) const
{
    return m_modules.count(module) != 0;
}

void LuaModuleCtrl::reset()
{
    m_modules.clear();
}

} // namespace luawrapper
