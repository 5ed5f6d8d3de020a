// What is deleted on purpose leaves nothing behind: rows, folders, what the backups hold of them,
// and the pages of the last report.
#pragma once

#include "clients/client_operations.h"

namespace vorna {

// Asks, then removes the selected client: files, folder, row. Nothing when none is selected.
void deleteClient(ClientContext& context);

// Asks twice, then removes every client. True when it was done: the process is to end at once.
bool deleteAllClients(ClientContext& context);

// Asks, then removes the selected measurement of the current client.
void deleteMeasurement(ClientContext& context);

} // namespace vorna
