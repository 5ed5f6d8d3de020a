// A client's three copies under one name, the intid: the row of the table `klienti`, the folder
// among the clients' folders, and the file klient.dat in it. Each operation here touches one copy;
// the order among them is that of the operations on clients.
#pragma once

#include "clients/client_card.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/locale.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace vorna {

// A new intid: "a", the seconds since the year 2000 plus those since midnight, and the last two
// characters of the latter in the locale's notation, as in a82654120345. Nothing but the time
// makes it unique.
std::string vratUnik(const Locale& locale, LocalTime now);

// A moment less its seconds: a text with exactly two colons loses its last 3 characters.
std::string withoutSeconds(std::string_view zalozeni);

// The folder of a client, found without regard to the case of its name. Failure for an intid that
// no folder can have as its name.
std::filesystem::path clientFolder(const Session& session, std::string_view intid);

// The row of a new client. Failure as for every statement, a value with an unpaired apostrophe
// included; no row is stored then.
void insertClient(Session& session, const ClientCard& card, std::string_view zalozeni);
// The row with this id; one that does not exist changes nothing. Failure likewise, and for an id
// that is no number.
void updateClient(Session& session, const ClientCard& card, std::string_view id);
// The row. Failure when there is none.
Recordset queryClient(Session& session, std::string_view id);
void deleteClientRow(Session& session, std::string_view id);

// Writes the card to the client's klient.dat, key after key. Failure when it cannot be written.
void writeKlientDat(const std::filesystem::path& file, const ClientCard& card);

} // namespace vorna
