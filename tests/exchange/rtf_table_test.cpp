#include "tests/exchange/rtf_shown.h"

namespace vorna {
namespace {

// Without the looks that every cell and every table has.
std::string table(std::string_view rtf) {
    std::string html = shownText(rtf);
    for (const char* usual : {" style=\"padding:1pt 5.4pt;vertical-align:top\"",
                              "border-collapse:collapse;margin:0 0 0 0;", ";max-width:100%"})
        html = without(html, usual);
    return html;
}

struct TableCase {
    const char *rule, *rtf, *html;
};

TEST(RtfTable, RowsAndCells) {
    const TableCase cases[] = {
        {"one row", "\\trowd\\cellx1000\\cellx3000\\intbl a\\cell b\\cell\\row",
         "<table style=\"width:150pt\"><colgroup><col style=\"width:33.33%\"/>"
         "<col style=\"width:66.66%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td><td><p>b</p></td></tr></tbody></table>"},
        {"rows with edges of their own",
         "\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row"
         "\\trowd\\cellx2000 c\\cell\\row\\trowd\\trleft1000\\cellx2000 d\\cell\\row",
         "<table style=\"width:100pt\"><colgroup><col style=\"width:50%\"/>"
         "<col style=\"width:50%\"/></colgroup><tbody><tr><td><p>a</p></td><td><p>b</p></td></tr>"
         "<tr><td colspan=\"2\"><p>c</p></td></tr>"
         "<tr><td colspan=\"1\"></td><td><p>d</p></td></tr></tbody></table>"},
        {"merged across",
         "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\cellx3000\\intbl a\\cell\\cell b\\cell\\row",
         "<table style=\"width:150pt\"><colgroup><col style=\"width:66.66%\"/>"
         "<col style=\"width:33.33%\"/></colgroup><tbody>"
         "<tr><td><p>a</p><p>&#160;</p></td><td><p>b</p></td></tr></tbody></table>"},
        {"merged down",
         "\\trowd\\clvmgf\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row"
         "\\trowd\\clvmrg\\cellx1000\\cellx2000 \\cell c\\cell\\row"
         "\\trowd\\clvmrg\\cellx1000\\cellx2000 x\\cell d\\cell\\row",
         "<table style=\"width:100pt\"><colgroup><col style=\"width:50%\"/>"
         "<col style=\"width:50%\"/></colgroup><tbody>"
         "<tr><td rowspan=\"3\"><p>a</p><p>x</p></td><td><p>b</p></td></tr>"
         "<tr><td><p>c</p></td></tr><tr><td><p>d</p></td></tr></tbody></table>"},
        {"merged down with nothing above", "\\trowd\\clvmrg\\cellx1000\\intbl a\\cell\\row",
         "<table style=\"width:50pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td></tr></tbody></table>"},
        {"several paragraphs in a cell", "\\trowd\\cellx1000\\intbl a\\par b\\cell\\row\\pard c",
         "<table style=\"width:50pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p><p>b</p></td></tr></tbody></table><p>c</p>"},
        {"definitions behind the text, in a group",
         "\\pard\\intbl{a\\cell}{\\trowd\\cellx1000\\row}",
         "<table style=\"width:50pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td></tr></tbody></table>"},
        {"a table in a cell",
         "\\trowd\\cellx4000\\intbl a\\par\\itap2 b\\nestcell{\\*\\nesttableprops\\trowd\\cellx1000"
         "\\nestrow}{\\nonesttables\\par}\\pard\\intbl c\\cell\\row",
         "<table style=\"width:200pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p><table style=\"width:50pt\"><colgroup><col style=\"width:100%\"/>"
         "</colgroup><tbody><tr><td><p>b</p></td></tr></tbody></table><p>c</p></td></tr>"
         "</tbody></table>"},
        {"one cell too many without text", "\\trowd\\cellx1000\\intbl a\\cell\\cell\\row",
         "<table style=\"width:50pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td></tr></tbody></table>"},
    };
    for (const TableCase& c : cases)
        EXPECT_EQ(table(c.rtf), c.html) << c.rule;
}

TEST(RtfTable, BrokenTablesLoseNoText) {
    const TableCase cases[] = {
        {"cells without a definition", "\\intbl a\\cell b\\cell\\row",
         "<table style=\"width:144pt\"><colgroup><col style=\"width:50%\"/>"
         "<col style=\"width:50%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td><td><p>b</p></td></tr></tbody></table>"},
        {"a row without its end", "\\trowd\\cellx1000\\intbl a\\cell\\pard b",
         "<table style=\"width:72pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td></tr></tbody></table><p>b</p>"},
        {"a cell without its end", "\\trowd\\cellx1000\\intbl a\\row",
         "<table style=\"width:50pt\"><colgroup><col style=\"width:100%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td></tr></tbody></table>"},
        {"text that no cell ends", "\\trowd\\cellx1000\\intbl a\\par b", "<p>a</p><p>b</p>"},
        {"a row without cells", "\\trowd\\cellx1000\\row a", "<p>a</p>"},
        {"edges that go back", "\\trowd\\cellx1000\\cellx500\\intbl a\\cell b\\cell\\row",
         "<table style=\"width:50.75pt\"><colgroup><col style=\"width:98.52%\"/>"
         "<col style=\"width:1.47%\"/></colgroup><tbody>"
         "<tr><td><p>a</p></td><td><p>b</p></td></tr></tbody></table>"},
    };
    for (const TableCase& c : cases)
        EXPECT_EQ(table(c.rtf), c.html) << c.rule;
    const std::string deep = table("\\intbl\\itap50 a\\nestcell\\nestrow");
    EXPECT_EQ(rtf_page::count(deep, "<table"), 1U) << "no tables around nothing";
}

TEST(RtfTable, CellsLook) {
    const auto cell = [](const std::string& row, const std::string& definition) {
        const std::string html = shownText("{\\colortbl;\\red255;}\\trowd" + row + definition +
                                           "\\cellx1000\\cellx2000"
                                           "\\intbl a\\cell b\\cell\\row");
        const std::size_t from = html.find("<td style=\"") + 11;
        return html.substr(from, html.find('"', from) - from);
    };
    EXPECT_EQ(cell("", "\\clvertalc\\clcbpat1"),
              "padding:1pt 5.4pt;vertical-align:middle;background-color:#ff0000");
    EXPECT_EQ(cell("\\trgaph70", "\\clpadl40"), "padding:1pt 2pt;vertical-align:top");
    EXPECT_EQ(cell("", "\\clbrdrb\\brdrs\\brdrw10\\brdrcf1"),
              "padding:1pt 5.4pt;vertical-align:top;border-bottom:0.5pt solid #ff0000");
    EXPECT_EQ(cell("\\trbrdrt\\brdrs\\brdrw20\\trbrdrv\\brdrdash\\brdrw10", "\\clbrdrt\\brdrnone"),
              "padding:1pt 5.4pt;vertical-align:top;border-right:0.5pt dashed #000000")
        << "the row's where the cell has none of its own";
    const std::string placed = shownText("x\\page\\trowd\\trqc\\cellx1000\\intbl a\\cell\\row");
    EXPECT_NE(placed.find("margin:0 auto;width:50pt;max-width:100%;page-break-before:always"),
              std::string::npos)
        << placed;
}

} // namespace
} // namespace vorna
