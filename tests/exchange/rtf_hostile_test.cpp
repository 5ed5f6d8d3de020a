#include "exchange/rtf_body.h"
#include "tests/exchange/rtf_shown.h"
#include "tests/support/scratch_folder.h"

#include <random>

namespace vorna {
namespace {

constexpr std::size_t kibibyte = 1024;

std::string repeated(std::string_view piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes)
        text += piece;
    return text;
}

std::string sample(const char* name) {
    return readWholeFile(fs::path(VORNA_TEST_SOURCE) / "tests/exchange/rtf" / name);
}

TEST(RtfHostile, FewBytesNeverBecomeManyMore) {
    struct Case {
        const char *rule, *start, *piece;
    };
    const std::string tabs = repeated("\\tx77", 200);
    const std::string cells = "\\trowd" + repeated("\\clbrdrl\\brdrs\\cellx99", 1500);
    const Case cases[] = {
        {"open groups", "", "{"},
        {"ended groups", "", "{}"},
        {"groups that end too often", "", "}{"},
        {"deep groups with looks", "", "{\\b\\i\\cf1\\tx100 a"},
        {"paragraphs", "\\li100\\fi-50\\box\\brdrs\\qj\\sb10", "\\par"},
        {"tabs", "", "\\tab"},
        {"paragraphs with tabs", tabs.c_str(), "\\tab\\par"},
        {"lines", "", "\\line"},
        {"changing looks", "", "\\b a\\b0 a"},
        {"colours", "", "{\\colortbl;\\red1;}"},
        {"fonts", "{\\fonttbl", "{\\f1\\cpg7 a;}"},
        {"styles", "{\\stylesheet", "{\\s1\\sbasedon1\\b;}"},
        {"lists", "{\\*\\listtable", "{\\list{\\listlevel{\\leveltext\\'02\\'00.;}}\\listid1}"},
        {"cells", cells.c_str(), "\\cell"},
        {"rows", cells.c_str(), "\\cell\\row"},
        {"definitions of rows", "", "\\trowd\\cellx1\\cell\\row"},
        {"deep tables", "", "\\itap9\\nestcell\\itap1\\cell"},
        {"edges", "", "\\trowd\\cellx1\\cellx700\\cell\\row\\trowd\\cellx30000\\cell\\row"},
        {"blanks", "", "  "},
        {"ampersands", "", "&&&&<<<<"},
        {"pictures", "", "{\\pict\\pngblip 89504e47}"},
        {"fields", "", "{\\field{\\*\\fldinst HYPERLINK http://a}{\\fldrslt a}}"},
        {"open fields", "", "{\\field{\\*\\fldinst HYPERLINK http://a"},
        {"footnotes", "", "{\\footnote a\\par}"},
        {"Unicode", "", "\\u-10179"},
        {"fallbacks", "\\uc1000", "\\u1"},
        {"signs", "", "\\'e8\\~"},
        {"backslashes", "", "\\"},
        {"long words", "", "\\aaaaaaaaaaaaaaaa"},
        {"long numbers", "", "\\b99999999999999999999-"},
        {"data", "", "\\bin99999999999"},
    };
    for (const Case& c : cases) {
        const std::string rtf = "{\\rtf1" + std::string(c.start) + repeated(c.piece, 64 * kibibyte);
        const RtfDocument document = parseRtf(rtf);
        const std::string page = formatRtfHtml(document, {});
        EXPECT_EQ(rtf_page::faultOf(page), "") << c.rule;
        EXPECT_LT(page.size(), 60 * rtf.size()) << c.rule;
    }
}

TEST(RtfHostile, TextGoesOnBeyondTheBoundsOfParagraphsAndRuns) {
    RtfBody paragraphs;
    for (int i = 0; i < 100'003; ++i) {
        paragraphs.addText("a", {});
        paragraphs.endParagraph({});
    }
    const RtfDocument many = paragraphs.finish({});
    ASSERT_EQ(many.blocks.size(), 100'001U);
    EXPECT_EQ(std::get<RtfParagraph>(many.blocks.back().content).runs.at(0).text, "a\na\na");

    RtfBody runs;
    RtfCharacterFormat bold;
    bold.bold = true;
    for (int i = 0; i < 150'002; ++i) {
        runs.addText("a", {});
        runs.addText("b", bold);
    }
    const RtfDocument lively = runs.finish({});
    const auto& paragraph = std::get<RtfParagraph>(lively.blocks.at(0).content);
    EXPECT_EQ(paragraph.runs.size(), 300'000U);
    EXPECT_EQ(paragraph.runs.back().text, "babab");
}

TEST(RtfHostile, TextBeyondItsBoundEndsWithAWholeCharacter) {
    RtfBody body;
    body.addText(std::string(8192 * kibibyte - 1, 'x'), {});
    body.addText("č", {});
    body.addText("yz", {});
    const RtfDocument document = body.finish({});
    const std::string& text = std::get<RtfParagraph>(document.blocks.at(0).content).runs.at(0).text;
    EXPECT_EQ(text.size(), 8192 * kibibyte);
    EXPECT_EQ(text.substr(text.size() - 2), "xy");
}

TEST(RtfHostile, TextInDeepGroupsIsLeftOutAndNoFurther) {
    const std::string deep = repeated("{", 300) + "deep" + repeated("}", 300);
    EXPECT_EQ(shownText("a" + deep + "b"), "<p>ab</p>");
    EXPECT_EQ(shownText("a" + repeated("{", 200) + "b" + repeated("}", 200) + "c"), "<p>abc</p>");
}

TEST(RtfHostile, SamplesCutAnywhereStillGiveAPage) {
    for (const char* name : {"wordpad.rtf", "wordpad_russian.rtf", "word.rtf", "libreoffice.rtf"}) {
        const std::string bytes = sample(name);
        for (std::size_t length = 6; length < bytes.size(); length += 23)
            pageOf(bytes.substr(0, length));
    }
}

TEST(RtfHostile, SamplesWithDamagedBytesStillGiveAPage) {
    std::minstd_rand random(20251105);
    for (const char* name : {"wordpad.rtf", "word.rtf", "libreoffice.rtf"}) {
        const std::string bytes = sample(name);
        for (int round = 0; round < 150; ++round) {
            std::string damaged = bytes;
            for (int i = 0; i < 20; ++i)
                damaged[6 + random() % (damaged.size() - 6)] = "{}\\\0 ;'*-0\xFF"[random() % 11];
            pageOf(damaged);
        }
    }
}

TEST(RtfHostile, APageLeadsNowhereElse) {
    const std::string page = pageOf(
        "{\\rtf1{\\fonttbl{\\f0\\froman \"><script>;}}{\\colortbl;\\red1;}\\f0"
        "<script>alert(1)</script><img src=x onerror=alert(1)>"
        "{\\field{\\*\\fldinst INCLUDEPICTURE \"http://a/b.png\"}{\\fldrslt}}"
        "{\\field{\\*\\fldinst HYPERLINK \"http://a/\\\"onclick=\\\"alert(1)\"}{\\fldrslt x}}"
        "{\\field{\\*\\fldinst HYPERLINK \"data:text/html,<script>\"}{\\fldrslt y}}"
        "{\\*\\htmltag <script>}\\htmlrtf <b>\\htmlrtf0}");
    for (const char* piece :
         {"<script", "onerror=alert(1)>", "\"http://a/b.png", "data:", "onclick=\""})
        EXPECT_EQ(page.find(piece), std::string::npos) << piece;
}

} // namespace
} // namespace vorna
