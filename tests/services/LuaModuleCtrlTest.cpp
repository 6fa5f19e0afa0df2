#include "ComposeModules.h"
#include "LuaModuleCtrl.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

using luawrapper::LuaModuleCtrl;

namespace {

class ModuleSwitches : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
};

} // namespace

TEST_F(ModuleSwitches, AllNamedModulesMustBeOn)
{
    LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_futures"}, true);
    EXPECT_TRUE(LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_futures"}));
    EXPECT_TRUE(LuaModuleCtrl::instance()->checkModule({"mdl_order_compose_futures"}));
    EXPECT_FALSE(
        LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_one_key_futures", "mdl_order_compose_futures"}));
    EXPECT_FALSE(LuaModuleCtrl::checkModule({"mdl_auth", "mdl_order_compose_futures"}));
}

TEST_F(ModuleSwitches, TurningTheGroupOffTurnsOffItsModules)
{
    LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_portfolio"}, true);
    EXPECT_TRUE(LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_portfolio"}));
    LuaModuleCtrl::instance()->setModule("mdl_order", false);
    EXPECT_FALSE(LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_portfolio"}));
}

TEST_F(ModuleSwitches, ConnectTabsFollowTheirModules)
{
    EXPECT_FALSE(TC::hasComposeGgtType());
    LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_sgt"}, true);
    EXPECT_FALSE(TC::hasComposeHgtType());
    EXPECT_TRUE(TC::hasComposeSgtType());
    EXPECT_TRUE(TC::hasComposeGgtType());
    LuaModuleCtrl::instance()->setModule("mdl_order_compose_sgt", false);
    LuaModuleCtrl::instance()->setModule("mdl_order_compose_hgt", true);
    EXPECT_TRUE(TC::hasComposeHgtType());
    EXPECT_TRUE(TC::hasComposeGgtType());
}
