#pragma once

#include "CPlaceCommandsCall.h"
#include "CPlaceTasksCall.h"

namespace TC {

// Where the trade service carries the orders it has recorded: a counterparty over some protocol.
// Without a route the orders are only recorded. Called on the user-interface thread; an
// implementation returns quickly and does its sending elsewhere.
class IOrderRoute
{
public:
    virtual ~IOrderRoute() = default;
    // Takes over the lines of a basket order; false when they cannot leave (no session).
    virtual bool routeCommands(const CPlaceCommandsCall &call) = 0;
    // Takes over the lines of an instruction executed as tasks; false when they cannot leave.
    virtual bool routeTasks(const CPlaceTasksCall &call) = 0;
};

} // namespace TC
