// The client list: one row for each client of the table, with the newest measurement beside it,
// and the selection of one of them.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <string_view>
#include <vector>

namespace vorna {

// The columns of the list behind the surname.
enum class ClientColumn : std::size_t {
    FirstName = 1,
    Born = 2,
    Telephone = 3,
    LastVisit = 4,
    Founded = 5,
    Intid = 6,
};

// The clients whose surname holds the filter (% and _ are wildcards), in the order of the
// language's alphabet; the tag is the row id. A filter that breaks its statement gives none.
std::vector<ListRow> readClientRows(Session& session, std::string_view filter);

// Makes the client of a list row the current one.
void selectClient(Session& session, const ListRow& row);

} // namespace vorna
