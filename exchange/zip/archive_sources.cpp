#include "exchange/zip/archive_sources.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace vorna {
namespace {

namespace fs = std::filesystem;

class Descriptor {
public:
    Descriptor() = default;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    bool open(const fs::path& file, int flags) {
        close();
        value_ = ::open(file.c_str(), flags | O_CLOEXEC, 0666);
        return value_ >= 0;
    }
    void close() {
        if (value_ >= 0)
            ::close(value_);
        value_ = -1;
    }
    [[nodiscard]] int get() const { return value_; }

private:
    int value_ = -1;
};

// One source of libzip as an object. An operation returns -1 after `fail`.
class Source {
public:
    explicit Source(FileTrouble& trouble) : trouble_(trouble) { zip_error_init(&error_); }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    virtual ~Source() { zip_error_fini(&error_); }

    virtual zip_int64_t run(void* data, zip_uint64_t length, zip_source_cmd_t command) = 0;

    static zip_int64_t call(void* source, void* data, zip_uint64_t length,
                            zip_source_cmd_t command) {
        auto* const self = static_cast<Source*>(source);
        if (command == ZIP_SOURCE_FREE) {
            delete self;
            return 0;
        }
        if (command == ZIP_SOURCE_ERROR)
            return zip_error_to_data(&self->error_, data, length);
        return self->run(data, length, command);
    }

protected:
    zip_int64_t fail(const fs::path& file, int error) {
        trouble_ = {.file = file, .error = error};
        zip_error_set(&error_, ZIP_ER_INTERNAL, error);
        return -1;
    }
    zip_int64_t refuse() {
        zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
    // Moves the offset to where a seek of libzip asks for; -1 when that lies outside, else 0.
    zip_int64_t seek(std::uint64_t& offset, std::uint64_t size, void* data, zip_uint64_t length) {
        const zip_int64_t sought =
            zip_source_seek_compute_offset(offset, size, data, length, &error_);
        if (sought < 0)
            return -1;
        offset = static_cast<std::uint64_t>(sought);
        return 0;
    }
    zip_error_t* error() { return &error_; }

private:
    FileTrouble& trouble_;
    zip_error_t error_{};
};

zip_int64_t answerStat(void* data, std::uint64_t size, const std::time_t* changed) {
    zip_stat_t stat;
    zip_stat_init(&stat);
    stat.size = size;
    stat.valid = ZIP_STAT_SIZE;
    if (changed != nullptr) {
        stat.mtime = *changed;
        stat.valid |= ZIP_STAT_MTIME;
    }
    std::memcpy(data, &stat, sizeof stat);
    return sizeof stat;
}

class PackedFile final : public Source {
public:
    PackedFile(FileToPack file, const PackingReport& report)
        : Source(report.trouble), file_(std::move(file)), packed_(report.packed) {}

    zip_int64_t run(void* data, zip_uint64_t length, zip_source_cmd_t command) override {
        switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_READABLE |
                   ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_SUPPORTS);
        case ZIP_SOURCE_OPEN:
            left_ = file_.size;
            ++packed_.begun;
            packed_.current = file_.file;
            // A file that became a pipe or a link since it was found must not be followed.
            return descriptor_.open(file_.file, O_RDONLY | O_NOFOLLOW | O_NONBLOCK)
                       ? 0
                       : fail(file_.file, errno);
        case ZIP_SOURCE_READ:
            return read(data, std::min(length, left_));
        case ZIP_SOURCE_CLOSE:
            descriptor_.close();
            return 0;
        case ZIP_SOURCE_STAT:
            return answerStat(data, file_.size, &file_.changed);
        default:
            return refuse();
        }
    }

private:
    zip_int64_t read(void* data, zip_uint64_t length) {
        if (length == 0)
            return 0;
        const ssize_t got = ::read(descriptor_.get(), data, length);
        if (got < 0)
            return fail(file_.file, errno);
        // Less than asked for is the end of the file.
        left_ = static_cast<zip_uint64_t>(got) < length ? 0 : left_ - length;
        return got;
    }

    FileToPack file_;
    FilesPacked& packed_;
    Descriptor descriptor_;
    std::uint64_t left_ = 0;
};

