#include "clients/client_list.h"

#include "acquisition/measurement_name.h"
#include "clients/client_record.h"
#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

// Date and time of the newest measurement; empty when there is none.
std::string newestMeasurement(const Session& session, std::string_view intid) {
    std::vector<std::string> names;
    attempt([&] { names = listFiles(clientFolder(session, intid), names::measurementPattern); });
    return names.empty() ? std::string{}
                         : std::string(withoutLastCharacters(vratdatum(names.back()), 3));
}

} // namespace

ClientListTab::ClientListTab(Window& window)
    : filter{window, "Text13"}, search{window, "Command22"},
      filterActive{window, "Check1"}, newClient{window, "Command11"}, list{window, "ListView2"},
      deleteClient{window, "Command8"}, selectedIndex{window, "Label3"} {
    selectedIndex.visible = false;
}

std::string_view subItem(const ListRow& row, ClientColumn column) {
    return row.subItem(static_cast<std::size_t>(column));
}

void setSubItem(ListRow& row, ClientColumn column, std::string text) {
    row.setSubItem(static_cast<std::size_t>(column), std::move(text));
}

void fillClientList(Session& session, ClientListTab& tab) {
    tab.list.clear();
    tab.list.finishRow = [&session](ListRow& row) {
        setSubItem(row, ClientColumn::LastVisit,
                   newestMeasurement(session, subItem(row, ClientColumn::Intid)));
    };
    attempt([&] { tab.list.setRows(tab.index.matching(session, tab.filter.text.get())); });
}

} // namespace vorna
