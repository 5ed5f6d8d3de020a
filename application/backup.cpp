#include "application/backup.h"

#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <algorithm>

namespace vorna {
namespace {

void dropOldBackups(const fs::path& backups, std::string_view kind) {
    // The names begin with the date, so the oldest come first.
    const std::vector<std::string> kept = listFiles(backups, "*-" + std::string(kind));
    std::error_code error; // an old backup that cannot go stays
    for (std::size_t i = 0; i + keptBackups < kept.size(); ++i)
        fs::remove_all(backups / kept[i], error);
}

} // namespace

std::filesystem::path backUp(const std::filesystem::path& dataRoot, std::string_view kind,
                             const std::vector<std::string_view>& entries, LocalTime now) {
    std::error_code error;
    std::vector<fs::path> found;
    for (const std::string_view name : entries)
        if (const fs::path path = under(dataRoot, name); fs::exists(path, error))
            found.push_back(path);
    if (found.empty())
        return {};
    const fs::path backups = under(dataRoot, names::backup);
    const std::string stem = formatTime(now, "yyyyMMdd-HHmmss");
    fs::path folder = backups / (stem + "-" + std::string(kind));
    for (int again = 2; fs::exists(folder, error); ++again)
        folder = backups / (stem + "." + std::to_string(again) + "-" + std::string(kind));
    fs::create_directories(folder, error);
    for (const fs::path& path : found) {
        if (fs::is_directory(path, error))
            copyFolderInto(path, folder);
        else
            copyFileOver(path, folder / path.filename());
    }
    dropOldBackups(backups, kind);
    return folder;
}

} // namespace vorna
