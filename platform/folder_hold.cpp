#include "platform/folder_hold.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vorna {

FolderHold::FolderHold(const std::filesystem::path& folder)
    : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)) {
    refused_ =
        descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

FolderHold::~FolderHold() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

bool isHeld(const std::filesystem::path& folder) {
    return FolderHold(folder).refused();
}

} // namespace vorna
