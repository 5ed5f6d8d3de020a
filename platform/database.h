// A file-based relational database: opened by path, with a password where the file asks for one,
// statements with bound values, rows read by column name. Text keys compare without regard to
// case where the schema says so; `like` follows Unicode case. A database stays in one thread.
//
// No value from outside is ever joined into a statement. What stays visible is the rule of the
// joined texts of old: a value with an unpaired apostrophe breaks its statement (`quotedText`).
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace vorna {

// A text value as it stood between apostrophes: a doubled apostrophe is stored as one, and an
// unpaired one is a Failure of the statement. This is the one place that decides it.
std::string quotedText(std::string_view value);

using DatabaseValue = std::variant<std::nullptr_t, std::int64_t, double, std::string>;

struct DatabaseConnection;

// The rows of a query, walked from the first to the last. It belongs to its database, which must
// outlive it. Column names are ASCII and fold case.
class Recordset {
public:
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) = delete;
    ~Recordset();

    [[nodiscard]] bool atEnd() const { return atEnd_; }
    // Failure when there is no row.
    void requireRow() const;
    // Failure when the row cannot be read or no row stands before it.
    void moveNext();

    [[nodiscard]] bool isNull(std::string_view column) const;
    // The column's value as text. Failure when there is no row, no such column, or NULL in it.
    [[nodiscard]] std::string text(std::string_view column) const;
    // Empty for NULL, and where there is no such column.
    [[nodiscard]] std::string textOrEmpty(std::string_view column) const;
    // The same of the column at a place, from 0 on, where very many rows are read.
    [[nodiscard]] std::string textOrEmpty(int place) const;
    [[nodiscard]] std::int64_t number(std::string_view column) const;

private:
    friend class Database;
    Recordset(DatabaseConnection& connection, std::string statement, sqlite3_stmt* handle);

    [[nodiscard]] int columnIndex(std::string_view column) const;
    [[nodiscard]] std::string textAt(int index) const;
    void step();

    DatabaseConnection* connection_;
    std::string statement_;
    sqlite3_stmt* handle_;
    bool atEnd_ = false;
};

// Tells one state of a database's content from another.
struct DatabaseVersion {
    std::int64_t connection = 0; // each opening counts anew
    std::int64_t ofOthers = 0;
    std::int64_t own = 0;
    bool operator==(const DatabaseVersion&) const = default;
};

class Database {
public:
    enum class Mode { Existing, Create };

    // Opens the file; Failure when it does not exist, is no database or asks for another password.
    explicit Database(const std::filesystem::path& file, std::string_view password = {},
                      Mode mode = Mode::Existing);
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    ~Database();

    // Runs a statement with `?` where the values go. Failure when it does not run.
    Recordset query(std::string_view statement, const std::vector<DatabaseValue>& values = {});
    // The number of rows that changed.
    int execute(std::string_view statement, const std::vector<DatabaseValue>& values = {});
    // Several statements without values, parted by semicolons.
    void executeScript(const std::string& script);
    // Differs from an earlier one as soon as anybody has changed a row. Failure when the file
    // cannot be read.
    [[nodiscard]] DatabaseVersion version();
    // Makes the file ask for a password when it is opened. It is a gate, not encryption.
    void setPassword(std::string_view password);

private:
    std::unique_ptr<DatabaseConnection> connection_;
};

// Statements between its making and `commit` count as one; without a commit they are undone.
class Transaction {
public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();
    void commit();

private:
    Database& database_;
    bool open_ = true;
};

} // namespace vorna
