#include "exchange/zip/zip_archive.h"

#include "exchange/zip/archive_state.h"
#include "exchange/zip/entry_names.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace vorna {
namespace {

std::string quotedPath(const fs::path& path) {
    return "\"" + pathText(path) + "\"";
}

std::string systemErrorText(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "it does not exist";
    case EACCES:
    case EPERM:
        return "access is denied";
    case EROFS:
        return "the disk is write-protected";
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return "the disk is full";
    case EISDIR:
        return "it is a folder";
    case EEXIST:
        return "it exists already";
    case ENOTEMPTY:
        return "it is not empty";
    case ENAMETOOLONG:
        return "the name is too long";
    case ELOOP:
    case EINVAL:
        return "it is no ordinary file";
    case EIO:
        return "the disk reports an error";
    default:
        return "the system reports error " + std::to_string(error);
    }
}

// ---- Adding

constexpr zip_uint32_t compressionLevel = 1; // the files are small; what more would win is little

struct Found {
    std::string name; // as it stands in the folder
    fs::path path;
    struct ::stat state {};
};

// What lies in a folder, in the order of the names; false when it cannot be read.
bool listFolder(const fs::path& folder, std::vector<Found>& found, std::error_code& error) {
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        Found one{.name = pathText(at->path().filename()), .path = at->path()};
        if (!isTemporaryName(one.name) &&
            ::lstat(one.path.c_str(), &one.state) == 0) // else it has gone meanwhile
            found.push_back(std::move(one));
    }
    std::sort(found.begin(), found.end(),
              [](const Found& a, const Found& b) { return a.name < b.name; });
    return !error;
}

// The time as other programs' archives hold it too: exact to the second and free of time zones.
void keepTime(zip_t* zip, zip_uint64_t index, std::time_t changed) {
    constexpr zip_uint16_t extendedTimestamp = 0x5455;
    const auto seconds = static_cast<std::int32_t>(changed);
    if (seconds != changed)
        return; // beyond 2038 the plain time alone
    const auto bits = static_cast<std::uint32_t>(seconds);
    std::array<zip_uint8_t, 5> field{1}; // one time: that of the last change
    for (std::size_t i = 0; i < 4; ++i)
        field[i + 1] = static_cast<zip_uint8_t>(bits >> (8 * i));
    zip_file_extra_field_set(zip, index, extendedTimestamp, ZIP_EXTRA_FIELD_NEW, field.data(),
                             field.size(), ZIP_FL_LOCAL | ZIP_FL_CENTRAL);
}

int addFile(ArchiveState& state, const Found& file, const std::string& name) {
    zip_t* const zip = state.zip.get();
    zip_source_t* const source =
        sourceOfFile(zip,
                     {.file = file.path,
                      .size = static_cast<std::uint64_t>(file.state.st_size),
                      .changed = file.state.st_mtime},
                     {.trouble = state.trouble, .packed = state.packed});
    const zip_int64_t index =
        source == nullptr ? -1 : zip_file_add(zip, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return state.fail("The file " + quotedPath(file.path) +
                          " cannot be added: " + zipErrorText(*zip_get_error(zip)) + ".");
    }
    const auto place = static_cast<zip_uint64_t>(index);
    zip_set_file_compression(zip, place, ZIP_CM_DEFLATE, compressionLevel);
    keepTime(zip, place, file.state.st_mtime);
    return 1;
}

// The names of a folder as an archive can hold them: all of them can be unpacked everywhere, and no
// two are one to a file system that does not tell case. Empty where nothing is to be added.
int nameEntries(ArchiveState& state, const std::vector<Found>& found,
                std::vector<std::string>& names) {
    NameDecoder decoder;
    for (const Found& one : found)
        decoder.see(one.name);
    std::vector<std::pair<std::string, std::size_t>> folded;
    for (const Found& one : found) {
        names.emplace_back();
        if (!S_ISREG(one.state.st_mode) && !S_ISDIR(one.state.st_mode))
            continue;
        names.back() = decoder.decoded(one.name);
        if (isForbiddenFileName(names.back()))
            return state.fail("The name " + quotedPath(one.path) +
                              " cannot be stored on every computer. Please rename it.");
        folded.emplace_back(foldCase(names.back()), names.size() - 1);
    }
    std::sort(folded.begin(), folded.end());
    const auto twin = std::adjacent_find(folded.begin(), folded.end(),
                                         [](auto& a, auto& b) { return a.first == b.first; });
    if (twin != folded.end())
        return state.fail("The names " + quotedPath(found[twin->second].path) + " and " +
                          quotedPath(found[(twin + 1)->second].path) +
                          " are one name on some computers. Please rename one of them.");
    return 1;
}

