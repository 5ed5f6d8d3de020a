#include "tests/exchange/rtf_shown.h"

namespace vorna {
namespace {

struct LayoutCase {
    const char* rule;
    std::string rtf;
    const char* html;
};

constexpr const char* tables =
    "{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\froman Times New Roman;}{\\f2\\fmodern Courier New;}"
    "{\\f3\\froman Verdana;}{\\f4\\froman Unknown;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red1\\green2\\blue300;}";

TEST(RtfLayout, LettersLook) {
    const LayoutCase cases[] = {
        {"bold, italic, underlined, struck out", "\\b a\\i b\\ul c\\strike d",
         "<b>a</b><b><i>b</i></b><b><i><u>c</u></i></b><b><i><u><s>d</s></u></i></b>"},
        {"switched off", "\\b a\\b0 b\\ul c\\ulnone d\\uldb e\\ul0 f",
         "<b>a</b>b<u>c</u>d<u>e</u>f"},
        {"for the group", "a{\\b b}c", "a<b>b</b>c"},
        {"plain", "\\b\\i\\fs40 a\\plain b",
         "<span style=\"font-size:20pt\"><b><i>a</i></b></span>b"},
        {"above and below the line", "a{\\super 1}{\\sub 2}{\\up6 3}\\super b\\nosupersub c",
         "a<sup>1</sup><sub>2</sub><sup>3b</sup>c"},
        {"colour", "{\\cf2 a}{\\cf3 b}{\\cf1 c}{\\cf0 d}{\\cf9 e}",
         "<span style=\"color:#ff0000\">a</span><span style=\"color:#0102ff\">b</span>cde"},
        {"background", "{\\highlight2 a}{\\cb3 b}",
         "<span style=\"background-color:#ff0000\">a</span>"
         "<span style=\"background-color:#0102ff\">b</span>"},
        {"size", "{\\fs21 a}{\\fs1 b}{\\fs9999 c}{\\fs d}",
         "<span style=\"font-size:10.5pt\">a</span><span style=\"font-size:1pt\">b</span>"
         "<span style=\"font-size:200pt\">c</span>d"},
        {"kind of font", "{\\f1 a}{\\f2 b}{\\f3 c}{\\f4 d}",
         "<span style=\"font-family:serif\">a</span><span style=\"font-family:monospace\">b</span>"
         "c<span style=\"font-family:serif\">d</span>"},
        {"capitals", "{\\caps a}{\\scaps b}",
         "<span style=\"text-transform:uppercase\">a</span>"
         "<span style=\"font-variant:small-caps\">b</span>"},
        {"equal looks join", "{\\b a}{\\b b}", "<b>ab</b>"},
    };
    for (const LayoutCase& c : cases)
        EXPECT_EQ(shownText(tables + c.rtf), "<p>" + std::string(c.html) + "</p>") << c.rule;
}

TEST(RtfLayout, ParagraphsLook) {
    const LayoutCase cases[] = {
        {"alignment", "\\qc a", "margin:0 0 0 0;text-align:center;font-size:12pt"},
        {"indents", "\\li720\\ri360\\fi-360 a",
         "margin:0 18pt 0 36pt;text-indent:-18pt;font-size:12pt"},
        {"nothing hangs out of the page", "\\li200\\fi-800 a",
         "margin:0 0 0 10pt;text-indent:-10pt;font-size:12pt"},
        {"indents beyond any page", "\\li-5\\ri999999\\fi999999999 a",
         "margin:0 200pt 0 0;text-indent:400pt;font-size:12pt"},
        {"space", "\\sb120\\sa60 a", "margin:6pt 0 3pt 0;font-size:12pt"},
        {"lines", "\\sl360\\slmult1 a", "margin:0 0 0 0;line-height:1.87;font-size:12pt"},
        {"lines of a fixed height", "\\sl-360\\slmult0 a", "margin:0 0 0 0;font-size:12pt"},
        {"letters of its end", "\\f1\\fs20 a", "margin:0 0 0 0;font-size:10pt;font-family:serif"},
        {"background", "\\cbpat2 a", "margin:0 0 0 0;font-size:12pt;background-color:#ff0000"},
        {"one border", "\\brdrb\\brdrs\\brdrw20\\brsp40\\brdrcf2 a",
         "margin:0 0 0 0;font-size:12pt;border-bottom:1pt solid #ff0000;padding-bottom:2pt"},
        {"a box", "\\box\\brdrdot\\brdrw5 a",
         "margin:0 0 0 0;font-size:12pt;border:0.5pt dotted #000000"},
        {"a double one can be seen", "\\brdrt\\brdrdb\\brdrw5 a",
         "margin:0 0 0 0;font-size:12pt;border-top:2.25pt double #000000"},
        {"borders of the page are not its own", "\\pgbrdrt\\brdrs\\brdrw20 a",
         "margin:0 0 0 0;font-size:12pt"},
        {"on a new page", "x\\par\\pagebb a",
         "margin:0 0 0 0;font-size:12pt;page-break-before:always"},
        {"kept together", "\\keepn\\keep a",
         "margin:0 0 0 0;font-size:12pt;page-break-after:avoid;page-break-inside:avoid"},
        {"from right to left", "\\rtlpar\\ql a",
         "margin:0 0 0 0;direction:rtl;text-align:left;font-size:12pt"},
    };
    for (const LayoutCase& c : cases)
        EXPECT_NE(pageOf("{\\rtf1" + (tables + c.rtf) + "}")
                      .find("<p style=\"" + std::string(c.html) + "\">a</p>"),
                  std::string::npos)
            << c.rule << ": " << shownText(tables + c.rtf);
}

TEST(RtfLayout, ParagraphsFollowEachOther) {
    const LayoutCase cases[] = {
        {"an empty one has its height", "\\fs20 a\\par\\par b",
         "<p style=\"margin:0 0 0 0;font-size:10pt\">a</p>"
         "<p style=\"margin:0 0 0 0;font-size:10pt\">&#160;</p>"
         "<p style=\"margin:0 0 0 0;font-size:10pt\">b</p>"},
        {"space adds up", "\\sb100\\sa200 a\\par b",
         "<p style=\"margin:5pt 0 0 0;font-size:12pt\">a</p>"
         "<p style=\"margin:15pt 0 10pt 0;font-size:12pt\">b</p>"},
        {"the last one needs no end", "a\\par b\\par", "<p>a</p><p>b</p>"},
        {"looks last", "\\qc a\\par b\\par\\pard c",
         "<p style=\"margin:0 0 0 0;text-align:center;font-size:12pt\">a</p>"
         "<p style=\"margin:0 0 0 0;text-align:center;font-size:12pt\">b</p><p>c</p>"},
        {"a group gives them back", "{\\qr a\\par}b",
         "<p style=\"margin:0 0 0 0;text-align:right;font-size:12pt\">a</p><p>b</p>"},
        {"equal borders are one frame", "\\sa20\\box\\brdrs\\brdrw20 a\\par b",
         "<p style=\"margin:0 0 0 0;font-size:12pt;border-top:1pt solid #000000;"
         "border-right:1pt solid #000000;border-left:1pt solid #000000\">a</p>"
         "<p style=\"margin:0 0 1pt 0;padding-top:1pt;font-size:12pt;border-right:1pt solid "
         "#000000;"
         "border-bottom:1pt solid #000000;border-left:1pt solid #000000\">b</p>"},
        {"a new page", "a\\page b\\page",
         "<p>a</p><p style=\"margin:0 0 0 0;font-size:12pt;page-break-before:always\">b</p>"},
        {"not before the first paragraph", "\\page\\pagebb a", "<p>a</p>"},
        {"a new section", "\\sectd a\\sect\\sectd b\\sect\\sectd\\sbknone c",
         "<p>a</p><p style=\"margin:0 0 0 0;font-size:12pt;page-break-before:always\">b</p>"
         "<p>c</p>"},
    };
    for (const LayoutCase& c : cases)
        EXPECT_EQ(shownText(c.rtf), c.html) << c.rule;
}

std::string box(const char* width, const char* text, const char* more = "") {
    return "<span style=\"display:inline-block;min-width:" + std::string(width) + ";text-indent:0" +
           more + "\">" + text + "</span>";
}

TEST(RtfLayout, TabsLeadToTheirStops) {
    struct Tab {
        const char *rule, *rtf;
        std::string html;
    };
    const Tab cases[] = {
        {"the usual ones", "a\\tab b\\tab c", box("36pt", "a") + box("36pt", "b") + "c"},
        {"of another width", "\\deftab1440 a\\tab b", box("72pt", "a") + "b"},
        {"the paragraph's own", "\\tx2000\\tx1000 a\\tab b\\tab c",
         box("50pt", "a") + box("50pt", "b") + "c"},
        {"one that the text has passed", "\\tx200 mmmmmm\\tab b", box("72pt", "mmmmmm", "") + "b"},
        {"to the right", "\\tqr\\tx4000 a\\tab 12",
         box("6.95pt", "a") + box("193.05pt", "12", ";text-align:right")},
        {"centred", "\\tqc\\tx4000 a\\tab 12",
         box("6.95pt", "a") + box("386.1pt", "12", ";text-align:center")},
        {"to the right from the start", "\\tqr\\tx4000\\tab 12",
         box("0.05pt", "") + box("200pt", "12", ";text-align:right")},
        {"behind an aligned one", "\\tqr\\tx2000\\tx3000 a\\tab 12\\tab b",
         box("6.95pt", "a") + box("93.05pt", "12", ";text-align:right;margin-right:50pt") + "b"},
        {"in a new line", "a\\tab b\\line c\\tab d",
         box("36pt", "a") + "b<br/>" + box("36pt", "c") + "d"},
        {"at the start", "\\tab a", box("36pt", "") + "a"},
        {"behind text that may wrap",
         "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\\tab b",
         "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\u2003b"},
    };
    for (const Tab& c : cases)
        EXPECT_EQ(shownText(c.rtf), "<p>" + c.html + "</p>") << c.rule;
    EXPECT_EQ(shownText("\\qc a\\tab b"),
              "<p style=\"margin:0 0 0 0;text-align:center;font-size:12pt\">a\u2003b</p>");
    // A label and its text, as in the templates of the client's documents.
    EXPECT_EQ(shownText("\\li2835\\fi-2835\\tx2835 {\\b a: }\\tab b"),
              "<p style=\"margin:0 0 0 141.75pt;text-indent:-141.75pt;font-size:12pt\">" +
                  box("141.75pt", "<b>a: </b>") + "b</p>");
}

TEST(RtfLayout, ListsHaveTheirMarks) {
    const std::string hanging = "<p style=\"margin:0 0 0 72pt;text-indent:-36pt;font-size:12pt\">";
    const std::string lists =
        "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat3{\\leveltext\\'02\\'00.;}"
        "{\\levelnumbers\\'01;}\\fi-720\\li1440}{\\listlevel\\levelnfc4{\\leveltext\\'04\\'00.\\'"
        "01)"
        ";}\\fi-720\\li1440}{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3929 ?;}\\fi-720\\li1440}"
        "{\\listlevel\\levelnfc255{\\leveltext\\'00;}}{\\listname n;}\\listid9}}"
        "{\\*\\listoverridetable{\\listoverride\\listid9\\listoverridecount0\\ls1}}";
    const auto item = [&](const char* mark, const char* text) {
        return hanging + box("36pt", mark) + text + "</p>";
    };
    EXPECT_EQ(
        shownText("{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'95}}\\fi-720\\li1440 a\\par"
                  "{\\pntext\\'95\\tab}b\\par"),
        item("•", "a") + item("•", "b"));
    EXPECT_EQ(shownText("{\\listtext\\pard\\plain 1.\\tab}\\fi-720\\li1440\\ls1 a\\par"),
              item("1.", "a"))
        << "the mark that the text has";
    const std::string numbered = lists + "\\ls1 a\\par b\\par\\ilvl1 c\\par d\\par\\ilvl0 e\\par"
                                         "\\ilvl1 f\\par\\ilvl2 g\\par";
    EXPECT_EQ(shownText(numbered), item("3.", "a") + item("4.", "b") + item("4.a)", "c") +
                                       item("4.b)", "d") + item("5.", "e") + item("5.a)", "f") +
                                       item("•", "g"));
    EXPECT_EQ(shownText(lists + "\\ls1\\ilvl3 a\\par\\ls7 b\\par\\ilvl8\\ls1 c\\par\\ls0 d"),
              "<p>a</p><p>b</p><p>c</p><p>d</p>")
        << "no marks, no such list, no such level, no list";
    EXPECT_EQ(shownText(lists + "{\\listtext x\\tab}a\\par\\ls1 b\\par"),
              "<p>" + box("36pt", "x") + "a</p><p>b</p>")
        << "a file that writes its marks writes them all";
}

} // namespace
} // namespace vorna
