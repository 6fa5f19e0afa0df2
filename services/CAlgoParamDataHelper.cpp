#include "CAlgoParamDataHelper.h"

namespace TC {
namespace {

std::vector<CAlgoParamDataHelper::CResetCall> &calls()
{
    static std::vector<CAlgoParamDataHelper::CResetCall> recorded;
    return recorded;
}

} // namespace

void CAlgoParamDataHelper::resetAlgoParam(std::string &param,
                                          QMap<int, boost::shared_ptr<ttservice::COrderCommand>> commands)
{
    CResetCall call;
    call.m_paramBefore = param;
    const QList<int> ids = commands.keys();
    call.m_commandIds.assign(ids.begin(), ids.end());
    if (!param.empty() && !commands.isEmpty()) {
        std::string idText;
        for (int id : call.m_commandIds)
            idText += (idText.empty() ? "" : ",") + std::to_string(id);
        param += ";cmd=" + idText;
    }
    call.m_paramAfter = param;
    calls().push_back(std::move(call));
}

const std::vector<CAlgoParamDataHelper::CResetCall> &CAlgoParamDataHelper::resetCalls()
{
    return calls();
}

void CAlgoParamDataHelper::reset()
{
    calls().clear();
}

} // namespace TC
