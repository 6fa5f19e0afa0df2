#pragma once

#include "CPlaceCommandsCall.h"
#include "CPlaceTasksCall.h"

#include <QStringList>

// What a trader reads in the demo's order log: one line per order that left the panel, with
// the account, the instrument, the side, the volume, the price and how it is worked, and the
// basket or instruction it belongs to. The whole call stays available as its JSON text.
class CDemoOrderLog final
{
public:
    static QStringList linesOf(const TC::CPlaceCommandsCall &call);
    static QStringList linesOf(const TC::CPlaceTasksCall &call);
    // One order line as the log shows it; source names the basket or the instruction.
    static QString lineOf(const ttservice::CCodeOrderParam &line, const QString &source);
};
