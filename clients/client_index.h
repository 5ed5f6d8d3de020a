// The client table as the list shows it, kept in memory in the order of the alphabet, so that a
// key stroke in the filter costs neither a query nor a sort. It is read anew as soon as anybody
// changed the database.
#pragma once

#include "core/session.h"
#include "core/window.h"
#include "platform/database.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

class ClientIndex {
public:
    // The rows of the clients whose surname holds the filter anywhere (% and _ are wildcards), all
    // columns but that of the newest measurement, in the order of the language's alphabet. Failure
    // when the database cannot be read and for a filter with an unpaired apostrophe.
    std::vector<ListRow> matching(Session& session, std::string_view filter);

private:
    struct Entry {
        ListRow row;
        std::string foldedSurname;
    };

    void readAgainWhenChanged(Session& session);

    std::optional<DatabaseVersion> version_;
    std::vector<Entry> entries_;
};

} // namespace vorna
