// The libraries beside the program, libvorna-<name>.so, each loaded when its work is first wanted:
// what they need of the system takes longer to load than the main window to show.
#pragma once

#include "desktop/libraries/makers.h"

#include <QFunctionPointer>

#include <memory>
#include <type_traits>

namespace vorna {

// A function that the library offers by a name. Loads the library, which then stays. Null where
// the library or the name is missing, and for a library of another version, which may lie there
// when the program was replaced while it runs; the log says why.
QFunctionPointer functionOfLibrary(const char* library, const char* function);

// The seam that one of the makers makes, given as its type and its name; null where there is none.
template <typename Maker, typename... Arguments>
auto seamOfLibrary(const char* library, const char* maker, Arguments... arguments) {
    const auto make = reinterpret_cast<Maker*>(functionOfLibrary(library, maker));
    using Seam = std::remove_pointer_t<std::invoke_result_t<Maker, Arguments...>>;
    return std::unique_ptr<Seam>(make == nullptr ? nullptr : make(arguments...));
}

} // namespace vorna
