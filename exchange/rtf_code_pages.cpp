#include "exchange/rtf_code_pages.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace vorna {
namespace {

constexpr int westernEuropean = 1252;

struct Pair {
    int key, codePage;
};

template <std::size_t Count>
int find(const Pair (&pairs)[Count], int key, int otherwise) {
    const auto* const found = std::find_if(std::begin(pairs), std::end(pairs),
                                           [key](const Pair& pair) { return pair.key == key; });
    return found == std::end(pairs) ? otherwise : found->codePage;
}

const char* converterName(int codePage) {
    struct Name {
        int codePage;
        const char* name;
    };
    static constexpr Name names[] = {
        {437, "ibm-437"},          {850, "ibm-850"},       {852, "ibm-852"},
        {866, "ibm-866"},          {874, "windows-874"},   {932, "windows-932"},
        {936, "windows-936"},      {949, "windows-949"},   {950, "windows-950"},
        {1250, "windows-1250"},    {1251, "windows-1251"}, {1253, "windows-1253"},
        {1254, "windows-1254"},    {1255, "windows-1255"}, {1256, "windows-1256"},
        {1257, "windows-1257"},    {1258, "windows-1258"}, {10000, "macintosh"},
        {10007, "x-mac-cyrillic"}, {10029, "x-mac-ce"},    {65001, "utf-8"},
    };
    const auto* const found =
        std::find_if(std::begin(names), std::end(names),
                     [codePage](const Name& name) { return name.codePage == codePage; });
    return found == std::end(names) ? "windows-1252" : found->name;
}

// From the code 0x20 on; a bullet where there is no sign.
constexpr std::u32string_view symbolSigns = U" !∀#∃%&∋()∗+,−./0123456789:;<=>?"
                                            U"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
                                            U"‾αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼•";
// From the code 0xA0 on.
constexpr std::u32string_view symbolUpperSigns = U"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…│─↵"
                                                 U"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
                                                 U"◊⟨®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪•⟩∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭•";
static_assert(symbolSigns.size() == 0x60 && symbolUpperSigns.size() == 0x60);

char32_t symbolSign(unsigned char code) {
    if (code >= 0x20 && code < 0x80)
        return symbolSigns[code - 0x20U];
    return code >= 0xA0 ? symbolUpperSigns[code - 0xA0U] : U'•';
}

// The signs that letters use: bullets, boxes, ticks, arrows, hands and faces.
char32_t wingdingsSign(unsigned char code) {
    struct Sign {
        unsigned char code;
        char32_t sign;
    };
    static constexpr Sign signs[] = {
        {0x20, U' '}, {0x22, U'✂'}, {0x29, U'✆'}, {0x2A, U'✉'}, {0x45, U'☜'}, {0x46, U'☞'},
        {0x47, U'☝'}, {0x48, U'☟'}, {0x4A, U'☺'}, {0x4C, U'☹'}, {0x52, U'☼'}, {0x54, U'❄'},
        {0x5B, U'☯'}, {0x6C, U'●'}, {0x6D, U'❍'}, {0x6E, U'■'}, {0x6F, U'□'}, {0x71, U'❑'},
        {0x72, U'❒'}, {0x75, U'◆'}, {0x76, U'❖'}, {0x78, U'☒'}, {0x80, U'⓪'}, {0xA0, U'▪'},
        {0xA1, U'○'}, {0xA4, U'◉'}, {0xA7, U'▪'}, {0xA8, U'□'}, {0xAB, U'★'}, {0xB6, U'☆'},
        {0xD8, U'➢'}, {0xDF, U'←'}, {0xE0, U'→'}, {0xE1, U'↑'}, {0xE2, U'↓'}, {0xE8, U'➔'},
        {0xF0, U'⇨'}, {0xFB, U'✗'}, {0xFC, U'✓'}, {0xFD, U'☒'}, {0xFE, U'☑'},
    };
    if (code >= 0x81 && code <= 0x8A)
        return U'①' + (code - 0x81U);
    if (code >= 0x8C && code <= 0x95)
        return U'❶' + (code - 0x8CU);
    const auto* const found = std::find_if(std::begin(signs), std::end(signs),
                                           [code](const Sign& sign) { return sign.code == code; });
    return found == std::end(signs) ? U'•' : found->sign;
}

} // namespace

int codePageOfCharset(int charset) {
    static constexpr Pair charsets[] = {
        {0, westernEuropean}, {77, 10000}, {128, 932},  {129, 949},  {134, 936},  {136, 950},
        {161, 1253},          {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
        {204, 1251},          {222, 874},  {238, 1250}, {254, 437},  {255, 850},
    };
    return find(charsets, charset, 0);
}

int codePageOfLanguage(int language) {
    // Croatian, Czech, Hungarian, Polish, Romanian, Slovak, Slovenian; Bulgarian, Russian,
    // Ukrainian; Greek; Turkish; the Baltic languages.
    static constexpr Pair languages[] = {
        {1050, 1250}, {1029, 1250}, {1038, 1250}, {1045, 1250}, {1048, 1250},
        {1051, 1250}, {1060, 1250}, {1026, 1251}, {1049, 1251}, {1058, 1251},
        {1032, 1253}, {1055, 1254}, {1061, 1257}, {1062, 1257}, {1063, 1257},
    };
    return find(languages, language, westernEuropean);
}

RtfSymbols symbolsOfFont(std::string_view fontName) {
    if (equalFolded(fontName, "Symbol"))
        return RtfSymbols::Symbol;
    return equalFolded(fontName, "Wingdings") ? RtfSymbols::Wingdings : RtfSymbols::Unknown;
}

char32_t symbolCharacter(RtfSymbols symbols, unsigned char code) {
    switch (symbols) {
    case RtfSymbols::Symbol:
        return symbolSign(code);
    case RtfSymbols::Wingdings:
        return wingdingsSign(code);
    default:
        return code == ' ' ? U' ' : U'•';
    }
}

void appendCharacter(std::string& text, char32_t character) {
    if (character == U'\r' || character == 0x0B || character == 0x0C || character == 0x2028)
        character = U'\n';
    const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
    if (control && character != U'\n' && character != U'\t')
        return;
    if (character > 0x10FFFF || U_IS_UNICODE_NONCHAR(character) || U_IS_SURROGATE(character))
        character = 0xFFFD;
    std::uint8_t bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, character);
    text.append(bytes, bytes + length);
}

RtfDecoder::RtfDecoder() = default;
RtfDecoder::~RtfDecoder() = default;

void RtfDecoder::Close::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

std::string RtfDecoder::decode(std::string_view bytes, int codePage) {
    std::string text;
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0x20 && c < 0x7F; }))
        return text.append(bytes);
    UErrorCode error = U_ZERO_ERROR;
    const icu::UnicodeString characters(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                        converterOf(codePage), error);
    for (std::int32_t at = 0; at < characters.length(); at = characters.moveIndex32(at, 1))
        appendCharacter(text, static_cast<char32_t>(characters.char32At(at)));
    return text;
}

UConverter* RtfDecoder::converterOf(int codePage) {
    const char* const name = converterName(codePage);
    auto& converter = converters_[name];
    if (converter) {
        ucnv_reset(converter.get());
        return converter.get();
    }
    UErrorCode error = U_ZERO_ERROR;
    converter.reset(ucnv_open(name, &error));
    if (U_FAILURE(error))
        throw Failure("a code page is not at hand");
    return converter.get();
}

} // namespace vorna
