// A guided run with nobody before the screen: opens the wizard by its kind button, starts, waits
// until the last point is measured, and saves. The practitioner and the probe are on the line.
#pragma once

#include "tool/process.h"

#include <functional>
#include <string>

namespace vorna {

struct GuidedMeasurement {
    std::string kind; // P, T, B or E
    std::string port; // the serial port's path, whatever the settings say
    int startIndex = 1;
    double speed = 1;                              // of the clock
    std::function<void(int points)> pointsChanged; // how many points are measured
};

// Measures the selected client and returns the name of the new file in the client's folder. Needs
// an OffscreenQt. From here on the process's time passes for real. CannotRun when the kind is not
// measured in the mode, when the port does not open or falls still, and when nothing was stored.
std::string measureGuided(ToolProcess& process, const GuidedMeasurement& order);

} // namespace vorna
