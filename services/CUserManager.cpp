#include "CUserManager.h"

namespace TC {

CUserManager *CUserManager::instance()
{
    static CUserManager manager;
    return &manager;
}

CUserConfig *getUserConfig()
{
    return CUserManager::instance()->getUserConfig();
}

} // namespace TC
