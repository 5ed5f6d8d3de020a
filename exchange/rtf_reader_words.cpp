#include "exchange/rtf_reading.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vorna {
namespace {

using Destination = RtfDestination;

// Whether a word that names a group means something inside the destination.
bool isExpected(Destination destination, std::string_view word) {
    switch (destination) {
    case Destination::Body:
        return true;
    case Destination::Shape:
        return word == "pict" || word == "shptxt" || word == "dptxbxtext" || word == "shpinst";
    case Destination::Object:
        return word == "result";
    case Destination::Alternatives:
        return word == "ud";
    case Destination::FieldInstruction:
        return word == "formfield";
    case Destination::Lists:
        return word == "leveltext";
    default:
        return false;
    }
}

} // namespace

void RtfReading::takeWord(const RtfToken& word) {
    decodePending();
    const Destination destination = state().destination;
    if (destination == Destination::Nowhere ||
        (takesText(destination) && !starred_ && takeTextWord(word)))
        return;
    fallbackLeft_ = 0;
    if (takeGroupWord(word))
        return;
    if (destination == Destination::Body)
        takeBodyWord(word);
    else if (destination == Destination::Fonts)
        fonts_.takeWord(word);
    else if (destination == Destination::Colours)
        takeColourWord(word);
    else if (destination == Destination::Styles)
        styles_.takeWord(word);
    else if (destination == Destination::Lists)
        lists_.takeWord(word);
    else if (destination == Destination::Picture)
        picture_.takeWord(word);
    else if (destination == Destination::FormField)
        takeFormWord(word);
}

// Whether a check box is ticked: 25 means that it is as its default says.
void RtfReading::takeFormWord(const RtfToken& word) {
    constexpr int asDefault = 25;
    if (word.text == "ffres" && word.number != asDefault)
        ticked_ = word.number == 1;
    else if (word.text == "ffdefres")
        tickedByDefault_ = word.number == 1;
}

// Words that stand for characters.
bool RtfReading::takeTextWord(const RtfToken& word) {
    if (word.text == "u") {
        takeUnicode(word.numberOr(0));
        return true;
    }
    if (word.text == "uc") {
        state().fallbackCount = std::clamp(word.numberOr(1), 0, 1000);
        return true;
    }
    const char32_t character = characterOfWord(word.text);
    if (character != 0 && !isFallback())
        addCharacter(character);
    return character != 0;
}

// Words that tell what a group is for. The file's own group stays the text's.
bool RtfReading::takeGroupWord(const RtfToken& word) {
    const auto found = groupWords().find(word.text);
    const bool known = found != groupWords().end() && isExpected(state().destination, word.text);
    if (known && (groupBegins_ || states_.size() > 2)) {
        found->second(*this, word);
        return true;
    }
    if (!groupBegins_ || states_.size() <= 2 || (!starred_ && !isLeftOut(word.text)))
        return false;
    enter(Destination::Nowhere);
    return true;
}

const RtfReading::Handlers& RtfReading::groupWords() {
    static const Handlers words = {
        {"fonttbl", enter<Destination::Fonts>},
        {"colortbl", enter<Destination::Colours>},
        {"stylesheet", enter<Destination::Styles>},
        {"generator", enter<Destination::Generator>},
        {"listtable", enter<Destination::Lists>},
        {"listoverridetable", enter<Destination::Lists>},
        {"leveltext", enter<Destination::ListLevelText>},
        {"pict", enter<Destination::Picture>},
        {"object", enter<Destination::Object>},
        {"result", enter<Destination::Body>},
        {"upr", enter<Destination::Alternatives>},
        {"ud", enter<Destination::Body>},
        {"do", enter<Destination::Shape>},
        {"shptxt", [](RtfReading& r, const RtfToken&) { r.enterFlat(false); }},
        {"dptxbxtext", [](RtfReading& r, const RtfToken&) { r.enterFlat(false); }},
        {"footnote", [](RtfReading& r, const RtfToken&) { r.enterFlat(true); }},
        {"shpinst",
         [](RtfReading& r, const RtfToken&) {
             r.contentBefore_ = r.body_.contentCount();
             r.enter(Destination::Shape);
         }},
        {"shppict",
         [](RtfReading& r, const RtfToken&) { r.contentBefore_ = r.body_.contentCount(); }},
        {"nonshppict", [](RtfReading& r, const RtfToken&) { r.enterUnlessShown(); }},
        {"shprslt", [](RtfReading& r, const RtfToken&) { r.enterUnlessShown(); }},
        {"field",
         [](RtfReading& r, const RtfToken&) {
             r.state().fieldLink = -1;
             r.state().skipsResult = false;
             r.ticked_.reset();
             r.tickedByDefault_ = false;
         }},
        {"fldinst", enter<Destination::FieldInstruction>},
        {"formfield", enter<Destination::FormField>},
        {"fldrslt", [](RtfReading& r, const RtfToken&) { r.enterResult(); }},
        {"pntext", [](RtfReading& r, const RtfToken&) { r.enterListMark(); }},
        {"listtext", [](RtfReading& r, const RtfToken&) { r.enterListMark(); }},
        {"nesttableprops", [](RtfReading& r, const RtfToken&) { r.state().inNestedRow = true; }},
    };
    return words;
}

