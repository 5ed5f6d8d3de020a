// The device's end of a pseudo-terminal, whose other end a reader opens like a serial port.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorna {

class PseudoTerminal {
public:
    // Failure when the system has none to give.
    PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    // The path that a reader opens.
    [[nodiscard]] const std::string& path() const { return path_; }
    // Ready to read when the reader has sent something or has left.
    [[nodiscard]] int descriptor() const { return descriptor_; }

    // Whether somebody has the other end open.
    [[nodiscard]] bool hasReader() const;
    // How many characters of the text the reader has room for; these are written.
    std::size_t write(std::string_view text) const;
    // What the reader sent; empty when nothing came.
    [[nodiscard]] std::string read() const;
    // Makes the other end a plain line without echo, and drops what nobody read. Only while there
    // is no reader.
    void reset() const;

private:
    int descriptor_ = -1;
    std::string path_;
};

} // namespace vorna
