#include "content/installation.h"

#include "content/client_database.h"
#include "content/reference_builder.h"
#include "content/sounds.h"
#include "content/sources.h"
#include "core/file_names.h"
#include "platform/text.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <system_error>

namespace vorna {
namespace {

constexpr std::int16_t languages = 4;

// The files in a folder and its subfolders, by their names relative to it, sorted. Empty when there
// is no such folder.
std::set<std::string> filesBelow(const fs::path& folder) {
    std::set<std::string> files;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error))
        if (at->is_regular_file(error))
            files.insert(at->path().lexically_relative(folder).generic_string());
    return files;
}

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

void makeFolder(const fs::path& path) {
    std::error_code error;
    fs::create_directories(path, error);
    if (!isFolder(path))
        throw Failure(pathText(path) + ": the folder cannot be made");
}

bool holdsBytes(const fs::path& file, std::string_view bytes) {
    std::error_code error;
    return fs::is_regular_file(file, error) && readWholeFile(file) == bytes;
}

bool haveSameFiles(const fs::path& a, const fs::path& b) {
    const std::set<std::string> files = filesBelow(a);
    return files == filesBelow(b) && std::all_of(files.begin(), files.end(), [&](const auto& name) {
               return holdsBytes(b / name, readWholeFile(a / name));
           });
}

// Lays files down and keeps their names.
class Layer {
public:
    explicit Layer(const InstallationPlan& plan) : plan_(plan) {}

    void laySources() {
        const fs::path tables = plan_.sources / "tables";
        makeReferenceDatabase({tables, "tcm"}, place(names::referenceTcm));
        makeReferenceDatabase({tables, "apm"}, place(names::referenceApm));
        makeClientDatabase(tables / "klienti.sql", place(names::clients));
        for (const std::string_view name : {names::anamnesis, names::recommendation})
            copy(plan_.sources / "templates", name);
        for (const std::string_view name : {names::newk, names::setup, names::user})
            copy(plan_.sources / "settings", name);
        for (std::int16_t language = 1; language <= languages; ++language)
            copy(plan_.sources / "lang", names::languageFile(language));
        for (const SynthesizedSound& sound : startSounds())
            write(sound.name, formatWave(sound));
    }

    // The starter folder of reports: its page style.
    void layHtml() {
        const fs::path sources = plan_.sources / names::html;
        if (!isFolder(sources))
            throw Failure(pathText(sources) + ": the folder is missing");
        const fs::path movedAside = plan_.into / names::htmlMovedAside;
        const bool leave = !plan_.asNew && !isFolder(plan_.into / names::html) &&
                           isFolder(movedAside) && haveSameFiles(sources, movedAside);
        for (const std::string& name : filesBelow(sources)) {
            const std::string target = std::string(names::html) + "/" + name;
            if (leave)
                laid_.insert(target);
            else
                write(target, readSource(sources / name));
        }
        if (!leave)
            removeMovedAside(movedAside);
    }

    void makeFolders() {
        for (const std::string_view mode : {names::rezimTcm, names::rezimApm})
            makeFolder(under(plan_.into, mode));
        const fs::path movedAside = plan_.into / names::dataMovedAside;
        if (isFolder(movedAside) && !plan_.asNew)
            return;
        makeFolder(plan_.into / names::data);
        removeMovedAside(movedAside);
    }

    void removeStaleFiles() const {
        std::string list;
        attempt([&] { list = readWholeFile(plan_.list); });
        for (const std::string_view line : split(list, '\n')) {
            const fs::path name = fs::path(line).lexically_normal();
            const bool inside = name.is_relative() && !name.empty() && *name.begin() != "..";
            if (inside && !laid_.contains(name.generic_string()))
                removeWithEmptyFolders(name);
        }
    }

    void writeList() const {
        std::string list;
        for (const std::string& name : laid_)
            list += name + "\n";
        naming(plan_.list, [&] { writeFileAtomically(plan_.list, list); });
    }

private:
    // The path of a file that is now laid down.
    fs::path place(std::string_view name) {
        laid_.insert(std::string(name));
        fs::path path = plan_.into / name;
        makeFolder(path.parent_path());
        return path;
    }

    void write(std::string_view name, const std::string& bytes) {
        const fs::path path = place(name);
        naming(path, [&] {
            if (!holdsBytes(path, bytes))
                writeFileAtomically(path, bytes);
        });
    }

    void copy(const fs::path& folder, std::string_view name) {
        write(name, readSource(folder / name));
    }

    // The first run moves a starter folder to this name, which must be free for it again.
    static void removeMovedAside(const fs::path& folder) {
        std::error_code error;
        fs::remove_all(folder, error);
        if (error)
            throw Failure(pathText(folder) + ": the folder cannot be removed");
    }

    void removeWithEmptyFolders(const fs::path& name) const {
        std::error_code error; // a file that stays does no harm, and a folder in use stays
        for (fs::path path = name; !path.empty(); path = path.parent_path())
            fs::remove(plan_.into / path, error);
    }

    const InstallationPlan& plan_;
    std::set<std::string> laid_; // relative to the installation folder
};

} // namespace

void layInstallation(const InstallationPlan& plan) {
    makeFolder(plan.into);
    Layer layer(plan);
    layer.laySources();
    layer.layHtml();
    if (!plan.list.empty())
        layer.removeStaleFiles();
    layer.makeFolders();
    if (!plan.list.empty())
        layer.writeList();
}

} // namespace vorna
