#include "platform/failure.h"
#include "tests/exchange/rtf_shown.h"

namespace vorna {
namespace {

struct TextCase {
    const char* rule;
    std::string rtf;
    const char* html;
};

TEST(RtfText, BytesAreReadInTheCodePageOfTheirFont) {
    const std::string fonts =
        "{\\fonttbl{\\f0\\fswiss\\fcharset238 Arial;}{\\f1\\fcharset204{\\*\\falt X;}Arial;}"
        "{\\f2\\fcharset161 Arial;}{\\f3\\fcharset162 Arial;}{\\f4\\fcharset186 Arial;}"
        "{\\f5\\fcharset0 Arial;}{\\f6\\fcharset1 Arial;}{\\f7 Arial CYR;}"
        "{\\f8\\fcharset0 Arial CE;}{\\f9\\fcharset128 Arial;}{\\f10\\cpg1251 Arial;}}";
    const TextCase cases[] = {
        {"Czech", "\\f0 \\'9elu\\'9dou\\'e8k\\'fd", "žluťoučký"},
        {"as raw bytes", "\\f0 \x9Elu\x9D", "žluť"},
        {"Russian", "\\f1 \\'cf\\'ee\\'ea\\'ee\\'e9", "Покой"},
        {"Greek", "\\f2 \\'e1\\'e2", "αβ"},
        {"Turkish", "\\f3 \\'f0\\'fd\\'fe", "ğış"},
        {"Baltic", "\\f4 \\'e0\\'eb", "ąė"},
        {"Western", "\\f5 \\'e8\\'f1", "èñ"},
        {"the document's own", "\\f6 \\'e8\\'f1", "čń"},
        {"a font that is not in the table", "\\f99 \\'e8", "č"},
        {"a script in the font's name", "\\f7 \\'cf\\f8 \\'e8", "Пč"},
        {"two bytes for a character", "\\f9 \\'82\\'a0\\'83A", "あア"},
        {"by its number", "\\f10 \\'cf", "П"},
        {"changes in the middle", "\\f0 \\'e8\\f1 \\'e8\\f0 \\'e8", "čиč"},
        {"a group gives the font back", "\\f0 {\\f1 \\'e8}\\'e8", "иč"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shownText(fonts + c.rtf), "<p>" + std::string(c.html) + "</p>") << c.rule;
}

TEST(RtfText, ADocumentNamesItsCodePageOrItsLanguage) {
    const TextCase cases[] = {
        {"Windows-1250", "\\ansi\\ansicpg1250 \\'e8", "č"},
        {"Windows-1251", "\\ansi\\ansicpg1251 \\'e8", "и"},
        {"UTF-8", "\\ansi\\ansicpg65001 \xC4\x8D", "č"},
        {"none", "\\ansi \\'e8", "è"},
        {"none, but Czech", "\\ansi\\deflang1029 \\'e8", "č"},
        {"none, but Russian", "\\ansi\\deflang1049 \\'e8", "и"},
        {"the old DOS one", "\\pc \\'9b", "¢"},
        {"an unknown one", "\\ansicpg31337 \\'e8", "è"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shown("{\\rtf1" + c.rtf + "}"), "<p>" + std::string(c.html) + "</p>") << c.rule;
}

TEST(RtfText, UnicodeTakesThePlaceOfItsFallback) {
    const TextCase cases[] = {
        {"one character behind it", "\\u269?x", "čx"},
        {"a blank ends the number", "\\u269 ?x", "čx"},
        {"a hexadecimal one", "\\u269\\'e8x", "čx"},
        {"two", "\\uc2\\u26085\\'93\\'faA", "日A"},
        {"none", "\\uc0\\u269 x\\u269x", "čxčx"},
        {"its count is the group's", "{\\uc0\\u269}\\u269?x", "ččx"},
        {"a control symbol", "\\u8209\\_x", "‑x"},
        {"a word for a character", "\\u8212\\emdash x", "—x"},
        {"data", "\\u269\\bin3 abcx", "čx"},
        {"a group's end ends it", "{\\u269}x", "čx"},
        {"other words end it", "\\u269\\b x", "č<b>x</b>"},
        {"a negative number", "\\u-257?x", "\uFEFFx"},
        {"a pair", "\\u-10179?\\u-8704?x", "😀x"},
        {"a pair without fallbacks", "\\uc0\\u55357\\u56832x", "😀x"},
        {"a whole number beyond 16 bits", "\\u128512?x", "😀x"},
        {"a first half alone", "\\u-10179?x", "\uFFFDx"},
        {"two first halves", "\\u-10179?\\u-10179?\\u-8704?", "\uFFFD😀"},
        {"a second half alone", "\\u-8704?x", "\uFFFDx"},
        {"no character", "\\u65535?\\u-100000?\\u1114112?", "\uFFFD\uFFFD\uFFFD"},
        {"control characters", "a\\u0?\\u1?\\u127?\\u133?b", "ab"},
        {"line ends", "a\\u10?b\\u8232?c", "a<br/>b<br/>c"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shownText(c.rtf), "<p>" + std::string(c.html) + "</p>") << c.rule;
}

TEST(RtfText, SignsAndBlanks) {
    const TextCase cases[] = {
        {"braces and backslash", "\\{a\\}\\\\", "{a}\\"},
        {"what a page would take as its own", "<b>&amp;\"'", "&lt;b&gt;&amp;amp;\"'"},
        {"a body's tag", "</body><body>", "&lt;/body&gt;&lt;body&gt;"},
        {"firm blank, soft and firm hyphen", "a\\~b\\-c\\_d", "a\u00A0b\u00ADc‑d"},
        {"dashes", "\\endash\\emdash -", "–—-"},
        {"quotes", "\\lquote a\\rquote \\ldblquote b\\rdblquote", "‘a’“b”"},
        {"bullet and spaces", "\\bullet\\emspace\\enspace .", "•\u2003\u2002."},
        {"no blank is lost", "a  b   c", "a &#160;b &#160; c"},
        {"a blank at the start", " a", "&#160;a"},
        {"blanks across looks", "a {\\b  b}", "a <b>&#160;b</b>"},
        {"lines", "a\\line b\\line", "a<br/>b<br/>&#160;"},
        {"line ends of the file", "a\r\nb\nc", "abc"},
        {"a control byte",
         std::string("a\0\x01\x1F\x7F"
                     "b",
                     6),
         "ab"},
        {"an escaped line end ends the paragraph", "a\\\nb", "a</p><p>b"},
        {"half a hexadecimal byte", "a\\'4zb", "a4zb"},
        {"Symbol", "{\\fonttbl{\\f3\\fcharset2 Symbol;}}\\f3 a\\'b7\\'b3", "α•≥"},
        {"Wingdings", "{\\fonttbl{\\f3\\fcharset2 Wingdings;}}\\f3\\'fc\\'6c[\\'d8", "✓●☯➢"},
        {"another symbol font", "{\\fonttbl{\\f3\\fcharset2 Webdings;}}\\f3 a\\'b7", "••"},
        {"Symbol by its private codes",
         "{\\fonttbl{\\f3\\fcharset2 Symbol;}}\\f3\\u-3913?\\u-3999?", "•α"},
        {"private codes without a font", "\\u-3913?", "•"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shownText(c.rtf), "<p>" + std::string(c.html) + "</p>") << c.rule;
}

TEST(RtfText, WhatNoPageShowsIsLeftOut) {
    const TextCase cases[] = {
        {"tables of the file", "{\\fonttbl{\\f0 A;}}{\\colortbl;\\red1;}{\\stylesheet{\\s1 S;}}x",
         "x"},
        {"properties", "{\\info{\\title T}{\\author A}}x", "x"},
        {"headers and footers", "{\\header h\\par}{\\footerl f}{\\headerf {\\b g}}x", "x"},
        {"an unknown group with a star", "{\\*\\whatever a{\\b b}}x", "x"},
        {"an unknown group without one", "{\\whatever a}x", "ax"},
        {"a known group with a star", "y{\\*\\footnote a}x", "y [a]x"},
        {"hidden and deleted text", "a{\\v b}{\\deleted c}\\v d\\v0 e", "ae"},
        {"reviewers' notes", "{\\*\\atnid A}{\\*\\annotation note}x", "x"},
        {"marks and index entries", "{\\*\\bkmkstart a}{\\xe entry}{\\*\\bkmkend a}x", "x"},
        {"the same text twice", "{\\upr{ansi}{\\*\\ud{\\u269?}}}x", "čx"},
        {"the word without its group", "\\header x", "x"},
        {"what stands behind the document", "x}y{\\b z}", "x"},
        {"data", "a\\bin5 }}}}}b", "ab"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shownText(c.rtf), "<p>" + std::string(c.html) + "</p>") << c.rule;
}

TEST(RtfText, FootnotesAndTextBoxesStayInTheirPlace) {
    const TextCase cases[] = {
        {"footnote", "a{\\super\\chftn{\\footnote\\pard\\plain{\\super\\chftn} b\\par c\\par}}d",
         "<p>a [b<br/>c]d</p>"},
        {"empty footnote", "a{\\footnote \\par}b", "<p>ab</p>"},
        {"text box",
         "a{\\shp{\\*\\shpinst\\shpleft0{\\sp{\\sn fLine}{\\sv 0}}{\\shptxt\\pard b\\par c\\par}}"
         "{\\shprslt d}}e\\par f",
         "<p>a<br/>b<br/>c<br/>e</p><p>f</p>"},
        {"a drawing that was not understood", "{\\shp{\\*\\shpinst{\\sp{\\sn x}}}{\\shprslt d}}e",
         "<p>d<br/>e</p>"},
        {"cells in it end nothing", "a{\\footnote b\\cell\\row\\page\\sect c}d",
         "<p>a [b<br/>c]d</p>"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shownText(c.rtf), c.html) << c.rule;
}

TEST(RtfText, OnlySafeLinksLeadAnywhere) {
    const auto field = [](const std::string& instruction) {
        return "{\\field{\\*\\fldinst{" + instruction + "}}{\\fldrslt{x}}}y";
    };
    const TextCase cases[] = {
        {"in quotes", field("HYPERLINK \"http://a.cz/\""), "<a href=\"http://a.cz/\">x</a>y"},
        {"without", field(" hyperlink https://a.cz "), "<a href=\"https://a.cz\">x</a>y"},
        {"mail", field("HYPERLINK \"mailto:a@b.cz\""), "<a href=\"mailto:a@b.cz\">x</a>y"},
        {"behind switches", field("HYPERLINK \\\\n \\\\o \"tip\" \"http://a.cz\""),
         "<a href=\"http://a.cz\">x</a>y"},
        {"encoded", field("HYPERLINK \"HTTP://a.cz/?\\'e8=<1>&b='\""),
         "<a href=\"http://a.cz/?%C4%8D=%3C1%3E&amp;b=%27\">x</a>y"},
        {"a place in the document", field("HYPERLINK \\\\l \"http://a.cz\""), "xy"},
        {"script", field("HYPERLINK \"javascript:alert(1)\""), "xy"},
        {"script behind a blank", field("HYPERLINK \" javascript:alert(1)\""), "xy"},
        {"a file", field("HYPERLINK \"file:///etc/passwd\""), "xy"},
        {"a share", field("HYPERLINK \"\\\\\\\\host\\\\share\""), "xy"},
        {"too long", field("HYPERLINK \"http://" + std::string(3000, 'a') + "\""), "xy"},
        {"no address", field("HYPERLINK"), "xy"},
        {"another field", field("DATE \\\\@ \"d.M.\""), "xy"},
        {"a field in the result keeps the link",
         "{\\field{\\*\\fldinst HYPERLINK \"http://a.cz\"}{\\fldrslt {\\field{\\*\\fldinst PAGE}"
         "{\\fldrslt 1}}}}",
         "<a href=\"http://a.cz\">1</a>"},
        {"a sign", "{\\field{\\*\\fldinst SYMBOL 252 \\\\f \"Wingdings\"}{\\fldrslt z}}y", "✓y"},
        {"a ticked box",
         "{\\field{\\*\\fldinst FORMCHECKBOX{\\*\\formfield{\\ffres1\\ffdefres0{\\*\\ffname a}}}}"
         "{\\fldrslt z}}y",
         "☒y"},
        {"a box by its default",
         "{\\field{\\*\\fldinst FORMCHECKBOX{\\*\\formfield{\\ffres25\\ffdefres0}}}{\\fldrslt}}y",
         "☐y"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(shownText(c.rtf), "<p>" + std::string(c.html) + "</p>") << c.rule;
    EXPECT_EQ(shownText("{\\field{\\*\\fldinst HYPERLINK \"http://a.cz\"}{\\fldrslt a\\par b}}"),
              "<p><a href=\"http://a.cz\">a</a></p><p><a href=\"http://a.cz\">b</a></p>");
}

TEST(RtfText, OnlyRichTextIsRead) {
    for (const char* bytes : {"", "   ", "{", "{\\rt", "{\\urtf1 a}", "PK\x03\x04", "rtf1", "text",
                              "<html><body>{\\rtf1 a}</body></html>"})
        EXPECT_THROW(parseRtf(bytes), Failure) << bytes;
    for (const char* bytes : {"{\\rtf", "{\\rtf1}", "\xEF\xBB\xBF{\\rtf1 }", "\r\n {\\rtf1"})
        EXPECT_EQ(shown(bytes), "") << bytes;
}

} // namespace
} // namespace vorna
