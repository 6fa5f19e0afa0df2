#pragma once

#include "BasketServicesExport.h"
#include "CUserConfig.h"

namespace TC {

// The client's user manager: owns the configuration of the logged-in user.
class BASKET_SERVICES_EXPORT CUserManager final
{
public:
    // The one instance in the process, created on first use; never null, never freed.
    static CUserManager *instance();

    // Never null.
    CUserConfig *getUserConfig() { return &m_config; }

private:
    CUserManager() = default;

    CUserConfig m_config;
};

} // namespace TC
