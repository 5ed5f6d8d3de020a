// All that is known of a measurement beside its values stands in the name of its file:
//
//   name    = yymmddhhmmss "_" kind "_" client [ "~" practitioner [ "^" mode ]] ".daf"
//   kind    = P | T | B | E        client = surname "_" first name        mode = A | T
//
// Names from before "~" and "^" came into use still read: without "^" the mode is A, without "~"
// there is no practitioner. Nothing is validated; positions count characters.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorna {

// dd.mm.20yy hh:mm:ss; the century is always 20.
std::string vratdatum(std::string_view name);
// The kind letter, the 14th character; empty when the name is shorter.
std::string vrattyp(std::string_view name);
// The practitioner.
std::string vratuz(std::string_view name);
// The mode letter: A for APM, T for TCM.
std::string vratapmtcm(std::string_view name);

// The set of a kind letter: P 1, T 2, B 3, anything else 4.
std::int16_t setOfKindLetter(std::string_view letter);
// The letter of a set or of the kind chooser's position plus one; 4 and any other give E.
char kindLetterOfSet(int sada);
char modeLetter(std::int16_t mode);

// Surname and first name of the selected client as one word.
std::string clientLabel(std::string_view surname, std::string_view firstName);

struct MeasurementNameParts {
    LocalTime time;
    char kindLetter;
    std::string clientLabel;
    std::string practitioner;
    char modeLetter;
};

// The file name of a new measurement. It is not cleaned: a client's or practitioner's name with a
// character that a file name cannot hold makes the writing fail.
std::string formatMeasurementName(const MeasurementNameParts& parts);

} // namespace vorna
