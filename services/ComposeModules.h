#pragma once

// Whether the deployment offers the Hong Kong connect tabs, by module switch
// (luawrapper::LuaModuleCtrl). The modules, each named with its group "mdl_order":
//   hasComposeHgtType(): "mdl_order_compose_hgt" (Shanghai connect);
//   hasComposeSgtType(): "mdl_order_compose_sgt" (Shenzhen connect);
//   hasComposeGgtType(): either of the two.
namespace TC {

bool hasComposeHgtType();
bool hasComposeSgtType();
bool hasComposeGgtType();

} // namespace TC
