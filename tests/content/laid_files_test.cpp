#include "content/laid_files.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(LaidFiles, FurtherNamesAreOneFileAndFollowItsChanges) {
    const ScratchFolder folder;
    const auto lay = [&](const char* bytes) {
        LaidFiles files(folder / "into");
        files.write("a/first.jpg", bytes);
        files.link("b/second.jpg", "a/first.jpg");
    };
    lay("old");
    EXPECT_TRUE(fs::equivalent(folder / "into/a/first.jpg", folder / "into/b/second.jpg"));
    lay("new");
    EXPECT_TRUE(fs::equivalent(folder / "into/a/first.jpg", folder / "into/b/second.jpg"));
    EXPECT_EQ(readWholeFile(folder / "into/b/second.jpg"), "new");
    EXPECT_EQ(listFiles(folder / "into/b", "*"), std::vector<std::string>{"second.jpg"});
}

TEST(LaidFiles, UnchangedFileIsNotTouched) {
    const ScratchFolder folder;
    const fs::path file = folder.write("into/first.jpg", "same");
    fs::last_write_time(file, fs::file_time_type{});
    LaidFiles files(folder / "into");
    files.write("first.jpg", "same");
    EXPECT_EQ(fs::last_write_time(file), fs::file_time_type{});
}

TEST(LaidFiles, WhatAnEarlierRunLaidGoesWithItsFolder) {
    const ScratchFolder folder;
    folder.write("outside", "");
    folder.write("list", "into.jpg\na/gone.jpg\nstays.jpg\n../outside\n");
    folder.write("into/a/gone.jpg", "");
    folder.write("into/foreign.jpg", "");
    LaidFiles files(folder / "into");
    files.write("stays.jpg", "");
    files.removeStale(folder / "list");
    files.writeList(folder / "list");
    EXPECT_EQ(listFiles(folder / "into", "*"),
              (std::vector<std::string>{"foreign.jpg", "stays.jpg"}));
    EXPECT_TRUE(fs::exists(folder / "outside"));
    EXPECT_EQ(readWholeFile(folder / "list"), "stays.jpg\n");
}

} // namespace
} // namespace vorna
