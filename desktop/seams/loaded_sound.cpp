#include "desktop/seams/loaded_sound.h"

#include "desktop/seams/late_library.h"

namespace vorna {

void LoadedSound::play(const std::filesystem::path& file, bool wait) {
    if (!loaded_)
        sound_ = seamOfLibrary<decltype(makeSound)>("sound", "makeSound");
    loaded_ = true;
    if (sound_)
        sound_->play(file, wait);
}

} // namespace vorna
