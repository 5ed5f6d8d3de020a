#include "exchange/zip/archive_state.h"
#include "exchange/zip/entry_names.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vorna {
namespace {

using Work = WorkProgress::Work;

std::string_view rawName(const ArchiveState& state, zip_uint64_t index) {
    const char* const name = zip_get_name(state.zip.get(), index, ZIP_FL_ENC_RAW);
    return name == nullptr ? std::string_view{} : name;
}

// An entry's name as it is shown to the user.
std::string shownName(std::string_view name) {
    constexpr std::size_t enough = 200;
    return "\"" + std::string(firstCharacters(name, enough)) + "\"";
}

// ---- What is proved before anything is unpacked

// What the entries claim, summed up.
struct Claims {
    std::uint64_t packedBytes = 0;
    std::uint64_t diskBytes = 0;
};

// Counts in whole blocks, since many tiny files fill a disk too; false when the sum is beyond all
// disks.
bool addClaim(std::uint64_t& sum, std::uint64_t bytes, std::uint64_t block) {
    const std::uint64_t most = std::numeric_limits<std::int64_t>::max();
    if (bytes > most - block || sum > most - block - bytes)
        return false;
    sum += (bytes + block - 1) / block * block;
    return true;
}

bool isLinkOrDevice(const ArchiveState& state, zip_uint64_t index) {
    constexpr unsigned modeShift = 16;
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(state.zip.get(), index, 0, &system, &attributes) != 0)
        return true;
    if (system != ZIP_OPSYS_UNIX && system != ZIP_OPSYS_OS_X)
        return false;
    const mode_t type = (attributes >> modeShift) & S_IFMT;
    return type != 0 && type != S_IFREG && type != S_IFDIR;
}

// Why an entry is refused, as the end of a sentence; empty for a sound one.
std::string complaintOf(const ArchiveState& state, const zip_stat_t& entry, Claims& claims) {
    constexpr std::uint64_t block = 4096;
    const ArchiveLimits& limits = state.limits;
    if (entry.encryption_method != ZIP_EM_NONE)
        return "is protected by a password";
    if (entry.comp_method != ZIP_CM_STORE && entry.comp_method != ZIP_CM_DEFLATE)
        return "is packed in a way that is not supported";
    if (isLinkOrDevice(state, entry.index))
        return "is no file";
    const std::uint64_t tightest =
        entry.size / limits.ratio + (entry.size % limits.ratio != 0 ? 1 : 0);
    if (entry.size > limits.plainBytes && entry.comp_size < tightest)
        return "would grow beyond all measure";
    // Entries lie side by side in the file: what claims more shares bytes with another.
    if (!addClaim(claims.packedBytes, entry.comp_size, 1) || claims.packedBytes > state.fileSize)
        return "claims more than the archive holds";
    if (!addClaim(claims.diskBytes, entry.size, block))
        return "would grow beyond all measure";
    return {};
}

int refuse(ArchiveState& state, std::string_view name, std::string_view complaint) {
    return state.fail("The archive is refused: its entry " + shownName(name) + " " +
                      std::string(complaint) + ".");
}

// Two names may not be one file, to a file system that does not tell case either; a folder may
// stand there again. For a large archive the sums of the names take less room than the names.
struct NameSum {
    std::size_t sum;
    zip_uint64_t index;
    bool isFolder;
};

int refuseTwins(ArchiveState& state, std::vector<NameSum>& sums, const NameDecoder& decoder) {
    std::sort(sums.begin(), sums.end(),
              [](const NameSum& a, const NameSum& b) { return a.sum < b.sum; });
    const auto twin =
        std::adjacent_find(sums.begin(), sums.end(), [](const NameSum& a, const NameSum& b) {
            return a.sum == b.sum && !(a.isFolder && b.isFolder);
        });
    return twin == sums.end()
               ? 1
               : refuse(state, decoder.decoded(rawName(state, twin->index)), "stands there twice");
}

int checkRoom(ArchiveState& state, const fs::path& folder, std::uint64_t bytes) {
    std::error_code error;
    const std::uint64_t available = fs::space(folder, error).available;
    if (error)
        return state.failOn(folder, "folder cannot be read", error.value());
    const std::uint64_t spare = state.limits.spareDiskBytes;
    if (available < spare || bytes > available - spare)
        return state.fail("The archive cannot be unpacked: the disk has too little free room.");
    return 1;
}

