// A session over an installation folder and a data root that are small enough to be seen through:
// two meridians, three points, set 1 with 24 rows and set 2 with one.
#pragma once

#include "core/session.h"
#include "tests/support/scratch_folder.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

struct Workplace {
    // The folders alone; in Czech, TCM.
    Workplace();

    // Makes the reference database as it is shipped: no language switch ran yet.
    void openReference();
    // Makes an empty client database.
    void openClients();
    // Adds a row; its telephone is the number of clients so far, from 0.
    void addClient(std::string_view prijmeni, std::string_view intid,
                   std::string_view zalozeni = "31.1.2025 14:30:05");
    // Makes `intid` the current client, with a folder.
    void useClient(std::string_view intid);

    ScratchFolder folder;
    Session session;
    int clients = 0;
};

} // namespace vorna
