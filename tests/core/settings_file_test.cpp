#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(SettingsFile, ReadsAsTheOperatingSystemDoes) {
    struct Case {
        const char* rule;
        std::string bytes;
        const char* value; // of key "Key" in section "Global"
    };
    const Case cases[] = {
        {"plain", "[Global]\r\nKey=a b\r\n", "a b"},
        {"names fold case", "[gLOBAL]\nkEY=1", "1"},
        {"blanks round all parts do not count", " [ Global ] \n\t Key \t= \t 1 \t\n", "1"},
        {"one pair of quotes is taken off", "[Global]\nKey = \" a \"\n", " a "},
        {"single ones as well", "[Global]\nKey='a'\n", "a"},
        {"but one pair only", "[Global]\nKey=\"\"a\"\"\n", "\"a\""},
        {"an unpaired one stays", "[Global]\nKey=\"\n", "\""},
        {"as do unlike ones", "[Global]\nKey=\"a'\n", "\"a'"},
        {"quotes round nothing", "[Global]\nKey=\"\"\n", ""},
        {"the first of two equal keys wins", "[Global]\nkey=1\nKey=2\n", "1"},
        {"also when it is empty", "[Global]\nKey=\nKey=2\n", ""},
        {"an equals sign in the value", "[Global]\nKey=a=b;c\n", "a=b;c"},
        {"a comment is no key", "[Global]\n ;Key=1\n", ""},
        {"a comment behind a section", "[Global] ; of all\nKey=1\n", "1"},
        {"a section whose bracket is cut off", "[Global\nKey=1\n", "1"},
        {"another section's key", "[Globals]\nKey=1\n[design]\nKey=2\n", ""},
        {"a key before every section", "Key=1\n[Global]\n", ""},
        {"a longer key", "[Global]\nKeys=1\nMyKey=2\n", ""},
        {"a line that is no entry", "[Global]\nKey\n=7\n", ""},
        {"UTF-8 with its mark", "\xEF\xBB\xBF[Global]\nKey=č\n", "č"},
        {"Windows-1250", "[Global]\nKey=\xE8\n", "č"},
        {"nothing at all", "", ""},
    };
    const ScratchFolder folder;
    for (const Case& c : cases) {
        const fs::path file = folder.write("a.ini", c.bytes);
        EXPECT_EQ(ReadIniValue(file, "Global", "Key"), c.value) << c.rule;
    }
    EXPECT_EQ(ReadIniValue(folder / "missing.ini", "Global", "Key"), "");
    EXPECT_EQ(ReadIniValue(folder.path(), "Global", "Key"), "") << "a folder";
    const fs::path russian = folder.write("lang4.ini", "[other]\nt1=\xC4\xE0\n");
    EXPECT_EQ(ReadIniValue(russian, "other", "T1", CodePage::Windows1251), "Да");
}

TEST(SettingsFile, AtMost254CharactersOfAValueAreSeen) {
    const ScratchFolder folder;
    const fs::path file = folder / "a.ini";
    for (const std::string letter : {"x", "č", "Ж"}) {
        std::string whole;
        std::string seen;
        for (int i = 0; i < 300; ++i) {
            whole += letter;
            if (i < 254)
                seen += letter;
        }
        WriteIniValue(file, "Global", "Key", whole);
        EXPECT_EQ(ReadIniValue(file, "Global", "Key"), seen) << letter;
        ASSERT_EQ(parseIniEntries("[a]\nb=" + whole).size(), 1U);
        EXPECT_EQ(parseIniEntries("[a]\nb=" + whole).front().value, whole);
    }
}

