// The first tab: the client list with its filter.
#pragma once

#include "clients/client_index.h"
#include "core/session.h"
#include "core/window.h"

#include <string_view>

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

std::string_view subItem(const ListRow& row, ClientColumn column);
void setSubItem(ListRow& row, ClientColumn column, std::string text);

struct ClientListTab {
    explicit ClientListTab(Window& window);

    TextBox filter;
    Button search;
    CheckBox filterActive; // has no function
    Button newClient;
    ListView list; // the tag of a row is the client's row id
    Button deleteClient;
    Label selectedIndex; // hidden

    ClientIndex index;
};

// Fills the list with the clients whose surname holds the filter, in the order of the language's
// alphabet. A filter that breaks its statement and a database that cannot be read give none. The
// newest measurement of a row is looked for when the row is first shown.
void fillClientList(Session& session, ClientListTab& tab);

} // namespace vorna
