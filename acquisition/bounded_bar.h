// A progress bar that refuses what does not fit it.
#pragma once

#include "core/window.h"
#include "platform/failure.h"

#include <cstdint>
#include <string>
#include <utility>

namespace vorna {

class BoundedBar final : public ProgressBar {
public:
    // Shows its minimum at first.
    BoundedBar(Window& window, std::string name, std::int32_t least, std::int32_t most)
        : ProgressBar(window, std::move(name)) {
        minimum = least;
        maximum = most;
        value = least;
    }

    // Failure for a value outside the range; the bar then stays as it was.
    void show(std::int32_t shown) {
        if (shown < minimum || shown > maximum)
            throw Failure("a value does not fit its bar");
        value = shown;
    }
};

} // namespace vorna
