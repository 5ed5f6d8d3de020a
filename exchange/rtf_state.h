// What a group of a rich-text file changes and its end gives back.
#pragma once

#include "exchange/rtf_formats.h"

#include <cstdint>
#include <string_view>

namespace vorna {

// Where the text of a group goes.
enum class RtfDestination : std::uint8_t {
    Body,
    Nowhere,
    Fonts,
    Colours,
    Styles,
    Generator, // the name of the program that wrote the document
    Lists,
    ListLevelText,
    Picture,
    FieldInstruction,
    FormField,
    Shape,        // a drawing, of which only pictures and text boxes count
    Object,       // an embedded object, of which only its last picture counts
    Alternatives, // the same text twice, of which the Unicode form counts
};

struct RtfState {
    RtfDestination destination = RtfDestination::Body;
    bool opensDestination = false; // the group's end is the destination's
    bool flat = false;             // the text joins the paragraph around it
    bool endsFootnote = false;     // the group's end is the footnote's
    bool endsTextBox = false;
    bool inListMark = false;
    bool inNestedRow = false;
    bool inTable = false;
    bool skipsResult = false; // the result of the field is shown otherwise
    int tableDepth = 0;
    int list = 0;
    int listLevel = 0;
    int fallbackCount = 1; // characters behind \u for readers without Unicode
    int font = -1;         // -1: the document's default font
    int fieldLink = -1;    // for the result of the field
    RtfCharacterFormat character;
    RtfParagraphWords paragraph;
};

// The character that a control word stands for, 0 for other words.
char32_t characterOfWord(std::string_view word);

// True for a group that no page shows: headers, footers, style sheets, the file's properties, ...
bool isLeftOut(std::string_view word);

} // namespace vorna
