// A measurement's record and its name out of any bytes.
#include "acquisition/measurement_name.h"
#include "acquisition/measurement_record.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static_cast<void>(vorna::parseMeasurement(bytes));
    for (const auto read : {&vorna::vratdatum, &vorna::vrattyp, &vorna::vratuz, &vorna::vratapmtcm})
        static_cast<void>(read(bytes));
    return 0;
}
