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
// backup/<date-time>-<kind>/, unless the newest backup of the kind holds just the same, and drops
// the oldest beyond those that are kept; never the one just made. A backup gets its name when it is
// whole. Failure when something cannot be copied: then nothing must be overwritten. The folder that
// holds them now; empty when none exists.
std::filesystem::path backUp(const std::filesystem::path& dataRoot, std::string_view kind,
                             const std::vector<std::string_view>& entries, LocalTime now);

// The folders of all backups of every kind: who deletes something on purpose deletes it there too.
std::vector<std::filesystem::path> allBackups(const std::filesystem::path& dataRoot);

} // namespace vorna
