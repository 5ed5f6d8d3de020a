// The serial line to the probe. Real: a port of the machine (platform/devices). In tests: a script.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vorna {

// Options that a serial component may have beside its line settings. The device link sets them as
// it always has; nothing depends on them.
enum class SerialOption {
    Flag,    // 1 at each open
    Number,  // 8 when a guided run opens, 9 when the free measurement does
    LineFeed // 10, once at program start
};

// All functions are called on the event loop's thread and come back at once. None of them throws.
class SerialLine {
public:
    virtual ~SerialLine() = default;

    // Opens a port by its device path. False when it did not open: there is none, it may not be
    // used, another program has it, or this line is open already (it then stays as it is).
    virtual bool open(const std::string& devicePath) = 0;

    // Line settings as a text: baud rate, parity letter, data bits, stop bits ("9600,n,8,1"). What
    // the port refuses stays as it was.
    virtual void configure(std::string_view settings) = 0;

    // A component without such options leaves this alone.
    virtual void setOption(SerialOption, int) {}

    // Hands the text to the port without waiting for it to leave. Without effect when the line is
    // closed or the port is gone.
    virtual void send(std::string_view text) = 0;

    // Harmless when closed. Nothing is received any more once it is back.
    virtual void close() = 0;

    // The receive event: called from the event loop, while the line is open, with all that came
    // since the last call, in order and never empty. A port that vanishes says nothing more and
    // counts as closed.
    std::function<void(std::string_view text)> received;
};

// The device path that a `port` setting means: a value that begins with "/" is the path itself,
// COM<n> (in any case) is /dev/ttyUSB<n>. Other values stand as they are, and open nothing.
std::string serialDevicePath(std::string_view port);

} // namespace vorna
