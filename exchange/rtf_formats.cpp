#include "exchange/rtf_formats.h"

#include <algorithm>
#include <unordered_map>

namespace vorna {
namespace {

constexpr std::size_t maxColours = 65536;
constexpr std::size_t maxTabs = 32;
constexpr std::size_t maxCells = 64;
constexpr int maxIndent = 8000;
constexpr int maxSpacing = 2000;
constexpr int maxPosition = 30000;

// A control word with its number, where it is looked up.
struct Value {
    int number;
    bool given;
    const RtfColours& colours;

    [[nodiscard]] bool on() const { return !given || number != 0; }
    [[nodiscard]] int orElse(int otherwise) const { return given ? number : otherwise; }
    [[nodiscard]] int within(int lowest, int highest) const {
        return std::clamp(number, lowest, highest);
    }
    [[nodiscard]] int colour() const { return colours.at(number); }
};

template <class Record>
using Words = std::unordered_map<std::string_view, void (*)(Record&, const Value&)>;

template <class Record>
bool apply(const Words<Record>& words, Record& record, const RtfToken& word,
           const RtfColours& colours) {
    const auto found = words.find(word.text);
    if (found == words.end())
        return false;
    found->second(record, {word.numberOr(0), word.number.has_value(), colours});
    return true;
}

using Character = RtfCharacterFormat;

void underline(Character& format, const Value& value) {
    format.underline = value.on();
}

void strike(Character& format, const Value& value) {
    format.strike = value.on();
}

void background(Character& format, const Value& value) {
    format.background = value.colour();
}

const Words<Character>& characterWords() {
    static const Words<Character> words = {
        {"b", [](Character& c, const Value& v) { c.bold = v.on(); }},
        {"i", [](Character& c, const Value& v) { c.italic = v.on(); }},
        {"ul", underline},
        {"uld", underline},
        {"uldash", underline},
        {"uldashd", underline},
        {"uldashdd", underline},
        {"uldb", underline},
        {"ulhwave", underline},
        {"ulldash", underline},
        {"ulth", underline},
        {"ulthd", underline},
        {"ulthdash", underline},
        {"ulthdashd", underline},
        {"ulthdashdd", underline},
        {"ulthldash", underline},
        {"ululdbwave", underline},
        {"ulw", underline},
        {"ulwave", underline},
        {"ulnone", [](Character& c, const Value&) { c.underline = false; }},
        {"strike", strike},
        {"striked", strike},
        {"caps", [](Character& c, const Value& v) { c.capitals = v.on(); }},
        {"scaps", [](Character& c, const Value& v) { c.smallCapitals = v.on(); }},
        {"v", [](Character& c, const Value& v) { c.hidden = v.on(); }},
        {"deleted", [](Character& c, const Value& v) { c.hidden = v.on(); }},
        {"super", [](Character& c, const Value& v) { c.script = v.on() ? 1 : 0; }},
        {"sub", [](Character& c, const Value& v) { c.script = v.on() ? -1 : 0; }},
        {"nosupersub", [](Character& c, const Value&) { c.script = 0; }},
        {"up", [](Character& c, const Value& v) { c.script = v.orElse(6) > 0 ? 1 : 0; }},
        {"dn", [](Character& c, const Value& v) { c.script = v.orElse(6) > 0 ? -1 : 0; }},
        {"fs",
         [](Character& c, const Value& v) {
             c.halfPoints = v.given ? v.within(2, 400) : Character{}.halfPoints;
         }},
        {"cf", [](Character& c, const Value& v) { c.colour = v.colour(); }},
        {"cb", background},
        {"chcbpat", background},
        {"highlight", background},
    };
    return words;
}

using Paragraph = RtfParagraphWords;

template <RtfAlignment alignment>
void align(Paragraph& words, const Value&) {
    words.format.alignment = alignment;
}

template <RtfAlignment alignment>
void alignTab(Paragraph& words, const Value&) {
    words.nextTab = alignment;
}

void left(Paragraph& words, const Value& value) {
    words.format.left = value.within(0, maxIndent);
}

void right(Paragraph& words, const Value& value) {
    words.format.right = value.within(0, maxIndent / 2);
}

void addTab(Paragraph& words, const Value& value) {
    std::vector<RtfTab>& tabs = words.format.tabs;
    const RtfTab tab{value.number, words.nextTab};
    words.nextTab = RtfAlignment::Left;
    if (tab.position <= 0 || tab.position > maxPosition || tabs.size() >= maxTabs)
        return;
    const auto behind = std::find_if(tabs.begin(), tabs.end(), [&tab](const RtfTab& other) {
        return other.position > tab.position;
    });
    tabs.insert(behind, tab);
}

// A fixed height, which no multiple follows, is left to the page, so that nothing is cut.
void lineHeight(Paragraph& words, const Value& value) {
    words.line = value.number > 0 ? value.within(180, 960) : 0;
    words.format.lineMultiple = 0;
}

void lineIsMultiple(Paragraph& words, const Value& value) {
    words.format.lineMultiple = value.on() ? words.line : 0;
}

const Words<Paragraph>& paragraphWords() {
    static const Words<Paragraph> words = {
        {"ql", align<RtfAlignment::Left>},
        {"qr", align<RtfAlignment::Right>},
        {"qc", align<RtfAlignment::Centre>},
        {"qj", align<RtfAlignment::Justified>},
        {"qd", align<RtfAlignment::Justified>},
        {"rtlpar", [](Paragraph& p, const Value&) { p.format.rightToLeft = true; }},
        {"ltrpar", [](Paragraph& p, const Value&) { p.format.rightToLeft = false; }},
        {"pagebb", [](Paragraph& p, const Value& v) { p.format.pageBreakBefore = v.on(); }},
        {"keepn", [](Paragraph& p, const Value& v) { p.format.keepWithNext = v.on(); }},
        {"keep", [](Paragraph& p, const Value& v) { p.format.keepTogether = v.on(); }},
        {"li", left},
        {"lin", left},
        {"ri", right},
        {"rin", right},
        {"fi",
         [](Paragraph& p, const Value& v) { p.format.first = v.within(-maxIndent, maxIndent); }},
        {"sb", [](Paragraph& p, const Value& v) { p.format.before = v.within(0, maxSpacing); }},
        {"sa", [](Paragraph& p, const Value& v) { p.format.after = v.within(0, maxSpacing); }},
        {"sl", lineHeight},
        {"slmult", lineIsMultiple},
        {"tqr", alignTab<RtfAlignment::Right>},
        {"tqdec", alignTab<RtfAlignment::Right>},
        {"tqc", alignTab<RtfAlignment::Centre>},
        {"tx", addTab},
        {"cbpat", [](Paragraph& p, const Value& v) { p.format.background = v.colour(); }},
    };
    return words;
}

using Row = RtfRowWords;
using Merge = RtfCellDefinition::Merge;

void endCell(Row& words, const Value& value) {
    RtfCellDefinition cell = words.cell;
    words.cell = {};
    cell.rightEdge = value.within(-maxPosition, maxPosition);
    if (words.row.cells.size() < maxCells)
        words.row.cells.push_back(cell);
}

template <Merge merge>
void mergeAcross(Row& words, const Value&) {
    words.cell.across = merge;
}

template <Merge merge>
void mergeDown(Row& words, const Value&) {
    words.cell.down = merge;
}

template <RtfVertical vertical>
void stand(Row& words, const Value&) {
    words.cell.vertical = vertical;
}

template <RtfAlignment alignment>
void alignRow(Row& words, const Value&) {
    words.row.alignment = alignment;
}

const Words<Row>& rowWords() {
    static const Words<Row> words = {
        {"trowd", [](Row& r, const Value&) { r = {}; }},
        {"trleft", [](Row& r, const Value& v) { r.row.left = v.within(-maxIndent, maxIndent); }},
        {"trgaph", [](Row& r, const Value& v) { r.row.gap = v.within(0, 1000); }},
        {"trpaddl", [](Row& r, const Value& v) { r.row.gap = v.within(0, 1000); }},
        {"clpadl", [](Row& r, const Value& v) { r.cell.gap = v.within(0, 1000); }},
        {"trql", alignRow<RtfAlignment::Left>},
        {"trqr", alignRow<RtfAlignment::Right>},
        {"trqc", alignRow<RtfAlignment::Centre>},
        {"cellx", endCell},
        {"clmgf", mergeAcross<Merge::First>},
        {"clmrg", mergeAcross<Merge::Next>},
        {"clvmgf", mergeDown<Merge::First>},
        {"clvmrg", mergeDown<Merge::Next>},
        {"clvertalt", stand<RtfVertical::Top>},
        {"clvertalc", stand<RtfVertical::Middle>},
        {"clvertalb", stand<RtfVertical::Bottom>},
        {"clcbpat", [](Row& r, const Value& v) { r.cell.background = v.colour(); }},
    };
    return words;
}

using Owner = RtfBorderTarget::Owner;
using Style = RtfBorder::Style;

template <Style style>
void draw(RtfBorder& border, const Value&) {
    border.style = style;
}

const Words<RtfBorder>& borderWords() {
    static const Words<RtfBorder> words = {
        {"brdrs", draw<Style::Solid>},
        {"brdrth", draw<Style::Solid>},
        {"brdrsh", draw<Style::Solid>},
        {"brdrhair", draw<Style::Solid>},
        {"brdrinset", draw<Style::Solid>},
        {"brdroutset", draw<Style::Solid>},
        {"brdremboss", draw<Style::Solid>},
        {"brdrengrave", draw<Style::Solid>},
        {"brdrwavy", draw<Style::Solid>},
        {"brdrdb", draw<Style::Double>},
        {"brdrtriple", draw<Style::Double>},
        {"brdrwavydb", draw<Style::Double>},
        {"brdrtnthsg", draw<Style::Double>},
        {"brdrthtnsg", draw<Style::Double>},
        {"brdrtnthmg", draw<Style::Double>},
        {"brdrthtnmg", draw<Style::Double>},
        {"brdrtnthlg", draw<Style::Double>},
        {"brdrthtnlg", draw<Style::Double>},
        {"brdrdot", draw<Style::Dotted>},
        {"brdrdash", draw<Style::Dashed>},
        {"brdrdashsm", draw<Style::Dashed>},
        {"brdrdashd", draw<Style::Dashed>},
        {"brdrdashdd", draw<Style::Dashed>},
        {"brdrdashdot", draw<Style::Dashed>},
        {"brdrdashdotdot", draw<Style::Dashed>},
        {"brdrnone", draw<Style::None>},
        {"brdrnil", draw<Style::None>},
        {"brdrtbl", draw<Style::None>},
        {"brdrw", [](RtfBorder& b, const Value& v) { b.width = v.within(0, 240); }},
        {"brdrcf", [](RtfBorder& b, const Value& v) { b.colour = v.colour(); }},
        {"brsp", [](RtfBorder& b, const Value& v) { b.space = v.within(0, 620); }},
    };
    return words;
}

const std::unordered_map<std::string_view, RtfBorderTarget>& borderTargets() {
    static const std::unordered_map<std::string_view, RtfBorderTarget> targets = {
        {"brdrt", {Owner::Paragraph, rtfTop, rtfTop}},
        {"brdrr", {Owner::Paragraph, rtfRight, rtfRight}},
        {"brdrb", {Owner::Paragraph, rtfBottom, rtfBottom}},
        {"brdrl", {Owner::Paragraph, rtfLeft, rtfLeft}},
        {"box", {Owner::Paragraph, rtfTop, rtfLeft}},
        {"clbrdrt", {Owner::Cell, rtfTop, rtfTop}},
        {"clbrdrr", {Owner::Cell, rtfRight, rtfRight}},
        {"clbrdrb", {Owner::Cell, rtfBottom, rtfBottom}},
        {"clbrdrl", {Owner::Cell, rtfLeft, rtfLeft}},
        {"trbrdrt", {Owner::Row, rtfTop, rtfTop}},
        {"trbrdrr", {Owner::Row, rtfRight, rtfRight}},
        {"trbrdrb", {Owner::Row, rtfBottom, rtfBottom}},
        {"trbrdrl", {Owner::Row, rtfLeft, rtfLeft}},
        {"trbrdrh", {Owner::Row, rtfInnerHorizontal, rtfInnerHorizontal}},
        {"trbrdrv", {Owner::Row, rtfInnerVertical, rtfInnerVertical}},
        {"brdrbtw", {}},
        {"brdrbar", {}},
        {"chbrdr", {}},
        {"cldglu", {}},
        {"cldgll", {}},
        {"pgbrdrt", {}},
        {"pgbrdrr", {}},
        {"pgbrdrb", {}},
        {"pgbrdrl", {}},
    };
    return targets;
}

} // namespace

void RtfColours::add(int colour) {
    if (colours_.size() < maxColours)
        colours_.push_back(colour);
}

int RtfColours::at(int index) const {
    const bool known = index >= 0 && static_cast<std::size_t>(index) < colours_.size();
    return known ? colours_[static_cast<std::size_t>(index)] : noColour;
}

bool applyCharacterWord(RtfCharacterFormat& format, const RtfToken& word,
                        const RtfColours& colours) {
    return apply(characterWords(), format, word, colours);
}

bool applyParagraphWord(RtfParagraphWords& words, const RtfToken& word, const RtfColours& colours) {
    return apply(paragraphWords(), words, word, colours);
}

bool applyRowWord(RtfRowWords& words, const RtfToken& word, const RtfColours& colours) {
    return apply(rowWords(), words, word, colours);
}

bool applyBorderTarget(RtfBorderTarget& target, const RtfToken& word) {
    const auto found = borderTargets().find(word.text);
    if (found == borderTargets().end())
        return false;
    target = found->second;
    return true;
}

bool applyBorderWord(std::span<RtfBorder> borders, const RtfToken& word,
                     const RtfColours& colours) {
    if (!borderWords().contains(word.text))
        return false;
    for (RtfBorder& border : borders) {
        apply(borderWords(), border, word, colours);
        border.named = true;
    }
    return true;
}

} // namespace vorna
