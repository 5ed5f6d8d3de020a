#include "desktop/seams/late_library.h"

#include "platform/log.h"
#include "platform/program_folders.h"

#include <QFile>
#include <QLibrary>

#include <string>
#include <string_view>

namespace vorna {

QFunctionPointer functionOfLibrary(const char* library, const char* function) {
    const auto file = executableFolder() / ("libvorna-" + std::string(library) + ".so");
    QLibrary loaded(QFile::decodeName(file.c_str()));
    const auto version = reinterpret_cast<decltype(&vornaVersion)>(loaded.resolve("vornaVersion"));
    if (version != nullptr && std::string_view(version()) == VORNA_VERSION)
        return loaded.resolve(function);
    logLine("the library " + std::string(library) + " cannot be used: " +
            (version == nullptr ? loaded.errorString().toStdString() : "its version differs"));
    return nullptr;
}

} // namespace vorna