void RtfReading::takeBodyWord(const RtfToken& word) {
    const auto found = bodyWords().find(word.text);
    if (found != bodyWords().end()) {
        found->second(*this, word);
        return;
    }
    static_cast<void>(applyCharacterWord(state().character, word, colours_) ||
                      applyParagraphWord(state().paragraph, word, colours_) ||
                      applyBorderTarget(borderTarget_, word) ||
                      applyBorderWord(borders(), word, colours_) ||
                      applyRowWord(row(), word, colours_));
}

const RtfReading::Handlers& RtfReading::bodyWords() {
    static const Handlers words = {
        {"ansicpg",
         [](RtfReading& r, const RtfToken& w) { r.fonts_.setDocumentCodePage(w.numberOr(0)); }},
        {"mac", [](RtfReading& r, const RtfToken&) { r.fonts_.setDocumentCodePage(10000); }},
        {"pc", [](RtfReading& r, const RtfToken&) { r.fonts_.setDocumentCodePage(437); }},
        {"pca", [](RtfReading& r, const RtfToken&) { r.fonts_.setDocumentCodePage(850); }},
        {"deflang",
         [](RtfReading& r, const RtfToken& w) { r.fonts_.setDocumentLanguage(w.numberOr(0)); }},
        {"deff", [](RtfReading& r, const RtfToken& w) { r.fonts_.setDefaultFont(w.numberOr(0)); }},
        {"deftab",
         [](RtfReading& r, const RtfToken& w) {
             r.body_.setTabWidth(std::clamp(w.numberOr(720), 100, 8000));
         }},
        {"f", [](RtfReading& r, const RtfToken& w) { r.state().font = w.numberOr(-1); }},
        {"s", [](RtfReading& r, const RtfToken& w) { r.takeStyle(w.numberOr(0)); }},
        {"plain",
         [](RtfReading& r, const RtfToken&) {
             const int link = r.state().character.link;
             r.state().character = {};
             r.state().character.link = link;
             r.state().font = -1;
         }},
        {"pard",
         [](RtfReading& r, const RtfToken&) {
             r.state().paragraph = {};
             r.state().inTable = false;
             r.state().tableDepth = 0;
             r.state().list = 0;
             r.state().listLevel = 0;
             r.borderTarget_ = {};
         }},
        {"intbl", [](RtfReading& r, const RtfToken& w) { r.state().inTable = w.isOn(); }},
        {"itap",
         [](RtfReading& r, const RtfToken& w) {
             r.state().tableDepth = std::clamp(w.numberOr(1), 0, RtfFlow::deepest);
         }},
        {"ls", [](RtfReading& r, const RtfToken& w) { r.state().list = w.numberOr(0); }},
        {"ilvl", [](RtfReading& r, const RtfToken& w) { r.state().listLevel = w.numberOr(0); }},
        {"par", [](RtfReading& r, const RtfToken&) { r.endParagraph(); }},
        {"sect", [](RtfReading& r, const RtfToken&) { r.beginSection(); }},
        {"sectd", [](RtfReading& r, const RtfToken&) { r.sectionBreaksPage_ = true; }},
        {"sbknone", [](RtfReading& r, const RtfToken&) { r.sectionBreaksPage_ = false; }},
        {"sbkcol", [](RtfReading& r, const RtfToken&) { r.sectionBreaksPage_ = false; }},
        {"page", [](RtfReading& r, const RtfToken&) { r.breakPage(); }},
        {"cell", [](RtfReading& r, const RtfToken&) { r.endCell(1); }},
        {"nestcell", [](RtfReading& r, const RtfToken&) { r.endCell(std::max(r.level(), 2)); }},
        {"row", [](RtfReading& r, const RtfToken&) { r.endRow(1); }},
        {"nestrow", [](RtfReading& r, const RtfToken&) { r.endRow(std::max(r.level(), 2)); }},
    };
    return words;
}

// A style lies below what the paragraph says itself.
void RtfReading::takeStyle(int number) {
    const RtfStyle* const style = styles_.style(number, colours_);
    RtfCharacterFormat plain;
    plain.link = state().character.link;
    if (style == nullptr || state().character != plain || state().font >= 0)
        return;
    state().font = style->font;
    state().character.halfPoints = style->character.halfPoints;
    if (!styles_.isInherited())
        return;
    state().character = style->character;
    state().character.link = plain.link;
    state().paragraph = style->paragraph;
}

void RtfReading::takeColourWord(const RtfToken& word) {
    const int shift = word.text == "red"     ? 16
                      : word.text == "green" ? 8
                      : word.text == "blue"  ? 0
                                             : -1;
    if (shift < 0)
        return;
    const int value = std::clamp(word.numberOr(0), 0, 255);
    colour_ = (std::max(colour_, 0) & ~(0xFF << shift)) | value << shift;
}

void RtfReading::takeSymbol(char symbol) {
    if (symbol == '\\' || symbol == '{' || symbol == '}') {
        takeBytes({&symbol, 1});
        return;
    }
    const Destination destination = state().destination;
    if (destination == Destination::Body && (symbol == '\r' || symbol == '\n')) {
        decodePending();
        endParagraph();
        return;
    }
    const char32_t character = symbol == '~'    ? U'\u00A0'
                               : symbol == '-'  ? U'\u00AD'
                               : symbol == '_'  ? U'\u2011'
                               : symbol == '\t' ? U'\t'
                                                : U'\0';
    if (takesText(destination) && character != 0 && !isFallback())
        addCharacter(character);
}

} // namespace vorna
