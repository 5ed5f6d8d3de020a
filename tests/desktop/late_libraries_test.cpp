// The libraries that the program loads when they are wanted; they lie beside these tests.
#include "clients/client_operations.h"
#include "desktop/seams/loaded_archive.h"
#include "desktop/seams/loaded_devices.h"
#include "exchange/client_export.h"
#include "platform/files.h"
#include "platform/virtual_event_loop.h"
#include "tests/desktop/desktop_desk.h"
#include "tests/support/test_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::HasSubstr;

TEST(LateLibrariesTest, AnArchiveGoesThereAndBack) {
    const ScratchFolder folder;
    folder.write("from/sub/klient.dat", "prijmeni=Nov\xE1k");
    const auto writing = makeLoadedArchive(nullptr);
    ASSERT_EQ(writing->newArchive(folder / "a.zip"), 1) << writing->lastErrorText();
    EXPECT_EQ(writing->addFolder(folder / "from", true), 1);
    EXPECT_EQ(writing->entryCount(), 1);
    EXPECT_EQ(writing->writeArchive(), 1) << writing->lastErrorText();
    const auto reading = makeLoadedArchive(nullptr);
    ASSERT_EQ(reading->openArchive(folder / "a.zip"), 1) << reading->lastErrorText();
    EXPECT_EQ(reading->extractAll(folder / "to"), 1);
    EXPECT_EQ(readWholeFile(folder / "to/sub/klient.dat"), "prijmeni=Nov\xE1k");
    EXPECT_EQ(reading->openArchive(folder / "to/sub/klient.dat"), 0);
    EXPECT_THAT(reading->lastErrorText(), HasSubstr("it is no zip archive"));
    EXPECT_FALSE(reading->cancelled());
}

TEST(LateLibrariesTest, TheSearchForTheProbeAnswers) {
    VirtualClock clock{LocalTime{}};
    VirtualEventLoop loop{clock};
    LoadedDeviceSearch search(loop);
    constexpr int notOpen = -2; // which the real one says
    EXPECT_EQ(search.readMemory().status, notOpen);
    EXPECT_FALSE(search.close());
}

TEST(LateLibrariesTest, AnExportWithoutItsLibraryIsToldAndWritesNothing) {
    DesktopDesk desk;
    desk.start(3);
    desk.selectSample();
    ScratchFolder target;
    TestPlatform seams;
    seams.dialogs.paths = {target.path()};
    ClientContext clients =
        clientContext(desk.program->window(), desk.program->context().session, seams.platform);
    ExchangeContext exchange{.clients = clients, .makeArchive = [](WorkProgress* progress) {
                                 return archiveOfLibrary("none", progress);
                             }};
    EXPECT_EQ(exportClient(exchange), fs::path{});
    EXPECT_THAT(seams.dialogs.shown.back(), HasSubstr("libvorna-none.so cannot be loaded"));
    EXPECT_TRUE(fs::is_empty(target.path()));
}

} // namespace
} // namespace vorna
