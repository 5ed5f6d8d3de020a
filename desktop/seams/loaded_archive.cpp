#include "desktop/seams/loaded_archive.h"

#include "desktop/seams/late_library.h"

namespace vorna {
namespace {

class MissingArchive final : public Archive {
public:
    explicit MissingArchive(const char* library) : library_(library) {}

    int newArchive(const std::filesystem::path&) override { return 0; }
    int addFolder(const std::filesystem::path&, bool) override { return 0; }
    [[nodiscard]] std::int64_t entryCount() const override { return 0; }
    int writeArchive() override { return 0; }
    int openArchive(const std::filesystem::path&) override { return 0; }
    std::int64_t extractAll(const std::filesystem::path&) override { return -1; }
    [[nodiscard]] std::string lastErrorText() const override {
        return "The program's library libvorna-" + library_ +
               ".so cannot be used. Please start the program again, or else install it again.";
    }
    [[nodiscard]] bool cancelled() const override { return false; }

private:
    std::string library_;
};

} // namespace

std::unique_ptr<Archive> archiveOfLibrary(const char* library, WorkProgress* progress) {
    if (auto archive = seamOfLibrary<decltype(makeArchive)>(library, "makeArchive", progress))
        return archive;
    return std::make_unique<MissingArchive>(library);
}

} // namespace vorna
