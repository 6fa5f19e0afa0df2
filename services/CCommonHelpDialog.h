#pragma once

#include "HelpDialogRecorder.h"

#include <functional>
#include <vector>

namespace TC {

// The client's general help page of the basket panel: doHelp opens it on request; tryHelp shows
// it before an order when the user asked for that.
//
// Here nothing is shown: every call is recorded, and tryHelp answers true (go on placing).
// A demo host may show a dialog of its own through the observer. User-interface thread only.
class CCommonHelpDialog final
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
