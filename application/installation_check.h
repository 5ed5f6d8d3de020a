// Holds an installation folder against what the system asks of it: files, texts in every language,
// and the lookups of the reference databases that must find a row.
#pragma once

#include "evaluation/evaluation_state.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vorna {

// The faults, one line each; empty when all is there. `scratch` is an empty folder in which the
// databases are tried, so that the installation stays untouched. The context's session is used up:
// its language and database change.
std::vector<std::string> checkInstallation(EvaluationContext& context,
                                           const std::filesystem::path& appFolder,
                                           const std::filesystem::path& scratch);

} // namespace vorna
