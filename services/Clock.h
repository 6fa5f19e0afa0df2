#pragma once

namespace utils {

// Milliseconds of a steady clock, for measuring how long something took (the timing log lines
// of the panel). Only differences between two readings mean anything.
double clockMSec();

// --- control surface (tests and the demo host) ---

// Freezes clockMSec() at the given reading; it stays there until advanced or released.
void setClockMSec(double msec);
// Moves a frozen clock forward (or back, with a negative step). Does nothing on a running clock.
void advanceClockMSec(double msec);
// Lets clockMSec() follow the machine's steady clock again. This is the state at start-up.
void useSteadyClockMSec();
// Whether clockMSec() is frozen.
bool isClockMSecFrozen();

} // namespace utils
