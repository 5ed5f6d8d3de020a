// Any bytes as a settings file: its encoding there and back, its entries, and one more written
// into it, which leaves all others as they are.
#include "core/settings_file.h"
#include "fuzz/support.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "tests/support/scratch_folder.h"

#include <algorithm>

namespace {

using namespace vorna;
using fuzz::require;

constexpr const char* section = "Global";

using Entries = std::vector<IniEntry>;

Entries::const_iterator firstOf(const Entries& entries, const IniEntry& wanted) {
    return std::find_if(entries.begin(), entries.end(), [&](const IniEntry& entry) {
        return equalFolded(entry.section, wanted.section) && equalFolded(entry.key, wanted.key);
    });
}

bool isSame(const IniEntry& a, const IniEntry& b) {
    return a.section == b.section && a.key == b.key && a.value == b.value;
}

void checkReads(const fs::path& file, const Entries& entries) {
    constexpr std::size_t enough = 8; // each read is one of the whole file
    for (std::size_t i = 0; i < std::min(entries.size(), enough); ++i)
        require(ReadIniValue(file, entries[i].section, entries[i].key) ==
                firstCharacters(firstOf(entries, entries[i])->value, seenValueCharacters));
}

// Writes a key into the file of these bytes and entries.
void checkWrite(const fs::path& file, const std::string& bytes, Entries entries,
                const std::string& key) {
    fuzz::writeScratch(file, bytes);
    if (!attempt([&] { WriteIniValue(file, section, key, "3"); })) {
        require(readWholeFile(file) == bytes);
        return;
    }
    require(ReadIniValue(file, section, key) == "3");
    Entries after = parseIniEntries(decodeTextFile(readWholeFile(file)).text);
    for (Entries* const one : {&entries, &after})
        if (const auto at = firstOf(*one, {section, key, {}}); at != one->end())
            one->erase(at);
    require(std::equal(entries.begin(), entries.end(), after.begin(), after.end(), isSame));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder folder;
    const std::string bytes(fuzz::textOf(data, size));
    const DecodedText content = decodeTextFile(bytes);
    require(decodeTextFile(encodeTextFile(content)).text == content.text);
    const Entries entries = parseIniEntries(content.text);
    const fs::path file = folder / "settings.ini";
    fuzz::writeScratch(file, bytes);
    checkReads(file, entries);
    for (const char* const key : {"Jazyk", "Novy"})
        checkWrite(file, bytes, entries, key);
    return 0;
}
