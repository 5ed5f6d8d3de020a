// Holds the reference databases of an installation against what the system asks of them: rows of
// the sets and chart orders, words in every language, and proposals for every problem of every
// pathway.
#pragma once

#include "evaluation/evaluation_state.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vorna {

// Appends the faults, one line each. The databases are tried on copies in the folder `scratch`; the
// context's session and state are used up.
void checkReferences(EvaluationContext& context, const std::filesystem::path& appFolder,
                     const std::filesystem::path& scratch, std::vector<std::string>& faults);

} // namespace vorna
