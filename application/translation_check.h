// The check of the texts in four languages: each is there, is in its own language as far as script
// and common words tell, and is no longer than its place in the windows is made for.
#pragma once

#include "platform/database.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// The first word by which a text shows that it is in another language than it should be: one of
// another script, or a common word of another language; empty when there is none. Numbers, names
// of points and single Latin words in a Russian text are no sign of it.
std::string strangeWord(std::string_view text, std::int16_t language);

// Adds the faults of a reference database's translated texts, each begun with `where`.
void checkTranslations(Database& database, std::int16_t language, const std::string& where,
                       std::vector<std::string>& faults);

} // namespace vorna
