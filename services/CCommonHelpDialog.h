#pragma once

#include "HelpDialogRecorder.h"

namespace TC {

// The client's general help page of the basket panel: doHelp opens it on request; tryHelp shows
// it before an order when the user asked for that.
class CCommonHelpDialog final : public CHelpDialogRecorder<CCommonHelpDialog>
{
};

} // namespace TC
