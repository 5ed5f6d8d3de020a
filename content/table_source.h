// A table as text: UTF-8, cells parted by tabs, no quoting.
//
//   file   = comment* header row*      comment = a line that begins with #
//   header = column (tab column)*      column  = name [ "." ( cs | en | de | ru ) ]
//   row    = cell (tab cell)*          cell    = empty: NULL | "": the empty text | the text
//
// A translated column stands once for each of its languages. Lines end with LF or CR LF.
#pragma once

#include "content/sources.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// Which language a column is in, by the numbers of the sister tables; 0 is a column that is not
// translated.
inline constexpr int untranslated = 0;
inline constexpr int sourceLanguages = 4;

struct SourceColumn {
    std::string name; // without suffix
    int language = untranslated;
};

// Nothing is NULL.
using SourceCell = std::optional<std::string>;

struct SourceRow {
    std::size_t line = 0;
    std::vector<SourceCell> cells; // one for each column
};

struct TableSource {
    SourcePlace header; // the file and the line of the column names
    std::vector<SourceColumn> columns;
    std::vector<SourceRow> rows;

    [[nodiscard]] SourcePlace placeOf(const SourceRow& row) const;
    // The index of a column; nothing when there is none. Names fold case.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view name, int language) const;
    // The text of a column that is not translated; NULL gives the empty text. Failure when there
    // is no such column.
    [[nodiscard]] std::string text(const SourceRow& row, std::string_view column) const;
};

// Failure when the header is missing, names a column twice or with an unknown suffix, when a row
// has more or fewer cells than the header, or when a line is no UTF-8. `file` serves the messages.
TableSource parseTable(std::string_view text, std::string_view file);

TableSource readTable(const fs::path& file);

} // namespace vorna
