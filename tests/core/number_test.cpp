#include "core/number.h"
#include "platform/failure.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace vorna {
namespace {

template <class Operation>
auto orNothing(Operation operation) -> std::optional<decltype(operation())> {
    try {
        return operation();
    } catch (const Failure&) {
        return std::nullopt;
    }
}

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Number, RoundsTiesToTheEvenNeighbourAndRefusesWhatDoesNotFit) {
    constexpr std::nullopt_t failure = std::nullopt;
    struct Case {
        double number;
        std::optional<int> int16, int32;
    };
    const Case cases[] = {
        {0.5, 0, 0},
        {1.5, 2, 2},
        {2.5, 2, 2},
        {-0.5, 0, 0},
        {-2.5, -2, -2},
        {2.5000001, 3, 3},
        {0.49999999999999994, 0, 0},
        {32767.49, 32767, 32767},
        {32767.5, failure, 32768},
        {-32768.5, -32768, -32768},
        {-32769, failure, -32769},
        {2147483647.4, failure, 2147483647},
        {2147483647.5, failure, failure},
        {-2147483648.5, failure, std::numeric_limits<int>::min()},
        {-2147483649.0, failure, failure},
        {1e300, failure, failure},
        {infinite, failure, failure},
        {notANumber, failure, failure},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(orNothing([&] { return int{roundToInt16(c.number)}; }), c.int16) << c.number;
        EXPECT_EQ(orNothing([&] { return int{roundToInt32(c.number)}; }), c.int32) << c.number;
    }
}

TEST(Number, OperationsThatHaveNoResultFail) {
    EXPECT_EQ(divided(210, 30), 7);
    EXPECT_THROW(divided(1, 0), Failure);
    EXPECT_THROW(divided(0, -0.0), Failure);
    EXPECT_EQ(subtractedInt16(-32767, 1), -32768);
    EXPECT_THROW(subtractedInt16(-32768, 1), Failure);
    EXPECT_THROW(subtractedInt16(32767, -1), Failure);
}

TEST(Number, TextsArePlainDecimal) {
    EXPECT_EQ(decimalText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(decimalText(4.0), "4");
    EXPECT_EQ(decimalText(-0.1), "-0.1");
    EXPECT_EQ(decimalText(1e21), "1000000000000000000000");
    for (const double number : {std::numeric_limits<double>::max(), 2.0 / 3, -5e-324})
        EXPECT_EQ(decimalText(number).find_first_not_of("-.0123456789"), std::string::npos);

    const std::pair<const char*, std::optional<double>> cases[] = {
        {" 7 ", 7},    {"-0.5", -0.5}, {".5", 0.5},  {"1e2", 100}, {"7,5", {}},       {"7 5", {}},
        {"1e999", {}}, {"nan", {}},    {"-inf", {}}, {"0x1F", {}}, {"7\xC2\xA0", {}}, {"", {}},
        {" ", {}},     {"- 7", {}},    {"7.", 7},    {"2/3", {}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(orNothing([&] { return numberOfDecimalText(one.first); }), one.second)
            << one.first;
}

} // namespace
} // namespace vorna
