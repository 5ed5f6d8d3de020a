// What is about to be overwritten is first laid aside in the data root's backup folder.
#pragma once

#include "platform/clock.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace vorna {

// How many backups of one kind are kept.
inline constexpr std::size_t keptBackups = 10;

// Copies the files and folders of the data root that exist among `entries` into
// backup/<date-time>-<kind>/ and drops all but the newest of the kind. Nothing is made when none
// exists. Returns the backup's folder, or an empty path. Failure when something cannot be copied:
// then nothing must be overwritten.
std::filesystem::path backUp(const std::filesystem::path& dataRoot, std::string_view kind,
                             const std::vector<std::string_view>& entries, LocalTime now);

} // namespace vorna
