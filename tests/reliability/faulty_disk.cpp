#include "tests/reliability/faulty_disk.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace vorna {
namespace {

namespace fs = std::filesystem;

struct Watch {
    std::string folder;
    DiskFault fault;
    int operations = 0;
    std::string failed;
    std::vector<std::string> strays;
    std::vector<int> torn; // descriptors of their own, so that no other file takes the number
};

// The calls have no place of their own for it.
std::optional<Watch>& watch() {
    static std::optional<Watch> current;
    return current;
}

std::string targetOfLink(const std::string& link) {
    std::string target(4096, '\0');
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    target.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return target;
}

std::string pathOf(int descriptor) {
    return targetOfLink("/proc/self/fd/" + std::to_string(descriptor));
}

std::string pathAt(int folder, const char* path) {
    if (path[0] == '/')
        return path;
    return (folder == AT_FDCWD ? fs::current_path().string() : pathOf(folder)) + "/" + path;
}

// And not a pipe, say.
bool isFileOrFolder(std::string_view path) {
    return path.starts_with('/') && !path.starts_with("/dev/") && !path.starts_with("/proc/");
}

// Counts one operation. True when it is to fail; the reason stands in errno then.
bool failsNow(const char* operation, const std::string& path) {
    Watch& disk = *watch();
    if (!path.starts_with(disk.folder)) {
        if (isFileOrFolder(path))
            disk.strays.push_back(std::string(operation) + " " + path);
        return false;
    }
    const DiskFault& fault = disk.fault;
    const int number = ++disk.operations;
    if (fault.at == 0 || (fault.lasting ? number < fault.at : number != fault.at))
        return false;
    if (disk.failed.empty())
        disk.failed = std::string(operation) + " " + path;
    errno = fault.error;
    return true;
}

template <class Function>
Function* nextOf(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool opensForWriting(int flags) {
    return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

bool openFails(int folder, const char* path, int flags) {
    return watch() && opensForWriting(flags) && failsNow("open", pathAt(folder, path));
}

// Half of the bytes reach the disk before it fails.
template <class WriteHalf>
bool writeFails(int descriptor, const WriteHalf& writeHalf) {
    if (!watch() || !failsNow("write", pathOf(descriptor)))
        return false;
    const int error = errno;
    writeHalf();
    if (const int kept = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0); kept >= 0)
        watch()->torn.push_back(kept);
    errno = error;
    return true;
}

bool flushFails(const char* operation, int descriptor) {
    return watch() && failsNow(operation, pathOf(descriptor));
}

} // namespace

WatchedDisk::WatchedDisk(const fs::path& folder, DiskFault fault) {
    watch().emplace(Watch{.folder = folder.string(), .fault = fault});
}

WatchedDisk::~WatchedDisk() {
    const std::vector<int> torn = watch()->torn;
    watch().reset();
    for (const int descriptor : torn)
        ::close(descriptor);
}

int WatchedDisk::operations() const {
    return watch()->operations;
}

const std::string& WatchedDisk::failed() const {
    return watch()->failed;
}

const std::vector<std::string>& WatchedDisk::strays() const {
    return watch()->strays;
}

std::vector<fs::path> WatchedDisk::torn() const {
    std::vector<fs::path> files;
    for (const int descriptor : watch()->torn) {
        struct ::stat state {};
        if (::fstat(descriptor, &state) == 0 && state.st_nlink > 0)
            files.emplace_back(pathOf(descriptor));
    }
    return files;
}

} // namespace vorna

// ---- What stands before the calls of the operating system

using vorna::failsNow;
using vorna::flushFails;
using vorna::nextOf;
using vorna::openFails;
using vorna::pathAt;
using vorna::watch;
using vorna::writeFails;

