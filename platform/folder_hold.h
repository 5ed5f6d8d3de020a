// A folder that one program works in while others leave it alone. The hold goes with the program,
// however that ends. Where the file system knows none, nobody holds anything.
#pragma once

#include <filesystem>
#include <utility>

namespace vorna {

class FolderHold {
public:
    // Takes hold of the folder where nobody else holds it.
    explicit FolderHold(const std::filesystem::path& folder);
    FolderHold(FolderHold&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)), refused_(other.refused_) {}
    FolderHold& operator=(FolderHold&&) = delete;
    FolderHold(const FolderHold&) = delete;
    FolderHold& operator=(const FolderHold&) = delete;
    ~FolderHold();

    // Whether somebody else held it.
    [[nodiscard]] bool refused() const { return refused_; }

private:
    int descriptor_;
    bool refused_ = false;
};

// Whether a FolderHold holds the folder, in this program or another.
bool isHeld(const std::filesystem::path& folder);

} // namespace vorna
