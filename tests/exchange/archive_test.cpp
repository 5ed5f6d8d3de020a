#include "exchange/zip/zip_archive.h"
#include "platform/files.h"
#include "tests/exchange/exchange_desk.h"
#include "tests/exchange/zip_maker.h"
#include "tests/support/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zip.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <map>
#include <sys/stat.h>

namespace vorna {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

constexpr std::uint32_t unixFolder = 0040755U << 16;
constexpr std::uint32_t unixLink = 0120777U << 16;
constexpr std::uint32_t unixPipe = 0010644U << 16;
constexpr std::uint16_t encryptedFlag = 1;
constexpr std::uint16_t utf8Flag = 0x800;

// As common programs write them: a1/klient.dat with "x=1" and a line feed, of 4:05:06 UTC on the
// 3rd of February 2020.
constexpr const char* writtenByZip =
    "504b03040a00000000004e19775d00000000000000000000000003001c0061312f5554090003a4ae036ba4ae036b75"
    "780b000104000000000400000000504b03040a0000000000a320435000cff48504000000040000000d001c0061312f"
    "6b6c69656e742e6461745554090003f29b375ef29b375e75780b000104000000000400000000783d310a504b01021e"
    "030a00000000004e19775d000000000000000000000000030018000000000000001000ed410000000061312f555405"
    "0003a4ae036b75780b000104000000000400000000504b01021e030a0000000000a320435000cff485040000000400"
    "00000d0018000000000001000000a4813d00000061312f6b6c69656e742e6461745554050003f29b375e75780b0001"
    "04000000000400000000504b050600000000020002009c000000880000000000";
constexpr const char* writtenIntoAPipe = // sizes stand behind the content
    "504b0304140008000800a32043500000000000000000040000000d00000061312f6b6c69656e742e646174abb035e4"
    "0200504b070800cff4850600000004000000504b01021e03140008000800a320435000cff48506000000040000000d"
    "0000000000000001000000a4810000000061312f6b6c69656e742e646174504b050600000000010001003b00000041"
    "0000000000";
constexpr const char* writtenAsZip64 =
    "504b03042d0000000000a320435000cff485ffffffffffffffff0d00140061312f6b6c69656e742e64617401001000"
    "04000000000000000400000000000000783d310a504b01021e032d0000000000a320435000cff48504000000ffffff"
    "ff0d000c000000000001000000a4810000000061312f6b6c69656e742e646174010008000400000000000000504b06"
    "062c000000000000001e032d0000000000000000000100000000000000010000000000000047000000000000004300"
    "000000000000504b0607000000008a0000000000000001000000504b0506000000000100010047000000ffffffff00"
    "00";
constexpr const char* writtenWithAPassword =
    "504b03040a0009000000a320435000cff48510000000040000000d00000061312f6b6c69656e742e6461745770d368"
    "a4895f8a2a05f25e07255a9a504b070800cff4851000000004000000504b01021e030a0009000000a320435000cff4"
    "8510000000040000000d0000000000000001000000a4810000000061312f6b6c69656e742e646174504b0506000000"
    "00010001003b0000004b0000000000";
constexpr const char* writtenWithALink =
    "504b03040a00000000004e19775d0ab91f290b0000000b0000000700000061312f6c696e6b2f6574632f7061737377"
    "64504b01021e030a00000000004e19775d0ab91f290b0000000b000000070000000000000000000000ffa100000000"
    "61312f6c696e6b504b0506000000000100010035000000300000000000";

struct Unpacked {
    std::int64_t files = 0;
    std::string error;
    Tree tree;
};

// Writes the archive's bytes and unpacks them into a folder of their own. Nothing but that folder
// and the archive may be there afterwards.
Unpacked unpack(const std::string& bytes, const ArchiveLimits& limits = {}) {
    const ScratchFolder scratch;
    const fs::path file = scratch.write("in/archive.zip", bytes);
    Unpacked result;
    ZipArchive archive(nullptr, limits);
    result.files = archive.openArchive(file) == 1 ? archive.extractAll(scratch / "in/out") : -1;
    result.error = archive.lastErrorText();
    result.tree = treeOf(scratch / "in/out");
    fs::remove_all(scratch / "in/out");
    EXPECT_EQ(treeOf(scratch.path()).size(), 2U) << "something was written elsewhere";
    return result;
}

// Packs a folder; the error's text, empty when it was written.
std::string pack(const fs::path& folder, const fs::path& file) {
    ZipArchive archive;
    const bool done = archive.newArchive(file) == 1 && archive.addFolder(folder, true) == 1 &&
                      archive.writeArchive() == 1;
    return done ? "" : archive.lastErrorText();
}

// ---- Writing

TEST(ArchiveWriting, WhatIsUnpackedIsTheFolderThatWasPacked) {
    const ScratchFolder scratch;
    Tree tree{{"klient.dat", "[global]\r\nprijmeni=\x8Ei\x9Eka\r\n"},
              {"250131143005_P_Žižka_Šárka~Dvořák^T.daf", std::string(300, '\0')},
              {"empty.rtf", ""},
              {"large.bin", {}},
              {"notes/", ""},
              {"notes/Лекарь 医生.txt", "x"},
              {"notes/deeper/", ""},
              {"notes/deeper/y", "y"}};
    for (unsigned i = 0, random = 1; i < 3'000'000; ++i, random = random * 1664525 + 1013904223)
        tree["large.bin"] += static_cast<char>(random >> 24);
    for (const auto& [name, content] : tree)
        if (!name.ends_with('/'))
            scratch.write("source/" + name, content);
    const auto changed = fs::file_time_type::clock::now() - 24h * 400;
    fs::last_write_time(scratch / "source/klient.dat", changed);
    fs::create_directories(scratch / "source/no files");
    fs::create_symlink(scratch / "source/klient.dat", scratch / "source/link");
    ASSERT_EQ(::mkfifo((scratch / "source/pipe").c_str(), 0600), 0);

    ZipArchive archive;
    ASSERT_EQ(archive.newArchive(scratch / "a.zip"), 1);
    ASSERT_EQ(archive.addFolder(scratch / "source", true), 1);
    EXPECT_EQ(archive.entryCount(), 6) << "files alone";
    EXPECT_FALSE(fs::exists(scratch / "a.zip")) << "nothing is written before the end";
    ASSERT_EQ(archive.writeArchive(), 1) << archive.lastErrorText();
    ZipArchive again;
    ASSERT_EQ(again.openArchive(scratch / "a.zip"), 1) << again.lastErrorText();
    EXPECT_EQ(again.entryCount(), 6);
    ASSERT_EQ(again.extractAll(scratch / "out"), 6) << again.lastErrorText();
    EXPECT_EQ(treeOf(scratch / "out"), tree);
    const auto kept = fs::last_write_time(scratch / "out/klient.dat");
    EXPECT_LT(std::chrono::abs(kept - changed), 1s);

    fs::remove_all(scratch / "source/no files");
    EXPECT_EQ(pack(scratch / "source", scratch / "b.zip"), "");
    EXPECT_EQ(readWholeFile(scratch / "a.zip"), readWholeFile(scratch / "b.zip"))
        << "one folder, one archive";
}

TEST(ArchiveWriting, OtherProgramsReadTheNames) {
    const ScratchFolder scratch;
    scratch.write("source/B.txt", "");
    scratch.write("source/a/Žižka.txt", "");
    scratch.write("source/a/" + std::string("\x8Ei\x9E") + "ek.txt", "");
    ASSERT_EQ(pack(scratch / "source", scratch / "a.zip"), "");
    zip_t* const zip = zip_open((scratch / "a.zip").c_str(), ZIP_RDONLY, nullptr);
    ASSERT_NE(zip, nullptr);
    std::vector<std::string> names;
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) // only flagged names are UTF-8
        names.emplace_back(zip_get_name(zip, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_STRICT));
    EXPECT_EQ(names, (std::vector<std::string>{"B.txt", "a/Žižek.txt", "a/Žižka.txt"}));
    zip_discard(zip);
}

