#include "platform/clock.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(Clock, MomentsAreWrittenByPattern) {
    const LocalTime moment = *parseTime("2009-03-04T05:06:07") + std::chrono::milliseconds{999};
    EXPECT_EQ(formatTime(moment, "yyMMddHHmmss"), "090304050607");
    EXPECT_EQ(formatTime(moment, "dd.MM.yyyy HH:mm"), "04.03.2009 05:06");
    EXPECT_EQ(formatTime(*parseTime("1969-12-31T23:59:59"), "yyyyMMdd HHmmss"), "19691231 235959");
}

TEST(Clock, OnlyRealMomentsAreRead) {
    EXPECT_TRUE(parseTime("2024-02-29T23:59:59"));
    for (const char* const text :
         {"", "2025-01-31", "2025-02-29T00:00:00", "2025-13-01T00:00:00", "2025-00-01T00:00:00",
          "2025-01-31T24:00:00", "2025-01-31T00:60:00", "2025-01-31T00:00:60",
          "2025-01-31 00:00:00", "2025-01-31T00:00:00Z", "2O25-01-31T00:00:00",
          "-025-01-31T00:00:00"})
        EXPECT_FALSE(parseTime(text)) << text;
}

} // namespace
} // namespace vorna
