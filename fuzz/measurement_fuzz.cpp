// A measurement's record out of any bytes, and there and back again.
#include "acquisition/measurement_record.h"
#include "fuzz/support.h"
#include "platform/encoding.h"
#include "platform/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vorna;
    const MeasurementRecord record = parseMeasurement(fuzz::textOf(data, size));
    attempt([&] {
        const std::string bytes = formatMeasurement(record);
        fuzz::require(bytes.size() == 300);
        const MeasurementRecord again = parseMeasurement(bytes);
        fuzz::require(again.values == record.values);
        // A label in the code page may pass for UTF-8, and a mark at its front is not the label's.
        const std::string label = encodeTextFile({.text = record.setLabel});
        fuzz::require(again.setLabel == record.setLabel || isUtf8(label));
        fuzz::require(formatMeasurement(again).size() == bytes.size());
    });
    return 0;
}
