#include "tests/support/scratch_folder.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <sys/resource.h>

namespace vorna {
namespace {

rlimit fileSizeLimit() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    return limit;
}

void limitFileSize(unsigned long bytes) {
    rlimit limit = fileSizeLimit();
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace

ScratchFolder::ScratchFolder() {
    std::string name = pathText(fs::temp_directory_path() / "vorna zkouška žluťoučká XXXXXX");
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no scratch folder can be made");
    path_ = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

fs::path ScratchFolder::write(std::string_view name, std::string_view bytes) const {
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    writeFileAtomically(file, bytes);
    return file;
}

FullDisk::FullDisk(unsigned long bytes) : before_(fileSizeLimit().rlim_cur) {
    std::signal(SIGXFSZ, SIG_IGN); // the write then fails instead
    limitFileSize(bytes);
}

FullDisk::~FullDisk() {
    limitFileSize(before_);
}

} // namespace vorna
