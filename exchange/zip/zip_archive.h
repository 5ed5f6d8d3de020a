// The archive on libzip.
#pragma once

#include "exchange/archive.h"

namespace vorna {

// What an archive may ask of the disk.
struct ArchiveLimits {
    std::uint64_t entries = 2'000'000;                     // files and folders
    std::uint64_t plainBytes = std::uint64_t{64} << 20;    // an entry of this size or smaller, or
    std::uint64_t ratio = 200;                             // one packed no tighter than this
    std::uint64_t spareDiskBytes = std::uint64_t{1} << 30; // must stay free
};

struct ArchiveState;

class ZipArchive final : public Archive {
public:
    explicit ZipArchive(WorkProgress* progress = nullptr, const ArchiveLimits& limits = {});
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;
    ~ZipArchive() override;

    int newArchive(const std::filesystem::path& file) override;
    int addFolder(const std::filesystem::path& folder, bool recursive) override;
    [[nodiscard]] std::int64_t entryCount() const override;
    int writeArchive() override;
    int openArchive(const std::filesystem::path& file) override;
    std::int64_t extractAll(const std::filesystem::path& folder) override;
    [[nodiscard]] std::string lastErrorText() const override;
    [[nodiscard]] bool cancelled() const override;

private:
    std::unique_ptr<ArchiveState> state_;
};

std::unique_ptr<Archive> makeZipArchive(WorkProgress* progress);

} // namespace vorna
