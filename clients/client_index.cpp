#include "clients/client_index.h"

#include "clients/client_record.h"
#include "platform/alphabet.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>

namespace vorna {
namespace {

constexpr const char* clientsById =
    "select prijmeni, jmeno, narozeni, telefon, zalozeni, intid, id from klienti"
    " where prijmeni is not null order by id";

ListRow clientRow(const Recordset& row) {
    enum Place : std::uint8_t { Surname, FirstName, Born, Telephone, Founded, Intid, Id };
    // Filled one by one: a list in braces would copy each text.
    ListRow shown{.text = row.textOrEmpty(Surname), .tag = row.textOrEmpty(Id)};
    constexpr std::size_t subItems = 6;
    shown.sub.reserve(subItems);
    for (const Place place : {FirstName, Born, Telephone})
        shown.sub.push_back(row.textOrEmpty(place));
    shown.sub.emplace_back();
    shown.sub.push_back(withoutSeconds(row.textOrEmpty(Founded)));
    shown.sub.push_back(row.textOrEmpty(Intid));
    return shown;
}

} // namespace

void ClientIndex::readAgainWhenChanged(Session& session) {
    Database& database = clientDatabase(session);
    const DatabaseVersion version = database.version();
    if (version_ == version)
        return;
    version_.reset();
    entries_.clear();
    const Alphabet alphabet(alphabetOf(session.language));
    Recordset clients = database.query(clientsById);
    std::vector<std::string> places; // in the alphabet
    std::vector<Entry> unordered;
    // In a damaged table the rows before the damage stay.
    const bool whole = attempt([&] {
        for (; !clients.atEnd(); clients.moveNext()) {
            ListRow row = clientRow(clients);
            std::string folded = foldCase(row.text);
            places.push_back(alphabet.key(row.text));
            unordered.push_back({std::move(row), std::move(folded)});
        }
    });
    std::vector<std::size_t> order(unordered.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(
        order, {}, [&](std::size_t row) -> auto& { return places[row]; });
    // Copied and not moved: what the filter walks through lies in the memory in its order, which
    // makes a key stroke among 100,000 clients more than twice as fast.
    entries_.reserve(order.size());
    for (const std::size_t row : order)
        entries_.push_back(unordered[row]);
    if (whole)
        version_ = version;
}

std::vector<ListRow> ClientIndex::matching(Session& session, std::string_view filter) {
    const std::string pattern = foldCase("%" + quotedText(filter) + "%");
    readAgainWhenChanged(session);
    std::vector<ListRow> rows;
    for (const Entry& entry : entries_)
        if (matchesWildcards(entry.foldedSurname, pattern, sqlWildcards))
            rows.push_back(entry.row);
    return rows;
}

} // namespace vorna
