#include "CAlgorithmHelpDialog.h"

#include <utility>

namespace TC {

CHelpDialogRecorder &CAlgorithmHelpDialog::recorder()
{
    static CHelpDialogRecorder r;
    return r;
}

bool CAlgorithmHelpDialog::tryHelp(const std::vector<ttservice::CCodeOrderParam> &orders)
{
    return recorder().tryHelp(orders);
}

void CAlgorithmHelpDialog::doHelp()
{
    recorder().doHelp();
}

const std::vector<std::vector<ttservice::CCodeOrderParam>> &CAlgorithmHelpDialog::triedHelps()
{
    return recorder().m_triedHelps;
}

int CAlgorithmHelpDialog::helpCount()
{
    return recorder().m_helpCount;
}

void CAlgorithmHelpDialog::setObserver(std::function<void(const std::vector<ttservice::CCodeOrderParam> *)> observer)
{
    recorder().m_observer = std::move(observer);
}

void CAlgorithmHelpDialog::reset()
{
    recorder().reset();
}

} // namespace TC
