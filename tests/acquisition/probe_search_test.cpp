#include "acquisition/probe_search.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/support/workplace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorna {
namespace {

using testing::ElementsAre;

struct ScriptedDeviceSearch final : DeviceSearch {
    bool open() override { return opens; }
    Memory readMemory() override { return memory; }
    std::optional<int> portNumber() override {
        if (whileAwaited)
            whileAwaited();
        return number;
    }
    bool close() override { return opens; }
    std::vector<std::string> ports() override { return portNames; }
    std::string simulatedPort() override { return simulated; }

    bool opens = true;
    Memory memory{.description = "Probe 2", .serialNumber = "A107"};
    std::optional<int> number = 4;
    std::vector<std::string> portNames;
    std::string simulated;
    std::function<void()> whileAwaited;
};

class ProbeSearchTest : public testing::Test {
protected:
    ProbeSearchTest() {
        place.session.texts.setFile(
            place.folder.write("lang2.ini", "[other]\nT5=no device\nt6=no number\nt7=\"Port: \"\n"),
            false);
    }
    std::string port() {
        return ReadIniValue(place.session.dataRoot / names::setup, "global", "port");
    }
    static std::vector<std::string> texts(const ListView& list) {
        std::vector<std::string> rows;
        for (const ListRow& row : list.rows())
            rows.push_back(row.text);
        return rows;
    }

    Workplace place;
    Window window{"Form1"};
    ProbeSettings probe{window};
    ScriptedDeviceSearch search;
};

TEST_F(ProbeSearchTest, TellsTheDeviceAndTakesItsPort) {
    probe.searchResult.add({.text = "of an earlier search"});
    findProbe(probe, place.session, search);
    EXPECT_THAT(texts(probe.searchResult), ElementsAre("Probe 2", "A107", "Port: 4"));
    EXPECT_EQ(port(), "COM4");
}

TEST_F(ProbeSearchTest, EveryStepFailsOnItsOwn) {
    search.opens = false;
    search.memory = {.status = -2};
    search.number.reset();
    findProbe(probe, place.session, search);
    EXPECT_THAT(texts(probe.searchResult), ElementsAre("no device", "EE_Read Failed: code -2", "",
                                                       "", "no number", "Port: 0", "Close Failed"));
    EXPECT_EQ(port(), "COM0"); // without a number, too
    EXPECT_TRUE(probe.findProbe.enabled);
}

TEST_F(ProbeSearchTest, ASearchThatWaitsIsNotBegunAgain) {
    search.whileAwaited = [&] { findProbe(probe, place.session, search); };
    findProbe(probe, place.session, search);
    EXPECT_EQ(probe.searchResult.size(), 3U);
}

TEST_F(ProbeSearchTest, ListsPortsByTheirBareNumbers) {
    search.portNames = {"COM0:", "LPT1:", "COM12:", "FILE:"};
    listPorts(probe, search);
    listPorts(probe, search);
    EXPECT_THAT(texts(probe.ports), ElementsAre("0", "12"));
    EXPECT_EQ(port(), "");
}

TEST_F(ProbeSearchTest, OffersASimulatedProbeAsLongAsOneRuns) {
    listPorts(probe, search);
    EXPECT_FALSE(probe.useSimulated.visible);
    search.simulated = "/dev/pts/7";
    listPorts(probe, search);
    EXPECT_TRUE(probe.useSimulated.visible);
    useSimulatedProbe(probe, place.session, search);
    EXPECT_EQ(port(), "/dev/pts/7");
    EXPECT_THAT(texts(probe.searchResult), ElementsAre("Port: /dev/pts/7"));
    search.simulated.clear();
    useSimulatedProbe(probe, place.session, search);
    EXPECT_FALSE(probe.useSimulated.visible);
    EXPECT_EQ(port(), "/dev/pts/7");
}

} // namespace
} // namespace vorna
