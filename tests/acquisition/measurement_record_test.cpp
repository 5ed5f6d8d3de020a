#include "acquisition/measurement_record.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorna {
namespace {

MeasurementRecord sampleRecord(std::string setLabel) {
    MeasurementRecord record{.setLabel = std::move(setLabel)};
    for (std::size_t k = 1; k <= slotCount; ++k)
        record.values[k] = static_cast<std::int32_t>(k * 1000);
    record.values[2] = -1;
    record.values[23] = std::numeric_limits<std::int32_t>::min();
    record.values[24] = std::numeric_limits<std::int32_t>::max();
    return record;
}

TEST(MeasurementRecord, ValuesMoveWithTheLengthOfTheLabel) {
    struct Case {
        const char* rule;
        std::string label;
        std::string head; // up to the first value, 1000
    };
    const Case cases[] = {
        {"no label", "", std::string("\0\0\xE8\x03\0\0", 6)},
        {"10 bytes in the code page", "B-Biorytmů",
         std::string("\x0A\0B-Biorytm\xF9\xE8\x03\0\0", 16)},
        {"the longest", std::string(202, 'x'),
         "\xCA" + std::string(1, '\0') + std::string(202, 'x') + std::string("\xE8\x03\0\0", 4)},
        {"beyond the code page: UTF-8", "Б", std::string("\2\0\xD0\x91\xE8\x03\0\0", 8)},
    };
    for (const Case& c : cases) {
        const MeasurementRecord record = sampleRecord(c.label);
        const std::string bytes = formatMeasurement(record);
        ASSERT_EQ(bytes.size(), 300U) << c.rule;
        EXPECT_EQ(bytes.substr(0, c.head.size()), c.head) << c.rule;
        const std::size_t padding = c.head.size() - 4 + 96;
        EXPECT_EQ(bytes.substr(padding), std::string(300 - padding, '\0')) << c.rule;

        // With the padding, without it, and with foreign bytes in its place and behind the record.
        for (const std::string& end :
             {bytes.substr(padding), std::string{}, std::string(999, '\xFF')}) {
            const MeasurementRecord read = parseMeasurement(bytes.substr(0, padding) + end);
            EXPECT_EQ(read.setLabel, c.label) << c.rule;
            EXPECT_EQ(read.values, record.values)
                << c.rule << ", " << end.size() << " bytes behind";
        }
    }
    EXPECT_THROW(formatMeasurement({.setLabel = std::string(203, 'x')}), Failure);
}

TEST(MeasurementRecord, ACutFileKeepsTheValuesThatAreThere) {
    const MeasurementRecord record = sampleRecord("B-Biorytmů");
    const std::string bytes = formatMeasurement(record);
    for (std::size_t length = 0; length < 12 + 96; ++length) {
        const MeasurementRecord read = parseMeasurement(bytes.substr(0, length));
        const std::size_t whole = length < 12 ? 0 : (length - 12) / 4;
        for (std::size_t k = 1; k <= whole; ++k)
            ASSERT_EQ(read.values[k], record.values[k]) << "cut at " << length;
        for (std::size_t k = whole + 2; k <= slotCount; ++k)
            ASSERT_EQ(read.values[k], 0) << "cut at " << length;
    }
}

TEST(MeasurementRecord, ForeignFilesReadAsSomethingOfTheRightShape) {
    // A label that would reach beyond the record takes what there is, and no value is left.
    const MeasurementRecord tooLong = parseMeasurement("\xFF\xFF" + std::string(100'000, '\xE8'));
    EXPECT_EQ(tooLong.setLabel.size(), 2 * 298U);
    EXPECT_EQ(tooLong.values, MeasurementRecord{}.values);
    // 203 bytes of label push the last byte of the last value out of the record.
    const std::string bytes =
        "\xCB" + std::string(1, '\0') + std::string(203, 'x') + std::string(96, '\x01');
    EXPECT_EQ(parseMeasurement(bytes).values[23], 0x01010101);
    EXPECT_EQ(parseMeasurement(bytes).values[24], 0x00010101);
}

TEST(MeasurementRecord, FilesAreReadAndWrittenWhole) {
    const ScratchFolder folder;
    const fs::path file = folder / "250131143005_P_Žák_Jan~O'Neil^A.daf";
    const MeasurementRecord record = sampleRecord("P-Pramene");
    writeMeasurementFile(file, record);
    EXPECT_EQ(readMeasurement(file).values, record.values);

    EXPECT_THROW(writeMeasurementFile(file, {.setLabel = std::string(203, 'x')}), Failure);
    {
        const FullDisk disk(299);
        EXPECT_THROW(writeMeasurementFile(file, MeasurementRecord{}), Failure);
        EXPECT_THROW(writeMeasurementFile(folder / "new.daf", record), Failure);
    }
    EXPECT_EQ(readMeasurement(file).values, record.values) << "the old file stands whole";
    for (const char* const name : {"a?.daf", "a\"b.daf", "a:b.daf", "a|b.daf"})
        EXPECT_THROW(writeMeasurementFile(folder / name, record), Failure) << name;
    EXPECT_EQ(listFiles(folder.path(), "*").size(), 1U);
}

TEST(MeasurementRecord, AMissingFileIsMadeAndReadsAsZeros) {
    const ScratchFolder folder;
    EXPECT_EQ(readMeasurement(folder / "new.daf").values, MeasurementRecord{}.values);
    EXPECT_EQ(readWholeFile(folder / "new.daf"), "");
    EXPECT_THROW(readMeasurement(folder / "no folder" / "new.daf"), Failure);
    EXPECT_THROW(readMeasurement(folder / "a*b.daf"), Failure);
    EXPECT_THROW(readMeasurement(folder.path()), Failure) << "a folder";
}

} // namespace
} // namespace vorna