class ReadArchive final : public Source {
public:
    ReadArchive(fs::path file, const bool& open, FileTrouble& trouble)
        : Source(trouble), file_(std::move(file)), open_(open) {}

    // Opens the file; false when it is none that can be read.
    bool start() {
        if (!descriptor_.open(file_, O_RDONLY | O_NONBLOCK))
            return fail(file_, errno) == 0;
        struct ::stat state {};
        if (::fstat(descriptor_.get(), &state) != 0)
            return fail(file_, errno) == 0;
        if (!S_ISREG(state.st_mode))
            return fail(file_, S_ISDIR(state.st_mode) ? EISDIR : EINVAL) == 0;
        size_ = static_cast<std::uint64_t>(state.st_size);
        return true;
    }

    zip_int64_t run(void* data, zip_uint64_t length, zip_source_cmd_t command) override {
        switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_SEEKABLE;
        case ZIP_SOURCE_OPEN:
            offset_ = 0;
            return 0;
        case ZIP_SOURCE_READ:
            return read(static_cast<char*>(data), length);
        case ZIP_SOURCE_CLOSE:
            return 0;
        case ZIP_SOURCE_STAT:
            return answerStat(data, size_, nullptr);
        case ZIP_SOURCE_TELL:
            return static_cast<zip_int64_t>(offset_);
        case ZIP_SOURCE_SEEK:
            return seek(offset_, size_, data, length);
        default:
            return refuse();
        }
    }

private:
    zip_int64_t read(char* data, zip_uint64_t length) {
        length = std::min(length, size_ - std::min(size_, offset_));
        if (!open_ && (readSoFar_ += length) > largestEntryList)
            return fail(file_, EFBIG);
        zip_uint64_t done = 0;
        while (done < length) {
            if (offset_ < bufferOffset_ || offset_ >= bufferOffset_ + buffer_.size())
                if (!fill())
                    return -1;
            const std::size_t at = static_cast<std::size_t>(offset_ - bufferOffset_);
            const std::size_t part = std::min<std::size_t>(buffer_.size() - at, length - done);
            if (part == 0)
                break; // the file became shorter
            std::memcpy(data + done, buffer_.data() + at, part);
            done += part;
            offset_ += part;
        }
        return static_cast<zip_int64_t>(done);
    }

    // Reads on from the offset.
    bool fill() {
        constexpr std::size_t bufferSize = 65536;
        buffer_.resize(bufferSize);
        const ssize_t got =
            ::pread(descriptor_.get(), buffer_.data(), buffer_.size(), static_cast<off_t>(offset_));
        buffer_.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
        bufferOffset_ = offset_;
        return got >= 0 || fail(file_, errno) == 0;
    }

    fs::path file_;
    const bool& open_;
    Descriptor descriptor_;
    std::uint64_t size_ = 0;
    std::uint64_t offset_ = 0;
    std::uint64_t readSoFar_ = 0;
    std::vector<char> buffer_;
    std::uint64_t bufferOffset_ = 0;
};

// libzip goes back to each entry's header when its content is written; what was written last is
// kept, so that this costs nothing for all but large entries.
class WrittenArchive final : public Source {
public:
    WrittenArchive(fs::path file, FileTrouble& trouble)
        : Source(trouble), file_(std::move(file)),
          temporary_(file_.parent_path() / (".vorna-" + std::to_string(::getpid()) + ".zip~")) {}
    WrittenArchive(const WrittenArchive&) = delete;
    WrittenArchive& operator=(const WrittenArchive&) = delete;
    ~WrittenArchive() override { drop(); }

    zip_int64_t run(void* data, zip_uint64_t length, zip_source_cmd_t command) override {
        switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        case ZIP_SOURCE_STAT: // whatever stands under the name, the archive is a new one
            zip_error_set(error(), ZIP_ER_READ, ENOENT);
            return -1;
        case ZIP_SOURCE_BEGIN_WRITE:
            begun_ = descriptor_.open(temporary_, O_RDWR | O_CREAT | O_TRUNC | O_NOFOLLOW);
            return begun_ ? 0 : fail(file_, errno);
        case ZIP_SOURCE_WRITE:
            return write(static_cast<const char*>(data), length);
        case ZIP_SOURCE_TELL_WRITE:
            return static_cast<zip_int64_t>(offset_);
        case ZIP_SOURCE_SEEK_WRITE:
            return seek(offset_, size_, data, length);
        case ZIP_SOURCE_COMMIT_WRITE:
            return commit();
        case ZIP_SOURCE_ROLLBACK_WRITE:
        case ZIP_SOURCE_REMOVE:
            drop();
            return 0;
        default:
            return refuse();
        }
    }

