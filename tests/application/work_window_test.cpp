#include "application/main_window.h"
#include "application/work_window.h"
#include "core/file_names.h"
#include "exchange/zip/zip_archive.h"
#include "tests/support/no_windows.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Work = WorkProgress::Work;

constexpr WorkWindow::Pace atOnce{.delay = std::chrono::milliseconds{0},
                                  .step = std::chrono::milliseconds{0}};

TEST(WorkWindow, ShowsHowFarTheWorkIsAndEndsIt) {
    TestPlatform seams;
    WorkWindow window{atOnce};
    std::vector<std::string> seen;
    window.appears = [&] { seen.push_back("appears"); };
    window.disappears = [&] { seen.push_back("disappears"); };
    const auto state = [&] {
        return window.text.caption.get() + ": " + window.count.caption.get() + " " +
               window.name.caption.get();
    };
    EXPECT_TRUE(window.goesOn({})) << "nobody follows";
    for (int run = 0; run < 2; ++run) {
        window.follow(seams.loop, "Packing", [&] {
            EXPECT_TRUE(window.running());
            EXPECT_TRUE(window.cancelButton.enabled);
            window.follow(seams.loop, "another", [] { FAIL() << "two at once"; });
            EXPECT_TRUE(window.goesOn({.name = "a1"}));
            seen.push_back(state());
            EXPECT_TRUE(window.goesOn({.done = 3, .total = 12, .name = "x.daf"}));
            seen.push_back(state());
            EXPECT_EQ(window.bar.value, 3);
            EXPECT_EQ(window.bar.maximum, 12);
            // The user cancels while the loop has its turn.
            constexpr std::chrono::milliseconds soon{1};
            Timer timer(seams.loop, soon, Timer::Kind::OneShot,
                        [&] { window.cancelButton.click(); });
            timer.start();
            seams.clock.moveTo(seams.clock.now() + soon);
            EXPECT_FALSE(window.goesOn({.done = 4, .total = 12}));
            EXPECT_FALSE(window.cancelButton.enabled);
            EXPECT_FALSE(window.closed()) << "up until the work has ended";
        });
        EXPECT_TRUE(window.closed());
        EXPECT_FALSE(window.running());
        EXPECT_THAT(seen,
                    ElementsAre("appears", "Packing:  a1", "Packing: 3 / 12 x.daf", "disappears"));
        seen.clear();
    }
}

TEST(WorkWindow, ShortWorkIsNeverSeenAndAFailureEndsTheWork) {
    TestPlatform seams;
    WorkWindow window{{.delay = std::chrono::hours{1}}};
    window.appears = [] { FAIL() << "it was short"; };
    window.disappears = window.appears;
    EXPECT_THROW(window.follow(seams.loop, "x",
                               [&] {
                                   EXPECT_TRUE(window.goesOn({}));
                                   window.close();
                                   EXPECT_FALSE(window.goesOn({}));
                                   throw Failure("the work failed");
                               }),
                 Failure);
    EXPECT_FALSE(window.running());
}

// The buttons of the main window on a workplace with one client.
struct ExchangeButtons {
    ExchangeButtons() {
        place.openClients();
        place.addClient("Novák", "a1");
        place.folder.write("VORNA/data/a1/klient.dat", "[global]\r\nprijmeni=Novák\r\n");
        place.folder.write("installation/lang1.ini",
                           "[other]\nt9=to\nt10=exported\nt11=zip\nt134=from\nt139=all exported\n"
                           "[workfrm]\nCommand1.caption=Cancel\n");
        fs::create_directories(place.folder / "out");
        window.makeArchive = makeZipArchive;
        bindMainWindow(window, context, [] {});
        window.clients.search.click();
        selectClientRow(window, 0);
    }
    // What a press shows when the chooser answers with a path.
    std::vector<std::string> press(const Button& button, const fs::path& chosen) {
        seams.dialogs.paths = {chosen};
        button.click();
        return std::exchange(seams.dialogs.shown, {});
    }

    Workplace place;
    TestPlatform seams;
    NoWindows windows;
    EvaluationState state;
    MainWindow window;
    EvaluationContext context{.session = place.session,
                              .state = state,
                              .platform = seams.platform,
                              .windows = windows,
                              .clientList = window.clients.list,
                              .measurementList = window.measurements.list,
                              .recommend = {}};
};

TEST(ExchangeButtons, EachDoesItsOwnWork) {
    ExchangeButtons desk;
    const MainWindow& window = desk.window;
    const fs::path out = desk.place.folder / "out";
    EXPECT_THAT(desk.press(window.exportClient, out),
                ElementsAre("folder:  | to", HasSubstr("exported : " + pathText(out / "Novák_"))));
    EXPECT_THAT(desk.press(window.exportGroup, out),
                ElementsAre("folder:  | to",
                            "message: all exported : " + pathText(out / "VornaExport.zip")));
    EXPECT_THAT(
        desk.press(window.importClient, out / "VornaExport.zip"),
        ElementsAre("file: zip (*.zip)|*.zip", "message: Toto není soubor individuálního exportu"));
    EXPECT_THAT(desk.press(window.importGroup, {}), ElementsAre("file: zip (*.zip)|*.zip"));
    EXPECT_THAT(desk.press(window.importFolders, {}), ElementsAre("folder:  | from"));
    EXPECT_EQ(window.work.cancelButton.caption.get(), "Cancel");
    EXPECT_FALSE(window.work.running());
}

} // namespace
} // namespace vorna
