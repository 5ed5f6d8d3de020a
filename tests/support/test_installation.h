// The installation folder that the build assembled, copied to where a test may change it.
#pragma once

#include "platform/files.h"

namespace vorna {

// Copies the assembled installation, as before its first run, to the folder `into`, which is made.
// The programs stay behind, and the modes' pictures are linked.
void copyInstallation(const fs::path& into);

// Makes an installation that starts in English, where a text is its own key ("t48" is the text of
// t48) and chart names, problems and evaluation texts are their numbers ("chart 3").
void nameTextsByTheirKeys(const fs::path& appFolder);

} // namespace vorna
