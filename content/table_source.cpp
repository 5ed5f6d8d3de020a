#include "content/table_source.h"

#include "platform/encoding.h"
#include "platform/text.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr std::array<std::string_view, sourceLanguages> suffixes{"cs", "en", "de", "ru"};

SourceColumn parseColumn(std::string_view cell, const SourcePlace& place) {
    const std::size_t dot = cell.rfind('.');
    const std::string_view name = cell.substr(0, dot);
    if (name.empty())
        failAt(place, "a column has no name");
    if (dot == std::string_view::npos)
        return {std::string(name), untranslated};
    const auto at = std::find(suffixes.begin(), suffixes.end(), cell.substr(dot + 1));
    if (at == suffixes.end())
        failAt(place, "column " + std::string(cell) + " has an unknown language suffix");
    return {std::string(name), static_cast<int>(at - suffixes.begin()) + 1};
}

void parseHeader(TableSource& table, std::string_view line) {
    if (line.empty())
        failAt(table.header, "the line of column names is missing");
    for (const std::string_view cell : split(line, '\t')) {
        SourceColumn column = parseColumn(cell, table.header);
        const bool translated = column.language != untranslated;
        for (int language = untranslated; language <= sourceLanguages; ++language) {
            // A column is either translated or not, and each of its languages stands once.
            const bool clashes =
                language == column.language || translated != (language != untranslated);
            if (clashes && table.find(column.name, language))
                failAt(table.header, "column " + std::string(cell) + " stands twice");
        }
        table.columns.push_back(std::move(column));
    }
}

SourceRow parseRow(const TableSource& table, std::string_view line, const SourcePlace& place) {
    SourceRow row{.line = place.line};
    for (const std::string_view cell : split(line, '\t')) {
        if (cell.empty())
            row.cells.emplace_back();
        else
            row.cells.emplace_back(cell == R"("")" ? std::string_view{} : cell);
    }
    if (row.cells.size() != table.columns.size())
        failAt(place, std::to_string(row.cells.size()) + " cells instead of " +
                          std::to_string(table.columns.size()));
    return row;
}

} // namespace

SourcePlace TableSource::placeOf(const SourceRow& row) const {
    return {header.file, row.line};
}

std::optional<std::size_t> TableSource::find(std::string_view name, int language) const {
    const auto at = std::find_if(columns.begin(), columns.end(), [&](const SourceColumn& column) {
        return column.language == language && equalFolded(column.name, name);
    });
    if (at == columns.end())
        return std::nullopt;
    return static_cast<std::size_t>(at - columns.begin());
}

std::string TableSource::text(const SourceRow& row, std::string_view column) const {
    const std::optional<std::size_t> index = find(column, untranslated);
    if (!index)
        failAt(header, "column " + std::string(column) + " is missing");
    return row.cells[*index].value_or(std::string{});
}

TableSource parseTable(std::string_view text, std::string_view file) {
    TableSource table{.header = {std::string(file), 0}};
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    SourcePlace place{std::string(file), 0};
    for (std::string_view line : split(text, '\n')) {
        ++place.line;
        if (!isUtf8(line))
            failAt(place, "the line is not UTF-8");
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!table.columns.empty()) {
            table.rows.push_back(parseRow(table, line, place));
        } else if (!line.starts_with('#')) {
            table.header = place;
            parseHeader(table, line);
        }
    }
    if (table.columns.empty())
        failAt(place, "the line of column names is missing");
    return table;
}

TableSource readTable(const fs::path& file) {
    return parseTable(readSource(file), pathText(file));
}

} // namespace vorna
