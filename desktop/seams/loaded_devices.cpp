#include "desktop/seams/loaded_devices.h"

#include "desktop/seams/late_library.h"
#include "platform/serial_ports.h"
#include "platform/simulated_port.h"

namespace vorna {

bool LoadedSerialLine::open(const std::string& devicePath) {
    if (!line_) {
        line_ = seamOfLibrary<decltype(makeSerialLine)>(library_, "makeSerialLine");
        if (!line_)
            return false;
        line_->received = [this](std::string_view text) {
            if (received)
                received(text);
        };
    }
    return line_->open(devicePath);
}

void LoadedSerialLine::configure(std::string_view settings) {
    if (line_)
        line_->configure(settings);
}

void LoadedSerialLine::send(std::string_view text) {
    if (line_)
        line_->send(text);
}

void LoadedSerialLine::close() {
    if (line_)
        line_->close();
}

DeviceSearch* LoadedDeviceSearch::search() {
    if (!search_)
        search_ = seamOfLibrary<decltype(makeDeviceSearch)>(library_, "makeDeviceSearch", &loop_);
    return search_.get();
}

bool LoadedDeviceSearch::open() {
    return search() != nullptr && search_->open();
}

DeviceSearch::Memory LoadedDeviceSearch::readMemory() {
    constexpr int noLibrary = -1;
    return search() == nullptr ? Memory{.status = noLibrary} : search_->readMemory();
}

std::optional<int> LoadedDeviceSearch::portNumber() {
    return search() == nullptr ? std::nullopt : search_->portNumber();
}

bool LoadedDeviceSearch::close() {
    return search() != nullptr && search_->close();
}

std::string LoadedDeviceSearch::simulatedPort() {
    return simulatedPortName();
}

std::vector<std::string> LoadedDeviceSearch::ports() {
    return serialPortNames();
}

} // namespace vorna
