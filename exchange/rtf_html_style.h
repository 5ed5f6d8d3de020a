// The looks of a document in the words of style sheets.
#pragma once

#include "exchange/rtf_document.h"

#include <string>
#include <string_view>

namespace vorna {

// Twips as points, such as "10.5pt" and "0".
std::string cssLength(int twips);
// "#17655a".
std::string cssColour(int colour);

// Declarations joined by semicolons.
class CssStyle {
public:
    void add(std::string_view property, std::string_view value);
    // A blank and the attribute, or nothing when no declaration was added.
    [[nodiscard]] std::string attribute() const;

private:
    std::string declarations_;
};

// The borders of the sides; all four at once where they are equal. With `padded` the space between
// them and the text too.
void addBorders(CssStyle& style, const RtfBorders& borders, bool padded);

// What a run has beyond the letters of its paragraph, less what has elements of its own (bold,
// italic, underlined, struck out, above and below the line).
CssStyle styleOfRun(const RtfCharacterFormat& format, const RtfCharacterFormat& paragraph);

// The letters of a paragraph.
void addLetters(CssStyle& style, const RtfCharacterFormat& mark);

} // namespace vorna
