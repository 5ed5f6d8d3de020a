#include "platform/locale.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <unicode/dcfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>

namespace vorna {
namespace {

std::string utf8Of(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

icu::Locale icuLocale(std::string_view name) {
    return name.empty() ? icu::Locale::getDefault() : icu::Locale(std::string(name).c_str());
}

// The blanks that Unicode's data puts round the signs of a time become plain ones.
std::string withPlainBlanks(icu::UnicodeString text) {
    text.findAndReplace(icu::UnicodeString(static_cast<char16_t>(0x202F)), icu::UnicodeString(" "));
    text.findAndReplace(icu::UnicodeString(static_cast<char16_t>(0x00A0)), icu::UnicodeString(" "));
    return utf8Of(text);
}

// A pattern in the letters of Unicode's date formats.
std::string bestPattern(icu::DateTimePatternGenerator& generator, const char* skeleton) {
    UErrorCode error = U_ZERO_ERROR;
    return withPlainBlanks(generator.getBestPattern(icu::UnicodeString(skeleton), error));
}

std::string withoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

// Takes the group separators out of the digits before the decimal separator, where they stand
// between groups of three; Failure where they do not.
std::string ungrouped(std::string_view digits, std::string_view separator) {
    if (separator.empty() || digits.find(separator) == std::string_view::npos)
        return std::string(digits);
    std::string result;
    bool first = true;
    for (;;) {
        const std::size_t end = digits.find(separator);
        const std::string_view group = digits.substr(0, end);
        if (first ? group.empty() || group.size() > 3 : group.size() != 3)
            throw Failure("a number is not grouped as the locale does");
        result += group;
        first = false;
        if (end == std::string_view::npos)
            return result;
        digits.remove_prefix(end + separator.size());
    }
}

} // namespace

Locale localeByName(std::string_view name) {
    const icu::Locale locale = icuLocale(name);
    UErrorCode error = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(locale, error);
    icu::UnicodeString language;
    locale.getDisplayLanguage(icu::Locale::getEnglish(), language);
    using Symbols = icu::DecimalFormatSymbols;
    return {.englishLanguageName = utf8Of(language),
            .decimalSeparator = utf8Of(symbols.getSymbol(Symbols::kDecimalSeparatorSymbol)),
            .groupSeparator = utf8Of(symbols.getSymbol(Symbols::kGroupingSeparatorSymbol)),
            .name = locale.getName()};
}

std::string defaultDateTimeText(const Locale& locale, LocalTime time) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::Locale place = icuLocale(locale.name);
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(place, error));
    if (U_FAILURE(error))
        throw Failure("the locale's date cannot be written");
    const std::string pattern =
        withoutBlanks(bestPattern(*patterns, "yMd")) + " " + bestPattern(*patterns, "jms");
    icu::SimpleDateFormat format(icu::UnicodeString::fromUTF8(pattern), place, error);
    if (U_FAILURE(error))
        throw Failure("the locale's date cannot be written");
    format.adoptTimeZone(icu::TimeZone::createTimeZone("GMT"));
    icu::UnicodeString text;
    format.format(static_cast<UDate>(time.time_since_epoch().count()), text);
    return withPlainBlanks(text);
}

std::string numberText(const Locale& locale, float number) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::fixed)
                         .ptr;
    std::string text(buffer.data(), end);
    if (const std::size_t point = text.find('.'); point != std::string::npos)
        text.replace(point, 1, locale.decimalSeparator);
    return text;
}

double numberOfText(const Locale& locale, std::string_view text) {
    text = trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const std::size_t decimal = text.find(locale.decimalSeparator);
    const std::size_t whole = std::min({decimal, text.find_first_of("eE"), text.size()});
    std::string plain = ungrouped(text.substr(0, whole), locale.groupSeparator);
    if (locale.decimalSeparator != "." && plain.find('.') != std::string::npos)
        throw Failure("a number has another locale's separator");
    std::string_view rest = text.substr(whole);
    if (decimal == whole && decimal != std::string_view::npos && decimal < text.size()) {
        plain += '.';
        rest.remove_prefix(locale.decimalSeparator.size());
    }
    plain += rest;
    double number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    const bool digitsFirst = !plain.empty() && plain.front() != '-' && plain.front() != 'i' &&
                             plain.front() != 'n' && plain.front() != 'I' && plain.front() != 'N';
    if (error != std::errc{} || end != plain.data() + plain.size() || !digitsFirst)
        throw Failure("a text is no number");
    return negative ? -number : number;
}

} // namespace vorna
