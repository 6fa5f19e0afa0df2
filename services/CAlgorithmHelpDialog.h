#pragma once

#include "HelpDialogRecorder.h"

#include <functional>
#include <vector>

namespace TC {

// The client's help dialog of the algorithm order types: before an algorithm order leaves,
// tryHelp shows the user what the chosen algorithm will do (unless the user turned that off);
// doHelp opens the help page on request.
//
// Here nothing is shown: every call is recorded, and tryHelp answers true (go on placing).
// A demo host may show a dialog of its own through the observer. User-interface thread only.
class CAlgorithmHelpDialog final
{
public:
    // Shows the help for these lines if the user wants it; true lets the placing go on.
    static bool tryHelp(const std::vector<ttservice::CCodeOrderParam> &orders);
    static void doHelp();

    // --- control surface (tests and the demo host) ---
    // The line lists of the tryHelp calls, in order.
    static const std::vector<std::vector<ttservice::CCodeOrderParam>> &triedHelps();
    static int helpCount();
    // Called after each call, with the lines of a tryHelp or null for a doHelp.
    static void setObserver(std::function<void(const std::vector<ttservice::CCodeOrderParam> *)> observer);
    // No recorded calls, no observer.
    static void reset();

private:
    static CHelpDialogRecorder &recorder();
};

} // namespace TC
