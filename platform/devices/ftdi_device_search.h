// The search for the probe over libftdi1. It only reads: the device is asked beside the kernel's
// driver, which keeps it, so that its serial port stays and a measurement on it goes on.
#pragma once

#include "platform/device_search.h"
#include "platform/event_loop.h"
#include "platform/serial_ports.h"

#include <memory>

namespace vorna {

class FtdiDeviceSearch final : public DeviceSearch {
public:
    // The loop must outlive it.
    explicit FtdiDeviceSearch(EventLoop& loop);
    FtdiDeviceSearch(const FtdiDeviceSearch&) = delete;
    FtdiDeviceSearch& operator=(const FtdiDeviceSearch&) = delete;
    ~FtdiDeviceSearch() override;

    bool open() override;
    Memory readMemory() override;
    // Waits two seconds at most for the port of a device that was just plugged in.
    std::optional<int> portNumber() override;
    bool close() override;
    std::vector<std::string> ports() override;
    std::string simulatedPort() override;

private:
    struct Device;

    EventLoop& loop_;
    std::unique_ptr<Device> device_; // null when none is open
    UsbAddress address_;             // of the device opened last; bus 0 is none
};

} // namespace vorna
