#include "platform/clock.h"

#include <array>
#include <ctime>
#include <utility>

namespace vorna {
namespace {

using namespace std::chrono;

LocalTime assemble(year_month_day day, hours h, minutes m, seconds s) {
    return local_days(day) + h + m + s;
}

std::string digits(int value, int width) {
    std::string text = std::to_string(value);
    const auto wanted = static_cast<std::size_t>(width);
    if (text.size() < wanted)
        text.insert(0, wanted - text.size(), '0');
    return text.substr(text.size() - wanted);
}

} // namespace

LocalTime SystemClock::now() const {
    const auto moment = system_clock::now();
    const std::time_t whole = system_clock::to_time_t(floor<seconds>(moment));
    std::tm local{};
    localtime_r(&whole, &local);
    const year_month_day day{year{local.tm_year + 1900},
                             month{static_cast<unsigned>(local.tm_mon + 1)},
                             std::chrono::day{static_cast<unsigned>(local.tm_mday)}};
    const auto fraction = duration_cast<milliseconds>(moment - floor<seconds>(moment));
    return assemble(day, hours{local.tm_hour}, minutes{local.tm_min}, seconds{local.tm_sec}) +
           fraction;
}

std::string formatTime(LocalTime time, std::string_view pattern) {
    const auto midnight = floor<days>(time);
    const year_month_day day{midnight};
    const hh_mm_ss clock{floor<seconds>(time) - midnight};
    const std::array<std::pair<std::string_view, int>, 7> fields{{
        {"yyyy", static_cast<int>(day.year())},
        {"yy", static_cast<int>(day.year()) % 100},
        {"MM", static_cast<int>(static_cast<unsigned>(day.month()))},
        {"dd", static_cast<int>(static_cast<unsigned>(day.day()))},
        {"HH", static_cast<int>(clock.hours().count())},
        {"mm", static_cast<int>(clock.minutes().count())},
        {"ss", static_cast<int>(clock.seconds().count())},
    }};
    std::string text;
    while (!pattern.empty()) {
        std::size_t taken = 0;
        for (const auto& [letters, value] : fields) {
            if (pattern.starts_with(letters)) {
                text += digits(value, static_cast<int>(letters.size()));
                taken = letters.size();
                break;
            }
        }
        if (taken == 0) {
            text += pattern.front();
            taken = 1;
        }
        pattern.remove_prefix(taken);
    }
    return text;
}

std::optional<LocalTime> parseTime(std::string_view text) {
    constexpr std::string_view form = "dddd-dd-ddTdd:dd:dd";
    if (text.size() != form.size())
        return std::nullopt;
    std::array<int, 6> parts{};
    std::size_t part = 0;
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] != 'd') {
            if (text[i] != form[i])
                return std::nullopt;
            ++part;
        } else {
            if (text[i] < '0' || text[i] > '9')
                return std::nullopt;
            parts[part] = parts[part] * 10 + (text[i] - '0');
        }
    }
    const year_month_day day{year{parts[0]}, month{static_cast<unsigned>(parts[1])},
                             std::chrono::day{static_cast<unsigned>(parts[2])}};
    if (!day.ok() || parts[3] > 23 || parts[4] > 59 || parts[5] > 59)
        return std::nullopt;
    return assemble(day, hours{parts[3]}, minutes{parts[4]}, seconds{parts[5]});
}

} // namespace vorna
