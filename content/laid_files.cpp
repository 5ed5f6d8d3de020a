#include "content/laid_files.h"

#include "content/sources.h"
#include "platform/text.h"

#include <system_error>

namespace vorna {

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

void makeFolder(const fs::path& path) {
    std::error_code error;
    fs::create_directories(path, error);
    if (!isFolder(path))
        throw Failure(pathText(path) + ": the folder cannot be made");
}

bool holdsBytes(const fs::path& file, std::string_view bytes) {
    std::error_code error;
    return fs::is_regular_file(file, error) && readWholeFile(file) == bytes;
}

fs::path LaidFiles::place(std::string_view name) {
    laid_.insert(std::string(name));
    fs::path path = folder_ / name;
    makeFolder(path.parent_path());
    return path;
}

void LaidFiles::write(std::string_view name, std::string_view bytes) {
    const fs::path path = place(name);
    naming(path, [&] {
        if (!holdsBytes(path, bytes))
            writeFileAtomically(path, bytes);
    });
}

void LaidFiles::link(std::string_view name, std::string_view laidName) {
    const fs::path path = place(name);
    const fs::path laid = folder_ / laidName;
    std::error_code error;
    if (fs::equivalent(path, laid, error))
        return;
    fs::path fresh = path;
    fresh += ".new";
    fs::remove(fresh, error);
    fs::create_hard_link(laid, fresh, error);
    if (!error)
        fs::rename(fresh, path, error);
    if (error)
        write(name, readSource(laid));
}

void LaidFiles::removeStale(const fs::path& list) const {
    std::string earlier;
    attempt([&] { earlier = readWholeFile(list); });
    for (const std::string_view line : split(earlier, '\n')) {
        const fs::path name = fs::path(line).lexically_normal();
        const bool inside = name.is_relative() && !name.empty() && *name.begin() != "..";
        if (inside && !laid_.contains(name.generic_string()))
            removeWithEmptyFolders(name);
    }
}

void LaidFiles::writeList(const fs::path& list) const {
    std::string names;
    for (const std::string& name : laid_)
        names += name + "\n";
    naming(list, [&] { writeFileAtomically(list, names); });
}

void LaidFiles::removeWithEmptyFolders(const fs::path& name) const {
    std::error_code error; // a file that stays does no harm, and a folder in use stays
    for (fs::path path = name; !path.empty(); path = path.parent_path())
        fs::remove(folder_ / path, error);
}

} // namespace vorna
