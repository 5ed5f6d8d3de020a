#include "clients/client_index.h"

#include "clients/client_record.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace vorna {
namespace {

ListRow clientRow(const Recordset& row) {
    return {.text = row.text("prijmeni"),
            .sub = {row.textOrEmpty("jmeno"),
                    row.textOrEmpty("narozeni"),
                    row.textOrEmpty("telefon"),
                    {},
                    withoutSeconds(row.textOrEmpty("zalozeni")),
                    row.textOrEmpty("intid")},
            .tag = row.textOrEmpty("id")};
}

} // namespace

void ClientIndex::readAgainWhenChanged(Database& database) {
    const DatabaseVersion version = database.version();
    if (version_ == version)
        return;
    version_.reset();
    entries_.clear();
    Recordset clients = database.query("select * from klienti where prijmeni is not null"
                                       " order by prijmeni collate alphabet, id");
    // In a damaged table the rows before the damage stay.
    const bool whole = attempt([&] {
        for (; !clients.atEnd(); clients.moveNext())
            entries_.push_back(
                {.row = clientRow(clients), .foldedSurname = foldCase(clients.text("prijmeni"))});
    });
    if (whole)
        version_ = version;
}

std::vector<ListRow> ClientIndex::matching(Database& database, std::string_view filter) {
    const std::string pattern = foldCase("%" + quotedText(filter) + "%");
    readAgainWhenChanged(database);
    std::vector<ListRow> rows;
    for (const Entry& entry : entries_)
        if (matchesWildcards(entry.foldedSurname, pattern, sqlWildcards))
            rows.push_back(entry.row);
    return rows;
}

} // namespace vorna
