// The control words that change how characters, paragraphs, borders and table rows look. A value
// out of the range that a page has is moved to its end.
#pragma once

#include "exchange/rtf_document.h"
#include "exchange/rtf_tokens.h"

#include <span>
#include <string_view>
#include <vector>

namespace vorna {

// The document's table of colours, by the number that \cf and its like give.
class RtfColours {
public:
    void add(int colour);
    // noColour for an entry that is missing or left to the reader.
    [[nodiscard]] int at(int index) const;

private:
    std::vector<int> colours_;
};

// Each of these takes one control word and tells whether it was one of its own.
bool applyCharacterWord(RtfCharacterFormat& format, const RtfToken& word,
                        const RtfColours& colours);

// Of some words the next one tells the meaning.
struct RtfParagraphWords {
    RtfParagraphFormat format;
    RtfAlignment nextTab = RtfAlignment::Left;
    int line = 0;
};
bool applyParagraphWord(RtfParagraphWords& words, const RtfToken& word, const RtfColours& colours);

// The words of a row gather the definition of a cell that the word \cellx ends.
struct RtfRowWords {
    RtfRowDefinition row;
    RtfCellDefinition cell;
};
bool applyRowWord(RtfRowWords& words, const RtfToken& word, const RtfColours& colours);

// Whose border the words of borders now speak of.
struct RtfBorderTarget {
    enum class Owner : std::uint8_t { None, Paragraph, Row, Cell };
    Owner owner = Owner::None;
    RtfSide first = rtfTop;
    RtfSide last = rtfTop;
};

// Turns to another border where the word does so.
bool applyBorderTarget(RtfBorderTarget& target, const RtfToken& word);
// Changes all the borders given.
bool applyBorderWord(std::span<RtfBorder> borders, const RtfToken& word, const RtfColours& colours);

} // namespace vorna