int addEntries(ArchiveState& state, const fs::path& folder, const std::string& prefix,
               bool recursive) {
    const std::string folderName = pathText(folder.filename());
    if (!state.goesOn({.name = folderName}))
        return 0;
    std::vector<Found> found;
    std::error_code error;
    if (!listFolder(folder, found, error))
        return state.failOn(folder, "folder cannot be read", error.value());
    std::vector<std::string> names;
    if (nameEntries(state, found, names) == 0)
        return 0;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const Found& one = found[i];
        int added = 1;
        if (S_ISREG(one.state.st_mode))
            added = addFile(state, one, prefix + names[i]);
        else if (S_ISDIR(one.state.st_mode) && recursive)
            added = addEntries(state, one.path, prefix + names[i] + "/", recursive);
        if (added == 0)
            return 0;
    }
    return 1;
}

// ---- Writing

void tellProgress(zip_t* zip, double done, void* data) {
    auto& state = *static_cast<ArchiveState*>(data);
    const auto total = static_cast<std::uint64_t>(zip_get_num_entries(zip, 0));
    const std::string name = pathText(state.packed.current.filename());
    const std::uint64_t begun = state.packed.begun;
    state.goesOn({.done = done < 1 && begun > 0 ? begun - 1 : begun, .total = total, .name = name});
}

int askCancelled(zip_t*, void* state) {
    return static_cast<ArchiveState*>(state)->cancelled ? 1 : 0;
}

void watchWriting(ArchiveState& state) {
    constexpr double step = 0.001;
    if (state.progress == nullptr)
        return;
    zip_register_progress_callback_with_state(state.zip.get(), step, &tellProgress, nullptr,
                                              &state);
    zip_register_cancel_callback_with_state(state.zip.get(), &askCancelled, nullptr, &state);
}

int failWriting(ArchiveState& state) {
    if (state.cancelled)
        return state.failByCancel();
    const FileTrouble trouble = state.trouble;
    if (trouble.error == 0)
        return state.fail("The archive " + quotedPath(state.file) + " cannot be written: " +
                          zipErrorText(*zip_get_error(state.zip.get())) + ".");
    if (trouble.file == state.file)
        return state.failOn(state.file, "archive cannot be written", trouble.error);
    return state.failOn(trouble.file, "file cannot be read", trouble.error);
}

} // namespace

int ArchiveState::fail(std::string text) {
    errorText = std::move(text);
    cancelled = false;
    return 0;
}

int ArchiveState::failOn(const fs::path& path, std::string_view whatCannotBe, int error) {
    const std::size_t noun = whatCannotBe.find(' ');
    return fail("The " + std::string(whatCannotBe.substr(0, noun)) + " " + quotedPath(path) +
                std::string(whatCannotBe.substr(noun)) + ": " + systemErrorText(error) + ".");
}

int ArchiveState::failByCancel() {
    errorText = "The work was cancelled.";
    cancelled = true;
    return 0;
}

bool ArchiveState::goesOn(const WorkProgress::Step& step) {
    if (progress != nullptr && !cancelled && !progress->goesOn(step))
        failByCancel();
    return !cancelled;
}

