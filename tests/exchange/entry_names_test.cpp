#include "exchange/zip/entry_names.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

std::string inBytes(const std::string& name, CodePage codePage) {
    return encode(name, codePage).value();
}

TEST(EntryNames, ValidUtf8StaysAndTheOthersDecideTheirCodePageTogether) {
    struct Case {
        const char* rule;
        std::vector<std::string> names;
        CodePage codePage;
    };
    const Case cases[] = {
        {"Czech names of old archives",
         {"Nováková_Šárka/klient.dat", "Žák", "Řehoř Ťuhýk", "Dvořák", "ZDENĚK ČERNÝ"},
         CodePage::Windows1250},
        {"each for itself", {"Žák"}, CodePage::Windows1250},
        {"", {"Tomášek"}, CodePage::Windows1250},
        {"", {"šárka"}, CodePage::Windows1250},
        {"", {"Růžena Kůň"}, CodePage::Windows1250},
        {"Polish and Hungarian", {"Wałęsa", "Szőke Ödön"}, CodePage::Windows1250},
        {"German names of DOS programs", {"Müller", "Jörg Groß"}, CodePage::Cp437},
        {"each for itself", {"Jäger"}, CodePage::Cp437},
        {"", {"Größe"}, CodePage::Cp437},
        {"", {"José Núñez"}, CodePage::Cp437},
        {"one that reads both ways follows the others", {"Weiß", "Müller"}, CodePage::Cp437},
        {"", {"Žák", "Příbram"}, CodePage::Windows1250},
    };
    for (const Case& c : cases) {
        NameDecoder decoder;
        for (const std::string& name : c.names)
            decoder.see(inBytes(name, c.codePage));
        for (const std::string& name : c.names)
            EXPECT_EQ(decoder.decoded(inBytes(name, c.codePage)), name) << c.rule;
        EXPECT_EQ(decoder.decoded("Žižka.daf"), "Žižka.daf") << "UTF-8 among the others";
    }
}

TEST(EntryNames, APathStaysBelowItsFolder) {
    struct Case {
        const char *name, *path;
        bool isFolder, refused;
    };
    const std::string tooLong(2000, 'x');
    const Case cases[] = {
        {"klient.dat", "klient.dat", false, false},
        {"a1/klient.dat", "a1/klient.dat", false, false},
        {"a1\\notes\\x.txt", "a1/notes/x.txt", false, false},
        {"a1/", "a1", true, false},
        {"./a1//x", "a1/x", false, false},
        {"./", "", true, false},
        {"250131143005_P_Novák_Jan~D^T.daf", "250131143005_P_Novák_Jan~D^T.daf", false, false},
        {"", "", false, true},
        {"../x", "", false, true},
        {"a1/../../x", "", false, true},
        {"a1/..", "", false, true},
        {"..\\x", "", false, true},
        {"a1\\..\\..\\x", "", false, true},
        {"/etc/passwd", "", false, true},
        {"\\\\host\\share\\x", "", false, true},
        {"C:\\x", "", false, true},
        {"C:x", "", false, true},
        {"a1/x:stream", "", false, true},
        {"a1/x\n", "", false, true},
        {"a1/.. /x", "", false, true},
        {"a1/.../x", "", false, true},
        {tooLong.c_str(), "", false, true},
    };
    for (const Case& c : cases) {
        const EntryPath entry = entryPath(c.name);
        EXPECT_EQ(!entry.complaint.empty(), c.refused) << c.name;
        if (c.refused)
            continue;
        EXPECT_EQ(entry.path, c.path) << c.name;
        EXPECT_EQ(entry.isFolder, c.isFolder) << c.name;
    }
}

} // namespace
} // namespace vorna
