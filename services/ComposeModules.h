#pragma once

// Whether the deployment offers the Hong Kong connect tabs, by module switch
// (luawrapper::LuaModuleCtrl). The modules, each named with its group "mdl_order":
//   hasComposeHgtType(): "mdl_order_compose_hgt" (Shanghai connect);
//   hasComposeSgtType(): "mdl_order_compose_sgt" (Shenzhen connect);
//   hasComposeGgtType(): either of the two.
namespace TC {

// Whether the deployment trades baskets through the Shanghai-Hong Kong connect: the modules
// "mdl_order" and "mdl_order_compose_hgt" are on (LuaModuleCtrl::checkModule).
bool hasComposeHgtType();
// Whether the deployment trades baskets through the Shenzhen-Hong Kong connect: the modules
// "mdl_order" and "mdl_order_compose_sgt" are on.
bool hasComposeSgtType();
// Whether either connect is open to baskets (hasComposeHgtType() or hasComposeSgtType()); the
// panel offers its Hong Kong connect tab only then.
bool hasComposeGgtType();

} // namespace TC
