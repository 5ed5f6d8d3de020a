#include "platform/failure.h"
#include "platform/locale.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace vorna {
namespace {

std::optional<double> numberIn(const char* locale, const char* text) {
    try {
        return numberOfText(localeByName(locale), text);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

TEST(Locale, NumbersAreReadInItsNotationAlone) {
    constexpr std::nullopt_t failure = std::nullopt;
    struct Case {
        const char* text;
        std::optional<double> czech, english, german;
    };
    const Case cases[] = {
        {" 37412 ", 37412, 37412, 37412},
        {"1,5", 1.5, failure, 1.5},
        {"1.5", failure, 1.5, failure},
        {".5", failure, 0.5, failure},
        {",5", 0.5, failure, 0.5},
        {"1.234,5", failure, failure, 1234.5},
        {"1,234.5", failure, 1234.5, failure},
        {"1\u00A0234,5", 1234.5, failure, failure},
        {"12.34.567", failure, failure, failure},
        {"1,5,5", failure, failure, failure},
        {"-3", -3, -3, -3},
        {"+3", 3, 3, 3},
        {"--3", failure, failure, failure},
        {"-", failure, failure, failure},
        {"1e3", 1000, 1000, 1000},
        {"1E-2", 0.01, 0.01, 0.01},
        {"1e", failure, failure, failure},
        {"1e999", failure, failure, failure},
        {"inf", failure, failure, failure},
        {"nan", failure, failure, failure},
        {"0x10", failure, failure, failure},
        {"12 mm", failure, failure, failure},
        {"", failure, failure, failure},
        {"  ", failure, failure, failure},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(numberIn("cs_CZ", c.text), c.czech) << "Czech: " << c.text;
        EXPECT_EQ(numberIn("en_US", c.text), c.english) << "English: " << c.text;
        EXPECT_EQ(numberIn("de_DE", c.text), c.german) << "German: " << c.text;
    }
}

TEST(Locale, NumbersAreWrittenSoThatTheyReadBack) {
    EXPECT_EQ(numberText(localeByName("cs_CZ"), 37412.45F), "37412,45");
    EXPECT_EQ(numberText(localeByName("en_US"), 37412.45F), "37412.45");
    EXPECT_EQ(numberText(localeByName("cs_CZ"), -12000.0F), "-12000");
    using Limits = std::numeric_limits<float>;
    for (const char* const name : {"cs_CZ", "en_US", "de_DE", "ru_RU"})
        for (const float number :
             {0.1F, 37412.5F, 12345678.0F, Limits::max(), Limits::denorm_min()})
            EXPECT_EQ(static_cast<float>(
                          numberOfText(localeByName(name), numberText(localeByName(name), number))),
                      number)
                << name;
}

TEST(Locale, DefaultDateAndTimeHaveOneBlankAndSeconds) {
    struct Case {
        const char *locale, *language, *text;
    };
    const Case cases[] = {
        {"cs_CZ", "Czech", "31.1.2025 4:30:05"},
        {"en_US", "English", "1/31/2025 4:30:05 AM"},
        {"de_DE", "German", "31.1.2025 04:30:05"},
        {"ru_RU", "Russian", "31.01.2025 04:30:05"},
        {"sk_SK.UTF-8", "Slovak", "31.1.2025 4:30:05"},
    };
    for (const Case& c : cases) {
        const Locale locale = localeByName(c.locale);
        EXPECT_EQ(locale.englishLanguageName, c.language);
        EXPECT_EQ(defaultDateTimeText(locale, *parseTime("2025-01-31T04:30:05")), c.text);
    }
    EXPECT_FALSE(localeByName("xx_YY").decimalSeparator.empty()) << "an unknown one still works";
}

} // namespace
} // namespace vorna
