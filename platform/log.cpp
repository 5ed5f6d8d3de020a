#include "platform/log.h"

#include "platform/failure.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace vorna {
namespace {

// The environment decides for the whole process, the program's own libraries among it: a log that
// had to be passed through every call would be in the way of all the code that has nothing to log.
bool isLogOn() {
    static const bool on = std::getenv("VORNA_LOG") != nullptr;
    return on;
}

} // namespace

void logLine(std::string_view text) {
    if (isLogOn())
        std::fprintf(stderr, "vorna: %.*s\n", static_cast<int>(text.size()), text.data());
}

void logPassedOver(const Failure& failure) {
    if (isLogOn())
        logLine(std::string("passed over: ") + failure.what());
}

} // namespace vorna
