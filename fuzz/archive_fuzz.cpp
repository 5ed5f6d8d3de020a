// Any bytes as an archive: it is unpacked below its folder or refused, with little memory and disk.
#include "exchange/archive.h"
#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vorna;
    static const fs::path scratch = [] {
        std::string pattern = (fs::temp_directory_path() / "vorna-fuzz-XXXXXX").string();
        return fs::path(mkdtemp(pattern.data()));
    }();
    std::ofstream(scratch / "a.zip", std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    constexpr ArchiveLimits limits{.entries = 1000, .plainBytes = 1 << 16};
    Archive archive(nullptr, limits);
    if (archive.openArchive(scratch / "a.zip") == 1) {
        const std::int64_t files = archive.extractAll(scratch / "out");
        if (files < 0 && !listFiles(scratch / "out", "*").empty())
            std::abort(); // something of a refused archive stays
        removeTree(scratch / "out");
    }
    if (listFiles(scratch, "*").size() != 1)
        std::abort(); // something left the folder
    return 0;
}
