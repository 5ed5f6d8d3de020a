// The libraries beside the program, libvorna-<name>.so, each loaded when its work is first wanted:
// what they need of the system takes longer to load than the main window to show.
#pragma once

#include <QFunctionPointer>

#include <memory>

namespace vorna {

// A function that the library offers by a name; null where it or the library is missing. Loads the
// library, which then stays.
QFunctionPointer functionOfLibrary(const char* library, const char* function);

// A seam that the library makes; null where the library is missing.
template <typename Seam, typename... Arguments>
std::unique_ptr<Seam> seamOfLibrary(const char* library, const char* maker,
                                    Arguments... arguments) {
    const auto make = reinterpret_cast<Seam* (*)(Arguments...)>(functionOfLibrary(library, maker));
    return std::unique_ptr<Seam>(make == nullptr ? nullptr : make(arguments...));
}

} // namespace vorna
