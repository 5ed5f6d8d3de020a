// Any bytes as an archive: it is unpacked below its folder or refused, with little memory and disk.
#include "exchange/zip/zip_archive.h"
#include "fuzz/support.h"
#include "tests/support/scratch_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vorna;
    static const ScratchFolder folder;
    const fs::path file = folder / "a.zip";
    const fs::path out = folder / "out";
    fuzz::writeScratch(file, fuzz::textOf(data, size));
    constexpr ArchiveLimits limits{.entries = 1000, .plainBytes = 1 << 16};
    ZipArchive archive(nullptr, limits);
    if (archive.openArchive(file) == 1) {
        const std::int64_t files = archive.extractAll(out);
        fuzz::require(files >= 0 || listFiles(out, "*").empty()); // whole or not at all
        removeTree(out);
    }
    fuzz::require(listFiles(folder.path(), "*") == std::vector<std::string>{"a.zip"});
    return 0;
}
