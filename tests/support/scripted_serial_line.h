// A serial line without a port: what was asked is kept, and a test says what the device sends.
#pragma once

#include "platform/serial_line.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

class ScriptedSerialLine final : public SerialLine {
public:
    bool open(const std::string& devicePath) override {
        log.push_back("open " + devicePath);
        if (isOpen || !opens)
            return false;
        isOpen = true;
        return true;
    }
    void configure(std::string_view settings) override {
        log.push_back("configure " + std::string(settings));
    }
    void setOption(SerialOption option, int value) override {
        static constexpr const char* names[] = {"flag ", "number ", "line feed "};
        log.push_back(names[static_cast<std::size_t>(option)] + std::to_string(value));
    }
    void send(std::string_view text) override {
        if (isOpen)
            sent += text;
    }
    void close() override {
        log.push_back("close");
        isOpen = false;
    }

    // The device sends these bytes; they are lost while the line is closed.
    void receive(std::string_view text) {
        if (isOpen && received)
            received(text);
    }

    bool opens = true; // whether there is a port
    bool isOpen = false;
    std::vector<std::string> log; // what was asked, in order: "open /dev/ttyUSB4", "close" ...
    std::string sent;
};

} // namespace vorna
