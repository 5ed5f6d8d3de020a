#include "content/reference_builder.h"

#include "content/database_file.h"
#include "content/table_source.h"
#include "core/reference_database.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

namespace vorna {
namespace {

// The source line of every row of the plain tables, by folded table name and row id. A row of a
// sister table refers to the plain row of its own line only.
using RowPlaces = std::map<std::pair<std::string, std::int64_t>, SourcePlace>;

struct SchemaColumn {
    std::string name;   // as the schema spells it
    std::string source; // the name in the source: without "j-"
    bool wholeNumber = false;
};

// A plain table or a sister table, as the schema has it.
struct SchemaTable {
    std::string name;
    std::vector<SchemaColumn> columns; // none when the schema has no such table
};

constexpr std::string_view sisterPrefix = "j-";
constexpr std::string_view languageColumn = "jazyk";

SchemaTable schemaTable(Database& database, const std::string& name) {
    SchemaTable table{.name = name};
    Recordset rows = database.query("select name, type from pragma_table_info(?)", {name});
    for (; !rows.atEnd(); rows.moveNext()) {
        const std::string column = rows.text("name");
        const bool prefixed = column.starts_with(sisterPrefix);
        table.columns.push_back({.name = column,
                                 .source = prefixed ? column.substr(sisterPrefix.size()) : column,
                                 .wholeNumber = rows.text("type") == "INTEGER"});
    }
    return table;
}

// The tables of the schema that have a source: all but the sister tables and SQLite's own.
std::vector<std::string> plainTables(Database& database) {
    std::vector<std::string> names;
    Recordset rows =
        database.query("select name from sqlite_master where type = 'table' order by name");
    for (; !rows.atEnd(); rows.moveNext())
        if (std::string name = rows.text("name");
            !name.starts_with('_') && !name.starts_with("sqlite_"))
            names.push_back(std::move(name));
    return names;
}

bool isTranslated(const TableSource& source, std::string_view column) {
    for (int language = 1; language <= sourceLanguages; ++language)
        if (source.find(column, language))
            return true;
    return false;
}

SourceCell translation(const TableSource& source, const SourceRow& row, std::string_view column,
                       int language) {
    const std::optional<std::size_t> index = source.find(column, language);
    return index ? row.cells[*index] : SourceCell{};
}

// The cell of a row for a plain table (language 0) or for a sister table.
SourceCell cellFor(const TableSource& source, const SourceRow& row, std::string_view column,
                   int language) {
    if (source.find(column, untranslated))
        return translation(source, row, column, untranslated);
    SourceCell cell = translation(source, row, column, language);
    for (int other = 1; !cell && other <= sourceLanguages; ++other)
        cell = translation(source, row, column, other);
    return cell;
}

bool hasTextIn(const TableSource& source, const SourceRow& row, int language) {
    for (std::size_t i = 0; i < source.columns.size(); ++i)
        if (source.columns[i].language == language && row.cells[i])
            return true;
    return false;
}

DatabaseValue valueFor(const SchemaColumn& column, const SourceCell& cell,
                       const SourcePlace& place) {
    if (!cell)
        return nullptr;
    if (!column.wholeNumber)
        return *cell;
    std::int64_t number = 0;
    const char* const end = cell->data() + cell->size();
    const auto result = std::from_chars(cell->data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end)
        failAt(place, "column " + column.source + ": \"" + *cell + "\" is no whole number");
    return number;
}

std::string insertStatement(const SchemaTable& table) {
    std::string names;
    std::string marks;
    for (const SchemaColumn& column : table.columns) {
        names += (names.empty() ? "\"" : ", \"") + column.name + "\"";
        marks += marks.empty() ? "?" : ", ?";
    }
    return "insert into \"" + table.name + "\" (" + names + ") values (" + marks + ")";
}

// Puts the rows of one source into its table and its sister table.
class TableFiller {
public:
    TableFiller(Database& database, const TableSource& source, RowPlaces& places)
        : database_(database), source_(source), places_(places) {}

