// The libraries that the program loads when they are wanted; they lie beside these tests.
#include "clients/client_operations.h"
#include "desktop/seams/late_library.h"
#include "desktop/seams/loaded_devices.h"
#include "exchange/client_export.h"
#include "exchange/client_import.h"
#include "platform/files.h"
#include "platform/virtual_event_loop.h"
#include "tests/desktop/desktop_desk.h"
#include "tests/support/test_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;

std::unique_ptr<Archive> archiveOfLibrary(const char* library, WorkProgress* progress) {
    return seamOfLibrary<decltype(makeArchive)>(library, "makeArchive", progress);
}

TEST(LateLibrariesTest, AnArchiveGoesThereAndBack) {
    const ScratchFolder folder;
    folder.write("from/sub/klient.dat", "prijmeni=Nov\xE1k");
    const auto writing = archiveOfLibrary("archive", nullptr);
    ASSERT_EQ(writing->newArchive(folder / "a.zip"), 1) << writing->lastErrorText();
    EXPECT_EQ(writing->addFolder(folder / "from", true), 1);
    EXPECT_EQ(writing->entryCount(), 1);
    EXPECT_EQ(writing->writeArchive(), 1) << writing->lastErrorText();
    const auto reading = archiveOfLibrary("archive", nullptr);
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

TEST(LateLibrariesTest, WithoutTheirLibraryThereIsNoProbe) {
    LoadedSerialLine line("none");
    line.configure("9600,n,8,1");
    EXPECT_FALSE(line.open("/dev/ttyUSB0"));
    line.configure("9600,n,8,1");
    line.send("x");
    line.close();
    VirtualClock clock{LocalTime{}};
    VirtualEventLoop loop{clock};
    LoadedDeviceSearch search(loop, "none");
    EXPECT_FALSE(search.open());
    EXPECT_NE(search.readMemory().status, 0);
    EXPECT_EQ(search.portNumber(), std::nullopt);
    EXPECT_FALSE(search.close());
}

TEST(LateLibrariesTest, WithoutTheirLibraryExportAndImportSaySoAndChangeNothing) {
    DesktopDesk desk;
    desk.start(3);
    desk.selectSample();
    Session& session = desk.program->context().session;
    TestPlatform seams;
    ClientContext clients = clientContext(desk.program->window(), session, seams.platform);
    ExchangeContext exchange{.clients = clients, .makeArchive = [](WorkProgress* progress) {
                                 return archiveOfLibrary("none", progress);
                             }};
    const ScratchFolder target;
    const fs::path older = target.write("VornaExport.zip", "an older archive");
    const auto holdsWhatItHeld = [&] {
        return readWholeFile(older) == "an older archive" &&
               std::distance(fs::directory_iterator(target.path()), {}) == 1;
    };
    seams.dialogs.paths = {older};
    EXPECT_EQ(exportGroup(exchange), fs::path{});
    EXPECT_TRUE(importGroup(exchange).empty());
    EXPECT_THAT(seams.dialogs.shown, ElementsAre(HasSubstr("library of archives cannot be used"), _,
                                                 HasSubstr("library of archives cannot be used")));
    EXPECT_TRUE(holdsWhatItHeld());
    EXPECT_TRUE(fs::exists(session.clientsFolder));
}

TEST(LateLibrariesTest, WhatTheyAreForIsNotInTheProgram) {
    const std::string program = readWholeFile(VORNA_TEST_PROGRAM);
    for (const char* name : {"libzip.so", "libftdi1.so", "libusb-1.0.so", "libQt6SerialPort.so",
                             "libQt6Multimedia.so"})
        EXPECT_EQ(program.find(name), std::string::npos) << name;
}

} // namespace
} // namespace vorna
