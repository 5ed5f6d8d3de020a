// Clients come in: from the archive of one client, from the archive of many, or from client folders
// on the disk. A client is a person by name: whoever has the name of a client in the list is that
// client, whatever the intid.
#pragma once

#include "exchange/client_merge.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

namespace vorna {

// The first row of the client list with this surname and first name, without regard to case. Rows
// that a filter hides are not seen.
std::optional<std::size_t> matchClient(const ListView& list, std::string_view prijmeni,
                                       std::string_view jmeno);

// Asks for the archive of one client. Who is in the list already is overwritten after a question;
// the answer Cancel leaves the unpacked folder until the next export or import.
ImportedClients importClient(ExchangeContext& context);

// Asks for an archive of many clients and asks at each who is in the list already; No goes on with
// the next one. A client is merged whole or, when the user cancels the work, not at all.
ImportedClients importGroup(ExchangeContext& context);

// Adds the client of a folder, which is left as it is. Who has the name of a client in the list
// is asked about, once for each such client, and then becomes another client of that name.
// Nothing for an empty path.
ImportedClients vlozK(ExchangeContext& context, const std::filesystem::path& folder);

// Asks for a folder and adds the clients of all its sub-folders by `vlozK`.
ImportedClients importFolders(ExchangeContext& context);

} // namespace vorna
