#include "application/backup.h"
#include "platform/failure.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using namespace std::chrono_literals;

const LocalTime noon = *parseTime("2025-01-31T12:00:00");

TEST(Backup, LaysAsideWhatExists) {
    const ScratchFolder root;
    root.write("setup.ini", "settings");
    root.write("data/a1/x.daf", "values");
    const fs::path backup = backUp(root.path(), "import", {"setup.ini", "user.ini", "data"}, noon);
    EXPECT_EQ(backup, root / "backup/20250131-120000-import");
    EXPECT_EQ(readWholeFile(backup / "setup.ini"), "settings");
    EXPECT_EQ(readWholeFile(backup / "data/a1/x.daf"), "values");
    EXPECT_EQ(listFiles(backup, "*").size(), 2U);
    EXPECT_EQ(readWholeFile(root / "setup.ini"), "settings") << "a copy";
}

TEST(Backup, OfNothingMakesNothing) {
    const ScratchFolder root;
    EXPECT_EQ(backUp(root.path(), "import", {"setup.ini"}, noon), fs::path());
    EXPECT_FALSE(fs::exists(root / "backup"));
}

TEST(Backup, KeepsTheNewestTenOfEachKind) {
    const ScratchFolder root;
    root.write("setup.ini", "settings");
    backUp(root.path(), "first-run", {"setup.ini"}, noon - 24h);
    for (int i = 0; i < 13; ++i)
        backUp(root.path(), "import", {"setup.ini"}, noon + i * 1min);
    const std::vector<std::string> kept = listFiles(root / "backup", "*");
    ASSERT_EQ(kept.size(), 11U);
    EXPECT_EQ(kept[0], "20250130-120000-first-run");
    EXPECT_EQ(kept[1], "20250131-120300-import");
    EXPECT_EQ(kept[10], "20250131-121200-import");
}

TEST(Backup, TheOneJustMadeStaysHoweverManyComeInOneSecond) {
    const ScratchFolder root;
    for (int i = 0; i < 25; ++i) {
        root.write("setup.ini", std::to_string(i));
        const fs::path backup = backUp(root.path(), "import", {"setup.ini"}, noon);
        ASSERT_TRUE(fs::exists(backup / "setup.ini")) << i;
        EXPECT_EQ(readWholeFile(backup / "setup.ini"), std::to_string(i));
    }
    EXPECT_EQ(listFiles(root / "backup", "*").size(), keptBackups);
}

TEST(Backup, ThatCannotBeWrittenFailsBeforeAnythingIsOverwritten) {
    const ScratchFolder root;
    root.write("setup.ini", std::string(100000, 'x'));
    const FullDisk full(1000);
    EXPECT_THROW(backUp(root.path(), "import", {"setup.ini"}, noon), Failure);
    const ScratchFolder blocked;
    blocked.write("setup.ini", "x");
    blocked.write("backup", "a file in the way");
    EXPECT_THROW(backUp(blocked.path(), "import", {"setup.ini"}, noon), Failure);
}

} // namespace
} // namespace vorna
