#include "content/table_source.h"

#include <gtest/gtest.h>

#include <string>

namespace vorna {
namespace {

TEST(TableSource, ReadsColumnsCellsAndTheirLines) {
    const TableSource table = parseTable("# words\n"
                                         "# and more\tof them\n"
                                         "id\tname.cs\tname.ru\tdescr-short\r\n"
                                         "1\tDřevo\t\"Дерево\"\t\n"
                                         "#2\t\"\"\t\tx \r\n",
                                         "Words.tsv");
    EXPECT_EQ(table.header.line, 3U);
    ASSERT_EQ(table.columns.size(), 4U);
    EXPECT_EQ(table.find("NAME", 1), 1U);
    EXPECT_EQ(table.find("name", 4), 2U);
    EXPECT_EQ(table.find("descr-short", untranslated), 3U);
    EXPECT_FALSE(table.find("name", 2));
    EXPECT_FALSE(table.find("name", untranslated));

    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[0].line, 4U);
    using Cells = std::vector<SourceCell>;
    EXPECT_EQ(table.rows[0].cells, (Cells{"1", "Dřevo", "\"Дерево\"", {}}));
    EXPECT_EQ(table.rows[1].cells, (Cells{"#2", "", {}, "x "}));
}

TEST(TableSource, FaultsNameFileLineAndWhatIsWrong) {
    struct Case {
        const char* text;
        const char* message;
    };
    const Case cases[] = {
        {"", "T.tsv:1: the line of column names is missing"},
        {"# only\n# comments\n", "T.tsv:2: the line of column names is missing"},
        {"\n1\t2\n", "T.tsv:1: the line of column names is missing"},
        {"id\t\n", "T.tsv:1: a column has no name"},
        {"id\t.cs\n", "T.tsv:1: a column has no name"},
        {"id\tname.fr\n", "T.tsv:1: column name.fr has an unknown language suffix"},
        {"#\nid\tname.\n", "T.tsv:2: column name. has an unknown language suffix"},
        {"id\tID\n", "T.tsv:1: column ID stands twice"},
        {"n.cs\tn.en\tn.cs\n", "T.tsv:1: column n.cs stands twice"},
        {"n.cs\tn\n", "T.tsv:1: column n stands twice"},
        {"n\tn.de\n", "T.tsv:1: column n.de stands twice"},
        {"a\tb\n1\t2\n1\n", "T.tsv:3: 1 cells instead of 2"},
        {"a\tb\n1\t2\t3\n", "T.tsv:2: 3 cells instead of 2"},
        {"a\tb\n1\t2\n\n1\t2\n", "T.tsv:3: 1 cells instead of 2"},
        {"a\n1\n\xE9\n", "T.tsv:3: the line is not UTF-8"},
    };
    for (const Case& fault : cases) {
        SCOPED_TRACE(fault.text);
        try {
            static_cast<void>(parseTable(fault.text, "T.tsv"));
            ADD_FAILURE() << "no Failure; expected " << fault.message;
        } catch (const Failure& failure) {
            EXPECT_STREQ(failure.what(), fault.message);
        }
    }
}

} // namespace
} // namespace vorna
