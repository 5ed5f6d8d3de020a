// Any text in the card's field of the personal number, which fills birth date and gender.
#include "clients/client_card.h"
#include "fuzz/support.h"
#include "platform/text.h"

#include <algorithm>

namespace {

using namespace vorna;
using fuzz::require;

struct Desk {
    Desk() {
        session.language = languageCzech;
        card.gender.rows = std::vector<std::string>{"man", "woman"};
    }
    void fillFrom(std::string_view number) {
        card.personalNumber.text = std::string(number);
        fillFromPersonalNumber(session, card);
    }

    Session session;
    Window window{"Form1"};
    ClientCard card{window};
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Six digits with a month of a man or a woman: the whole date by the rule.
void checkDate(std::string_view digits, const ClientCard& card) {
    const bool woman = digits[2] >= '5';
    const int year = (digits[0] - '0') * 10 + (digits[1] - '0');
    const char tens = woman ? static_cast<char>(digits[2] - 5) : digits[2];
    const std::string date = std::string(digits.substr(4, 2)) + "." + tens + digits[3] +
                             (year <= 14 ? ".20" : ".19") + std::string(digits.substr(0, 2));
    require(card.born.text.get() == date);
    require(card.gender.index == (woman ? 1 : 0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Desk desk;
    const std::string_view number = fuzz::textOf(data, size);
    if (number.empty())
        return 0;
    desk.fillFrom(number);
    const std::string born = desk.card.born.text;
    const int gender = desk.card.gender.index;
    require(born.size() == 10 && born[2] == '.' && born[5] == '.');
    require(std::all_of(born.begin(), born.end(),
                        [](char c) { return isDigit(c) || c == '.' || c == '_'; }));
    const std::string_view counted = firstCharacters(number, 6);
    if (counted.size() == 6 && std::all_of(counted.begin(), counted.end(), isDigit)) {
        if (std::string_view("0156").find(counted[2]) != std::string_view::npos)
            checkDate(counted, desk.card);
        else
            require(gender == -1);
    }
    desk.fillFrom(counted);
    require(desk.card.born.text.get() == born && desk.card.gender.index == gender);
    return 0;
}
