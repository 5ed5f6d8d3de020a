// What is deleted on purpose leaves nothing behind: rows, folders, what the backups hold of them,
// and the pages of the last report.
#pragma once

#include "clients/client_operations.h"

#include <functional>

namespace vorna {

// Asks, then removes the selected client: files, folder, row. Nothing when none is selected.
void deleteClient(ClientContext& context);

// Told after each step of a deletion that takes long.
using DeletionSteps = std::function<void(std::size_t done, std::size_t total)>;
// Runs such a deletion, which is handed over, and says where its steps are told.
using DeletionRun = std::function<void(const std::function<void(const DeletionSteps&)>& deletion)>;

// Asks twice, then removes every client. True when it was done: the process is to end at once.
bool deleteAllClients(ClientContext& context, const DeletionRun& run = {});

// Asks, then removes the selected measurement of the current client.
void deleteMeasurement(ClientContext& context);

} // namespace vorna