// Reads all names and claims; 1 when the archive may be unpacked.
int checkEntries(ArchiveState& state, const fs::path& folder, NameDecoder& decoder) {
    const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(state.zip.get(), 0));
    if (count > state.limits.entries)
        return state.fail("The archive is refused: it holds too many files.");
    for (zip_uint64_t i = 0; i < count; ++i)
        decoder.see(rawName(state, i));
    Claims claims;
    std::vector<NameSum> sums;
    sums.reserve(count);
    for (zip_uint64_t i = 0; i < count; ++i) {
        const std::string name = decoder.decoded(rawName(state, i));
        const EntryPath path = entryPath(name);
        if (!path.complaint.empty())
            return refuse(state, name, path.complaint);
        zip_stat_t entry;
        if (zip_stat_index(state.zip.get(), i, ZIP_FL_ENC_RAW, &entry) != 0)
            return refuse(state, name, "cannot be read");
        const std::string complaint = complaintOf(state, entry, claims);
        if (!complaint.empty())
            return refuse(state, name, complaint);
        if (!path.path.empty())
            sums.push_back({std::hash<std::string>{}(foldCase(path.path)), i, path.isFolder});
    }
    return refuseTwins(state, sums, decoder) == 0 ? 0 : checkRoom(state, folder, claims.diskBytes);
}

// ---- Unpacking

struct CloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};

// Makes what the entries need below one folder, which is open.
class Unpacking {
public:
    Unpacking(ArchiveState& state, const fs::path& folder, const NameDecoder& decoder)
        : state_(state), folder_(folder), decoder_(decoder),
          base_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
    Unpacking(const Unpacking&) = delete;
    Unpacking& operator=(const Unpacking&) = delete;
    ~Unpacking() {
        if (base_ >= 0)
            ::close(base_);
    }

    // The number of files, negative on failure.
    std::int64_t run() {
        if (base_ < 0) {
            failOn({}, "folder cannot be opened", errno);
            return -1;
        }
        for (index_ = 0; index_ < count_; ++index_) {
            name_ = decoder_.decoded(rawName(state_, index_));
            if (!goesOn() || unpackEntry() == 0)
                return -1;
        }
        if (::syncfs(base_) != 0) { // one flush for all of them
            failOn({}, "folder cannot be written", errno);
            return -1;
        }
        return files_;
    }

private:
    int failOn(const std::string& path, std::string_view whatCannotBe, int error) {
        return state_.failOn(folder_ / path, whatCannotBe, error);
    }

    [[nodiscard]] bool goesOn() const {
        return state_.goesOn(
            {.work = Work::Unpacking, .done = index_, .total = count_, .name = name_});
    }

    int unpackEntry() {
        const EntryPath entry = entryPath(name_);
        const std::size_t slash = entry.path.rfind('/');
        const std::string parent = slash == std::string::npos ? "" : entry.path.substr(0, slash);
        if (makeFolders(entry.isFolder ? entry.path : parent) == 0)
            return 0;
        return entry.isFolder ? 1 : unpackFile(entry.path);
    }

    // Makes a folder with those above it. What was made counts as entries do.
    int makeFolders(const std::string& path) {
        if (path.empty() || path == lastFolder_)
            return 1;
        for (std::size_t end = 0; end != std::string::npos;) {
            end = path.find('/', end + 1);
            const std::string part = path.substr(0, end);
            if (::mkdirat(base_, part.c_str(), 0777) == 0) {
                if (++made_ > state_.limits.entries)
                    return state_.fail("The archive is refused: it holds too many folders.");
            } else if (errno != EEXIST) {
                return failOn(part, "folder cannot be made", errno);
            }
        }
        lastFolder_ = path;
        return 1;
    }

