// The operations on clients behind the first two tabs. The card is blank (no client), new (its
// client was never stored) or loaded. One rule holds within them: a step that fails reports
// nothing, and the next one runs; so a save whose statement fails still writes klient.dat.
#pragma once

#include "clients/client_card.h"
#include "clients/client_list.h"
#include "clients/measurement_tab.h"
#include "core/session.h"
#include "platform/platform.h"

namespace vorna {

// What the operations work with.
struct ClientContext {
    Session& session;
    Platform& platform;
    TabStrip& tabs;
    ClientListTab& clients;
    ClientCard& card;
    MeasurementTab& measurements;
};

// Fills the list by the filter and leaves a blank card. A client that was made and not saved stays
// pending.
void searchClients(ClientContext& context);

// `nac_klientadb`: makes the client of the selected row the current one, loads the card and fills
// the lists of measurements and documents. Birth date and gender come from the personal number in
// Czech, where a client without one keeps what the card showed; from the row and klient.dat in the
// other languages. Failure when no row is selected.
void nac_klientadb(ClientContext& context); // NOLINT(readability-identifier-naming)

// A blank card for a new client, in front; nothing is stored.
void newClient(ClientContext& context);

// Stores the card: a new client as a row, a folder and a klient.dat; a loaded one over its row and
// file. A new card stays new: another save stores another row with the same folder.
void saveClient(ClientContext& context);

// Notes a visit of the current client, now, in its row, in its klient.dat, on the card and in the
// list. Nothing without a client.
void PridatPosledniNavstevu(ClientContext& context); // NOLINT(readability-identifier-naming)

} // namespace vorna
