#include "CVqAlgorithmHelpDialog.h"

#include <utility>

namespace TC {

CHelpDialogRecorder &CVqAlgorithmHelpDialog::recorder()
{
    static CHelpDialogRecorder r;
    return r;
}

bool CVqAlgorithmHelpDialog::tryHelp(const std::vector<ttservice::CCodeOrderParam> &orders)
{
    return recorder().tryHelp(orders);
}

void CVqAlgorithmHelpDialog::doHelp()
{
    recorder().doHelp();
}

const std::vector<std::vector<ttservice::CCodeOrderParam>> &CVqAlgorithmHelpDialog::triedHelps()
{
    return recorder().m_triedHelps;
}

int CVqAlgorithmHelpDialog::helpCount()
{
    return recorder().m_helpCount;
}

void CVqAlgorithmHelpDialog::setObserver(std::function<void(const std::vector<ttservice::CCodeOrderParam> *)> observer)
{
    recorder().m_observer = std::move(observer);
}

void CVqAlgorithmHelpDialog::reset()
{
    recorder().reset();
}

} // namespace TC