    int unpackFile(const std::string& path) {
        zip_stat_t claimed;
        const std::unique_ptr<zip_file_t, CloseEntry> entry(
            zip_stat_index(state_.zip.get(), index_, ZIP_FL_ENC_RAW, &claimed) == 0
                ? zip_fopen_index(state_.zip.get(), index_, 0)
                : nullptr);
        if (!entry)
            return failReading(*zip_get_error(state_.zip.get()));
        const int file = ::openat(base_, path.c_str(),
                                  O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (file < 0)
            return failOn(path, "file cannot be written", errno);
        int done = copyOut(*entry, claimed.size, file, path);
        if (done != 0)
            keepTime(file, claimed.mtime);
        if (::close(file) != 0 && done != 0)
            done = failOn(path, "file cannot be written", errno);
        ++files_;
        if (++made_ > state_.limits.entries)
            return state_.fail("The archive is refused: it holds too many files.");
        return done;
    }

    // What the archive claims is the most that is written.
    int copyOut(zip_file_t& entry, std::uint64_t claimed, int file, const std::string& path) {
        std::uint64_t done = 0;
        for (;;) {
            const zip_int64_t got = zip_fread(&entry, buffer_.data(), buffer_.size());
            if (got < 0)
                return failReading(*zip_file_get_error(&entry));
            if (got == 0)
                break;
            done += static_cast<std::uint64_t>(got);
            if (done > claimed)
                return refuse(state_, name_, "is larger than it claims");
            if (!writeAll(file, static_cast<std::size_t>(got)))
                return failOn(path, "file cannot be written", errno);
            if (done >= buffer_.size() && !goesOn())
                return 0;
        }
        return done == claimed ? 1 : refuse(state_, name_, "is smaller than it claims");
    }

    bool writeAll(int file, std::size_t size) {
        std::size_t done = 0;
        while (done < size) {
            const ssize_t written = ::write(file, buffer_.data() + done, size - done);
            if (written == 0)
                errno = ENOSPC;
            if (written <= 0)
                return false;
            done += static_cast<std::size_t>(written);
        }
        return true;
    }

    // Exact where the archive holds it so, else to two seconds. A file's content matters, not
    // whether its time can be set.
    void keepTime(int file, std::time_t changed) const {
        constexpr zip_uint16_t extendedTimestamp = 0x5455;
        constexpr zip_uint16_t fieldSize = 5;
        zip_uint16_t size = 0;
        const zip_uint8_t* const field = zip_file_extra_field_get_by_id(
            state_.zip.get(), index_, extendedTimestamp, 0, &size, ZIP_FL_CENTRAL);
        if (field != nullptr && size >= fieldSize && (field[0] & 1U) != 0) {
            std::uint32_t bits = 0;
            for (unsigned i = 0; i < 4; ++i)
                bits |= std::uint32_t{field[i + 1]} << (8 * i);
            changed = static_cast<std::int32_t>(bits);
        }
        const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, timespec{changed, 0}};
        static_cast<void>(::futimens(file, times.data()));
    }

    int failReading(const zip_error_t& error) {
        if (state_.trouble.error != 0)
            return state_.failOn(state_.file, "archive cannot be read", state_.trouble.error);
        return state_.fail("The archive cannot be unpacked: its entry " + shownName(name_) +
                           " cannot be read, " + zipErrorText(error) + ".");
    }

    ArchiveState& state_;
    const fs::path& folder_;
    const NameDecoder& decoder_;
    int base_;
    zip_uint64_t count_ = static_cast<zip_uint64_t>(zip_get_num_entries(state_.zip.get(), 0));
    zip_uint64_t index_ = 0; // the entry that is unpacked
    std::string name_;       // its name
    std::string lastFolder_;
    std::int64_t files_ = 0;
    std::uint64_t made_ = 0; // files and folders
    std::vector<char> buffer_ = std::vector<char>(std::size_t{1} << 16);
};

} // namespace

std::int64_t unpackArchive(ArchiveState& state, const fs::path& folder) {
    std::error_code error;
    fs::create_directory(folder, error);
    if (!fs::is_empty(folder, error) || error) {
        state.failOn(folder, "folder cannot be unpacked into", error ? error.value() : ENOTEMPTY);
        return -1;
    }
    NameDecoder decoder;
    if (checkEntries(state, folder, decoder) == 0)
        return -1;
    const std::int64_t files = Unpacking(state, folder, decoder).run();
    if (files < 0)
        for (const std::string& name : listFiles(folder, "*"))
            removeTree(folder / name);
    return files;
}

} // namespace vorna
