#include "platform/files.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace vorna {
namespace {

// CON, NUL and the like, whatever ending follows.
bool isDeviceName(std::string_view name) {
    const std::string stem = foldCase(name.substr(0, name.find('.')));
    if (stem == "con" || stem == "prn" || stem == "aux" || stem == "nul")
        return true;
    return stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
           stem.back() >= '1' && stem.back() <= '9';
}

// Closes a descriptor at the end of its scope.
class OpenFile {
public:
    OpenFile(const fs::path& path, int flags) : descriptor_(::open(path.c_str(), flags, 0666)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int descriptor() const { return descriptor_; }

    [[nodiscard]] bool writeAll(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

private:
    int descriptor_;
};

// Makes the rename itself last; without it a crash could bring the old name back.
void flushFolder(const fs::path& folder) {
    const OpenFile handle(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle.isOpen())
        static_cast<void>(::fsync(handle.descriptor())); // some file systems cannot: nothing lost
}

// The entry of `folder` with this name, without regard to case; the name as given when none is.
fs::path entryFolded(const fs::path& folder, const std::string& name) {
    std::error_code error;
    fs::path exact = folder / name;
    if (name == "." || name == ".." || fs::exists(fs::symlink_status(exact, error)))
        return exact;
    const std::string wanted = foldCase(name);
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error))
        if (foldCase(pathText(at->path().filename())) == wanted)
            return at->path();
    return exact;
}

void copyEntry(const fs::directory_entry& entry, const fs::path& target) {
    std::error_code error;
    if (entry.is_symlink(error))
        return;
    if (!entry.is_directory(error)) {
        copyFileOver(entry.path(), target);
        return;
    }
    fs::create_directory(target, error);
    if (!fs::is_directory(target, error))
        throw Failure("a folder to copy into cannot be made");
    fs::directory_iterator at(entry.path(), error);
    if (error)
        throw Failure("a folder cannot be copied");
    for (const fs::directory_iterator end; at != end; at.increment(error))
        copyEntry(*at, target / at->path().filename());
    if (error) // a folder that stops to answer in the middle
        throw Failure("a folder cannot be copied whole");
}

} // namespace

fs::path under(const fs::path& folder, std::string_view name) {
    fs::path path = folder;
    std::string part;
    const auto take = [&] {
        if (!part.empty())
            path = entryFolded(path, part);
        part.clear();
    };
    for (const char c : name) {
        if (c == '\\' || c == '/')
            take();
        else
            part += c;
    }
    take();
    return path;
}

std::string pathText(const fs::path& path) {
    return path.string();
}

bool isForbiddenFileName(std::string_view name) {
    if (name.empty() || name.back() == ' ' || name.back() == '.' || isDeviceName(name))
        return true;
    return std::any_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 ||
               std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos;
    });
}

// Of a length of its own: the file's name may be as long as a name can be. One thread writes.
std::string temporaryName() {
    return ".vorna-" + std::to_string(::getpid()) + ".new~";
}

bool isTemporaryName(std::string_view name) {
    return name.starts_with(".vorna-") && name.ends_with('~');
}

bool isMissing(const fs::path& path) {
    std::error_code error;
    return fs::status(path, error).type() == fs::file_type::not_found;
}

std::string readWholeFile(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) // a pipe would never end
        throw Failure("a file cannot be read");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw Failure("a file cannot be read");
    // read() turns an error of the medium into a bad stream; the stream's iterators let it out.
    std::string bytes;
    std::array<char, 16384> part{};
    do {
        file.read(part.data(), part.size());
        bytes.append(part.data(), static_cast<std::size_t>(file.gcount()));
    } while (file);
    if (file.bad())
        throw Failure("a file cannot be read");
    return bytes;
}

void createEmptyFile(const fs::path& path) {
    const OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC);
    if (!file.isOpen())
        throw Failure("a file cannot be made");
}

void writeFileAtomically(const fs::path& given, std::string_view bytes) {
    std::error_code error;
    const fs::path path = fs::is_symlink(given, error) ? fs::weakly_canonical(given, error) : given;
    const fs::path temporary = path.parent_path() / temporaryName();
    {
        const OpenFile file(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC);
        if (!file.isOpen())
            throw Failure("a file cannot be written");
        struct ::stat old {};
        if (::stat(path.c_str(), &old) == 0) // where it fails the new permissions stand
            static_cast<void>(::fchmod(file.descriptor(), old.st_mode & 07777));
        if (!file.writeAll(bytes) || ::fsync(file.descriptor()) != 0) {
            ::unlink(temporary.c_str());
            throw Failure("a file cannot be written whole");
        }
    }
    fs::rename(temporary, path, error);
    if (error) {
        ::unlink(temporary.c_str());
        throw Failure("a file cannot be replaced");
    }
    flushFolder(path.parent_path());
}

void copyFileOver(const fs::path& from, const fs::path& to) {
    writeFileAtomically(to, readWholeFile(from));
}

void removeTree(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error))) {
        fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, error);
        std::vector<fs::path> entries;
        for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error))
            entries.push_back(at->path());
        for (const fs::path& entry : entries)
            removeTree(entry);
    }
    fs::remove(path, error);
}

void copyFolderInto(const fs::path& folder, const fs::path& into) {
    std::error_code error;
    if (!fs::is_directory(folder, error))
        throw Failure("a folder to copy does not exist");
    const fs::path from = fs::canonical(folder, error);
    const fs::path inside = fs::weakly_canonical(into, error).lexically_relative(from);
    if (!inside.empty() && *inside.begin() != "..")
        throw Failure("a folder cannot be copied into itself");
    const fs::path name = folder.has_filename() ? folder.filename() : from.filename();
    copyEntry(fs::directory_entry(from), into / name);
}

std::vector<std::string> listFiles(const fs::path& folder, std::string_view pattern) {
    std::vector<std::string> names;
    const std::string folded = pattern == "*.*" ? "*" : foldCase(pattern);
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::string name = pathText(at->path().filename());
        if (matchesWildcards(foldCase(name), folded, fileWildcards))
            names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string findFirst(const fs::path& folder, std::string_view pattern) {
    std::error_code error;
    for (std::string& name : listFiles(folder, pattern))
        if (!fs::is_directory(folder / name, error))
            return std::move(name);
    return {};
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
    return matchesWildcards(foldCase(name), pattern == "*.*" ? "*" : foldCase(pattern),
                            fileWildcards);
}

} // namespace vorna
