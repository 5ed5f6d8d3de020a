// A guided run with nobody before the screen: opens the wizard by its kind button, starts, waits
// until the last point is measured, and saves. The practitioner and the probe are on the line.
#pragma once

#include "tool/process.h"

#include <functional>
#include <optional>
#include <string>

namespace vorna {

struct GuidedMeasurement {
    std::string kind; // P, T, B or E
    std::string port; // the serial port's path, whatever the settings say
    int startIndex = 1;
    // Of the clock. Above 1 the device must play as fast; one that tells its own time in its lines
    // is then followed exactly, any other may be missed in part where the machine is busy.
    double speed = 1;
    // Seconds of real time: longer than this no point may take. None: a minute, or twice as long as
    // a point of the settings takes.
    std::optional<double> patience;
    std::function<void(int points)> pointsChanged; // how many points are measured or skipped
};

// Measures the selected client and returns the name of the measurement's file in the client's
// folder. Needs an OffscreenQt. From the start of the run on the process's time passes for real, at
// the given speed. CannotRun when the kind is not measured in the mode, when the port does not
// open, falls still or shows no further point, and when nothing was stored.
std::string measureGuided(ToolProcess& process, const GuidedMeasurement& order);

} // namespace vorna
