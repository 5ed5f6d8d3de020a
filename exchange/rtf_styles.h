// The document's style sheet. Rich text repeats the looks of a style at every paragraph, so the
// sheet is mostly superfluous; but LibreOffice leaves out what a style inherits, and others the
// letters of the basic style.
#pragma once

#include "exchange/rtf_formats.h"

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

namespace vorna {

struct RtfStyle {
    RtfCharacterFormat character;
    int font = -1;
    RtfParagraphWords paragraph;
};

class RtfStyles {
public:
    // One control word of the sheet, and the end of a group in it. The bytes that the word looks
    // into must outlive the styles.
    void takeWord(const RtfToken& word);
    void endEntry() { entry_ = nullptr; }

    // The program that wrote the document, by its own words.
    void takeGenerator(std::string_view name);
    // True when a paragraph has to take all that its style says; otherwise its letters' size and
    // font are enough, since all else stands at the paragraph.
    [[nodiscard]] bool isInherited() const { return inherited_; }

    // By the number behind \s, with what it inherits; null when there is no such style.
    const RtfStyle* style(int number, const RtfColours& colours);

private:
    struct Entry {
        std::vector<RtfToken> words;
        int basedOn = -1;
        bool resolved = false;
        RtfStyle style;
    };

    std::map<int, Entry> entries_;
    Entry* entry_ = nullptr; // the one being read
    bool inherited_ = false;
};

} // namespace vorna
