// The tabs of the main window by index: everybody who brings one to the front names it.
#pragma once

#include <cstddef>

namespace vorna {

enum class MainTab : std::size_t {
    Clients = 0,
    Card = 1,
    Measurements = 2,
    Unused = 3,
    Library = 4,
    Settings = 5
};
inline constexpr std::size_t mainTabCount = 6;

} // namespace vorna
