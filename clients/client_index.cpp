#include "clients/client_index.h"

#include "clients/client_record.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace vorna {
namespace {

// Empty also where a table from elsewhere lacks the column.
std::string textOrEmpty(const Recordset& row, std::string_view column) {
    std::string text;
    attempt([&] {
        if (!row.isNull(column))
            text = row.text(column);
    });
    return text;
}

ListRow clientRow(const Recordset& row) {
    return {.text = row.text("prijmeni"),
            .sub = {textOrEmpty(row, "jmeno"),
                    textOrEmpty(row, "narozeni"),
                    textOrEmpty(row, "telefon"),
                    {},
                    withoutSeconds(textOrEmpty(row, "zalozeni")),
                    textOrEmpty(row, "intid")},
            .tag = textOrEmpty(row, "id")};
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
    for (; !clients.atEnd(); clients.moveNext())
        entries_.push_back(
            {.row = clientRow(clients), .foldedSurname = foldCase(clients.text("prijmeni"))});
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
