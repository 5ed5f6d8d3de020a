// The date and time, always asked of this seam, so that tests and the headless tool can choose it.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// A moment on the wall clock of the workplace, without a zone.
using LocalTime = std::chrono::local_time<std::chrono::milliseconds>;

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual LocalTime now() const = 0;
};

// The machine's own clock in its own time zone.
class SystemClock final : public Clock {
public:
    [[nodiscard]] LocalTime now() const override;
};

// A clock that stands until it is moved; the virtual event loop moves it with its waits.
class VirtualClock final : public Clock {
public:
    explicit VirtualClock(LocalTime start) : now_(start) {}
    [[nodiscard]] LocalTime now() const override { return now_; }
    void moveTo(LocalTime time) { now_ = time; }

private:
    LocalTime now_;
};

// The moment in a pattern of the letters yyyy, yy, MM, dd, HH, mm, ss; all else stands as it is.
// So "yyMMddHHmmss" gives the twelve digits that a measurement's name begins with.
std::string formatTime(LocalTime time, std::string_view pattern);

// Reads YYYY-MM-DDTHH:MM:SS; nothing when the text is no such moment.
std::optional<LocalTime> parseTime(std::string_view text);

} // namespace vorna