std::string zipErrorText(const zip_error_t& error) {
    switch (zip_error_code_zip(&error)) {
    case ZIP_ER_NOZIP:
        return "it is no zip archive";
    case ZIP_ER_INCONS:
    case ZIP_ER_EOF:
    case ZIP_ER_CRC:
    case ZIP_ER_ZLIB:
    case ZIP_ER_COMPRESSED_DATA:
    case ZIP_ER_SEEK:
    case ZIP_ER_READ:
        return "it is damaged or cut short";
    case ZIP_ER_MULTIDISK:
        return "it is one part of several";
    case ZIP_ER_COMPNOTSUPP:
        return "it is packed in a way that is not supported";
    case ZIP_ER_ENCRNOTSUPP:
    case ZIP_ER_NOPASSWD:
    case ZIP_ER_WRONGPASSWD:
        return "it is protected by a password";
    case ZIP_ER_MEMORY:
        return "there is not enough memory";
    default:
        return "the archive reports error " + std::to_string(zip_error_code_zip(&error));
    }
}

ZipArchive::ZipArchive(WorkProgress* progress, const ArchiveLimits& limits)
    : state_(std::make_unique<ArchiveState>()) {
    state_->progress = progress;
    state_->limits = limits;
}

ZipArchive::~ZipArchive() = default;

int ZipArchive::newArchive(const fs::path& file) {
    ArchiveState& state = *state_;
    state.zip.reset();
    state.file = file;
    state.trouble = {};
    state.packed = {};
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const sink = sinkOfArchive(file, state.trouble);
    state.zip.reset(
        sink == nullptr ? nullptr : zip_open_from_source(sink, ZIP_CREATE | ZIP_TRUNCATE, &error));
    if (state.zip)
        return 1;
    zip_source_free(sink);
    state.fail("The archive " + quotedPath(file) + " cannot be made: " + zipErrorText(error) + ".");
    zip_error_fini(&error);
    return 0;
}

int ZipArchive::addFolder(const fs::path& folder, bool recursive) {
    if (!state_->zip) // it failed before, and the text says why
        return 0;
    return addEntries(*state_, folder, {}, recursive);
}

std::int64_t ZipArchive::entryCount() const {
    return state_->zip ? zip_get_num_entries(state_->zip.get(), 0) : 0;
}

int ZipArchive::writeArchive() {
    ArchiveState& state = *state_;
    if (!state.zip)
        return 0;
    watchWriting(state);
    if (zip_close(state.zip.get()) != 0) {
        failWriting(state);
        state.zip.reset();
        return 0;
    }
    static_cast<void>(state.zip.release()); // libzip has freed it
    return 1;
}

int ZipArchive::openArchive(const fs::path& file) {
    ArchiveState& state = *state_;
    state.zip.reset();
    state.file = file;
    state.trouble = {};
    state.open = false;
    zip_source_t* const source = sourceOfArchive(file, state.open, state.trouble);
    if (source == nullptr)
        return state.failOn(file, "archive cannot be read", state.trouble.error);
    std::error_code ignored;
    state.fileSize = fs::file_size(file, ignored);
    zip_error_t error;
    zip_error_init_with_code(&error, ZIP_ER_NOZIP);
    if (state.fileSize > 0) // which libzip would take for an archive without entries
        state.zip.reset(zip_open_from_source(source, ZIP_RDONLY, &error));
    state.open = state.zip != nullptr;
    if (state.open)
        return 1;
    zip_source_free(source);
    if (zip_error_code_zip(&error) == ZIP_ER_NOZIP && beginsLikeArchive(file))
        zip_error_set(&error, ZIP_ER_INCONS, 0);
    state.fail("The archive " + quotedPath(file) + " cannot be opened: " +
               (state.trouble.error == EFBIG ? "it holds too many files" : zipErrorText(error)) +
               ".");
    zip_error_fini(&error);
    return 0;
}

std::int64_t ZipArchive::extractAll(const fs::path& folder) {
    return state_->zip ? unpackArchive(*state_, folder) : -1;
}

std::string ZipArchive::lastErrorText() const {
    return state_->errorText;
}

bool ZipArchive::cancelled() const {
    return state_->cancelled;
}

std::unique_ptr<Archive> makeZipArchive(WorkProgress* progress) {
    return std::make_unique<ZipArchive>(progress);
}

} // namespace vorna
