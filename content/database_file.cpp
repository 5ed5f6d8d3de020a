#include "content/database_file.h"

#include "content/sources.h"

#include <system_error>

namespace vorna {
namespace {

// The name under which a database is made; nothing of it stays behind.
class UnfinishedFile {
public:
    explicit UnfinishedFile(fs::path path) : path_(std::move(path)) { remove(); }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile() { remove(); }

    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    void remove() const {
        std::error_code error; // mostly there is nothing to remove
        fs::remove(path_, error);
        fs::path journal = path_;
        fs::remove(journal += "-journal", error);
    }

    fs::path path_;
};

} // namespace

void makeDatabaseFile(const fs::path& file, const std::function<void(Database&)>& fill) {
    fs::path besideIt = file;
    const UnfinishedFile unfinished(besideIt += ".new~");
    {
        Database database =
            naming(file, [&] { return Database(unfinished.path(), {}, Database::Mode::Create); });
        Transaction transaction(database);
        fill(database);
        naming(file, [&] {
            transaction.commit();
            database.executeScript("vacuum");
        });
    }
    std::error_code error;
    fs::rename(unfinished.path(), file, error);
    if (error)
        throw Failure(pathText(file) + ": the file cannot be replaced");
}

} // namespace vorna
