#include "platform/failure.h"
#include "platform/files.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Names = std::vector<std::string>;

TEST(Files, WriteReplacesTheContentAndLeavesNothingBeside) {
    const ScratchFolder folder;
    const fs::path file = folder / "Příšerně žluťoučký kůň.ini";
    const std::string odd("a\0\r\n\xFF", 5);
    for (const std::string& bytes : {std::string(100'000, 'x'), odd, std::string{}}) {
        writeFileAtomically(file, bytes);
        EXPECT_EQ(readWholeFile(file), bytes);
    }
    EXPECT_EQ(listFiles(folder.path(), "*"), Names{pathText(file.filename())});
}

TEST(Files, AFailedWriteLeavesTheOldFileWholeAndNoHalfFile) {
    struct Case {
        const char *rule, *target;
        unsigned long diskBytes;
    };
    const Case cases[] = {
        {"the disk gets full in the middle", "old", 100},
        {"the disk is full from the start", "new", 0},
        {"a folder bears the file's name", "folder", 1 << 20},
        {"the folder does not exist", "missing/new", 1 << 20},
        {"a file stands in the folder's place", "old/new", 1 << 20},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        const ScratchFolder folder;
        folder.write("old", "as it was");
        folder.write("folder/inside", "");
        {
            const FullDisk disk(c.diskBytes);
            EXPECT_THROW(writeFileAtomically(folder / c.target, std::string(5000, 'n')), Failure);
        }
        EXPECT_EQ(readWholeFile(folder / "old"), "as it was");
        EXPECT_EQ(listFiles(folder.path(), "*"), (Names{"folder", "old"}));
    }
}

TEST(Files, WhatCannotBeReadIsAFailure) {
    const ScratchFolder folder;
    EXPECT_THROW(readWholeFile(folder / "missing"), Failure);
    EXPECT_THROW(readWholeFile(folder.path()), Failure) << "a folder";
    EXPECT_THROW(readWholeFile("/proc/self/mem"), Failure) << "a medium that fails while it reads";
}

TEST(Files, CopiesDoNotTakeOverWriteProtection) {
    const ScratchFolder folder;
    const fs::path from = folder.write("from", "new");
    const fs::path to = folder.write("to", "an older one that is longer");
    fs::permissions(from, fs::perms::owner_read);
    copyFileOver(from, to);
    EXPECT_EQ(readWholeFile(to), "new");
    EXPECT_NE(fs::status(to).permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_THROW(copyFileOver(folder / "missing", to), Failure);
    EXPECT_EQ(readWholeFile(to), "new");
}

TEST(Files, AFolderIsCopiedWithAllInItButLinks) {
    const ScratchFolder folder;
    folder.write("from/data/a1/Čížek.daf", "new");
    folder.write("from/data/top", "top");
    fs::create_directories(folder / "from/data/empty");
    fs::create_directory_symlink(folder.path(), folder / "from/data/link");
    folder.write("to/data/a1/kept", "kept");
    fs::create_directories(folder / "linked");
    fs::create_directory_symlink(folder / "from/data", folder / "linked/data");
    // The separator at the end does not belong to the name; a link that is named itself is
    // followed.
    for (const char* const name : {"from/data", "from/data/", "linked/data"}) {
        SCOPED_TRACE(name);
        folder.write("to/data/a1/Čížek.daf", "an older one");
        copyFolderInto(folder / name, folder / "to");
        EXPECT_EQ(readWholeFile(folder / "to/data/a1/Čížek.daf"), "new");
        EXPECT_EQ(listFiles(folder / "to", "*"), Names{"data"});
        EXPECT_EQ(listFiles(folder / "to/data", "*"), (Names{"a1", "empty", "top"}));
        EXPECT_EQ(listFiles(folder / "to/data/a1", "*"), (Names{"kept", "Čížek.daf"}));
    }
}

TEST(Files, AFolderThatCannotBeCopiedIsAFailure) {
    struct Case {
        const char *rule, *from, *into;
    };
    const Case cases[] = {
        {"no such folder", "missing", "to"},
        {"a file is no folder", "from/file", "to"},
        {"a file in the place of a folder", "from", "blocked"},
        {"a folder has no room in itself", "from", "from/empty"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        const ScratchFolder folder;
        folder.write("from/file", "");
        fs::create_directories(folder / "from/empty");
        folder.write("blocked/from/empty", "a file");
        EXPECT_THROW(copyFolderInto(folder / c.from, folder / c.into), Failure);
        EXPECT_EQ(listFiles(folder / "from/empty", "*"), Names{});
    }
}

TEST(Files, NamesMatchPatternsWithoutRegardToCase) {
    struct Case {
        const char *name, *pattern;
        bool matches;
    };
    const Case cases[] = {
        {"250131_P_Novák.DAF", "*.daf", true},
        {"x.daf.new~", "*.daf", false},
        {"noextension", "*.*", true},
        {"noextension", "*.", false},
        {"D250131.rtf", "d*.RTF", true},
        {"anamneza.rtf", "D*.rtf", false},
        {"m01TCM-1b.jpg", "M01tcm-1*.jpg", true},
        {"ČÁP.txt", "čá*.TXT", true},
        {"Č.daf", "?.daf", true},
        {"Č.daf", "??.daf", false},
        {".daf", "*.daf", true},
        {"*x.daf", "*.daf", true},
        {"[x]", "[x]", true},
        {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", "*a*a*a*a*a*a*a*a*a*a*a*a*b", false},
        {"", "*", true},
        {"", "?", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(matchesPattern(c.name, c.pattern), c.matches) << c.name << " and " << c.pattern;
}

TEST(Files, ListsAscendByCharacterCode) {
    const ScratchFolder folder;
    for (const char* const name : {"b.daf", "Č.daf", "a.daf", "B.DAF", "a.txt", "LOG"})
        folder.write(name, "");
    EXPECT_EQ(listFiles(folder.path(), "*.daf"), (Names{"B.DAF", "a.daf", "b.daf", "Č.daf"}));
    EXPECT_EQ(listFiles(folder.path(), "*.*").size(), 6U) << "also the name without a dot";
    EXPECT_EQ(findFirst(folder.path(), "A*"), "a.daf");
    EXPECT_EQ(findFirst(folder.path(), "z*"), "");
    EXPECT_EQ(listFiles(folder / "a.txt", "*"), Names{}) << "a file is no folder";
}

TEST(Files, NamesThatSomeFileSystemCannotHoldAreKnown) {
    for (const char* const name :
         {"",     " ",  ".",  "..",  "x.",   "x ",  "a/b",   "a\\b", "a:b",     "a*",   "a?",
          "a\"b", "<a", "a>", "a|b", "a\tb", "a\n", "a\x1F", "nul",  "Con.txt", "LPT9", "com1.x.y"})
        EXPECT_TRUE(isForbiddenFileName(name)) << '"' << name << '"';
    for (const char* const name : {"a82654120345,5", " a", "O'Neil~Dvořák^A.daf", "%s&;$(x)", ".x",
                                   "null", "com0", "Con_Jan.zip", "com10"})
        EXPECT_FALSE(isForbiddenFileName(name)) << '"' << name << '"';
}

TEST(Files, ToldNamesFindTheEntryInAnyCase) {
    const ScratchFolder folder;
    folder.write("LOG/Záznam.txt", "");
    folder.write("log2/x", "");
    folder.write("Log2/x", "");
    struct Case {
        const char *rule, *name, *expected;
    };
    const Case cases[] = {
        {"folded, in every part", "\\log\\ZÁZNAM.TXT", "LOG/Záznam.txt"},
        {"a slash parts as well", "log/Záznam.txt", "LOG/Záznam.txt"},
        {"the exact name comes first", "log2", "log2"},
        {"of both", "Log2", "Log2"},
        {"a missing one stays as given", "log\\Nový Soubor", "LOG/Nový Soubor"},
        {"nothing is left out of a name", "a b..c", "a b..c"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(under(folder.path(), c.name), folder / c.expected) << c.rule;
}

} // namespace
} // namespace vorna
