#pragma once

#include "BasketServicesExport.h"
#include "HelpDialogRecorder.h"

namespace TC {

// The client's general help page of the basket panel: doHelp opens it on request; tryHelp shows
// it before an order when the user asked for that.
class BASKET_SERVICES_EXPORT CCommonHelpDialog final : public CHelpDialogRecorder<CCommonHelpDialog>
{
};

} // namespace TC
