// The two folders that a program begins with.
#pragma once

#include <filesystem>

namespace vorna {

// The folder of the running executable.
std::filesystem::path executableFolder();

// The common application data folder: $XDG_DATA_HOME, or .local/share in the user's home.
std::filesystem::path commonDataFolder();

} // namespace vorna
