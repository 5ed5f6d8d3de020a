#include "core/backup.h"
#include "platform/failure.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

using namespace std::chrono_literals;

const LocalTime noon = *parseTime("2025-01-31T12:00:00");

TEST(Backup, LaysAsideWhatExists) {
    const ScratchFolder root;
    root.write("setup.ini", "settings");
    root.write("data/a1/x.daf", "values");
    backUp(root.path(), "import", {"setup.ini", "user.ini", "data"}, noon);
    const fs::path backup = root / "backup/20250131-120000-import";
    EXPECT_EQ(readWholeFile(backup / "setup.ini"), "settings");
    EXPECT_EQ(readWholeFile(backup / "data/a1/x.daf"), "values");
    EXPECT_EQ(listFiles(backup, "*").size(), 2U);
    EXPECT_EQ(readWholeFile(root / "setup.ini"), "settings") << "a copy";
}

TEST(Backup, IsMadeOnlyOfWhatTheNewestDoesNotHold) {
    const ScratchFolder root;
    const auto backups = [&](std::string_view kind) {
        backUp(root.path(), kind, {"setup.ini", "data"}, noon);
        return listFiles(root / "backup", "*").size();
    };
    EXPECT_EQ(backups("import"), 0U) << "nothing is there";
    EXPECT_FALSE(fs::exists(root / "backup"));
    root.write("setup.ini", "a");
    EXPECT_EQ(backups("import"), 1U);
    EXPECT_EQ(backups("import"), 1U) << "just the same";
    EXPECT_EQ(backups("first-run"), 2U) << "another kind";
    root.write("data/a1/x.daf", "");
    EXPECT_EQ(backups("import"), 3U) << "a folder more";
    root.write("data/a1/x.daf", "v");
    EXPECT_EQ(backups("import"), 4U) << "a file deep in it changed";
    EXPECT_EQ(backups("import"), 4U);
    fs::remove(root / "data/a1/x.daf");
    EXPECT_EQ(backups("import"), 5U) << "it went";
    root.write("setup.ini", "b");
    EXPECT_EQ(backups("import"), 6U);
    root.write("setup.ini", "a");
    EXPECT_EQ(backups("import"), 7U) << "held by an older one alone";
}

TEST(Backup, KeepsTheNewestTenOfEachKind) {
    const ScratchFolder root;
    root.write("setup.ini", "");
    backUp(root.path(), "first-run", {"setup.ini"}, noon - 24h);
    for (int i = 0; i < 13; ++i) {
        root.write("setup.ini", std::to_string(i));
        backUp(root.path(), "import", {"setup.ini"}, noon + i * 1min);
    }
    const std::vector<std::string> kept = listFiles(root / "backup", "*");
    ASSERT_EQ(kept.size(), 11U);
    EXPECT_EQ(kept[0], "20250130-120000-first-run");
    EXPECT_EQ(kept[1], "20250131-120300-import");
    EXPECT_EQ(kept[10], "20250131-121200-import");
}

TEST(Backup, OfOneSecondOrOfAClockSetBackStaysWhenItIsTheNewest) {
    for (const auto step : {0min, -1min}) {
        const ScratchFolder root;
        for (int i = 0; i < 25; ++i) {
            root.write("setup.ini", std::to_string(i));
            backUp(root.path(), "import", {"setup.ini"}, noon + i * step);
        }
        std::vector<int> kept;
        for (const std::string& name : listFiles(root / "backup", "*"))
            kept.push_back(std::stoi(readWholeFile(root / "backup" / name / "setup.ini")));
        std::sort(kept.begin(), kept.end());
        EXPECT_EQ(kept, (std::vector<int>{15, 16, 17, 18, 19, 20, 21, 22, 23, 24}));
    }
}

TEST(Backup, ThatACrashCutOffCountsAsNoneAndGoesInTime) {
    const ScratchFolder root;
    root.write("setup.ini", "settings");
    root.write("backup/20250131-120000-import~/setup.ini", "setti");
    root.write("backup/20250130-120000-import~/setup.ini", "setti");
    fs::last_write_time(root / "backup/20250130-120000-import~",
                        fs::file_time_type::clock::now() - 2h);
    EXPECT_EQ(allBackups(root.path()).size(), 2U) << "who is deleted goes there, too";
    const fs::path made = backUp(root.path(), "import", {"setup.ini"}, noon);
    EXPECT_EQ(made.filename(), "20250131-120000.2-import");
    EXPECT_EQ(readWholeFile(made / "setup.ini"), "settings");
    EXPECT_EQ(listFiles(root / "backup", "*"),
              (std::vector<std::string>{"20250131-120000-import~", "20250131-120000.2-import"}))
        << "the other may be another program's, at work now";
    EXPECT_EQ(backUp(root.path(), "import", {"setup.ini"}, noon), made);
}

TEST(Backup, ThatCannotBeWrittenIsAFailure) {
    const ScratchFolder root;
    root.write("setup.ini", std::string(100000, 'x'));
    {
        const FullDisk full(1000);
        EXPECT_THROW(backUp(root.path(), "import", {"setup.ini"}, noon), Failure);
    }
    backUp(root.path(), "import", {"setup.ini"}, noon);
    EXPECT_EQ(fs::file_size(root / "backup/20250131-120000-import/setup.ini"), 100000U)
        << "the half one is gone";
    const ScratchFolder blocked;
    blocked.write("setup.ini", "x");
    blocked.write("backup", "a file in the way");
    EXPECT_THROW(backUp(blocked.path(), "import", {"setup.ini"}, noon), Failure);
}

} // namespace
} // namespace vorna
