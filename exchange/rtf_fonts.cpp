#include "exchange/rtf_fonts.h"

#include "platform/text.h"

#include <optional>
#include <utility>

namespace vorna {
namespace {

constexpr std::size_t maxFonts = 4096;
constexpr std::size_t maxNameBytes = 64;
constexpr int symbolCharset = 2;

struct NamedFamily {
    std::string_view word;
    RtfFamily family;
};

// The usual fonts. Their names are surer than what files say of them: LibreOffice writes any font
// that it was given as one with serifs.
std::optional<RtfFamily> familyOfName(const std::string& folded) {
    static constexpr NamedFamily names[] = {
        {"arial", RtfFamily::None},
        {"calibri", RtfFamily::None},
        {"dejavu sans", RtfFamily::None},
        {"helvetica", RtfFamily::None},
        {"liberation sans", RtfFamily::None},
        {"ms sans serif", RtfFamily::None},
        {"noto sans", RtfFamily::None},
        {"open sans", RtfFamily::None},
        {"segoe ui", RtfFamily::None},
        {"tahoma", RtfFamily::None},
        {"trebuchet", RtfFamily::None},
        {"verdana", RtfFamily::None},
        {"book antiqua", RtfFamily::Serif},
        {"cambria", RtfFamily::Serif},
        {"garamond", RtfFamily::Serif},
        {"georgia", RtfFamily::Serif},
        {"liberation serif", RtfFamily::Serif},
        {"times", RtfFamily::Serif},
        {"consolas", RtfFamily::Monospace},
        {"courier", RtfFamily::Monospace},
        {"liberation mono", RtfFamily::Monospace},
        {"lucida console", RtfFamily::Monospace},
        {"comic", RtfFamily::Cursive},
    };
    for (const NamedFamily& name : names)
        if (folded.starts_with(name.word))
            return name.family;
    return std::nullopt;
}

// Old files name a script at the end of the font's name instead of its character set.
int codePageOfName(const std::string& folded) {
    struct Script {
        std::string_view suffix;
        int codePage;
    };
    static constexpr Script scripts[] = {
        {" ce", 1250}, {" cyr", 1251}, {" greek", 1253}, {" tur", 1254}, {" baltic", 1257}};
    for (const Script& script : scripts)
        if (folded.ends_with(script.suffix))
            return script.codePage;
    return 0;
}

} // namespace

void RtfFonts::takeWord(const RtfToken& word) {
    static constexpr NamedFamily families[] = {
        {"froman", RtfFamily::Serif},      {"fswiss", RtfFamily::None},
        {"fmodern", RtfFamily::Monospace}, {"fscript", RtfFamily::Cursive},
        {"fdecor", RtfFamily::None},
    };
    if (word.text == "f") {
        endEntry();
        entry_.number = word.numberOr(0);
    } else if (word.text == "fcharset") {
        entry_.charset = word.numberOr(0);
    } else if (word.text == "cpg") {
        entry_.codePage = word.numberOr(0);
    }
    for (const NamedFamily& family : families)
        if (family.word == word.text)
            entry_.family = family.family;
}

void RtfFonts::takeText(std::string_view text) {
    for (const char c : text) {
        if (c == ';')
            endEntry();
        else if (entry_.name.size() < maxNameBytes)
            entry_.name += c;
    }
}

void RtfFonts::endEntry() {
    const Entry entry = std::exchange(entry_, {});
    if (entry.number < 0 || fonts_.size() >= maxFonts)
        return;
    const std::string name = foldCase(trimmed(entry.name));
    RtfFont font;
    font.family = familyOfName(name).value_or(entry.family);
    font.codePage = entry.codePage > 0 ? entry.codePage : codePageOfCharset(entry.charset);
    if (entry.charset <= 0 && codePageOfName(name) != 0)
        font.codePage = codePageOfName(name);
    if (entry.charset == symbolCharset || symbolsOfFont(name) != RtfSymbols::Unknown)
        font.symbols = symbolsOfFont(name);
    fonts_[entry.number] = font;
}

const RtfFont& RtfFonts::font(int number) const {
    static const RtfFont unknown;
    const auto found = fonts_.find(number < 0 ? defaultFont_ : number);
    return found == fonts_.end() ? unknown : found->second;
}

int RtfFonts::codePage(int number) const {
    const int own = font(number).codePage;
    if (own != 0)
        return own;
    return documentCodePage_ != 0 ? documentCodePage_ : codePageOfLanguage(documentLanguage_);
}

} // namespace vorna
