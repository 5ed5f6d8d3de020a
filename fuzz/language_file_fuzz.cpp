// Any bytes as a language file, in each of its two code pages, and a window that takes its texts
// from there.
#include "core/language_texts.h"
#include "core/session.h"
#include "core/settings_file.h"
#include "core/window.h"
#include "fuzz/support.h"
#include "platform/text.h"
#include "tests/support/scratch_folder.h"

namespace {

using namespace vorna;
using fuzz::require;

// The first of equal keys holds.
std::string expected(const std::vector<IniEntry>& entries, std::string_view section,
                     std::string_view key) {
    for (const IniEntry& entry : entries)
        if (equalFolded(entry.section, section) && equalFolded(entry.key, key))
            return std::string(firstCharacters(entry.value, seenValueCharacters));
    return {};
}

void checkWindow(const Session& session, const std::vector<IniEntry>& entries) {
    Window window{"Form1"};
    const Button button{window, "Command1"};
    const TextBox box{window, "Text1"};
    applyLanguage(session, window);
    require(button.caption.get() == expected(entries, "form1", "command1.caption"));
    require(box.text.get() == expected(entries, "form1", "text1.text"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t enough = 50;
    static const ScratchFolder folder;
    const fs::path file = folder / "lang.ini";
    fuzz::writeScratch(file, fuzz::textOf(data, size));
    for (const bool russian : {false, true}) {
        const CodePage codePage = russian ? CodePage::Windows1251 : CodePage::Windows1250;
        const std::vector<IniEntry> entries =
            parseIniEntries(decodeTextFile(fuzz::textOf(data, size), codePage).text);
        Session session;
        session.texts.setFile(file, russian);
        for (std::size_t i = 0; i < std::min(entries.size(), enough); ++i) {
            const auto& [section, key, value] = entries[i];
            require(session.texts.value(section, key) == expected(entries, section, key));
        }
        require(t(session, "t1") == expected(entries, "other", "T1"));
        checkWindow(session, entries);
    }
    return 0;
}
