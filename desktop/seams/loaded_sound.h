// The sounds of a measurement, by the library `sound`. Without it there is silence.
#pragma once

#include "platform/dialogs.h"

#include <memory>

namespace vorna {

class LoadedSound final : public Sound {
public:
    void play(const std::filesystem::path& file, bool wait) override;

private:
    bool loaded_ = false;
    std::unique_ptr<Sound> sound_; // null where there is none
};

} // namespace vorna