TEST(ArchiveWriting, AFailureLeavesNoArchiveAndSaysWhy) {
    struct Case {
        const char* rule;
        std::function<void(const ScratchFolder&)> damage;
        const char *file, *text;
    };
    const Case cases[] = {
        {"no folder to write to", [](const auto&) {}, "nowhere/a.zip", "does not exist"},
        {"the name is a folder's", [](const auto& scratch) { scratch.write("a.zip/x", ""); },
         "a.zip", "a.zip"},
        {"the folder is missing", [](const auto& scratch) { fs::remove_all(scratch / "source"); },
         "a.zip", "source"},
        {"a name that Windows cannot hold",
         [](const auto& scratch) { scratch.write("source/a?b.txt", ""); }, "a.zip", "a?b.txt"},
        {"two names that are one to Windows",
         [](const auto& scratch) {
             scratch.write("source/Žák.txt", "");
             scratch.write("source/žák.txt", "");
         },
         "a.zip", "žák.txt"},
    };
    for (const Case& c : cases) {
        const ScratchFolder scratch;
        scratch.write("source/klient.dat", "x");
        c.damage(scratch);
        const Tree before = treeOf(scratch.path());
        EXPECT_THAT(pack(scratch / "source", scratch / c.file), HasSubstr(c.text)) << c.rule;
        EXPECT_EQ(treeOf(scratch.path()), before) << c.rule;
    }
}

