#pragma once

#include "BasketServicesExport.h"
#include "COrderCommand.h"

#include <boost/shared_ptr.hpp>

#include <QMap>

#include <string>
#include <vector>

namespace TC {

// The client's helper for algorithm parameter strings of instructions: rewrites the string
// built by the panel's algorithm tables so that the algorithm service knows which instruction
// the orders belong to.
//
// The rule of this library: an empty string stays empty; otherwise ";cmd=" and the instruction
// ids of the map (its keys, ascending, joined by ",") are appended. Every call is recorded.
// User-interface thread only.
class BASKET_SERVICES_EXPORT CAlgoParamDataHelper final
{
public:
    struct CResetCall
    {
        std::string m_paramBefore;
        std::string m_paramAfter;
        std::vector<int> m_commandIds;
    };

    // Rewrites param, the algorithm parameter string of the lines of instructions, so that the
    // algorithm service knows the instructions (commands, by id) the lines belong to. Called by
    // the panel just before placeTasks.
    static void resetAlgoParam(std::string &param, QMap<int, boost::shared_ptr<ttservice::COrderCommand>> commands);

    // --- control surface (tests and the demo host) ---
    static const std::vector<CResetCall> &resetCalls();
    static void reset();
};

} // namespace TC
