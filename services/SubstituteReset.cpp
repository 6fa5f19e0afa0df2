#include "SubstituteReset.h"

#include "CAlgoParamDataHelper.h"
#include "CAlgorithmAuthorityConfig.h"
#include "CAlgorithmHelpDialog.h"
#include "CBasketHedgeManager.h"
#include "CBlackAndWhiteListService.h"
#include "CCommonHelpDialog.h"
#include "CExchangeClient.h"
#include "CLogCenter.h"
#include "CMsgService.h"
#include "CQuoteClient.h"
#include "CTimeService.h"
#include "CTradeClient.h"
#include "CTradeStatistics.h"
#include "CUserManager.h"
#include "CVqAlgorithmHelpDialog.h"
#include "Clock.h"
#include "LuaModuleCtrl.h"
#include "StockTypeCacheCenter.h"
#include "StockTypeCenter.h"
#include "TraderCenter.h"
#include "TypeManager.h"

namespace TC {

void resetAllSubstitutes()
{
    CUserManager::instance()->getUserConfig()->reset();
    ttservice::TraderCenter::instance()->reset();
    CTradeClient::instance()->reset();
    CQuoteClient::instance()->reset();
    CExchangeClient::instance()->reset();
    CBlackAndWhiteListService::instance()->reset();
    CBasketHedgeManager::instance()->reset();
    getMsgService()->reset();
    getTimeService()->reset();
    CTradeStatistics::instance()->reset();
    CAlgorithmAuthorityConfig::instance().reset();
    CAlgoParamDataHelper::reset();
    CAlgorithmHelpDialog::reset();
    CVqAlgorithmHelpDialog::reset();
    CCommonHelpDialog::reset();
    ttservice::StockTypeCenter::reset();
    ttservice::StockTypeCacheCenter::reset();
    ttservice::TypeManager::instance()->reset();
    luawrapper::LuaModuleCtrl::instance()->reset();
    utils::CLogCenter::instance()->reset();
    utils::setClockMSec(0.0);
}

} // namespace TC
