#pragma once

#include "HelpDialogRecorder.h"

namespace TC {

// The client's help dialog of the instruction algorithm (order type 13): tryHelp before such an
// order leaves, doHelp on request.
class CVqAlgorithmHelpDialog final : public CHelpDialogRecorder<CVqAlgorithmHelpDialog>
{
};

} // namespace TC
