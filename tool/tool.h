// vorna-tool: the headless companion. It runs the same start-up, operations and view models as the
// desktop program and prints what its windows would show as one JSON document.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vorna {

// Runs one command (the arguments without the program's name). The answer goes to `out`. Returns
// the exit status: 0 when the command ran, 1 when it could not, 2 for wrong usage; then `err` got
// one line that says what is wrong.
int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

} // namespace vorna
