#include "CBasketHedgeManager.h"

#include "CTradeClient.h"

#include <utility>

namespace TC {

CBasketHedgeManager *CBasketHedgeManager::instance()
{
    static CBasketHedgeManager manager;
    return &manager;
}

void CBasketHedgeManager::onBasketCommand(boost::shared_ptr<ttservice::COrderCommand> command, bool manual)
{
    m_commandCalls.push_back(CBasketCommandCall{std::move(command), manual});
    if (m_commandObserver)
        m_commandObserver(m_commandCalls.back());
    // The service works the instruction's lines as its tasks, over the trade service's route
    // when one is set; their fills count against the instruction.
    const boost::shared_ptr<ttservice::COrderCommand> &taken = m_commandCalls.back().m_command;
    if (IOrderRoute *route = CTradeClient::instance()->route(); route && taken) {
        CPlaceTasksCall call;
        call.m_traderType = taken->m_traderType;
        call.m_hedgeType = taken->m_hedgeType;
        call.m_command = taken;
        call.m_orders = taken->m_orders;
        route->routeTasks(call);
    }
}

void CBasketHedgeManager::setBasketCommandObserver(std::function<void(const CBasketCommandCall &)> observer)
{
    m_commandObserver = std::move(observer);
}

bool CBasketHedgeManager::saveHedgeParam(const std::string &key, const ttservice::CBasketHedgeParam &param)
{
    m_saveCalls.push_back(CSaveHedgeParamCall{key, param});
    m_params[key] = param;
    return true;
}

boost::shared_ptr<ttservice::CBasketHedgeParam> CBasketHedgeManager::hedgeParam(const std::string &key) const
{
    const auto it = m_params.find(key);
    return it == m_params.end() ? boost::shared_ptr<ttservice::CBasketHedgeParam>()
                                : boost::shared_ptr<ttservice::CBasketHedgeParam>(
                                      new ttservice::CBasketHedgeParam(it->second));
}

void CBasketHedgeManager::reset()
{
    m_commandCalls.clear();
    m_saveCalls.clear();
    m_params.clear();
}

bool saveHedgeParam(std::string key, const ttservice::CBasketHedgeParam &param)
{
    return CBasketHedgeManager::instance()->saveHedgeParam(key, param);
}

} // namespace TC
