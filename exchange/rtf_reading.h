// The reading of a rich-text file: the state that its tokens change one after the other.
#pragma once

#include "exchange/rtf_body.h"
#include "exchange/rtf_code_pages.h"
#include "exchange/rtf_fonts.h"
#include "exchange/rtf_formats.h"
#include "exchange/rtf_lists.h"
#include "exchange/rtf_pictures.h"
#include "exchange/rtf_state.h"
#include "exchange/rtf_styles.h"
#include "exchange/rtf_tokens.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vorna {

class RtfReading {
public:
    explicit RtfReading(std::string_view bytes) : tokens_(bytes) { states_.emplace_back(); }

    RtfDocument read();

private:
    using Handler = void (*)(RtfReading&, const RtfToken&);
    using Handlers = std::unordered_map<std::string_view, Handler>;
    static const Handlers& groupWords();
    static const Handlers& bodyWords();

    RtfState& state() { return states_.back(); }
    template <RtfDestination destination>
    static void enter(RtfReading& reader, const RtfToken&) {
        reader.enter(destination);
    }

    void take(const RtfToken& token);
    void beginGroup();
    void endGroup();
    void enter(RtfDestination destination);
    void enterFlat(bool footnote);
    void enterUnlessShown();
    void enterListMark();
    void enterResult();
    void leave(const RtfState& ended);
    void leaveInstruction();

    void takeWord(const RtfToken& word);
    bool takeTextWord(const RtfToken& word);
    bool takeGroupWord(const RtfToken& word);
    void takeBodyWord(const RtfToken& word);
    void takeFormWord(const RtfToken& word);
    void takeStyle(int number);
    void takeColourWord(const RtfToken& word);
    void takeSymbol(char symbol);

    void takeBytes(std::string_view bytes);
    void takeHexByte(char byte);
    void takeUnicode(int number);
    void addCharacter(char32_t character);
    void addDecoded(std::string_view text);
    void addFlat(std::string text);
    void decodePending();
    bool isFallback();
    RtfCharacterFormat look(const RtfState& of) const;

    int level();
    RtfParagraphEnd paragraphEnd(int atLevel);
    void addListMark(RtfParagraphFormat& format);
    void endParagraph();
    void endCell(int atLevel);
    void endRow(int atLevel);
    void breakPage();
    void beginSection();
    std::span<RtfBorder> borders();
    RtfRowWords& row() { return state().inNestedRow ? nestedRow_ : row_; }

    RtfTokens tokens_;
    std::vector<RtfState> states_; // the first one stands outside the file's own group
    std::size_t deeper_ = 0;       // open groups beyond maxDepth
    bool finished_ = false;
    bool groupBegins_ = false;
    bool starred_ = false; // the group is to be passed over when its word is not known
    RtfFonts fonts_;
    RtfColours colours_;
    int colour_ = noColour; // of the entry that is being read
    RtfStyles styles_;
    RtfLists lists_;
    RtfBody body_;
    RtfDecoder decoder_;
    RtfPictureReader picture_;
    RtfRowWords row_;
    RtfRowWords nestedRow_;
    RtfBorderTarget borderTarget_;
    std::string pendingBytes_;   // text that is not decoded yet
    std::string gathered_;       // of a field's instruction or a list's level
    char32_t highSurrogate_ = 0; // waits for its other half
    int fallbackLeft_ = 0;       // characters to pass over behind \u
    std::optional<bool> ticked_; // the check box of the field that is being read
    bool tickedByDefault_ = false;
    bool listTextSeen_ = false;   // the file writes the marks of its lists into the text
    bool footnoteBegins_ = false; // none of its text was added yet
    bool sectionBegins_ = false;
    bool sectionBreaksPage_ = true;
    std::size_t contentBefore_ = 0; // before the first form of what comes in several forms
};

// Whether the text of such a group counts as text.
bool takesText(RtfDestination destination);

} // namespace vorna
