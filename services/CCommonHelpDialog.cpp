#include "CCommonHelpDialog.h"

#include <utility>

namespace TC {

CHelpDialogRecorder &CCommonHelpDialog::recorder()
{
    static CHelpDialogRecorder r;
    return r;
}

bool CCommonHelpDialog::tryHelp(const std::vector<ttservice::CCodeOrderParam> &orders)
{
    return recorder().tryHelp(orders);
}

void CCommonHelpDialog::doHelp()
{
    recorder().doHelp();
}

const std::vector<std::vector<ttservice::CCodeOrderParam>> &CCommonHelpDialog::triedHelps()
{
    return recorder().m_triedHelps;
}

int CCommonHelpDialog::helpCount()
{
    return recorder().m_helpCount;
}

void CCommonHelpDialog::setObserver(std::function<void(const std::vector<ttservice::CCodeOrderParam> *)> observer)
{
    recorder().m_observer = std::move(observer);
}

void CCommonHelpDialog::reset()
{
    recorder().reset();
}

} // namespace TC
