// The files of a client on their way into its folder, and what they replace there on its way into
// the backup.
#pragma once

#include "core/session.h"
#include "platform/clock.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace vorna {

// A file and the place that it goes to.
struct FileOnItsWay {
    std::filesystem::path from;
    std::filesystem::path to;
};

// The files of `source`, not of its sub-folders, in the order of their names. A file that `target`
// holds under the same name, whatever its case, is the place. Links are left out, and what a crash
// left half written.
std::vector<FileOnItsWay> filesOnTheirWay(const std::filesystem::path& source,
                                          const std::filesystem::path& target);

// Puts a file in its place in one step, a file that was there is replaced. `moveFile` takes it away
// where it was; `copyFile` leaves it, and its copy is not flushed to the disk yet. Failure when it
// cannot be done; what was there stands.
void moveFile(const FileOnItsWay& file);
void copyFile(const FileOnItsWay& file);

// Flushes all that was written to the folder's file system.
void flushFileSystem(const std::filesystem::path& folder);

// The backup of one import, made when it is about to replace something for the first time.
class ImportBackup {
public:
    ImportBackup(const Session& session, const Clock& clock) : session_(session), clock_(clock) {}

    // Whether the client table has been copied.
    [[nodiscard]] bool begun() const { return !folder_.empty(); }
    // Copies the client table, once, and lays the named files of a client's folder aside. Failure
    // when it cannot be done: then nothing of them may be replaced.
    void keep(std::string_view intid, const std::vector<std::filesystem::path>& files);

private:
    void begin();

    const Session& session_;
    const Clock& clock_;
    std::filesystem::path folder_;
};

} // namespace vorna
