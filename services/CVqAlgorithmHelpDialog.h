#pragma once

#include "BasketServicesExport.h"
#include "HelpDialogRecorder.h"

namespace TC {

// The client's help dialog of the instruction algorithm (order type 13): tryHelp before such an
// order leaves, doHelp on request.
class BASKET_SERVICES_EXPORT CVqAlgorithmHelpDialog final : public CHelpDialogRecorder<CVqAlgorithmHelpDialog>
{
};

} // namespace TC
