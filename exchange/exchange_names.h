// The names that export and import give to files and folders.
#pragma once

#include <string_view>

namespace vorna::names {

inline constexpr std::string_view groupArchive = "VornaExport.zip";
inline constexpr std::string_view archiveEnding = ".zip";

} // namespace vorna::names
