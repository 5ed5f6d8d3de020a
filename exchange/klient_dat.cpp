#include "exchange/klient_dat.h"

#include "core/file_names.h"
#include "platform/encoding.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr std::uintmax_t largestFile = 256U << 10U; // the largest that is known has 2 kB

} // namespace

KlientDat::KlientDat(const fs::path& folder) {
    const fs::path file = under(folder, names::klientDat);
    std::error_code error;
    exists_ = fs::is_regular_file(fs::symlink_status(file, error)) &&
              fs::file_size(file, error) <= largestFile && !error;
    if (exists_)
        attempt([&] { entries_ = parseIniEntries(decodeTextFile(readWholeFile(file)).text); });
}

std::string KlientDat::value(std::string_view key) const {
    const auto at = std::find_if(entries_.begin(), entries_.end(), [&](const IniEntry& entry) {
        return equalFolded(entry.section, "global") && equalFolded(entry.key, key);
    });
    return at == entries_.end() ? std::string{}
                                : std::string(firstCharacters(at->value, seenValueCharacters));
}

} // namespace vorna
