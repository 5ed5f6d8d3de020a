// The sounds of a measurement, in a library of their own that is loaded with the first one: what it
// needs of the system takes as long to load as the whole program. Without it there is silence.
#pragma once

#include "platform/dialogs.h"

#include <memory>

namespace vorna {

class LoadedSound final : public Sound {
public:
    void play(const std::filesystem::path& file, bool wait) override;

private:
    void load();

    bool loaded_ = false;
    std::unique_ptr<Sound> sound_; // null where there is none
};

} // namespace vorna
