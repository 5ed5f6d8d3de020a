// How the probe is found on the machine: the device on the USB bus, what its memory tells of it,
// and the number of its serial port. Real: libftdi1 (platform/devices). In tests: a script.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vorna {

class DeviceSearch {
public:
    virtual ~DeviceSearch() = default;

    // Takes up the first device there is. False when there is none or it may not be used; the
    // other operations then fail, each in its own way.
    virtual bool open() = 0;

    struct Memory {
        int status = 0;           // 0 when it was read, else the number of the failure
        std::string description;  // both empty when it was not
        std::string serialNumber; // UTF-8
    };
    // Reads the device's memory and changes nothing.
    virtual Memory readMemory() = 0;

    // The number of the device's serial port: n of COM<n>. It may be awaited while the system sets
    // the port up; the event loop goes on meanwhile. Nothing when there is no such port.
    virtual std::optional<int> portNumber() = 0;

    // False when there was nothing to close.
    virtual bool close() = 0;

    // The device path of a simulated probe that runs on the machine; empty when none does.
    virtual std::string simulatedPort() { return {}; }

    // The serial ports of the machine in the form "COM4:", ascending by number.
    virtual std::vector<std::string> ports() = 0;
};

} // namespace vorna
