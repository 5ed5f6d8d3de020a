// The installation folder that the build assembled, copied to where a test may change it.
#pragma once

#include "platform/files.h"

namespace vorna {

// Copies the assembled installation, as before its first run, to the folder `into`, which is made.
// The programs stay behind, and the modes' pictures are linked.
void copyInstallation(const fs::path& into);

} // namespace vorna
