// The document's table of fonts: what a font means for the bytes that are set in it and for their
// looks. Until the table is read, and for a number that it lacks, the document's own code page
// holds.
#pragma once

#include "exchange/rtf_code_pages.h"
#include "exchange/rtf_document.h"
#include "exchange/rtf_tokens.h"

#include <map>
#include <string>
#include <string_view>

namespace vorna {

struct RtfFont {
    int codePage = 0; // 0: the document's
    RtfSymbols symbols = RtfSymbols::None;
    RtfFamily family = RtfFamily::None;
};

class RtfFonts {
public:
    // One control word of the table, its text, and the end of a group in it.
    void takeWord(const RtfToken& word);
    void takeText(std::string_view text);
    void endEntry();

    void setDefaultFont(int number) { defaultFont_ = number; }
    void setDocumentCodePage(int codePage) { documentCodePage_ = codePage; }
    // Counts only while the document names no code page.
    void setDocumentLanguage(int language) { documentLanguage_ = language; }

    // By the number behind \f; a negative one is the document's default font.
    [[nodiscard]] const RtfFont& font(int number) const;
    [[nodiscard]] int codePage(int font) const;

private:
    struct Entry {
        int number = -1;
        int charset = -1;
        int codePage = 0;
        RtfFamily family = RtfFamily::None;
        std::string name;
    };

    std::map<int, RtfFont> fonts_;
    Entry entry_; // the one being read
    int defaultFont_ = 0;
    int documentCodePage_ = 0;
    int documentLanguage_ = 0;
};

} // namespace vorna
