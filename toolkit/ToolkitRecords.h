#pragma once

namespace WK {

// Clears everything the toolkit recorded instead of showing it (message boxes, dialogs, tips)
// and every scripted answer, so that a test starts from a known state. The interactive switches
// stay as they are.
void resetToolkitRecords();

// Switches every modal piece of the toolkit (message boxes, dialogs) between real, blocking
// windows (the demo) and recorded, immediate answers (tests, the default).
void setToolkitInteractive(bool interactive);

} // namespace WK
