#include "desktop/seams/late_library.h"

#include "platform/program_folders.h"

#include <QLibrary>

namespace vorna {

QFunctionPointer functionOfLibrary(const char* library, const char* function) {
    const auto file = executableFolder() / ("libvorna-" + std::string(library) + ".so");
    return QLibrary(QString::fromStdU16String(file.u16string())).resolve(function);
}

} // namespace vorna
