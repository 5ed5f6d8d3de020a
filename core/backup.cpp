#include "core/backup.h"

#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <algorithm>
#include <chrono>

namespace vorna {
namespace {

// Behind the name of a backup while it is made: a crash leaves one that counts as no backup.
constexpr const char* unfinishedEnding = "~";

// The backups of a kind, the oldest first, by the time when they were made: a name follows a clock
// that may have been set back since.
std::vector<fs::path> backupsOf(const fs::path& dataRoot, std::string_view kind) {
    std::vector<fs::path> found;
    const fs::path backups = under(dataRoot, names::backup);
    for (const std::string& name : listFiles(backups, "*-" + std::string(kind)))
        found.push_back(backups / name);
    std::error_code error; // one that cannot be asked counts as the oldest
    std::stable_sort(found.begin(), found.end(), [&](const fs::path& a, const fs::path& b) {
        return fs::last_write_time(a, error) < fs::last_write_time(b, error);
    });
    return found;
}

bool holdsTheSame(const fs::path& a, const fs::path& b);

bool foldersHoldTheSame(const fs::path& a, const fs::path& b) {
    const std::vector<std::string> names = listFiles(a, "*");
    return names == listFiles(b, "*") &&
           std::all_of(names.begin(), names.end(),
                       [&](const std::string& name) { return holdsTheSame(a / name, b / name); });
}

bool holdsTheSame(const fs::path& a, const fs::path& b) {
    std::error_code error;
    if (fs::is_directory(a, error))
        return fs::is_directory(b, error) && foldersHoldTheSame(a, b);
    bool same = false;
    attempt([&] { same = readWholeFile(a) == readWholeFile(b); });
    return same;
}

bool isBackedUp(const fs::path& backup, const std::vector<fs::path>& entries) {
    return listFiles(backup, "*").size() == entries.size() &&
           std::all_of(entries.begin(), entries.end(), [&](const fs::path& entry) {
               return holdsTheSame(entry, backup / entry.filename());
           });
}

fs::path newFolder(const fs::path& backups, std::string_view kind, LocalTime now) {
    const std::string stem = formatTime(now, "yyyyMMdd-HHmmss");
    fs::path folder = backups / (stem + "-" + std::string(kind));
    for (int again = 2; !isMissing(folder) || !isMissing(folder.string() + unfinishedEnding);
         ++again)
        folder = backups / (stem + "." + std::to_string(again) + "-" + std::string(kind));
    return folder;
}

// Makes a backup that gets its name when it is whole.
void copyWhole(const std::vector<fs::path>& found, const fs::path& folder) {
    std::error_code error;
    const fs::path unfinished = folder.string() + unfinishedEnding;
    if (!fs::create_directories(unfinished, error))
        throw Failure("a backup's folder cannot be made");
    const bool whole = attempt([&] {
        for (const fs::path& path : found) {
            if (fs::is_directory(path, error))
                copyFolderInto(path, unfinished);
            else
                copyFileOver(path, unfinished / path.filename());
        }
        fs::rename(unfinished, folder, error);
        if (error)
            throw Failure("a backup cannot get its name");
    });
    if (whole)
        return;
    removeTree(unfinished);
    throw Failure("a backup cannot be made whole");
}

// What crashes left; one that was touched a moment ago may be another program's.
void dropUnfinished(const fs::path& dataRoot, std::string_view kind) {
    std::error_code error;
    const auto moment = fs::file_time_type::clock::now() - std::chrono::hours{1};
    for (const fs::path& folder : backupsOf(dataRoot, std::string(kind) + unfinishedEnding))
        if (fs::last_write_time(folder, error) < moment)
            removeTree(folder);
}

} // namespace

std::filesystem::path backUp(const std::filesystem::path& dataRoot, std::string_view kind,
                             const std::vector<std::string_view>& entries, LocalTime now) {
    std::vector<fs::path> found;
    for (const std::string_view entry : entries)
        if (const fs::path path = under(dataRoot, entry); !isMissing(path))
            found.push_back(path);
    const std::vector<fs::path> older = backupsOf(dataRoot, kind);
    if (found.empty())
        return {};
    if (!older.empty() && isBackedUp(older.back(), found))
        return older.back();
    fs::path folder = newFolder(under(dataRoot, names::backup), kind, now);
    copyWhole(found, folder);
    std::error_code error; // an old backup that cannot go stays
    for (std::size_t i = 0; i + keptBackups <= older.size(); ++i)
        fs::remove_all(older[i], error);
    dropUnfinished(dataRoot, kind);
    return folder;
}

std::vector<fs::path> allBackups(const fs::path& dataRoot) {
    return backupsOf(dataRoot, "*");
}

} // namespace vorna