extern "C" {

// open and its kin: with a mode where a file may be made.
#define VORNA_OPEN(name)                                                                           \
    int name(const char* path, int flags, ...) {                                                   \
        std::va_list rest;                                                                         \
        va_start(rest, flags);                                                                     \
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : mode_t{0};             \
        va_end(rest);                                                                              \
        static auto* const next = nextOf<int(const char*, int, ...)>(#name);                       \
        return openFails(AT_FDCWD, path, flags) ? -1 : next(path, flags, mode);                    \
    }
VORNA_OPEN(open)
VORNA_OPEN(open64)

#define VORNA_OPENAT(name)                                                                         \
    int name(int folder, const char* path, int flags, ...) {                                       \
        std::va_list rest;                                                                         \
        va_start(rest, flags);                                                                     \
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : mode_t{0};             \
        va_end(rest);                                                                              \
        static auto* const next = nextOf<int(int, const char*, int, ...)>(#name);                  \
        return openFails(folder, path, flags) ? -1 : next(folder, path, flags, mode);              \
    }
VORNA_OPENAT(openat)
VORNA_OPENAT(openat64)

#define VORNA_FOPEN(name)                                                                          \
    FILE* name(const char* path, const char* mode) {                                               \
        static auto* const next = nextOf<FILE*(const char*, const char*)>(#name);                  \
        const bool writes = std::string_view(mode).find_first_of("wa+") != std::string_view::npos; \
        return openFails(AT_FDCWD, path, writes ? O_WRONLY : O_RDONLY) ? nullptr                   \
                                                                       : next(path, mode);         \
    }
VORNA_FOPEN(fopen)
VORNA_FOPEN(fopen64)

ssize_t write(int descriptor, const void* bytes, size_t count) {
    static auto* const next = nextOf<ssize_t(int, const void*, size_t)>("write");
    const auto half = [&] { static_cast<void>(next(descriptor, bytes, count / 2)); };
    return writeFails(descriptor, half) ? -1 : next(descriptor, bytes, count);
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
    static auto* const next = nextOf<ssize_t(int, const iovec*, int)>("writev");
    const auto half = [&] { static_cast<void>(next(descriptor, parts, count / 2)); };
    return writeFails(descriptor, half) ? -1 : next(descriptor, parts, count);
}

#define VORNA_PWRITE(name, offset_type)                                                            \
    ssize_t name(int descriptor, const void* bytes, size_t count, offset_type offset) {            \
        static auto* const next = nextOf<ssize_t(int, const void*, size_t, offset_type)>(#name);   \
        const auto half = [&] { static_cast<void>(next(descriptor, bytes, count / 2, offset)); };  \
        return writeFails(descriptor, half) ? -1 : next(descriptor, bytes, count, offset);         \
    }
VORNA_PWRITE(pwrite, off_t)
VORNA_PWRITE(pwrite64, off64_t)

#define VORNA_FLUSH(name, exception)                                                               \
    int name(int descriptor) exception {                                                           \
        return flushFails(#name, descriptor) ? -1 : 0;                                             \
    }
VORNA_FLUSH(fsync, )
VORNA_FLUSH(fdatasync, )
VORNA_FLUSH(syncfs, noexcept)

// The calls on one path, and on two, of which the second is changed.
#define VORNA_PATH(name)                                                                           \
    int name(const char* path) noexcept {                                                          \
        static auto* const next = nextOf<int(const char*)>(#name);                                 \
        return watch() && failsNow(#name, pathAt(AT_FDCWD, path)) ? -1 : next(path);               \
    }
VORNA_PATH(unlink)
VORNA_PATH(rmdir)
VORNA_PATH(remove)

#define VORNA_TWO_PATHS(name)                                                                      \
    int name(const char* from, const char* to) noexcept {                                          \
        static auto* const next = nextOf<int(const char*, const char*)>(#name);                    \
        return watch() && failsNow(#name, pathAt(AT_FDCWD, to)) ? -1 : next(from, to);             \
    }
VORNA_TWO_PATHS(rename)
VORNA_TWO_PATHS(link)

int unlinkat(int folder, const char* path, int flags) noexcept {
    static auto* const next = nextOf<int(int, const char*, int)>("unlinkat");
    return watch() && failsNow("unlinkat", pathAt(folder, path)) ? -1 : next(folder, path, flags);
}

int mkdir(const char* path, mode_t mode) noexcept {
    static auto* const next = nextOf<int(const char*, mode_t)>("mkdir");
    return watch() && failsNow("mkdir", pathAt(AT_FDCWD, path)) ? -1 : next(path, mode);
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    static auto* const next = nextOf<int(int, const char*, mode_t)>("mkdirat");
    return watch() && failsNow("mkdirat", pathAt(folder, path)) ? -1 : next(folder, path, mode);
}

#define VORNA_TRUNCATE(name, offset_type)                                                          \
    int name(int descriptor, offset_type length) noexcept {                                        \
        static auto* const next = nextOf<int(int, offset_type)>(#name);                            \
        return watch() && failsNow(#name, vorna::pathOf(descriptor)) ? -1                          \
                                                                     : next(descriptor, length);   \
    }
VORNA_TRUNCATE(ftruncate, off_t)
VORNA_TRUNCATE(ftruncate64, off64_t)

} // extern "C"
