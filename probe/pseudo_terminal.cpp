#include "probe/pseudo_terminal.h"

#include "platform/failure.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace vorna {

PseudoTerminal::PseudoTerminal() : descriptor_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    std::array<char, 128> name{};
    if (descriptor_ < 0 || grantpt(descriptor_) != 0 || unlockpt(descriptor_) != 0 ||
        ptsname_r(descriptor_, name.data(), name.size()) != 0 ||
        fcntl(descriptor_, F_SETFL, O_NONBLOCK) != 0) {
        if (descriptor_ >= 0)
            ::close(descriptor_);
        throw Failure("the system gives no pseudo-terminal");
    }
    path_ = name.data();
    reset();
}

PseudoTerminal::~PseudoTerminal() {
    ::close(descriptor_);
}

bool PseudoTerminal::hasReader() const {
    pollfd state{.fd = descriptor_, .events = 0, .revents = 0};
    return poll(&state, 1, 0) == 0 || (state.revents & POLLHUP) == 0;
}

std::size_t PseudoTerminal::write(std::string_view text) const {
    const ssize_t written = ::write(descriptor_, text.data(), text.size());
    return written > 0 ? static_cast<std::size_t>(written) : 0;
}

std::string PseudoTerminal::read() const {
    std::array<char, 256> buffer{};
    const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string{};
}

void PseudoTerminal::reset() const {
    const int other = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (other < 0)
        return;
    termios settings{};
    if (tcgetattr(other, &settings) == 0) {
        cfmakeraw(&settings);
        tcsetattr(other, TCSANOW, &settings);
    }
    tcflush(other, TCIOFLUSH);
    ::close(other);
}

} // namespace vorna
