// The probe's line and the search for it, by a library of the program. Without it there is no
// probe.
#pragma once

#include "platform/device_search.h"
#include "platform/event_loop.h"
#include "platform/serial_line.h"

#include <memory>

namespace vorna {

// Loaded when a port is opened for the first time. The real line has none of the options.
class LoadedSerialLine final : public SerialLine {
public:
    explicit LoadedSerialLine(const char* library = "devices") : library_(library) {}

    bool open(const std::string& devicePath) override;
    void configure(std::string_view settings) override;
    void send(std::string_view text) override;
    void close() override;

private:
    const char* library_;
    std::unique_ptr<SerialLine> line_;
};

// Loaded with the first question about the device; the ports are known without it.
class LoadedDeviceSearch final : public DeviceSearch {
public:
    // The loop must outlive it.
    explicit LoadedDeviceSearch(EventLoop& loop, const char* library = "devices")
        : loop_(loop), library_(library) {}

    bool open() override;
    Memory readMemory() override;
    std::optional<int> portNumber() override;
    bool close() override;
    std::string simulatedPort() override;
    std::vector<std::string> ports() override;

private:
    DeviceSearch* search();

    EventLoop& loop_;
    const char* library_;
    std::unique_ptr<DeviceSearch> search_;
};

} // namespace vorna
