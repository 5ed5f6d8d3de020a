#include "acquisition/measurement_name.h"

#include "core/session.h"
#include "platform/text.h"

namespace vorna {
namespace {

// A mark counts from the second character on.
std::size_t findMark(std::string_view name, char mark) {
    const std::size_t at = name.find(mark);
    return at == 0 ? std::string_view::npos : at;
}

} // namespace

std::string vratdatum(std::string_view name) {
    const auto two = [&](std::size_t position) {
        return std::string(characters(name, position, 2));
    };
    return two(5) + "." + two(3) + ".20" + two(1) + " " + two(7) + ":" + two(9) + ":" + two(11);
}

std::string vrattyp(std::string_view name) {
    return std::string(characters(name, 14, 1));
}

std::string vratuz(std::string_view name) {
    const std::size_t tilde = findMark(name, '~');
    const std::size_t caret = findMark(name, '^');
    if (tilde == std::string_view::npos)
        return {};
    if (caret == std::string_view::npos)
        return std::string(withoutLastCharacters(name.substr(tilde + 1), 4));
    return caret < tilde ? std::string{} : std::string(name.substr(tilde + 1, caret - tilde - 1));
}

std::string vratapmtcm(std::string_view name) {
    const std::size_t caret = findMark(name, '^');
    return caret == std::string_view::npos
               ? "A"
               : std::string(firstCharacters(name.substr(caret + 1), 1));
}

std::int16_t setOfKindLetter(std::string_view letter) {
    return letter == "P"   ? std::int16_t{1}
           : letter == "T" ? std::int16_t{2}
           : letter == "B" ? std::int16_t{3}
                           : std::int16_t{4};
}

char kindLetterOfSet(int sada) {
    switch (sada) {
    case 1:
        return 'P';
    case 2:
        return 'T';
    case 3:
        return 'B';
    default:
        return 'E';
    }
}

char modeLetter(std::int16_t mode) {
    return mode == modeApm ? 'A' : 'T';
}

std::string clientLabel(std::string_view surname, std::string_view firstName) {
    return std::string(surname) + "_" + std::string(firstName);
}

std::string formatMeasurementName(const MeasurementNameParts& parts) {
    return formatTime(parts.time, "yyMMddHHmmss") + "_" + parts.kindLetter + "_" +
           parts.clientLabel + "~" + parts.practitioner + "^" + parts.modeLetter + ".daf";
}

} // namespace vorna
