// The log of developers: one line on standard error for what the user must not see. It is off
// unless the environment has a VORNA_LOG, and never holds a client's name or values.
#pragma once

#include <string_view>

namespace vorna {

// Writes one line when the log is on.
void logLine(std::string_view text);

} // namespace vorna
