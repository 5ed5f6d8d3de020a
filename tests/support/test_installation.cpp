#include "tests/support/test_installation.h"

#include "core/file_names.h"
#include "core/reference_database.h"
#include "core/settings_file.h"

namespace vorna {
namespace {

// The name of an entry before a first run moved it aside.
fs::path originalName(const fs::path& name) {
    if (name == names::dataMovedAside)
        return names::data;
    return name == names::htmlMovedAside ? fs::path(names::html) : name;
}

bool isProgram(const fs::directory_entry& entry) {
    return entry.is_regular_file() &&
           (entry.status().permissions() & fs::perms::owner_exec) != fs::perms::none;
}

} // namespace

void copyInstallation(const fs::path& into) {
    const fs::path assembled = VORNA_TEST_INSTALLATION;
    fs::create_directories(into);
    for (const fs::directory_entry& entry : fs::directory_iterator(assembled)) {
        const fs::path target = into / originalName(entry.path().filename());
        if (entry.path().filename() == "rezim")
            fs::create_directory_symlink(entry.path(), target);
        else if (!isProgram(entry))
            fs::copy(entry.path(), target, fs::copy_options::recursive);
    }
}

void nameTextsByTheirKeys(const fs::path& appFolder) {
    std::string texts = "[other]\n100=key 100\n";
    for (int key = 1; key <= 146; ++key) {
        const std::string name = "t" + std::to_string(key);
        texts.append(name).append("=").append(name).append("\n");
    }
    writeFileAtomically(appFolder / names::languageFile(languageEnglish), texts);
    WriteIniValue(appFolder / names::setup, "Global", "Jazyk", "2");
    for (const std::string_view name : {names::referenceTcm, names::referenceApm})
        Database(appFolder / name, referencePassword).executeScript(R"(
            update _GrafyTypy set "j-nazevGrafu" = 'chart ' || "j-id";
            update _ProblemTypes set "j-descr" = 'problem ' || "j-problem";
            update _Therapy_APM set "j-text" = 'text ' || "j-graf" || '/' || "j-column")");
}

} // namespace vorna
