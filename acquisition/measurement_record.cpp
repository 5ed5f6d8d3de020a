#include "acquisition/measurement_record.h"

#include "platform/encoding.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {
namespace {

constexpr std::size_t recordLength = 300;
constexpr std::size_t labelLimit = 202;
constexpr std::size_t valueSize = 4;

// Walks the record's bytes; behind their end everything is zero.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::string_view take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::uint32_t takeNumber(std::size_t size) {
        const std::string_view bytes = take(size);
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i)
            number |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
        return number;
    }

private:
    std::string_view rest_;
};

void appendNumber(std::string& bytes, std::uint32_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i)
        bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
}

} // namespace

MeasurementRecord parseMeasurement(std::string_view bytes) {
    Reader reader(bytes.substr(0, recordLength));
    MeasurementRecord record;
    record.setLabel = decodeTextFile(reader.take(reader.takeNumber(2))).text;
    for (std::size_t k = 1; k <= slotCount; ++k)
        record.values[k] = static_cast<std::int32_t>(reader.takeNumber(valueSize));
    return record;
}

std::string formatMeasurement(const MeasurementRecord& record) {
    const std::string label = encodeTextFile({.text = record.setLabel});
    if (label.size() > labelLimit)
        throw Failure("a set's label does not fit the record");
    std::string bytes;
    bytes.reserve(recordLength);
    appendNumber(bytes, static_cast<std::uint32_t>(label.size()), 2);
    bytes += label;
    for (std::size_t k = 1; k <= slotCount; ++k)
        appendNumber(bytes, static_cast<std::uint32_t>(record.values[k]), valueSize);
    bytes.resize(recordLength, '\0');
    return bytes;
}

MeasurementRecord readMeasurement(const std::filesystem::path& path) {
    if (isForbiddenFileName(pathText(path.filename())))
        throw Failure("a measurement's name is no file name");
    if (isMissing(path))
        createEmptyFile(path);
    return parseMeasurement(readWholeFile(path));
}

void writeMeasurementFile(const std::filesystem::path& path, const MeasurementRecord& record) {
    if (isForbiddenFileName(pathText(path.filename())))
        throw Failure("a measurement's name is no file name");
    writeFileAtomically(path, formatMeasurement(record));
}

} // namespace vorna
