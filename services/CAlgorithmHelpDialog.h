#pragma once

#include "BasketServicesExport.h"
#include "HelpDialogRecorder.h"

namespace TC {

// The client's help dialog of the algorithm order types: before an algorithm order leaves,
// tryHelp shows the user what the chosen algorithm will do (unless the user turned that off);
// doHelp opens the help page on request.
class BASKET_SERVICES_EXPORT CAlgorithmHelpDialog final : public CHelpDialogRecorder<CAlgorithmHelpDialog>
{
};

} // namespace TC
