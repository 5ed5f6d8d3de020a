// The list of the installed fonts, which takes as long to read as all that a start does before its
// first window: it is read in a second thread meanwhile.
#pragma once

namespace vorna {

// Begins. A window that comes earlier than the end waits for it, and so does the application's own
// end. Once, after the application was made.
void readFontsBeside();

} // namespace vorna
