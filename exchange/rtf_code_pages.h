// The characters of a rich-text file: the code pages that its bytes are in, and the symbol fonts
// whose bytes stand for signs. What comes out is UTF-8 that any page can hold.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

struct UConverter;

namespace vorna {

// The code page of a font's character set (the number behind \fcharset), 0 when the set names none
// or is unknown: the document's own then.
int codePageOfCharset(int charset);

// The code page of a document that names none, by its language (the number behind \deflang): the
// Western European one where nothing else is known.
int codePageOfLanguage(int language);

enum class RtfSymbols { None, Symbol, Wingdings, Unknown };

// Which signs the bytes of a symbol font stand for, by the font's name.
RtfSymbols symbolsOfFont(std::string_view fontName);

// The sign of a byte, or of its code 0xF000 and above in the private use area. A sign that is not
// known becomes a bullet; without a symbol font the codes of the private use area do too.
char32_t symbolCharacter(RtfSymbols symbols, unsigned char code);

// Adds a character as UTF-8. A line end becomes '\n' and a tab '\t'; other control characters are
// left out, and what is no character becomes U+FFFD.
void appendCharacter(std::string& text, char32_t character);

// Decodes bytes in any of the code pages. One that is not known is read as Western European.
class RtfDecoder {
public:
    RtfDecoder();
    RtfDecoder(const RtfDecoder&) = delete;
    RtfDecoder& operator=(const RtfDecoder&) = delete;
    ~RtfDecoder();

    std::string decode(std::string_view bytes, int codePage);

private:
    struct Close {
        void operator()(UConverter* converter) const;
    };
    UConverter* converterOf(int codePage);

    std::map<std::string_view, std::unique_ptr<UConverter, Close>> converters_; // by their names
};

} // namespace vorna
