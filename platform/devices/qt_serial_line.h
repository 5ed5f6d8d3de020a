// The serial line on a port of the machine, or on a pseudo-terminal. It needs Qt's event loop: the
// port's ready-read event brings what was received.
#pragma once

#include "platform/serial_line.h"

#include <memory>

namespace vorna {

class QtSerialLine final : public SerialLine {
public:
    QtSerialLine();
    QtSerialLine(const QtSerialLine&) = delete;
    QtSerialLine& operator=(const QtSerialLine&) = delete;
    ~QtSerialLine() override;

    bool open(const std::string& devicePath) override;
    void configure(std::string_view settings) override;
    void send(std::string_view text) override;
    void close() override;

private:
    class Port;
    std::unique_ptr<Port> port_;
};

} // namespace vorna
