#include "platform/html_text.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(HtmlText, IsWhatAReaderSees) {
    struct Case {
        const char *page, *title, *text;
    };
    const Case cases[] = {
        {"<title> A\n b </title><h1>One</h1><p>two<b>three</b>\n four", "A b",
         "A b One twothree four"},
        {"<head><title>T</title><style>p > a {}</style></head>seen", "T", "seen"},
        {"a<br>b<td>c</td><td>d", "", "a b c d"},
        {"<P TITLE='x > y' class=\"q\">z", "", "z"},
        {"1 < 2 & 3 &lt; 4 &#x416;&#269;&nbsp;&bogus; &#0; &#xD800; &#1114112;", "",
         "1 < 2 & 3 < 4 Жč\u00A0&bogus; &#0; &#xD800; &#1114112;"},
        {"x<!-- <p>hidden --><?php hidden ?>y", "", "xy"},
        {"open <p unfinished", "", "open"},
        {"open <!-- unfinished", "", "open"},
        {"<script>hidden", "", ""},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(pageTitle(c.page), c.title) << c.page;
        EXPECT_EQ(pageText(c.page), c.text) << c.page;
    }
}

TEST(HtmlText, AttributesAreFoundByTheirWholeName) {
    const std::string tag =
        "<param data-name=a Name = \"B &amp; c\" value='d \"e\"' last=f checked>";
    const auto piece = HtmlScanner(tag).next();
    ASSERT_TRUE(piece);
    EXPECT_EQ(piece->name, "param");
    EXPECT_EQ(attributeOf(*piece, "name"), "B & c");
    EXPECT_EQ(attributeOf(*piece, "value"), "d \"e\"");
    EXPECT_EQ(attributeOf(*piece, "LAST"), "f");
    EXPECT_EQ(attributeOf(*piece, "checked"), "");
    EXPECT_EQ(attributeOf(*piece, "missing"), "");
}

} // namespace
} // namespace vorna
