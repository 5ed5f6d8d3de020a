// A host of windows that shows none: each is left at once.
#pragma once

#include "core/window.h"

namespace vorna {

struct NoWindows final : WindowHost {
    void showModal(Window&) override {}
};

} // namespace vorna
