#include "platform/chm_archive.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <chm_lib.h>
#include <cstdint>

namespace vorna {
namespace {

constexpr std::uint64_t largestFile = 64U << 20U;  // bytes
constexpr std::uint64_t largestObject = 8U << 20U; // bytes

bool isFile(const ChmObject& object) {
    return object.path.starts_with('/') && !object.path.ends_with('/');
}

} // namespace

void ChmArchive::Closer::operator()(chmFile* file) const {
    chm_close(file);
}

ChmArchive::ChmArchive(const fs::path& file) {
    std::error_code error;
    const bool regular = fs::is_regular_file(file, error);
    if (!regular || fs::file_size(file, error) > largestFile || error)
        throw Failure("a help book cannot be read");
    directory_ = readChmDirectory(readWholeFile(file));
    for (std::size_t i = 0; i < directory_.objects.size(); ++i) {
        if (isFile(directory_.objects[i]))
            places_.emplace(foldCase(directory_.objects[i].path), i);
    }
    file_.reset(chm_open(file.c_str()));
    if (!file_)
        throw Failure("a help book cannot be opened");
}

std::vector<std::string> ChmArchive::paths() const {
    std::vector<std::string> paths;
    for (const ChmObject& object : directory_.objects) {
        if (isFile(object))
            paths.push_back(object.path);
    }
    return paths;
}

std::string ChmArchive::read(std::string_view path) const {
    const auto place = places_.find(foldCase(path));
    if (place == places_.end())
        throw Failure("a help book lacks an object");
    const ChmObject& object = directory_.objects[place->second];
    const std::uint64_t section =
        object.section == 0 ? directory_.plainBytes : directory_.unpackedBytes;
    if (object.section > 1 || object.length > largestObject || object.start > section ||
        object.length > section - object.start)
        throw Failure("an object of a help book is out of bounds");
    std::string bytes(object.length, '\0');
    if (bytes.empty())
        return bytes; // the library would look for it all the same
    chmUnitInfo unit{};
    unit.start = object.start;
    unit.length = object.length;
    unit.space = object.section == 0 ? CHM_UNCOMPRESSED : CHM_COMPRESSED;
    const auto count =
        chm_retrieve_object(file_.get(), &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(bytes.size()));
    if (count != static_cast<LONGINT64>(bytes.size()))
        throw Failure("an object of a help book cannot be unpacked");
    return bytes;
}

} // namespace vorna