    void fill(const std::string& tableName) {
        const SchemaTable plain = schemaTable(database_, tableName);
        const SchemaTable sister = schemaTable(database_, "_" + tableName);
        checkColumns(plain, sister);
        for (const SourceRow& row : source_.rows) {
            insert(plain, row, untranslated);
            for (int language = 1; language <= sourceLanguages; ++language)
                if (hasTextIn(source_, row, language))
                    insert(sister, row, language);
        }
    }

private:
    void checkColumns(const SchemaTable& plain, const SchemaTable& sister) const {
        const auto holds = [](const SchemaTable& table, std::string_view name) {
            return std::any_of(
                table.columns.begin(), table.columns.end(),
                [&](const SchemaColumn& column) { return equalFolded(column.source, name); });
        };
        for (const SourceColumn& column : source_.columns) {
            if (!holds(plain, column.name))
                failAt(source_.header, "table " + plain.name + " has no column " + column.name);
            if (column.language != untranslated && !holds(sister, column.name))
                failAt(source_.header, "table " + sister.name + " has no column j-" + column.name);
        }
        for (const SchemaColumn& column : plain.columns)
            if (!source_.find(column.source, untranslated) && !isTranslated(source_, column.source))
                failAt(source_.header, "column " + column.source + " is missing");
    }

    void insert(const SchemaTable& table, const SourceRow& row, int language) {
        const SourcePlace place = source_.placeOf(row);
        std::vector<DatabaseValue> values;
        for (const SchemaColumn& column : table.columns) {
            if (language != untranslated && equalFolded(column.name, languageColumn))
                values.emplace_back(std::int64_t{language});
            else
                values.push_back(
                    valueFor(column, cellFor(source_, row, column.source, language), place));
        }
        if (!attempt([&] { database_.execute(insertStatement(table), values); }))
            failAt(place, "the row does not fit table " + table.name +
                              ": a value is missing or out of range, or the key stands twice");
        if (language != untranslated)
            return;
        const std::int64_t id = database_.query("select last_insert_rowid() as id").number("id");
        places_.emplace(std::pair{foldCase(table.name), id}, place);
    }

    Database& database_;
    const TableSource& source_;
    RowPlaces& places_;
};

// The sources by folded table name; those of the mode's folder replace the others.
std::map<std::string, TableSource> readSources(const ReferenceSources& sources) {
    std::map<std::string, TableSource> tables;
    for (const fs::path& folder : {sources.tables, sources.tables / sources.mode})
        for (const std::string& name : listFiles(folder, "*.tsv"))
            tables.insert_or_assign(foldCase(pathText(fs::path(name).stem())),
                                    readTable(folder / name));
    return tables;
}

void checkReferences(Database& database, const RowPlaces& places) {
    Recordset rows =
        database.query("select \"table\", rowid as id, parent from pragma_foreign_key_check");
    if (rows.atEnd())
        return;
    failAt(places.at({foldCase(rows.text("table")), rows.number("id")}),
           "the row refers to a row that table " + rows.text("parent") + " does not have");
}

void fillReferenceDatabase(Database& database, const ReferenceSources& sources) {
    runScript(database, sources.tables / "schema.sql");
    std::map<std::string, TableSource> tables = readSources(sources);
    RowPlaces places;
    for (const std::string& name : plainTables(database)) {
        const auto source = tables.extract(foldCase(name));
        if (source.empty())
            throw Failure(pathText(sources.tables / (name + ".tsv")) + ": the file is missing");
        TableFiller(database, source.mapped(), places).fill(name);
    }
    if (!tables.empty())
        failAt(tables.begin()->second.header, "the schema has no table of the file's name");
    checkReferences(database, places);
    database.setPassword(referencePassword);
    database.executeScript("analyze");
}

} // namespace

void makeReferenceDatabase(const ReferenceSources& sources, const fs::path& file) {
    makeDatabaseFile(file, [&](Database& database) { fillReferenceDatabase(database, sources); });
}

} // namespace vorna
