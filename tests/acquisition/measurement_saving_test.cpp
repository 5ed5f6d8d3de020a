#include "acquisition/measurement_saving.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

class MeasurementSavingTest : public ::testing::Test {
protected:
    void SetUp() override {
        place.openReference();
        place.useClient("a82654,5");
    }

    FinishedMeasurement measurement(std::string box1 = "7") {
        FinishedMeasurement result{.setLabel = "P-Pramene", .sada = 1, .clientLabel = "Žák_Jan"};
        result.boxTexts[1] = std::move(box1);
        return result;
    }
    MeasurementRecord saved(const FinishedMeasurement& finished) {
        const SavedMeasurement written = writeMeasurement(session, finished, platform.clock.now());
        EXPECT_TRUE(written.stored);
        return readMeasurement(currentClientFile(session, written.name));
    }
    std::vector<std::string> files() {
        return listFiles(session.clientsFolder / session.currentClientFolder, "*");
    }

    Workplace place;
    Session& session = place.session;
    TestPlatform platform;
};

TEST_F(MeasurementSavingTest, TheNameCarriesWhatTheRecordDoesNot) {
    FinishedMeasurement finished = measurement();
    finished.kindIndex = 2; // the chooser was changed behind the run of set 1
    session.mode = modeApm;
    EXPECT_EQ(writeMeasurement(session, finished, platform.clock.now()).name,
              "250131143005_B_Žák_Jan~Dvořák^A.daf");
    EXPECT_EQ(files(), std::vector<std::string>{"250131143005_B_Žák_Jan~Dvořák^A.daf"});
}

TEST_F(MeasurementSavingTest, BoxesGoToTheSlotsOfTheirSet) {
    FinishedMeasurement finished = measurement();
    for (std::size_t box = 1; box <= slotCount; ++box)
        finished.boxTexts[box] = std::to_string(box);
    const MeasurementRecord record = saved(finished);
    EXPECT_EQ(record.setLabel, "P-Pramene");
    for (std::size_t box = 1; box <= slotCount; ++box) // 1, 13, 2, 14, ...
        EXPECT_EQ(record.values[(box + 1) / 2 + (box % 2 == 0 ? 12 : 0)], int(box) * 30) << box;

    finished.sada = 2; // one point only, and in another slot
    EXPECT_EQ(saved(finished).values[5], 30);
    EXPECT_EQ(saved(finished).values[1], 0);
}

TEST_F(MeasurementSavingTest, ABoxIsStoredTimesTheCoefficientOrStays0) {
    struct Case {
        const char *rule, *box;
        std::int16_t koef;
        std::int32_t stored;
    };
    const Case cases[] = {
        {"a whole number", "7", 30, 210},
        {"an empty box is no value", "", 30, 0},
        {"nor is a text", "7x", 30, 0},
        {"a tie goes to the even neighbour below", "0.5", 5, 2},
        {"and above", "1.5", 5, 8},
        {"the largest", "2147483647", 1, 2147483647},
        {"beyond 32 bits", "71582789", 30, 0},
        {"a coefficient of 0", "7", 0, 0},
        {"a negative one", "7", -2, -14},
    };
    for (const Case& c : cases) {
        session.koef = c.koef;
        FinishedMeasurement finished = measurement(c.box);
        finished.boxTexts[3] = "1"; // what follows a failing box is stored all the same
        const MeasurementRecord record = saved(finished);
        EXPECT_EQ(record.values[1], c.stored) << c.rule;
        EXPECT_EQ(record.values[2], c.koef) << c.rule;
    }
}

TEST_F(MeasurementSavingTest, AFileThatCannotBeWrittenIsPassedOverWithoutAWord) {
    const auto save = [&](const FinishedMeasurement& finished) {
        return writeMeasurement(session, finished, platform.clock.now()).stored;
    };
    for (const char* const label : {"Žák?_Jan", "Žák/_Jan", "Žák_\"Jan\"", "Žák\\_Jan"}) {
        FinishedMeasurement finished = measurement();
        finished.clientLabel = label;
        EXPECT_FALSE(save(finished)) << label;
    }
    FinishedMeasurement finished = measurement();
    finished.setLabel = std::string(203, 'x');
    EXPECT_FALSE(save(finished)) << "the label is too long";
    {
        const FullDisk disk(299);
        EXPECT_FALSE(save(measurement())) << "the disk is full";
    }
    EXPECT_EQ(files(), std::vector<std::string>{});
    session.currentClientFolder = "gone";
    EXPECT_FALSE(save(measurement())) << "the folder is gone";
    session.currentClientFolder = "a82654,5";
    session.referenceDb.reset();
    EXPECT_EQ(saved(measurement()).values, MeasurementRecord{}.values) << "no database";
}

TEST_F(MeasurementSavingTest, ACopyIsTextOnTheClipboard) {
    MeasurementRecord record;
    record.values[1] = 210;
    record.values[24] = -5;
    std::string values = "\r\n210";
    for (int k = 2; k < 24; ++k)
        values += "\r\n0";
    values += "\r\n-5";
    const std::pair<const char*, const char*> heads[] = {
        {"250131143005_P_Novak_Jan~Dvořák^A.daf", "250131 14:3005_P_Novak_Jan"},
        {"250131143005_P_Žák.daf", "250131 14:3005_P_Žák.daf"},
        {"2501", "2501 :"},
    };
    for (const auto& [name, head] : heads)
        EXPECT_EQ(measurementClipboardText(name, record), head + values);

    const std::string name = writeMeasurement(session, measurement(), platform.clock.now()).name;
    copyMeasurementToClipboard(session, platform.platform, name);
    ASSERT_EQ(platform.clipboard.texts.size(), 1U);
    EXPECT_TRUE(platform.clipboard.texts[0].starts_with("250131 14:3005_P_Žák_Jan\r\n210\r\n0"));
    EXPECT_EQ(platform.dialogs.shown, std::vector<std::string>{"message: Ready"});
}

} // namespace
} // namespace vorna
