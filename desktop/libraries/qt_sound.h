// The sounds of a measurement on the desktop's audio device. Without a device there is silence.
#pragma once

#include "platform/dialogs.h"

#include <map>
#include <memory>
#include <string>

class QSoundEffect;

namespace vorna {

class QtSound final : public Sound {
public:
    QtSound();
    QtSound(const QtSound&) = delete;
    QtSound& operator=(const QtSound&) = delete;
    ~QtSound() override;

    // WAV files. What the user does during a wait comes after it.
    void play(const std::filesystem::path& file, bool wait) override;

private:
    std::map<std::string, std::unique_ptr<QSoundEffect>> effects_; // by path; made at first use
};

} // namespace vorna
