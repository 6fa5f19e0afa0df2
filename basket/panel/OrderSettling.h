#pragma once

#include "BasketExport.h"

#include "CCodeOrderParam.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace TC {

// The last word on a list before it leaves the panel: whatever road built it (a stored basket,
// an instruction, a paste, an edit), no exchange takes a line of nothing or a price between two
// ticks, and the same list pressed twice must not go out twice unasked.

// The price on the nearest whole number of ticks, written as the decimal the tick has
// (8.459999999999999 on a 0.01 tick becomes 8.46). A tick of 0 or less, or a price without a
// value, leaves the price as it is.
BASKETPANEL_EXPORT double roundToTick(double price, double tick);

// Puts the price of every line with a price on its instrument's tick (the instrument service's
// tick; lines of an unknown instrument keep theirs).
BASKETPANEL_EXPORT void putPricesOnTick(std::vector<ttservice::CCodeOrderParam> &lines);

// Whether the line would carry nothing: a volume of 0 or less, or on a money line no money.
BASKETPANEL_EXPORT bool carriesNothing(const ttservice::CCodeOrderParam &line);

// Removes the lines that carry nothing and returns how many were removed.
BASKETPANEL_EXPORT int dropEmptyLines(std::vector<ttservice::CCodeOrderParam> &lines);

// What identifies a list as the same order: its lines' accounts, codes, sides and volumes,
// whatever their order on screen.
BASKETPANEL_EXPORT QString orderFingerprint(const std::vector<ttservice::CCodeOrderParam> &lines);

} // namespace TC
