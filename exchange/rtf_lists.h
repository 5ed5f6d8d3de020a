// The numbers and bullets of lists, for documents that describe their lists and leave the marks to
// the reader. Most write the mark of each paragraph into its text as well, and are taken by that.
#pragma once

#include "exchange/rtf_tokens.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vorna {

struct RtfListMark {
    std::string text;
    int left = 0; // twips, for a paragraph that sets no indents
    int first = 0;
};

class RtfLists {
public:
    // One control word of the tables of lists.
    void takeWord(const RtfToken& word);

    // The text of the level that was named last, in UTF-8: its length as one byte, then characters
    // and, as bytes 0 to 8, the places of the levels' numbers; a semicolon ends it.
    void setLevelText(const std::string& text);

    // The mark of the next paragraph of a list, by the numbers behind \ls and \ilvl. Nothing when
    // no such list is described or it shows no marks.
    std::optional<RtfListMark> nextMark(int list, int level);

private:
    static constexpr std::size_t levelCount = 9;
    struct Level {
        int kind = 0; // 0 plain numbers, 1 and 2 Roman, 3 and 4 letters, 23 bullets, 255 nothing
        int start = 1;
        std::string text;
        int left = 0;
        int first = 0;
    };
    struct List {
        std::vector<Level> levels;
        std::array<int, levelCount> counters{};
        std::array<bool, levelCount> counting{};
    };
    static std::string number(int value, int kind);
    static std::string expanded(const List& list, std::size_t level);
    Level* currentLevel();

    std::vector<List> lists_;
    std::map<int, std::size_t> byId_;
    std::map<int, int> idOf_; // by the number behind \ls
    int id_ = 0;
    bool inOverrides_ = false;
};

} // namespace vorna
