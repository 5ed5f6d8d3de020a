#include "platform/program_folders.h"

#include <cstdlib>

namespace vorna {

std::filesystem::path executableFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::filesystem::path commonDataFolder() {
    const char* const xdg = std::getenv("XDG_DATA_HOME");
    if (xdg != nullptr && *xdg == '/')
        return xdg;
    const char* const home = std::getenv("HOME");
    return std::filesystem::path(home != nullptr ? home : "/") / ".local" / "share";
}

} // namespace vorna
