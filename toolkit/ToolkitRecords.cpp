#include "ToolkitRecords.h"

#include "CBaseDialog.h"
#include "CMessageBox.h"
#include "CMessageTip.h"

namespace WK {

void resetToolkitRecords()
{
    CMessageBox::clearRecords();
    CMessageBox::clearScriptedAnswer();
    CBaseDialog::clearRecords();
    CBaseDialog::clearScriptedAnswer();
    CMessageTip::clearRecords();
    CMessageTip::hideSharedTip();
}

void setToolkitInteractive(bool interactive)
{
    CMessageBox::setInteractive(interactive);
    CBaseDialog::setInteractive(interactive);
}

} // namespace WK
