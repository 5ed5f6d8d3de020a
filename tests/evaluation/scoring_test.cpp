#include "evaluation/scoring.h"
#include "platform/failure.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(Scoring, AScaledValueRoundsToTheEvenNeighbour) {
    struct Case {
        const char* rule;
        double stored;
        int scaled;
    };
    const Case cases[] = {
        {"2.5", 75, 2},
        {"3.5", 105, 4},
        {"just above a tie", 75.01, 3},
        {"-2.5", -75, -2},
        {"the largest that fits", 983010, 32767},
        {"just below the tie that leaves 16 bits", 983024, 32767},
        {"the smallest", -983040, -32768},
    };
    for (const Case& value : cases)
        EXPECT_EQ(ScaledValue(value.stored, 30), value.scaled) << value.rule;
    EXPECT_THROW(static_cast<void>(ScaledValue(983025, 30)), Failure) << "the tie itself";
    EXPECT_THROW(static_cast<void>(ScaledValue(90, 0)), Failure) << "a koef of 0";
}

TEST(Scoring, AGroupMeanLeavesOutWhatWasNotMeasured) {
    struct Case {
        const char* rule;
        std::int32_t first; // stored values of slots 1, 13 and 2
        std::int32_t second;
        std::int32_t third;
        const char* list;
        std::int32_t mean;
    };
    const Case cases[] = {
        {"a zero is not counted", 0, 90, 0, "1,13", 3},
        {"nor what is below", -90, 90, 0, "1,13", 3},
        {"nothing measured", 0, 0, 0, "1,13,2", 0},
        {"what rounds to 0 was measured and counts", 14, 15, 90, "1,13,2", 1},
        {"each is rounded: 2.5 and 2.5 make 2", 75, 75, 0, "1,13", 2},
        {"then the mean is: 2 and 3 make 2.5, which is 2", 60, 90, 0, "1,13", 2},
        {"3 and 4 make 3.5, which is 4", 90, 120, 0, "1,13", 4},
        {"a place named twice counts twice", 30, 120, 0, "1,1,13", 2},
        {"beyond 16 bits", 2147483647, 2147483647, 0, "1,13", 71582788},
    };
    for (const Case& group : cases) {
        StoredValues values{};
        values[1] = group.first;
        values[13] = group.second;
        values[2] = group.third;
        EXPECT_EQ(GroupMean(values, group.list, 30), group.mean) << group.rule;
    }
    StoredValues values{};
    EXPECT_EQ(GroupMean(values, "1,13", 0), 0) << "nothing is divided";
    values[1] = 30;
    EXPECT_THROW(static_cast<void>(GroupMean(values, "1,13", 0)), Failure);
}

TEST(Scoring, ARawMeanCountsZeros) {
    StoredValues values{};
    values[1] = 5;
    values[2] = 6;
    EXPECT_EQ(rawMean(values, {1, 2, 3, 4}, 4.0), 3) << "2.75";
    EXPECT_EQ(rawMean(values, {1, 2}, 2.0), 6) << "5.5";
    EXPECT_EQ(rawMean(values, {1}, 2.0), 2) << "2.5";
}

// One pair of sides against a reference of 100 while all others stand on it.
struct PairCase {
    const char* rule;
    std::int16_t left;
    std::int16_t right;
    const char* expectedLeft; // class and difference
    const char* expectedRight;
    std::int32_t odchylka = 15;
    std::int32_t rozstep = 50;
    bool zeroGuard = false;
};

std::string told(const ProblemEntry& entry) {
    return entry.flagged()
               ? std::to_string(static_cast<int>(entry.problemClass)) + " " + entry.difference
               : "";
}

void expectPair(const PairCase& pair) {
    constexpr std::size_t place = 7;
    StoredValues ordered;
    ordered.fill(3000);
    ChartValues scaled;
    scaled.fill(100);
    ordered[place] = pair.left * 30;
    ordered[place + 12] = pair.right * 30;
    scaled[place] = pair.left;
    scaled[place + 12] = pair.right;
    const Session session{.odchylka = pair.odchylka, .rozstep = pair.rozstep};
    const ProblemEntries entries = Classify(
        {.ordered = ordered, .scaled = scaled, .reference = 100, .zeroGuard = pair.zeroGuard},
        session);
    EXPECT_EQ(told(entries[place]), pair.expectedLeft) << pair.rule;
    EXPECT_EQ(told(entries[place + 12]), pair.expectedRight) << pair.rule;
    for (std::size_t i = 1; i <= 24; ++i)
        EXPECT_TRUE(i == place || i == place + 12 || !entries[i].flagged()) << pair.rule << i;
}

TEST(Scoring, AMeridiansSidesAreClassified) {
    const PairCase cases[] = {
        {"inside", 115, 85, "", ""},
        {"on the edges of the band of no width", 100, 100, "", "", 0},
        {"one beyond each edge", 116, 84, "2 001", "3 001"},
        {"a difference of just rozstep is none", 120, 70, "2 005", "3 015"},
        {"one more is", 121, 70, "1 051", "1 051"},
        {"the other way round", 70, 121, "1 051", "1 051"},
        {"both above the band", 200, 116, "2 085", "2 001"},
        {"one on its edge", 200, 115, "1 085", "1 085"},
        {"both below", 1, 84, "3 084", "3 001"},
        {"one on the lower edge", 1, 85, "1 084", "1 084"},
        {"three digits and more stand", 32767, 0, "1 32767", "1 32767"},
        {"ten is padded", 125, 100, "2 010", ""},
        {"a pair without a side", 0, 100, "1 100", "1 100"},
        {"the guard leaves it to the levels", 0, 100, "3 085", "", 15, 50, true},
        {"as it does what is below", 100, -10, "", "3 095", 15, 50, true},
        {"and nothing else", 1, 100, "1 099", "1 099", 15, 50, true},
    };
    for (const PairCase& pair : cases)
        expectPair(pair);
}

} // namespace
} // namespace vorna
