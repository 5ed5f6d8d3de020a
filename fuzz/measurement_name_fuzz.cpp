// The readers of a measurement's name on any bytes, and a name made of any parts and read again.
#include "acquisition/measurement_name.h"
#include "fuzz/support.h"
#include "platform/text.h"

#include <string>

namespace {

using namespace vorna;
using fuzz::require;

constexpr auto none = std::string_view::npos;

void readAny(std::string_view name) {
    require(vratdatum(name).size() <= name.size() + std::string_view("..20 ::").size());
    require(firstCharacters(vrattyp(name), 1) == vrattyp(name));
    require(firstCharacters(vratapmtcm(name), 1) == vratapmtcm(name));
    require(name.find(vratuz(name)) != none);
}

// Surname, first name and practitioner in lines of their own; the first byte chooses the rest.
void writeAndRead(std::string_view bytes) {
    const unsigned choice = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
    std::vector<std::string_view> lines = split(bytes.substr(bytes.empty() ? 0 : 1), '\n');
    lines.resize(3);
    const std::string label = clientLabel(lines[0], lines[1]);
    const std::string practitioner(lines[2]);
    if (label.find_first_of("~^") != none || practitioner.find('^') != none)
        return; // such a name reads otherwise
    const LocalTime time = *parseTime("2000-02-28T23:59:58") + std::chrono::hours(choice * 977);
    const int set = static_cast<int>(choice % 4) + 1;
    const std::string name = formatMeasurementName(
        {time, kindLetterOfSet(set), label, practitioner, choice % 2 == 0 ? 'A' : 'T'});
    require(vratdatum(name) == formatTime(time, "dd.MM.yyyy HH:mm:ss"));
    require(setOfKindLetter(vrattyp(name)) == set);
    require(vratuz(name) == practitioner);
    require(vratapmtcm(name) == (choice % 2 == 0 ? "A" : "T"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    readAny(fuzz::textOf(data, size));
    writeAndRead(fuzz::textOf(data, size));
    return 0;
}
