// The client's card: its controls, what they hold as the columns of a client's row, and what the
// card does by itself: the order of its fields and the filling from the personal number.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

struct ClientCard {
    explicit ClientCard(Window& window);

    Label surnameLabel;
    Label firstNameLabel;
    Label bornLabel;
    Label telephoneLabel;
    Label foundedLabel;

    TextBox surname;
    TextBox firstName;
    TextBox titleBefore;
    TextBox titleAfter;
    TextBox personalNumber;
    Button fillFromNumber;
    MaskedBox born; // DD.MM.YYYY
    ComboBox gender;
    ComboBox maritalStatus;
    TextBox address;
    TextBox address2;
    TextBox occupation;
    TextBox telephone;
    TextBox telephone2;
    TextBox email;
    Button anamnesis; // hidden on a new card until it is saved
    TextBox founded;
    TextBox lastVisit;
    Button save;

    // Hidden: the row and the folder that a save goes to.
    TextBox id;
    TextBox intid;
};

// The columns of `klienti` that the card's text boxes hold, in the order of a save's statement,
// with "stav" and "narozeni" at their places among them.
struct CardValue {
    std::string_view column;
    std::string text;
};
std::vector<CardValue> cardValues(const ClientCard& card);
// One of them. Failure for a column that the card does not hold.
std::string cardValue(const ClientCard& card, std::string_view column);

// The text box of a column; null for one that no text box holds.
TextBox* cardBox(ClientCard& card, std::string_view column);

// Empties every field but the last visit. The hidden row and folder stay.
void clearCard(ClientCard& card);

// In Czech, and when a number is there: birth date and gender from the personal number, of which
// only the first six characters count. The boundary of the centuries is fixed: 00 to 14 is 20..,
// all else 19... A third digit other than 0, 1, 5 and 6 leaves the gender and the month out.
void fillFromPersonalNumber(const Session& session, ClientCard& card);

// Makes Enter in a field move to the next one.
void bindCardKeys(Window& window, ClientCard& card);

} // namespace vorna
