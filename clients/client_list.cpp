#include "clients/client_list.h"

#include "acquisition/measurement_name.h"
#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

std::string textOrEmpty(const Recordset& row, std::string_view column) {
    std::string text;
    attempt([&] { text = row.text(column); });
    return text;
}

// The founding date without seconds: a text with exactly two colons loses its last 3 characters.
std::string withoutSeconds(const std::string& zalozeni) {
    return std::string(split(zalozeni, ':').size() == 3 ? withoutLastCharacters(zalozeni, 3)
                                                        : std::string_view(zalozeni));
}

std::string newestMeasurement(const Session& session, std::string_view intid) {
    if (isForbiddenFileName(intid))
        return {};
    const std::vector<std::string> names =
        listFiles(session.clientsFolder / intid, names::measurementPattern);
    return names.empty() ? std::string{}
                         : std::string(withoutLastCharacters(vratdatum(names.back()), 3));
}

ListRow clientRow(const Session& session, const Recordset& row) {
    const std::string intid = textOrEmpty(row, "intid");
    return {.text = textOrEmpty(row, "prijmeni"),
            .sub = {textOrEmpty(row, "jmeno"), textOrEmpty(row, "narozeni"),
                    textOrEmpty(row, "telefon"), newestMeasurement(session, intid),
                    withoutSeconds(textOrEmpty(row, "zalozeni")), intid},
            .tag = textOrEmpty(row, "id")};
}

} // namespace

std::vector<ListRow> readClientRows(Session& session, std::string_view filter) {
    std::vector<ListRow> rows;
    attempt([&] {
        Recordset clients = clientDatabase(session).query(
            "select * from klienti where prijmeni like ? order by prijmeni collate alphabet",
            {"%" + quotedText(filter) + "%"});
        for (; !clients.atEnd(); clients.moveNext())
            rows.push_back(clientRow(session, clients));
    });
    return rows;
}

void selectClient(Session& session, const ListRow& row) {
    session.currentClientFolder = row.subItem(static_cast<std::size_t>(ClientColumn::Intid));
    session.klientDatPath.clear(); // stays empty when the intid is no folder's name
    attempt([&] { session.klientDatPath = currentClientFile(session, names::klientDat); });
    session.newClientPending = false;
}

} // namespace vorna
