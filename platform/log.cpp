#include "platform/log.h"

#include "platform/failure.h"

#include <atomic>
#include <cstdio>

namespace vorna {
namespace {

// The one process-wide switch: a log that had to be passed through every call would be in the
// way of all the code that has nothing to log.
std::atomic<bool>& logSwitch() {
    static std::atomic<bool> on{false};
    return on;
}

} // namespace

void switchLogOn(bool on) {
    logSwitch() = on;
}

void logLine(std::string_view text) {
    if (logSwitch())
        std::fprintf(stderr, "vorna: %.*s\n", static_cast<int>(text.size()), text.data());
}

void logPassedOver(const Failure& failure) {
    if (logSwitch())
        logLine(std::string("passed over: ") + failure.what());
}

} // namespace vorna
