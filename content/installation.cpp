#include "content/installation.h"

#include "content/client_database.h"
#include "content/laid_files.h"
#include "content/reference_builder.h"
#include "content/sounds.h"
#include "content/sources.h"
#include "core/file_names.h"

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

bool haveSameFiles(const fs::path& a, const fs::path& b) {
    const std::set<std::string> files = filesBelow(a);
    return files == filesBelow(b) && std::all_of(files.begin(), files.end(), [&](const auto& name) {
               return holdsBytes(b / name, readWholeFile(a / name));
           });
}

// Lays files down and keeps their names.
class Layer {
public:
    explicit Layer(const InstallationPlan& plan) : plan_(plan), files_(plan.into) {}

    void laySources() {
        const fs::path tables = plan_.sources / "tables";
        makeReferenceDatabase({tables, "tcm"}, files_.place(names::referenceTcm));
        makeReferenceDatabase({tables, "apm"}, files_.place(names::referenceApm));
        makeClientDatabase(tables / "klienti.sql", files_.place(names::clients));
        for (const std::string_view name : {names::anamnesis, names::recommendation})
            copy(plan_.sources / "templates", name);
        for (const std::string_view name : {names::newk, names::setup, names::user})
            copy(plan_.sources / "settings", name);
        for (std::int16_t language = 1; language <= languages; ++language)
            copy(plan_.sources / "lang", names::languageFile(language));
        for (const SynthesizedSound& sound : startSounds())
            files_.write(sound.name, formatWave(sound));
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
                files_.keep(target);
            else
                files_.write(target, readSource(sources / name));
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

    void removeStaleFiles() const { files_.removeStale(plan_.list); }
    void writeList() const { files_.writeList(plan_.list); }

private:
    void copy(const fs::path& folder, std::string_view name) {
        files_.write(name, readSource(folder / name));
    }

    // The first run moves a starter folder to this name, which must be free for it again.
    static void removeMovedAside(const fs::path& folder) {
        std::error_code error;
        fs::remove_all(folder, error);
        if (error)
            throw Failure(pathText(folder) + ": the folder cannot be removed");
    }

    const InstallationPlan& plan_;
    LaidFiles files_;
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
