#include "desktop/seams/loaded_sound.h"

#include "platform/program_folders.h"

#include <QLibrary>

namespace vorna {

void LoadedSound::load() {
    const auto file = executableFolder() / "libvorna-sound.so";
    QLibrary library(QString::fromStdU16String(file.u16string()));
    if (const QFunctionPointer make = library.resolve("makeSound"))
        sound_.reset(reinterpret_cast<Sound* (*)()>(make)());
}

void LoadedSound::play(const std::filesystem::path& file, bool wait) {
    if (!loaded_)
        load();
    loaded_ = true;
    if (sound_)
        sound_->play(file, wait);
}

} // namespace vorna
