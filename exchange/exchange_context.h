// What export and import work with.
#pragma once

#include "clients/client_operations.h"
#include "exchange/archive.h"
#include "exchange/work_progress.h"

namespace vorna {

struct ExchangeContext {
    ClientContext& clients;
    ArchiveMaker makeArchive;
    WorkProgress* progress = nullptr; // null: nobody looks on, and the work runs to its end
};

// The archive of one export or import; null where none can be made, which was told.
std::unique_ptr<Archive> archiveOf(ExchangeContext& context);

} // namespace vorna
