#include "platform/alphabet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace vorna {
namespace {

std::vector<std::string> sorted(const std::string& language, std::vector<std::string> texts) {
    const Alphabet alphabet(language);
    std::ranges::sort(texts, {}, [&](const std::string& text) { return alphabet.key(text); });
    return texts;
}

TEST(AlphabetTest, TheOrderIsThatOfTheLanguage) {
    const std::vector<std::string> names{"Ivan",  "Žák", "Chalupa", "hůl",  "Cibulka",
                                         "Zeman", "Čáp", "Hora",    "chata"};
    const std::vector<std::string> english{"Čáp", "Chalupa", "chata", "Cibulka", "Hora",
                                           "hůl", "Ivan",    "Žák",   "Zeman"};
    const std::vector<std::string> czech{"Cibulka", "Čáp",  "Hora",  "hůl", "Chalupa",
                                         "chata",   "Ivan", "Zeman", "Žák"};
    EXPECT_EQ(sorted("en", names), english);
    EXPECT_EQ(sorted("cs", names), czech);
}

TEST(AlphabetTest, ALongTextCountsToItsEnd) {
    const std::string stem(300, 'z');
    const std::vector<std::string> inOrder{"", stem + "a", stem + "b", "ž"};
    EXPECT_EQ(sorted("cs", {"ž", stem + "b", stem + "a", ""}), inOrder);
}

} // namespace
} // namespace vorna
