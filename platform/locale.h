// The user's locale, as far as the system asks for it: the first choice of the language, the
// numbers in settings files, and the machine's default text of a date and time.
#pragma once

#include "platform/clock.h"

#include <string>
#include <string_view>

namespace vorna {

struct Locale {
    std::string englishLanguageName; // "Czech", "English", ...
    std::string decimalSeparator;    // UTF-8
    std::string groupSeparator;      // UTF-8; empty when the locale has none
    std::string name;                // "cs_CZ"
};

// The locale of a name such as "cs_CZ"; an empty name means the user's own. A name that is not
// known gives the nearest that is.
Locale localeByName(std::string_view name);

// The machine's default text: the numeric date with a four-digit year, one blank, the time with
// seconds.
std::string defaultDateTimeText(const Locale& locale, LocalTime time);

// A number in the locale's notation, with the shortest digits that give it back as a
// single-precision number: 37412.45 is "37412,45" in Czech.
std::string numberText(const Locale& locale, float number);

// The number that a text in the locale's notation holds: blanks at the ends, a sign, groups of
// three digits, one decimal separator, an exponent. Failure for any other text, the empty one too.
double numberOfText(const Locale& locale, std::string_view text);

} // namespace vorna