private:
    zip_int64_t write(const char* data, zip_uint64_t length) {
        constexpr std::size_t kept = std::size_t{1} << 20;
        if (offset_ < bufferOffset_ || offset_ > bufferOffset_ + buffer_.size() ||
            buffer_.size() >= kept) {
            if (!flush())
                return -1;
            bufferOffset_ = offset_;
        }
        const std::size_t at = static_cast<std::size_t>(offset_ - bufferOffset_);
        buffer_.resize(std::max(buffer_.size(), at + static_cast<std::size_t>(length)));
        std::memcpy(buffer_.data() + at, data, length);
        offset_ += length;
        size_ = std::max(size_, offset_);
        return static_cast<zip_int64_t>(length);
    }

    bool flush() {
        std::size_t done = 0;
        while (done < buffer_.size()) {
            const ssize_t written =
                ::pwrite(descriptor_.get(), buffer_.data() + done, buffer_.size() - done,
                         static_cast<off_t>(bufferOffset_ + done));
            if (written <= 0)
                return fail(file_, written < 0 ? errno : ENOSPC) == 0;
            done += static_cast<std::size_t>(written);
        }
        buffer_.clear();
        return true;
    }

    zip_int64_t commit() {
        if (!flush())
            return -1;
        if (::fsync(descriptor_.get()) != 0 || ::rename(temporary_.c_str(), file_.c_str()) != 0)
            return fail(file_, errno);
        begun_ = false;
        descriptor_.close();
        Descriptor folder; // makes the new name last; some file systems cannot, and nothing is lost
        if (folder.open(file_.has_parent_path() ? file_.parent_path() : ".",
                        O_RDONLY | O_DIRECTORY))
            static_cast<void>(::fsync(folder.get()));
        return 0;
    }

    void drop() {
        descriptor_.close();
        if (begun_)
            ::unlink(temporary_.c_str());
        begun_ = false;
    }

    fs::path file_;
    fs::path temporary_;
    Descriptor descriptor_;
    bool begun_ = false;
    std::uint64_t size_ = 0;
    std::uint64_t offset_ = 0;
    std::vector<char> buffer_; // not yet written, from bufferOffset_ on
    std::uint64_t bufferOffset_ = 0;
};

zip_source_t* handOver(std::unique_ptr<Source> source) {
    zip_source_t* const made = zip_source_function_create(&Source::call, source.get(), nullptr);
    if (made != nullptr)
        static_cast<void>(source.release());
    return made;
}

} // namespace

zip_source_t* sourceOfFile(zip_t* archive, FileToPack file, const PackingReport& report) {
    auto source = std::make_unique<PackedFile>(std::move(file), report);
    zip_source_t* const made = zip_source_function(archive, &Source::call, source.get());
    if (made != nullptr)
        static_cast<void>(source.release());
    return made;
}

zip_source_t* sourceOfArchive(const fs::path& file, const bool& open, FileTrouble& trouble) {
    auto source = std::make_unique<ReadArchive>(file, open, trouble);
    return source->start() ? handOver(std::move(source)) : nullptr;
}

bool beginsLikeArchive(const fs::path& file) {
    std::array<char, 2> bytes{};
    Descriptor descriptor;
    return descriptor.open(file, O_RDONLY | O_NONBLOCK) &&
           ::read(descriptor.get(), bytes.data(), bytes.size()) == ssize_t{bytes.size()} &&
           bytes == std::array{'P', 'K'};
}

zip_source_t* sinkOfArchive(const fs::path& file, FileTrouble& trouble) {
    return handOver(std::make_unique<WrittenArchive>(file, trouble));
}

} // namespace vorna
