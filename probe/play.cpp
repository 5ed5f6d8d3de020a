#include "probe/play.h"

#include "platform/failure.h"

#include <cmath>
#include <locale>
#include <sstream>
#include <string>

namespace vorna {
namespace {

Stretch parseScriptLine(const std::string& line, int number) {
    std::istringstream in(line);
    in.imbue(std::locale::classic());
    double seconds = 0;
    double reading = 0;
    in >> seconds >> reading;
    const bool complete = !in.fail() && (in >> std::ws).eof();
    if (!complete || seconds < 0 || reading < 0 || reading > largestReading)
        throw Failure("line " + std::to_string(number) +
                      " of the script is not \"seconds reading\", with a reading of 0 to 9999");
    return {.seconds = seconds, .from = reading, .to = reading};
}

} // namespace

double lengthOf(const Play& play) {
    double length = 0;
    for (const Stretch& stretch : play.stretches)
        length += stretch.seconds;
    return length;
}

int wholeReading(double reading) {
    const double whole = std::nearbyint(reading);
    if (!(whole >= 0 && whole <= largestReading))
        throw Failure("a reading is not within 0 to 9999");
    return static_cast<int>(whole);
}

int readingAt(const Play& play, double seconds) {
    const double length = lengthOf(play);
    if (seconds >= length && play.repeatFrom < length)
        seconds = play.repeatFrom + std::fmod(seconds - length, length - play.repeatFrom);
    double reading = 0;
    for (const Stretch& stretch : play.stretches) {
        if (seconds < stretch.seconds) {
            reading = std::lerp(stretch.from, stretch.to, seconds / stretch.seconds);
            break;
        }
        seconds -= stretch.seconds;
        reading = stretch.to;
    }
    return wholeReading(reading);
}

Play parseScript(std::string_view text) {
    Play play;
    std::istringstream lines{std::string(text)};
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::size_t begin = line.find_first_not_of(" \t\r");
        if (begin == std::string::npos || line[begin] == '#')
            continue;
        play.stretches.push_back(parseScriptLine(line, number));
    }
    if (play.stretches.empty())
        throw Failure("the script is empty");
    play.repeatFrom = lengthOf(play);
    play.lastPointFrom = play.repeatFrom - play.stretches.back().seconds;
    return play;
}

} // namespace vorna
