#include "ComposeModules.h"

#include "LuaModuleCtrl.h"

namespace TC {

bool hasComposeHgtType()
{
    return luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_hgt"});
}

bool hasComposeSgtType()
{
    return luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_sgt"});
}

bool hasComposeGgtType()
{
    return hasComposeHgtType() || hasComposeSgtType();
}

} // namespace TC
