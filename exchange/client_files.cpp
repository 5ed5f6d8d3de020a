#include "exchange/client_files.h"

#include "core/backup.h"
#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace vorna {
namespace {

constexpr const char* backupKind = "import";

class CopyDescriptor {
public:
    CopyDescriptor(const fs::path& path, int flags)
        : value_(::open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW, 0666)) {
        if (value_ < 0)
            throw Failure("a file on its way cannot be opened");
    }
    CopyDescriptor(const CopyDescriptor&) = delete;
    CopyDescriptor& operator=(const CopyDescriptor&) = delete;
    ~CopyDescriptor() { ::close(value_); }
    [[nodiscard]] int get() const { return value_; }

private:
    int value_;
};

void copyContent(int from, int to) {
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t got = ::read(from, buffer.data(), buffer.size());
        if (got < 0)
            throw Failure("a file on its way cannot be read");
        if (got == 0)
            return;
        for (ssize_t done = 0; done < got;) {
            const ssize_t written =
                ::write(to, buffer.data() + done, static_cast<std::size_t>(got - done));
            if (written <= 0)
                throw Failure("a file on its way cannot be written");
            done += written;
        }
    }
}

void keepTime(int from, int to) {
    struct ::stat state {};
    if (::fstat(from, &state) != 0)
        return;
    const std::array<timespec, 2> times{state.st_atim, state.st_mtim};
    static_cast<void>(::futimens(to, times.data())); // the content matters
}

} // namespace

// One look into the target for all names, as `under` takes for each.
std::vector<FileOnItsWay> filesOnTheirWay(const fs::path& source, const fs::path& target) {
    const std::vector<std::string> present = listFiles(target, "*");
    std::map<std::string, std::string> folded;
    for (const std::string& name : present)
        folded.emplace(foldCase(name), name);
    std::vector<FileOnItsWay> files;
    std::error_code error;
    for (const std::string& name : listFiles(source, "*.*")) {
        if (isTemporaryName(name) || !fs::is_regular_file(fs::symlink_status(source / name, error)))
            continue;
        const bool isThere = std::binary_search(present.begin(), present.end(), name);
        const auto twin = isThere ? folded.end() : folded.find(foldCase(name));
        files.push_back(
            {.from = source / name, .to = target / (twin == folded.end() ? name : twin->second)});
    }
    return files;
}

void moveFile(const FileOnItsWay& file) {
    std::error_code error;
    fs::rename(file.from, file.to, error);
    if (error) // to another file system, say
        copyFile(file);
}

void copyFile(const FileOnItsWay& file) {
    const fs::path temporary = file.to.parent_path() / temporaryName();
    std::error_code error;
    const bool whole = attempt([&] {
        const CopyDescriptor from(file.from, O_RDONLY | O_NONBLOCK);
        const CopyDescriptor to(temporary, O_WRONLY | O_CREAT | O_TRUNC);
        copyContent(from.get(), to.get());
        keepTime(from.get(), to.get());
    });
    if (whole)
        fs::rename(temporary, file.to, error);
    if (whole && !error)
        return;
    fs::remove(temporary, error);
    throw Failure("a file cannot be put in its place");
}

void flushFileSystem(const fs::path& folder) {
    attempt([&] { ::syncfs(CopyDescriptor(folder, O_RDONLY | O_DIRECTORY).get()); });
}

void ImportBackup::begin() {
    if (isMissing(under(session_.dataRoot, names::clients)))
        throw Failure("there is no client table to back up");
    folder_ = backUp(session_.dataRoot, backupKind, {names::clients}, clock_.now());
    if (folder_.empty())
        throw Failure("an import has no backup");
}

void ImportBackup::keep(std::string_view intid, const std::vector<fs::path>& files) {
    if (!begun())
        begin();
    const fs::path folder = folder_ / names::data / intid;
    std::error_code error;
    fs::create_directories(folder, error);
    for (const fs::path& file : files) {
        const fs::path kept = folder / file.filename();
        if (!isMissing(kept)) // what this import replaces a second time came with it
            continue;
        // A second name for the old file, which is replaced and never changed, costs no room.
        fs::create_hard_link(file, kept, error);
        if (error)
            copyFileOver(file, kept);
    }
}

} // namespace vorna
