// The reference databases: the schema and the tables as text, put together to one database file
// for each mode.
#pragma once

#include "platform/files.h"

#include <string>

namespace vorna {

// The folder of schema.sql and the files <Table>.tsv, and the mode ("tcm", "apm"): a table that
// stands in the folder <mode>/ too is taken from there.
struct ReferenceSources {
    fs::path tables;
    std::string mode;
};

// Makes the file, or replaces it when the new one is whole. The plain tables hold the first text
// present in the order Czech, English, German, Russian. A sister table gets a row for each language
// of which its row holds any text; what such a row lacks is the plain text, so that no language
// shows a gap. Failure with file and line when a source does not fit the schema, a key stands
// twice or refers to nothing, or a table of the schema has no source.
void makeReferenceDatabase(const ReferenceSources& sources, const fs::path& file);

} // namespace vorna
