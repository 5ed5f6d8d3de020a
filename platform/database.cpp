#include "platform/database.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <sqlite3.h>

#include <utility>

namespace vorna {

struct DatabaseConnection {
    sqlite3* handle = nullptr;
    std::int64_t number = nextNumber();
    // Prepared statements at rest, by their text: the same lookup runs dozens of times for a chart.
    std::multimap<std::string, sqlite3_stmt*, std::less<>> resting;

    DatabaseConnection() = default;
    DatabaseConnection(const DatabaseConnection&) = delete;
    DatabaseConnection& operator=(const DatabaseConnection&) = delete;
    ~DatabaseConnection() {
        for (auto& [text, statement] : resting)
            sqlite3_finalize(statement);
        sqlite3_close_v2(handle);
    }

    static std::int64_t nextNumber() {
        static std::int64_t last = 0;
        return ++last;
    }

    [[noreturn]] static void fail() { throw Failure("a database statement does not run"); }

    sqlite3_stmt* take(std::string_view text) {
        if (const auto at = resting.find(text); at != resting.end()) {
            sqlite3_stmt* const statement = at->second;
            resting.erase(at);
            return statement;
        }
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(handle, text.data(), static_cast<int>(text.size()), &statement,
                               nullptr) != SQLITE_OK ||
            statement == nullptr)
            fail();
        return statement;
    }

    void putBack(std::string text, sqlite3_stmt* statement) {
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
        resting.emplace(std::move(text), statement);
    }
};

namespace {

constexpr int waitForOthersMs = 2000;

void bind(sqlite3_stmt* statement, int index, const DatabaseValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value))
        sqlite3_bind_int64(statement, index, *number);
    else if (const auto* real = std::get_if<double>(&value))
        sqlite3_bind_double(statement, index, *real);
    else if (const auto* text = std::get_if<std::string>(&value))
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()),
                          SQLITE_TRANSIENT);
    else
        sqlite3_bind_null(statement, index);
}

std::string textOf(const unsigned char* bytes, int size) {
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

std::string_view argumentText(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes == nullptr
               ? std::string_view{}
               : std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void likeFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    const bool anyNull = sqlite3_value_type(arguments[0]) == SQLITE_NULL ||
                         sqlite3_value_type(arguments[1]) == SQLITE_NULL;
    const bool matches =
        !anyNull && matchesWildcards(foldCase(argumentText(arguments[1])),
                                     foldCase(argumentText(arguments[0])), sqlWildcards);
    sqlite3_result_int(context, matches ? 1 : 0);
}

} // namespace

std::string quotedText(std::string_view value) {
    std::string text;
    text.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\'') {
            if (i + 1 == value.size() || value[i + 1] != '\'')
                throw Failure("a value with an unpaired apostrophe breaks its statement");
            ++i;
        }
        text += value[i];
    }
    return text;
}

Recordset::Recordset(DatabaseConnection& connection, std::string statement, sqlite3_stmt* handle)
    : connection_(&connection), statement_(std::move(statement)), handle_(handle) {}

Recordset::Recordset(Recordset&& other) noexcept
    : connection_(other.connection_), statement_(std::move(other.statement_)),
      handle_(std::exchange(other.handle_, nullptr)), atEnd_(other.atEnd_) {}

Recordset::~Recordset() {
    if (handle_ != nullptr)
        connection_->putBack(std::move(statement_), handle_);
}

void Recordset::step() {
    const int result = sqlite3_step(handle_);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        DatabaseConnection::fail();
    atEnd_ = result == SQLITE_DONE;
}

void Recordset::requireRow() const {
    if (atEnd_)
        throw Failure("a query gives no row");
}

void Recordset::moveNext() {
    requireRow();
    step();
}

int Recordset::columnIndex(std::string_view column) const {
    requireRow();
    const std::string name(column);
    for (int i = 0; i < sqlite3_column_count(handle_); ++i)
        if (sqlite3_stricmp(sqlite3_column_name(handle_, i), name.c_str()) == 0)
            return i;
    throw Failure("a query has no column of that name");
}

bool Recordset::isNull(std::string_view column) const {
    return sqlite3_column_type(handle_, columnIndex(column)) == SQLITE_NULL;
}

std::string Recordset::text(std::string_view column) const {
    return textAt(columnIndex(column));
}

std::string Recordset::textAt(int index) const {
    const unsigned char* const bytes = sqlite3_column_text(handle_, index);
    if (bytes == nullptr)
        throw Failure("a column holds no value");
    return textOf(bytes, sqlite3_column_bytes(handle_, index));
}

std::string Recordset::textOrEmpty(std::string_view column) const {
    std::string value;
    attempt([&] { value = textOrEmpty(columnIndex(column)); });
    return value;
}

std::string Recordset::textOrEmpty(int place) const {
    const unsigned char* const bytes = atEnd_ ? nullptr : sqlite3_column_text(handle_, place);
    return bytes == nullptr ? std::string{} : textOf(bytes, sqlite3_column_bytes(handle_, place));
}

std::int64_t Recordset::number(std::string_view column) const {
    const int index = columnIndex(column);
    if (sqlite3_column_type(handle_, index) == SQLITE_NULL)
        throw Failure("a column holds no value");
    return sqlite3_column_int64(handle_, index);
}

Database::Database(const std::filesystem::path& file, std::string_view password, Mode mode)
    : connection_(std::make_unique<DatabaseConnection>()) {
    // Every connection stays in one thread.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                      (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(file.c_str(), &connection_->handle, flags, nullptr) != SQLITE_OK)
        throw Failure("a database does not open");
    sqlite3_busy_timeout(connection_->handle, waitForOthersMs);
    sqlite3_create_function(connection_->handle, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                            nullptr, &likeFunction, nullptr, nullptr);
    // What is deleted is overwritten in the file.
    executeScript("pragma secure_delete = on");
    // The first reading tells a database from any other file.
    if (query("select 1 from sqlite_master where name = 'database_password'").atEnd())
        return;
    if (query("select 1 from database_password where password = ?", {std::string(password)})
            .atEnd())
        throw Failure("a database asks for another password");
}

Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

Recordset Database::query(std::string_view statement, const std::vector<DatabaseValue>& values) {
    Recordset rows(*connection_, std::string(statement), connection_->take(statement));
    for (std::size_t i = 0; i < values.size(); ++i)
        bind(rows.handle_, static_cast<int>(i) + 1, values[i]);
    rows.step();
    return rows;
}

int Database::execute(std::string_view statement, const std::vector<DatabaseValue>& values) {
    static_cast<void>(query(statement, values));
    return sqlite3_changes(connection_->handle);
}

void Database::executeScript(const std::string& script) {
    if (sqlite3_exec(connection_->handle, script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        DatabaseConnection::fail();
}

DatabaseVersion Database::version() {
    const Recordset others = query("pragma data_version");
    return {.connection = connection_->number,
            .ofOthers = others.number("data_version"),
            .own = sqlite3_total_changes64(connection_->handle)};
}

void Database::setPassword(std::string_view password) {
    executeScript("create table if not exists database_password (password text not null);"
                  "delete from database_password");
    execute("insert into database_password values (?)", {std::string(password)});
}

Transaction::Transaction(Database& database) : database_(database) {
    database_.executeScript("begin immediate");
}

Transaction::~Transaction() {
    if (open_)
        attempt([&] { database_.executeScript("rollback"); });
}

void Transaction::commit() {
    database_.executeScript("commit");
    open_ = false;
}

} // namespace vorna
