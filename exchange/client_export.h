// Clients leave as a zip archive in a folder that the user chooses: the selected one's folder, or
// the folders of all. What tells the two forms apart is their layout alone.
#pragma once

#include "exchange/exchange_context.h"

#include <filesystem>

namespace vorna {

// Asks for a folder and writes the archive of the selected client there, named after surname and
// first name; of all clients when none is selected. A cancelled chooser leaves the folder's path
// empty, which is the root of the file system. An older archive of the name goes first. Tells the
// result; nothing is told when there was nothing to add or the user cancelled the work. The
// archive, or an empty path when none was written.
std::filesystem::path exportClient(ExchangeContext& context);

// The same with the folders of all clients, in an archive of a fixed name.
std::filesystem::path exportGroup(ExchangeContext& context);

} // namespace vorna
