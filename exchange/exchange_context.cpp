#include "exchange/exchange_context.h"

namespace vorna {

std::unique_ptr<Archive> archiveOf(ExchangeContext& context) {
    auto archive = context.makeArchive ? context.makeArchive(context.progress) : nullptr;
    if (!archive)
        context.clients.platform.dialogs.message(
            "The program's library of archives cannot be used. Please start the program again, or "
            "else install it again.");
    return archive;
}

} // namespace vorna
