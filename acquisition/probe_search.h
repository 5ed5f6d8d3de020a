// The probe's group of the settings: calibration, the search for the device and the list of ports.
// This header has the group's controls, the search and the port list; calibration.h has the rest.
#pragma once

#include "core/session.h"
#include "core/window.h"
#include "platform/device_search.h"

namespace vorna {

struct ProbeSettings {
    explicit ProbeSettings(Window& window);

    Frame frame;
    TextBox calibrationText; // the calibration's state, in words and by its colour
    Button calibrate;
    Button findProbe;
    Button listPorts;
    Button useSimulated; // there while a simulated probe runs
    ListView searchResult;
    ListView ports; // choosing in it changes nothing
};

// Looks for the device, tells each step's result in the list, and makes the port that was found the
// port of the settings; COM0, the machine's first port, when none was. A second search does not
// begin while one waits.
void findProbe(ProbeSettings& probe, Session& session, DeviceSearch& search);

// Lists the numbers of the machine's serial ports, and offers the simulated probe when one runs;
// opening the settings does the same. Writes nothing.
void listPorts(ProbeSettings& probe, DeviceSearch& search);

// Makes the simulated probe the port of the settings and says so in the list. Without one that runs
// the offer goes.
void useSimulatedProbe(ProbeSettings& probe, Session& session, DeviceSearch& search);

} // namespace vorna