TEST(SettingsFile, AWriteChangesOneLineAndKeepsTheRest) {
    struct Case {
        const char* rule;
        std::string before;
        const char* value; // for key "Key" in section "global"
        std::string after;
    };
    const Case cases[] = {
        {"the first write into an empty file", "", "1", "[global]\r\nKey=1\r\n"},
        {"in place, all others kept", "; note\n[Global]\nKey = 1 \nwhat?\n\n[a]\nKey=2\n", "3",
         "; note\n[Global]\nKey=3\nwhat?\n\n[a]\nKey=2\n"},
        {"a new key ends its section", "[Global]\na=1\n;b=2\n\n[a]\n", "3",
         "[Global]\na=1\n;b=2\nKey=3\n\n[a]\n"},
        {"the first of two equal sections", "[Global]\na=1\n[b]\n[Global]\nc=1\n", "3",
         "[Global]\na=1\nKey=3\n[b]\n[Global]\nc=1\n"},
        {"a new section ends the file", "[a]\nb=1\n", "3", "[a]\nb=1\n[global]\nKey=3\n"},
        {"a last line without an end gets one", "[a]\nb=1", "3", "[a]\nb=1\n[global]\nKey=3\n"},
        {"the file's own line ends", "[Global]\r\nKey=1\r\nb=2\r\n", "3",
         "[Global]\r\nKey=3\r\nb=2\r\n"},
        {"the first of two equal keys", "[Global]\nKey=1\nKey=2\n", "3",
         "[Global]\nKey=3\nKey=2\n"},
        {"a comment is no key", "[Global]\n;Key=1\n", "3", "[Global]\n;Key=1\nKey=3\n"},
        {"a key before every section is another", "Key=1\n", "3", "Key=1\n[global]\nKey=3\n"},
        {"a value cannot begin another line", "[Global]\n", "a\r\nb\nc\rd",
         "[Global]\nKey=a b c d\n"},
        {"the empty value", "[Global]\nKey=1\n", "", "[Global]\nKey=\n"},
    };
    const ScratchFolder folder;
    for (const Case& c : cases) {
        const fs::path file = folder.write("a.ini", c.before);
        WriteIniValue(file, "global", "Key", c.value);
        EXPECT_EQ(readWholeFile(file), c.after) << c.rule;
    }
    WriteIniValue(folder / "new.ini", "design", "form1.Width", "800,5");
    EXPECT_EQ(ReadIniValue(folder / "new.ini", "Design", "form1.width"), "800,5");
}

TEST(SettingsFile, AWriteKeepsTheEncodingUntilACharacterDoesNotFit) {
    const ScratchFolder folder;
    // 0x81 and 0x98 stand for no character of the code page, and stay what they are.
    const fs::path file = folder.write("klient.dat", "[global]\njmeno=\xE8\n\x81\x98?\n");
    WriteIniValue(file, "global", "prijmeni", "Žák");
    EXPECT_EQ(readWholeFile(file), "[global]\njmeno=\xE8\n\x81\x98?\nprijmeni=\x8E\xE1k\n");
    WriteIniValue(file, "global", "prijmeni", "Жук");
    EXPECT_EQ(ReadIniValue(file, "global", "prijmeni"), "Жук");
    EXPECT_EQ(ReadIniValue(file, "global", "jmeno"), "č");
}

TEST(SettingsFile, AFailedWriteLeavesTheFile) {
    const ScratchFolder folder;
    const std::string before = "[global]\nprijmeni=Novák\n";
    const fs::path file = folder.write("klient.dat", before);
    {
        const FullDisk disk(10);
        EXPECT_THROW(WriteIniValue(file, "global", "jmeno", "Jan"), Failure);
    }
    EXPECT_EQ(readWholeFile(file), before);
    EXPECT_THROW(WriteIniValue(folder / "missing/a.ini", "a", "b", "c"), Failure);
    EXPECT_THROW(WriteIniValue(folder.path(), "a", "b", "c"), Failure) << "a folder";
}

TEST(SettingsFile, AFileCutAnywhereTakesAWriteAndKeepsItsBytes) {
    const ScratchFolder folder;
    const std::string whole = "\xEF\xBB\xBF; č\r\n[Global]\r\nKey=\"Ž\"\r\nx\r\n[b]\n\0]=\n[Global"
                              "\xFF\xFE]\nKey=2";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const fs::path file = folder.write("a.ini", whole.substr(0, length));
        WriteIniValue(file, "new section", "new key", "1");
        EXPECT_EQ(ReadIniValue(file, "new section", "new key"), "1") << length;
        EXPECT_TRUE(readWholeFile(file).starts_with(whole.substr(0, length))) << length;
    }
}

} // namespace
} // namespace vorna
