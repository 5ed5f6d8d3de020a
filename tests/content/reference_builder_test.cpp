#include "content/reference_builder.h"
#include "core/reference_database.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace vorna {
namespace {

constexpr const char* schema = "-- Two tables; one is translated.\n"
                               "CREATE TABLE Kinds (\n"
                               "    id   INTEGER PRIMARY KEY, -- the key;\n"
                               "    name TEXT\n"
                               ");\n"
                               "CREATE TABLE _kinds (jazyk INTEGER, \"j-id\" INTEGER NOT NULL"
                               " REFERENCES Kinds (id) DEFERRABLE INITIALLY DEFERRED,"
                               " \"j-name\" TEXT);\n"
                               "CREATE TABLE Things (\n"
                               "    thing TEXT NOT NULL PRIMARY KEY,\n"
                               "    kind INTEGER NOT NULL"
                               " REFERENCES Kinds (id) DEFERRABLE INITIALLY DEFERRED\n"
                               ");\n";
constexpr const char* kinds = "id\tname.cs\tname.en\tname.de\n"
                              "1\tjedna\tone\teins\n"
                              "2\t\ttwo\t\n"
                              "3\t\t\t\n";
constexpr const char* things = "# things\nthing\tkind\na\t1\nb\t2\n";

class ReferenceBuilder : public testing::Test {
protected:
    ReferenceBuilder() {
        scratch.write("tables/schema.sql", schema);
        scratch.write("tables/Kinds.tsv", kinds);
        scratch.write("tables/Things.tsv", things);
    }

    Database build(const std::string& mode) {
        makeReferenceDatabase({scratch.path() / "tables", mode}, file);
        return Database(file, referencePassword);
    }

    // All rows of a query with one column, parted by blanks; "-" for NULL.
    static std::string column(Database& database, const std::string& statement) {
        std::string texts;
        Recordset rows = database.query(statement);
        for (; !rows.atEnd(); rows.moveNext())
            texts += (texts.empty() ? "" : " ") + (rows.isNull("x") ? "-" : rows.text("x"));
        return texts;
    }

    ScratchFolder scratch;
    fs::path file = scratch.path() / "reference.mdb";
};

TEST_F(ReferenceBuilder, FillsPlainAndSisterTables) {
    Database database = build("tcm");
    EXPECT_EQ(column(database, "select name as x from Kinds order by id"), "jedna two -");
    // The second kind has no Czech or German row, so that it keeps its text in those languages.
    EXPECT_EQ(column(database, R"(select jazyk || ':' || "j-id" || ':' || "j-name" as x
                                  from _kinds order by 1)"),
              "1:1:jedna 2:1:one 2:2:two 3:1:eins");
    EXPECT_EQ(column(database, "select typeof(kind) as x from Things"), "integer integer");
}

TEST_F(ReferenceBuilder, RowTranslatedInPartGetsThePlainTextForTheRest) {
    scratch.write("tables/schema.sql", "CREATE TABLE T (id INTEGER, a TEXT, b TEXT);\n"
                                       "CREATE TABLE _T (jazyk INTEGER, \"j-id\" INTEGER,"
                                       " \"j-a\" TEXT, \"j-b\" TEXT);\n");
    fs::remove(scratch.path() / "tables" / "Kinds.tsv");
    fs::remove(scratch.path() / "tables" / "Things.tsv");
    scratch.write("tables/T.tsv", "id\ta.cs\tb.cs\ta.ru\tb.ru\n1\tá\tbé\ta4\t\n");
    Database database = build("tcm");
    EXPECT_EQ(column(database, R"(select "j-a" || "j-b" as x from _T order by jazyk)"), "ábé a4bé");
}

TEST_F(ReferenceBuilder, TableOfTheModeReplacesTheCommonOne) {
    scratch.write("tables/apm/Things.tsv", "thing\tkind\nc\t2\n");
    Database apm = build("apm");
    EXPECT_EQ(column(apm, "select thing as x from Things"), "c");
    Database tcm = build("tcm");
    EXPECT_EQ(column(tcm, "select thing as x from Things order by thing"), "a b");
}

TEST_F(ReferenceBuilder, FaultOfASourceIsNamedAndTheOlderFileStands) {
    struct Case {
        const char* name;
        const char* text; // nullptr: the file is missing
        const char* message;
    };
    const Case cases[] = {
        {"Things.tsv", "thing\tkind\na\t1\na\t2\n", "Things.tsv:3: the row does not fit"},
        {"Things.tsv", "thing\tkind\n\t1\n", "Things.tsv:2: the row does not fit"},
        {"Things.tsv", "thing\tkind\na\tx\n",
         "Things.tsv:2: column kind: \"x\" is no whole number"},
        {"Things.tsv", "thing\tkind\na\t1.5\n",
         "Things.tsv:2: column kind: \"1.5\" is no whole number"},
        {"Things.tsv", "#\nthing\tkind\na\t1\nb\t7\n",
         "Things.tsv:4: the row refers to a row that table Kinds does not have"},
        {"Things.tsv", "thing\n", "Things.tsv:1: column kind is missing"},
        {"Things.tsv", "thing\tkind\tcolour\n", "Things.tsv:1: table Things has no column colour"},
        {"Things.tsv", "thing.cs\tkind\n", "Things.tsv:1: table _Things has no column j-thing"},
        {"Things.tsv", nullptr, "Things.tsv: the file is missing"},
        {"Other.tsv", "id\n", "Other.tsv:1: the schema has no table of the file's name"},
        {"schema.sql", "-- x\nCREATE TABLE T (id INTEGER);\nCREATE\nTABEL U (id);\n",
         "schema.sql:3: the statement that begins here does not run"},
        {"schema.sql", "CREATE TABLE T (id INTEGER)\n",
         "schema.sql:1: the statement that begins here has no end"},
    };
    for (const Case& fault : cases) {
        SCOPED_TRACE(fault.message);
        const ScratchFolder own;
        fs::copy(scratch.path(), own.path(), fs::copy_options::recursive);
        if (fault.text != nullptr)
            own.write(std::string("tables/") + fault.name, fault.text);
        else
            fs::remove(own.path() / "tables" / fault.name);
        own.write("reference.mdb", "the older one");
        try {
            makeReferenceDatabase({own.path() / "tables", "tcm"}, own.path() / "reference.mdb");
            ADD_FAILURE() << "no Failure";
        } catch (const Failure& failure) {
            EXPECT_NE(std::string(failure.what()).find(fault.message), std::string::npos)
                << failure.what();
        }
        EXPECT_EQ(readWholeFile(own.path() / "reference.mdb"), "the older one");
        EXPECT_EQ(listFiles(own.path(), "*").size(), 2U) << "something unfinished lies about";
    }
}

} // namespace
} // namespace vorna