TEST(ArchiveWriting, AFileThatGoesMeanwhileAndAFullDiskLeaveNothing) {
    const ScratchFolder scratch;
    scratch.write("source/a.txt", std::string(100'000, 'a'));
    scratch.write("source/b.bin", bytesOfHex(writtenByZip));
    {
        ZipArchive archive;
        archive.newArchive(scratch / "a.zip");
        archive.addFolder(scratch / "source", true);
        fs::remove(scratch / "source/b.bin");
        EXPECT_EQ(archive.writeArchive(), 0);
        EXPECT_THAT(archive.lastErrorText(), HasSubstr("b.bin\" cannot be read: it does not"));
        EXPECT_EQ(archive.writeArchive(), 0) << "the archive is gone";
    }
    const Tree before = treeOf(scratch.path());
    {
        const FullDisk disk(100);
        EXPECT_THAT(pack(scratch / "source", scratch / "a.zip"), HasSubstr("the disk is full"));
    }
    EXPECT_EQ(treeOf(scratch.path()), before);
}

TEST(ArchiveWriting, ACancelledArchiveIsNone) {
    const ScratchFolder scratch;
    for (int i = 0; i < 50; ++i)
        scratch.write("source/" + std::to_string(i), std::string(1000, 'x'));
    const Tree before = treeOf(scratch.path());
    int calls = 0;
    for (bool written = false; !written && calls < 1000; ++calls) {
        CancelAfter progress(calls);
        ZipArchive archive(&progress);
        ASSERT_EQ(archive.newArchive(scratch / "a.zip"), 1);
        written = archive.addFolder(scratch / "source", true) == 1 && archive.writeArchive() == 1;
        if (!written) {
            EXPECT_TRUE(archive.cancelled());
            EXPECT_EQ(treeOf(scratch.path()), before);
        }
    }
    EXPECT_GT(calls, 20) << "whoever looks on is asked often";
    EXPECT_EQ(unpack(readWholeFile(scratch / "a.zip")).files, 50);
}

TEST(ArchiveWriting, AnEmptyFolderHasNoEntries) {
    const ScratchFolder scratch;
    fs::create_directories(scratch / "source/inner");
    ZipArchive archive;
    archive.newArchive(scratch / "a.zip");
    EXPECT_EQ(archive.addFolder(scratch / "source", true), 1);
    EXPECT_EQ(archive.entryCount(), 0);
}

// ---- Reading

TEST(ArchiveReading, ArchivesOfOtherProgramsAreUnpacked) {
    const Tree tree{{"a1/", ""}, {"a1/klient.dat", "x=1\n"}};
    for (const char* const hex : {writtenByZip, writtenIntoAPipe, writtenAsZip64}) {
        const Unpacked result = unpack(bytesOfHex(hex));
        EXPECT_EQ(result.files, 1) << result.error;
        EXPECT_EQ(result.tree, tree);
    }
    const ScratchFolder scratch;
    ZipArchive archive;
    ASSERT_EQ(archive.openArchive(scratch.write("a.zip", bytesOfHex(writtenByZip))), 1);
    fs::create_directories(scratch / "out");
    ASSERT_EQ(archive.extractAll(scratch / "out"), 1) << "an existing, emptied folder";
    struct ::stat state {};
    ASSERT_EQ(::stat((scratch / "out/a1/klient.dat").c_str(), &state), 0);
    EXPECT_EQ(state.st_mtime, 1580702706) << "exact, whatever the zone";
}

TEST(ArchiveReading, NamesInAnyEncoding) {
    struct Case {
        const char* rule;
        std::string bytes;
        std::uint16_t flags;
        const char* name;
    };
    const Case cases[] = {
        {"Windows-1250", "\x8Ei\x9Eka \x8A\xE1rka.daf", 0, "Žižka Šárka.daf"},
        {"code page 437", "M\x81ller.rtf", 0, "Müller.rtf"},
        {"flagged UTF-8", "Žižka.daf", utf8Flag, "Žižka.daf"},
        {"plain UTF-8", "Žižka.daf", 0, "Žižka.daf"},
    };
    for (const Case& c : cases) {
        const Unpacked result =
            unpack(zipOf({{.name = c.bytes, .content = "x", .flags = c.flags}}));
        EXPECT_EQ(result.tree, (Tree{{c.name, "x"}})) << c.rule << result.error;
    }
}

TEST(ArchiveReading, WhatIsNoSoundArchiveIsNotOpened) {
    const ScratchFolder scratch;
    struct Case {
        std::string content;
        const char* text;
    };
    const std::string sound = bytesOfHex(writtenByZip);
    const Case cases[] = {
        {"", "no zip archive"},
        {"P", "no zip archive"},
        {std::string(100'000, 'x'), "no zip archive"},
        {sound.substr(0, 200), "cut short"},
        {sound.substr(20), "damaged or cut short"},
        {bytesOfHex("504b0506000000000000ffffffffffffffffffff0000"), "damaged or cut short"},
    };
    for (const Case& c : cases) {
        ZipArchive archive;
        EXPECT_EQ(archive.openArchive(scratch.write("a.zip", c.content)), 0);
        EXPECT_THAT(archive.lastErrorText(), HasSubstr(c.text)) << c.content.size();
        EXPECT_EQ(archive.extractAll(scratch / "out"), -1);
    }
    ZipArchive archive;
    EXPECT_EQ(archive.openArchive(scratch.path()), 0);
    EXPECT_THAT(archive.lastErrorText(), HasSubstr("it is a folder"));
    EXPECT_EQ(archive.openArchive(scratch / "none.zip"), 0);
    EXPECT_THAT(archive.lastErrorText(), HasSubstr("none.zip\" cannot be read: it does not exist"));
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(archive.openArchive(scratch / "pipe"), 0) << "and does not wait for somebody";
}

TEST(ArchiveReading, HostileArchivesAreRefusedAndLeaveNothing) {
    const auto liar = [](std::uint32_t claimed) {
        ZipEntry entry = zeros("a", 100'000);
        entry.size = claimed;
        return entry;
    };
    const std::string ten(10, 'x');
    const ZipEntry good{.name = "klient.dat", .content = ten};
    const auto with = [&](ZipEntry entry) { return zipOf({good, std::move(entry)}); };
    struct Case {
        const char* rule;
        std::string bytes;
        const char* text;
    };
    const Case cases[] = {
        {"out of the folder", with({.name = "../evil"}), "leads out of the folder"},
        {"deeper", with({.name = "a/../../evil"}), "leads out of the folder"},
        {"with backslashes", with({.name = "..\\evil"}), "leads out of the folder"},
        {"from the root", with({.name = "/tmp/vorna-evil"}), "leads out of the folder"},
        {"with a drive letter", with({.name = "C:/evil"}), "not every computer"},
        {"a name of nothing", with({.name = ""}), "no name"},
        {"a link", with({.name = "a", .content = "/etc", .system = 3, .attributes = unixLink}),
         "is no file"},
        {"a link by another program", bytesOfHex(writtenWithALink), "is no file"},
        {"a pipe", with({.name = "a", .system = 3, .attributes = unixPipe}), "is no file"},
        {"the same name twice", with(good), "stands there twice"},
        {"in another case", with({.name = "KLIENT.dat"}), "stands there twice"},
        {"by another separator", zipOf({{.name = "a/b"}, {.name = "a\\b"}}), "stands there twice"},
        {"a file that is a folder too", with({.name = "klient.dat/x", .content = ten}),
         "klient.dat"},
        {"a password", with({.name = "a", .content = ten, .flags = encryptedFlag}), "password"},
        {"a password by another program", bytesOfHex(writtenWithAPassword), "password"},
        {"an unknown packing", with({.name = "a", .content = ten, .method = 12}), "not supported"},
        {"larger than it claims", with(liar(99'999)), "larger than it claims"},
        {"smaller than it claims", with(liar(100'001)), "\"a\" "},
        {"more than the archive holds",
         with({.name = "a", .content = ten, .packedSize = 5'000'000}), "than the archive holds"},
        {"many names for one content",
         zipOf({{.name = "a", .content = std::string(1000, 'x')},
                {.name = "b", .content = std::string(1000, 'x'), .offset = 0},
                {.name = "c", .content = std::string(1000, 'x'), .offset = 0}}),
         "than the archive holds"},
        {"a deflated stream that is none", with({.name = "a", .content = ten, .method = 8}),
         "cannot be read, it is damaged"},
    };
    for (const Case& c : cases) {
        const Unpacked result = unpack(c.bytes);
        EXPECT_LT(result.files, 0) << c.rule;
        EXPECT_THAT(result.error, HasSubstr(c.text)) << c.rule;
        EXPECT_TRUE(result.tree.empty()) << c.rule;
    }
    EXPECT_FALSE(fs::exists("/tmp/vorna-evil"));
    EXPECT_EQ(unpack(with({.name = "a/", .system = 3, .attributes = unixFolder})).files, 1);
}

TEST(ArchiveReading, AFolderMayStandThereAgain) {
    const Unpacked result =
        unpack(zipOf({{.name = "a/"}, {.name = "a/b", .content = "x"}, {.name = "A/"}}));
    EXPECT_EQ(result.files, 1) << result.error;
    EXPECT_EQ(result.tree.count("a/b"), 1U);
    EXPECT_LT(unpack(zipOf({{.name = "a/"}, {.name = "a", .content = "x"}})).files, 0);
}

TEST(ArchiveReading, LimitsHoldToTheByte) {
    struct Case {
        const char* rule;
        ArchiveLimits limits;
        bool refused;
    };
    const ZipEntry entry = zeros("a/b/zeros", 100'000);
    const std::uint64_t ratio = 100'000 / entry.content.size(); // and a rest
    const Case cases[] = {
        {"small enough", {.plainBytes = 100'000, .ratio = 1}, false},
        {"too large and too tight", {.plainBytes = 99'999, .ratio = ratio}, true},
        {"large and not too tight", {.plainBytes = 99'999, .ratio = ratio + 1}, false},
        {"as many as may be", {.entries = 3}, false}, // two folders, one file
        {"too many with the folders", {.entries = 2}, true},
        {"no disk has so much to spare", {.spareDiskBytes = std::uint64_t{1} << 62}, true},
    };
    for (const Case& c : cases) {
        const Unpacked result = unpack(zipOf({entry}), c.limits);
        EXPECT_EQ(result.files, c.refused ? -1 : 1) << c.rule << result.error;
        EXPECT_EQ(result.tree.empty(), c.refused) << c.rule;
    }
}

TEST(ArchiveReading, AFullDiskOrACancelLeavesNothing) {
    const ScratchFolder scratch;
    std::vector<ZipEntry> entries;
    for (const char* const name : {"a/1", "a/2", "b/3"})
        entries.push_back({.name = name, .content = std::string(200'000, 'x')});
    const fs::path file = scratch.write("a.zip", zipOf(entries));
    {
        const FullDisk disk(150'000);
        ZipArchive archive;
        ASSERT_EQ(archive.openArchive(file), 1);
        EXPECT_EQ(archive.extractAll(scratch / "out"), -1);
        EXPECT_THAT(archive.lastErrorText(), HasSubstr("cannot be written: the disk is full"));
        EXPECT_TRUE(treeOf(scratch / "out").empty());
    }
    for (int calls = 0; calls < 12; ++calls) {
        CancelAfter progress(calls);
        ZipArchive archive(&progress);
        ASSERT_EQ(archive.openArchive(file), 1);
        EXPECT_EQ(archive.extractAll(scratch / "out"), -1) << calls;
        EXPECT_TRUE(archive.cancelled());
        EXPECT_TRUE(treeOf(scratch / "out").empty());
    }
    scratch.write("out/already there", "");
    ZipArchive archive;
    ASSERT_EQ(archive.openArchive(file), 1);
    EXPECT_EQ(archive.extractAll(scratch / "out"), -1);
    EXPECT_THAT(archive.lastErrorText(), HasSubstr("it is not empty"));
    EXPECT_EQ(treeOf(scratch / "out"), (Tree{{"already there", ""}}));
}

// Each archive that a slip of the disk could make of a sound one is unpacked below the folder or
// refused; nothing hangs or falls.
TEST(ArchiveReading, DamagedArchivesHarmNobody) {
    const ScratchFolder scratch;
    const auto unpackHere = [&](const std::string& bytes) {
        std::ofstream(scratch / "a.zip", std::ios::binary) << bytes;
        ZipArchive archive;
        const std::int64_t files =
            archive.openArchive(scratch / "a.zip") == 1 ? archive.extractAll(scratch / "out") : -1;
        EXPECT_EQ(treeOf(scratch / "out").empty(), files < 0) << archive.lastErrorText();
        fs::remove_all(scratch / "out");
        return files;
    };
    for (const char* const hex : {writtenByZip, writtenIntoAPipe, writtenAsZip64}) {
        const std::string sound = bytesOfHex(hex);
        for (std::size_t at = 0; at < sound.size(); ++at) {
            EXPECT_LT(unpackHere(sound.substr(0, at)), 0) << at;
            std::string bytes = sound;
            bytes[at] = static_cast<char>(~bytes[at]);
            unpackHere(bytes);
        }
    }
    EXPECT_EQ(treeOf(scratch.path()).size(), 1U) << "something was written elsewhere";
}

} // namespace
} // namespace vorna
