#include "application/measuring.h"
#include "platform/files.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// Presses save in the wizard, and yes where it asks whether to close.
struct SavingHost final : WindowHost {
    void showModal(Window& window) override {
        window.open();
        window.load();
        dynamic_cast<MeasurementWizard&>(window).save.click();
        savedAndClosed = window.closed();
        window.close();
    }
    bool savedAndClosed = false;
};

struct NoDevice final : DeviceSearch {
    bool open() override { return false; }
    Memory readMemory() override { return {}; }
    std::optional<int> portNumber() override { return std::nullopt; }
    bool close() override { return false; }
    std::vector<std::string> ports() override { return {}; }
};

TEST(Measuring, SavesForTheSelectedClientAndIsUnboundAsItGoes) {
    ScratchFolder folder;
    TestPlatform seams;
    SavingHost windows;
    Session session;
    session.dataRoot = folder.path();
    session.clientsFolder = folder / "data";
    session.texts.setFile(folder.write("lang1.ini", "[other]\nnoClient=none\n"), false);
    std::filesystem::create_directories(folder / "data/a1");
    EvaluationState state;
    MainWindow window;
    EvaluationContext context{.session = session,
                              .state = state,
                              .platform = seams.platform,
                              .windows = windows,
                              .clientList = window.clients.list,
                              .measurementList = window.measurements.list,
                              .recommend = {}};
    ScriptedSerialLine line;
    NoDevice search;
    {
        Measuring measuring(window, context, {.line = line, .search = search});
        window.clients.list.add({.text = "Žák", .sub = {"Jan"}});
        window.clients.list.selected = 0;
        seams.dialogs.answers = {true};
        window.measureSource.click(); // a new client is not saved yet: there is no folder
        EXPECT_FALSE(windows.savedAndClosed);
        EXPECT_EQ(seams.dialogs.shown.front(), "message: none");
        EXPECT_EQ(listFiles(folder / "data", "*.daf"), std::vector<std::string>{});

        session.currentClientFolder = "a1";
        window.measureSource.click();
        EXPECT_TRUE(windows.savedAndClosed);
        EXPECT_EQ(listFiles(folder / "data/a1", "*_P_Žák_Jan~*.daf").size(), 1U);
    }
    window.measureSource.click(); // to nobody
    window.freeMeasurement.action.click();
    window.probe.calibrate.click();
    EXPECT_EQ(listFiles(folder / "data/a1", "*.daf").size(), 1U);
}

} // namespace
} // namespace vorna
