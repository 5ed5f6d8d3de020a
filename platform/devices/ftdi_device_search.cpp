#include "platform/devices/ftdi_device_search.h"

#include "platform/ftdi_memory.h"
#include "platform/log.h"
#include "platform/simulated_port.h"

#include <array>
#include <chrono>
#include <ftdi.h>
#include <libusb.h>

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr int answerTimeoutMs = 500;
constexpr EventLoop::Milliseconds portPause = 50ms;
constexpr int portTries = 40;

// Bytes; the largest that the library knows.
constexpr std::size_t memorySize = 256;

// libftdi1's number for a device that is not open.
constexpr int notOpen = -2;

struct DeviceList {
    DeviceList() = default;
    DeviceList(const DeviceList&) = delete;
    DeviceList& operator=(const DeviceList&) = delete;
    ~DeviceList() { ftdi_list_free(&first); }
    ftdi_device_list* first = nullptr;
};

} // namespace

// The library's context, and the first device of its list without any claim on its interfaces:
// the memory is read by requests to the device itself.
struct FtdiDeviceSearch::Device {
    Device() : context(ftdi_new()) {
        if (context == nullptr)
            return;
        context->usb_read_timeout = answerTimeoutMs;
        DeviceList list;
        if (ftdi_usb_find_all(context, &list.first, 0, 0) <= 0)
            return;
        address = {.bus = libusb_get_bus_number(list.first->dev),
                   .device = libusb_get_device_address(list.first->dev)};
        const int status = libusb_open(list.first->dev, &handle);
        if (status != LIBUSB_SUCCESS) {
            logLine(std::string("the device cannot be opened: ") + libusb_error_name(status));
            return;
        }
        ftdi_set_usbdev(context, handle);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    ~Device() {
        if (handle != nullptr) {
            ftdi_set_usbdev(context, nullptr);
            libusb_close(handle);
        }
        ftdi_free(context);
    }

    ftdi_context* context = nullptr;
    libusb_device_handle* handle = nullptr;
    UsbAddress address;
};

FtdiDeviceSearch::FtdiDeviceSearch(EventLoop& loop) : loop_(loop) {}

FtdiDeviceSearch::~FtdiDeviceSearch() = default;

bool FtdiDeviceSearch::open() {
    device_.reset();
    auto device = std::make_unique<Device>();
    // Known also when the device may not be opened: its port can still be named.
    address_ = device->address;
    if (device->handle == nullptr)
        return false;
    device_ = std::move(device);
    return true;
}

DeviceSearch::Memory FtdiDeviceSearch::readMemory() {
    if (!device_)
        return {.status = notOpen};
    if (const int status = ftdi_read_eeprom(device_->context); status != 0)
        return {.status = status};
    std::array<std::uint8_t, memorySize> memory{};
    const int status = ftdi_get_eeprom_buf(device_->context, memory.data(), int(memory.size()));
    const DeviceNames names = parseFtdiMemory(memory);
    return {.status = status, .description = names.description, .serialNumber = names.serialNumber};
}

std::optional<int> FtdiDeviceSearch::portNumber() {
    if (address_ == UsbAddress{})
        return std::nullopt;
    for (int i = 0; i < portTries; ++i) {
        if (const std::optional<int> number = serialPortOfDevice(address_))
            return number;
        loop_.wait(portPause);
    }
    return std::nullopt;
}

bool FtdiDeviceSearch::close() {
    address_ = {};
    const bool wasOpen = device_ != nullptr;
    device_.reset();
    return wasOpen;
}

std::vector<std::string> FtdiDeviceSearch::ports() {
    return serialPortNames();
}

std::string FtdiDeviceSearch::simulatedPort() {
    return simulatedPortName();
}

} // namespace vorna
