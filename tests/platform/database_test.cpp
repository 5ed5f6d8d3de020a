#include "platform/database.h"
#include "platform/failure.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorna {
namespace {

class DatabaseTest : public ::testing::Test {
protected:
    Database make(std::string_view name = "a.mdb") {
        return Database(folder / name, {}, Database::Mode::Create);
    }
    // The values of a one-column query, joined by blanks.
    static std::string all(Database& database, std::string_view statement,
                           const std::vector<DatabaseValue>& values = {}) {
        std::string joined;
        Recordset rows = database.query(statement, values);
        for (; !rows.atEnd(); rows.moveNext())
            joined += (joined.empty() ? "" : " ") + rows.text("a");
        return joined;
    }

    ScratchFolder folder;
};

TEST_F(DatabaseTest, OpensOnlyADatabaseAndOnlyWithItsPassword) {
    make("open.mdb").executeScript("create table t (a)");
    Database gated = make("gated.mdb");
    gated.setPassword("first");
    gated.setPassword("dremoKLAT");
    const std::string bytes = readWholeFile(folder / "open.mdb");
    folder.write("garbage.mdb", std::string(4096, '\x55'));
    folder.write("cut.mdb", bytes.substr(0, 90));
    struct Case {
        const char *rule, *file, *password;
        bool opens;
    };
    const Case cases[] = {
        {"no password needed", "open.mdb", "", true},
        {"none needed, one given", "open.mdb", "x", true},
        {"the password", "gated.mdb", "dremoKLAT", true},
        {"none given", "gated.mdb", "", false},
        {"case counts", "gated.mdb", "dremoklat", false},
        {"an earlier one", "gated.mdb", "first", false},
        {"a statement in it", "gated.mdb", "' or '1'='1", false},
        {"missing", "missing.mdb", "", false},
        {"a folder", ".", "", false},
        {"garbage", "garbage.mdb", "", false},
        {"cut in the header", "cut.mdb", "", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(attempt([&] { Database(folder / c.file, c.password); }), c.opens) << c.rule;
    EXPECT_FALSE(fs::exists(folder / "missing.mdb"));
}

TEST_F(DatabaseTest, ReadingAFileWithACutTailEndsWithAFailure) {
    {
        Database database = make();
        Transaction transaction(database);
        database.executeScript("create table t (a text)");
        for (int row = 0; row < 200; ++row)
            database.execute("insert into t values (?)", {std::string(500, 'x')});
        transaction.commit();
    }
    const std::string bytes = readWholeFile(folder / "a.mdb");
    for (const std::size_t lost : {bytes.size() / 2, std::size_t{4096}}) {
        folder.write("cut.mdb", bytes.substr(0, bytes.size() - lost));
        const bool read = attempt([&] {
            Database database(folder / "cut.mdb");
            all(database, "select a from t");
        });
        EXPECT_FALSE(read) << lost << " bytes of " << bytes.size() << " are lost";
    }
}

TEST_F(DatabaseTest, ValuesComeBackAsTheyWereBound) {
    Database database = make();
    database.executeScript("create table t (Text, Number, Missing)");
    const std::string odd = "O''Neil \"Ж\"; drop table t; --?";
    database.execute("insert into t values (?, ?, ?)",
                     {odd, std::numeric_limits<std::int64_t>::min(), nullptr});
    const Recordset row = database.query("select * from t");
    EXPECT_EQ(row.text("TEXT"), odd);
    EXPECT_EQ(row.number("number"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(row.text("number"), "-9223372036854775808");
    EXPECT_TRUE(row.isNull("missing"));
    EXPECT_THROW(static_cast<void>(row.text("missing")), Failure);
    EXPECT_THROW(static_cast<void>(row.number("missing")), Failure);
    EXPECT_THROW(static_cast<void>(row.text("no such column")), Failure);

    const Recordset places = database.query("select Missing, '', x'', zeroblob(0), 'ž' from t");
    for (const int empty : {0, 1, 2, 3})
        EXPECT_EQ(places.textOrEmpty(empty), "");
    EXPECT_EQ(places.textOrEmpty(4), "ž");

    Recordset none = database.query("select * from t where Number = ?", {std::int64_t{7}});
    EXPECT_TRUE(none.atEnd());
    EXPECT_EQ(none.textOrEmpty(0), "");
    EXPECT_THROW(static_cast<void>(none.text("Text")), Failure);
    EXPECT_THROW(static_cast<void>(none.isNull("Text")), Failure);
    EXPECT_THROW(none.moveNext(), Failure);
}

TEST_F(DatabaseTest, AFailingStatementChangesNothingAndTheNextOneRuns) {
    Database database = make();
    database.executeScript("create table t (a integer primary key); insert into t values (1)");
    EXPECT_THROW(database.execute("insert into t select 2 union all select 1"), Failure);
    EXPECT_THROW(database.execute("insert into missing values (1)"), Failure);
    EXPECT_THROW(database.execute("not a statement"), Failure);
    EXPECT_THROW(database.execute(""), Failure);
    EXPECT_EQ(all(database, "select a from t"), "1");
    EXPECT_EQ(database.execute("update t set a = a + 10 where a = ?", {std::int64_t{1}}), 1);
    EXPECT_EQ(database.execute("delete from t where a = ?", {std::int64_t{1}}), 0);
    EXPECT_EQ(all(database, "select a from t"), "11");
}

TEST_F(DatabaseTest, ATransactionWithoutACommitIsUndone) {
    Database database = make();
    database.executeScript("create table t (a)");
    {
        const Transaction transaction(database);
        database.execute("insert into t values (1)");
    }
    {
        Transaction transaction(database);
        database.execute("insert into t values (2)");
        EXPECT_THROW(database.execute("insert into missing values (3)"), Failure);
        transaction.commit();
    }
    EXPECT_EQ(all(database, "select a from t"), "2");
}

TEST_F(DatabaseTest, OneStatementCanRunInsideItselfAndOutliveAMove) {
    Database database = make("other.mdb");
    Database first = make();
    first.executeScript("create table t (a); insert into t values (1), (2), (3)");
    constexpr const char* statement = "select a from t where a >= ? order by a";
    Recordset outer = first.query(statement, {std::int64_t{2}});
    database = std::move(first);
    EXPECT_EQ(all(database, statement, {std::int64_t{1}}), "1 2 3");
    EXPECT_EQ(outer.text("a"), "2");
    outer.moveNext();
    EXPECT_EQ(outer.text("a"), "3");
}

TEST_F(DatabaseTest, AnUnpairedApostropheBreaksItsStatement) {
    struct Case {
        const char* value;
        const char* stored; // null: a failure
    };
    const Case cases[] = {
        {"", ""},         {"Nováková", "Nováková"},  {"O''Neil", "O'Neil"},
        {"''''", "''"},   {"O'Neil", nullptr},       {"'", nullptr},
        {"'''", nullptr}, {"a' or '1'='1", nullptr}, {"a'' or ''1''=''1", "a' or '1'='1"},
    };
    for (const Case& c : cases) {
        std::string stored;
        const bool runs = attempt([&] { stored = quotedText(c.value); });
        EXPECT_EQ(runs, c.stored != nullptr) << c.value;
        EXPECT_EQ(stored, c.stored == nullptr ? "" : c.stored) << c.value;
    }
}

TEST_F(DatabaseTest, LikeKnowsUnicodeCaseAndCountsCharacters) {
    Database database = make();
    database.executeScript("create table t (a)");
    struct Case {
        const char *value, *pattern;
        bool matches;
    };
    const Case cases[] = {
        {"Čapková", "%ČAP%", true},
        {"Čapková", "%cap%", false},
        {"Čapková", "_ap%", true},
        {"Čapková", "__pkov_", true},
        {"Čapková", "Čap", false},
        {"Novák", "%", true},
        {"", "%%", true},
        {"Novák", "n%k", true},
        {"Novák", "%_____%", true},
        {"Novák", "%______%", false},
        {"€ab", "%__a%", false},
        {"50% [a-z]*?", "%[A-Z]*?", true},
        {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", "%a%a%a%a%a%a%a%a%a%a%a%a%b", false},
    };
    for (const Case& c : cases) {
        database.executeScript("delete from t");
        database.execute("insert into t values (?)", {c.value});
        EXPECT_EQ(!database.query("select a from t where a like ?", {c.pattern}).atEnd(), c.matches)
            << c.value << " like " << c.pattern;
    }
    database.executeScript("delete from t; insert into t values (null)");
    EXPECT_EQ(all(database, "select a from t where a like '%%'"), "") << "NULL is like nothing";
}

} // namespace
} // namespace vorna
