// One measurement of one client: one `.daf` file with one record.
//
//   offset  size     content (little-endian)
//   0       2        n, byte length of the label, 0 to 202
//   2       n        label, Windows-1250 (UTF-8 when a character does not fit), not terminated
//   2+n     96       24 signed 32-bit stored values, slots 1 to 24
//   98+n    202-n    padding up to 300 bytes; written as zero, never read
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vorna {

inline constexpr int slotCount = 24;
// Slot k and slot k + pairDistance are one channel on the two sides of the body.
inline constexpr int pairDistance = 12;

struct MeasurementRecord {
    std::string setLabel; // UTF-8; informative only
    // Stored values of slots 1 to 24, [0] unused: chart units times `koef`; 0 is "not measured".
    std::array<std::int32_t, slotCount + 1> values{};
};

// Never fails: missing bytes read as zero, and what lies behind the record is not looked at.
MeasurementRecord parseMeasurement(std::string_view bytes);

// The 300 bytes. Failure when the label is longer than 202 bytes.
std::string formatMeasurement(const MeasurementRecord& record);

// Reads a file; one that does not exist is made, empty, and reads as zeros. Failure when the file
// can be neither read nor made.
MeasurementRecord readMeasurement(const std::filesystem::path& path);

// Failure when the label is too long or the file cannot be written; no half file stays.
void writeMeasurementFile(const std::filesystem::path& path, const MeasurementRecord& record);

} // namespace vorna
