#include "clients/client_card.h"

#include "core/number.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace vorna {
namespace {

constexpr const char* birthDateMask = "##.##.####";
constexpr double boundaryOfCenturies = 15;

struct BoxOfColumn {
    std::string_view column;
    TextBox ClientCard::*box;
};

// In the order of a save's statement; "stav" and "narozeni" have no text box.
constexpr std::array boxes{
    BoxOfColumn{"prijmeni", &ClientCard::surname},
    BoxOfColumn{"jmeno", &ClientCard::firstName},
    BoxOfColumn{"titulpred", &ClientCard::titleBefore},
    BoxOfColumn{"titulza", &ClientCard::titleAfter},
    BoxOfColumn{"adresa", &ClientCard::address},
    BoxOfColumn{"stav", nullptr},
    BoxOfColumn{"email", &ClientCard::email},
    BoxOfColumn{"telefon", &ClientCard::telephone},
    BoxOfColumn{"rc", &ClientCard::personalNumber},
    BoxOfColumn{"adresa2", &ClientCard::address2},
    BoxOfColumn{"povolani", &ClientCard::occupation},
    BoxOfColumn{"telefon2", &ClientCard::telephone2},
    BoxOfColumn{"narozeni", nullptr},
};

} // namespace

ClientCard::ClientCard(Window& window)
    : surnameLabel{window, "SkinLabel1"}, firstNameLabel{window, "SkinLabel2"},
      bornLabel{window, "SkinLabel3"}, telephoneLabel{window, "SkinLabel4"},
      foundedLabel{window, "SkinLabel14"}, surname{window, "Text1"}, firstName{window, "Text2"},
      titleBefore{window, "Text3"}, titleAfter{window, "Text6"}, personalNumber{window, "Text8"},
      fillFromNumber{window, "Command21"}, born{window, "MaskEdBox1", birthDateMask},
      gender{window, "Combo1"}, maritalStatus{window, "Combo2"}, address{window, "Text7"},
      address2{window, "Text9"}, occupation{window, "Text10"}, telephone{window, "Text5"},
      telephone2{window, "Text11"}, email{window, "Text4"}, anamnesis{window, "Command6"},
      founded{window, "Text12"}, lastVisit{window, "Text26"}, save{window, "Command10"},
      id{window, "idtxt"}, intid{window, "intidtxt"} {
    id.visible = false;
    intid.visible = false;
}

std::string cardValue(const ClientCard& card, std::string_view column) {
    if (column == "stav")
        return decimalText(std::int64_t{card.maritalStatus.index});
    if (column == "pohlavi")
        return decimalText(std::int64_t{card.gender.index});
    if (column == "narozeni")
        return card.born.text;
    if (column == "intid")
        return card.intid.text;
    if (column == "zalozeni")
        return card.founded.text;
    for (const auto& [name, box] : boxes)
        if (name == column && box != nullptr)
            return (card.*box).text;
    throw Failure("the card holds no such column");
}

std::vector<CardValue> cardValues(const ClientCard& card) {
    std::vector<CardValue> values;
    values.reserve(boxes.size());
    for (const BoxOfColumn& box : boxes)
        values.push_back({box.column, cardValue(card, box.column)});
    return values;
}

TextBox* cardBox(ClientCard& card, std::string_view column) {
    for (const auto& [name, box] : boxes)
        if (name == column && box != nullptr)
            return &(card.*box);
    return nullptr;
}

void clearCard(ClientCard& card) {
    for (const BoxOfColumn& box : boxes)
        if (box.box != nullptr)
            (card.*box.box).text = "";
    card.founded.text = "";
    card.born.clear();
    card.gender.index = -1;
    card.maritalStatus.index = -1;
}

void fillFromPersonalNumber(const Session& session, ClientCard& card) {
    const std::string& rc = card.personalNumber.text;
    if (session.language != languageCzech || rc.empty())
        return;
    card.born.clear();
    card.gender.index = -1;
    const std::string_view third = characters(rc, 3, 1);
    const std::string day(characters(rc, 5, 2));
    std::string date;
    if (third == "5" || third == "6") {
        attempt([&] { card.gender.choose(1); });
        date = day + "." + (third == "5" ? "0" : "1") + std::string(characters(rc, 4, 1));
    } else if (third == "0" || third == "1") {
        attempt([&] { card.gender.choose(0); });
        date = day + "." + std::string(characters(rc, 3, 2));
    }
    attempt([&] {
        const std::string year(characters(rc, 1, 2));
        date += (numberOfDecimalText(year) < boundaryOfCenturies ? ".20" : ".19") + year;
    });
    card.born.type(date);
}

void bindCardKeys(Window& window, ClientCard& card) {
    const std::array<Control*, 12> order{
        &card.surname,        &card.firstName,     &card.titleBefore, &card.titleAfter,
        &card.personalNumber, &card.maritalStatus, &card.address,     &card.address2,
        &card.occupation,     &card.telephone,     &card.telephone2,  &card.email};
    for (std::size_t i = 0; i + 1 < order.size(); ++i)
        order[i]->enterPressed = [&window, next = order[i + 1]] { window.focus(*next); };
}

} // namespace vorna
