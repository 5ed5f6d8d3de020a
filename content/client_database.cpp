#include "content/client_database.h"

#include "content/database_file.h"
#include "content/sources.h"

namespace vorna {

void makeClientDatabase(const fs::path& script, const fs::path& file) {
    makeDatabaseFile(file, [&](Database& database) { runScript(database, script); });
}

} // namespace vorna
