#include "platform/serial_ports.h"

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace vorna {
namespace {

constexpr std::string_view portPrefix = "ttyUSB";

// Nothing for a text that is not a whole number alone.
std::optional<int> wholeNumber(std::string_view text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc{} && result.ptr == end ? std::optional(number) : std::nullopt;
}

std::optional<int> numberInFile(const fs::path& file) {
    std::optional<int> number;
    attempt([&] {
        const std::string text = readWholeFile(file);
        number = wholeNumber(std::string_view(text).substr(0, text.find('\n')));
    });
    return number;
}

// The address of the USB device that an entry of the tree of devices lies in.
std::optional<UsbAddress> addressAbove(const fs::path& entry) {
    std::error_code error;
    fs::path folder = fs::canonical(entry, error);
    for (; !error && folder.has_relative_path(); folder = folder.parent_path())
        if (fs::exists(folder / "busnum", error)) {
            const std::optional<int> bus = numberInFile(folder / "busnum");
            const std::optional<int> device = numberInFile(folder / "devnum");
            return bus && device ? std::optional(UsbAddress{*bus, *device}) : std::nullopt;
        }
    return std::nullopt;
}

} // namespace

std::vector<int> serialPortNumbers(const fs::path& folder) {
    std::vector<int> numbers;
    for (const std::string& name : listFiles(folder, std::string(portPrefix) + "*"))
        if (const auto number = wholeNumber(std::string_view(name).substr(portPrefix.size())))
            numbers.push_back(*number);
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

std::vector<std::string> serialPortNames() {
    std::vector<std::string> names;
    for (const int number : serialPortNumbers())
        names.push_back("COM" + std::to_string(number) + ":");
    return names;
}

std::optional<int> serialPortOfDevice(UsbAddress device, const fs::path& folder) {
    for (const int number : serialPortNumbers(folder))
        if (addressAbove(folder / (std::string(portPrefix) + std::to_string(number))) == device)
            return number;
    return std::nullopt;
}

} // namespace vorna
