// The guided run over a real pseudo-terminal, with the simulated probe at its other end.
#include "acquisition/measurement_record.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "demo/probe_process.h"
#include "probe/practitioner.h"
#include "tests/tool/tool_fixture.h"

#include <cmath>
#include <set>

namespace vorna {
namespace {

using nlohmann::ordered_json;

class MeasureCommandTest : public ToolTest {
protected:
    [[nodiscard]] std::vector<std::string> measure(const std::string& kind,
                                                   const std::string& port) const {
        return {"measure", "--client", client, "--kind", kind, "--port", port, "--speed", "50"};
    }
    [[nodiscard]] std::size_t storedMeasurements() const {
        return listFiles(dataRoot / names::data / client, "*").size();
    }

    std::string client = addClient();
};

TEST_F(MeasureCommandTest, TwentyFourPointsEndInTheClientsFolder) {
    const ProbeProcess probe(VORNA_TEST_PROBE, 50);
    const ToolOutcome outcome = run(measure("T", probe.port()));
    ASSERT_EQ(outcome.exitStatus, 0) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with("points measured: 24\n")) << outcome.err;
    const ordered_json answer = ordered_json::parse(outcome.out);
    const std::string file = answer.at("file");
    EXPECT_NE(file.find("_T_O'Hara & Co_Jana~^T.daf"), std::string::npos) << file;
    const MeasurementRecord record = readMeasurement(dataRoot / names::data / client / file);
    EXPECT_EQ(answer.at("values").get<std::vector<std::int32_t>>(),
              std::vector<std::int32_t>(record.values.begin() + 1, record.values.end()));
    // What the practitioner's hand showed, in whole chart units of 30: every value once.
    std::multiset<std::int32_t> shown;
    for (const int peak : makePractitionerSession(Profile::Balanced, 1).peaks)
        shown.insert(static_cast<std::int32_t>(std::nearbyint(peak / 30.0)) * 30);
    EXPECT_EQ(std::multiset<std::int32_t>(record.values.begin() + 1, record.values.end()), shown);
}

TEST_F(MeasureCommandTest, WithoutAProbeNothingIsStored) {
    EXPECT_EQ(run(measure("P", "/dev/null-probe")).err,
              "vorna-tool: --port: /dev/null-probe does not open\n");
    {
        const ProbeProcess probe(VORNA_TEST_PROBE, 50);
        const std::string port = probe.port();
        WriteIniValue(dataRoot / names::setup, "Global", "ModFunkce", "0");
        const ToolOutcome outcome = run(measure("E", port));
        EXPECT_EQ(outcome.exitStatus, 1);
        EXPECT_NE(outcome.err.find("--kind"), std::string::npos) << outcome.err;
    }
    EXPECT_EQ(storedMeasurements(), 0U);
}

TEST_F(MeasureCommandTest, AProbeThatTouchesNothingEndsTheRun) {
    // The first point is held long enough, and no other.
    const fs::path script = folder.write("script", "2 0\n12 900\n600 0\n");
    const ProbeProcess probe(VORNA_TEST_PROBE, 50, script);
    std::vector<std::string> arguments = measure("P", probe.port());
    arguments.insert(arguments.end(), {"--patience", "3"});
    const ToolOutcome outcome = run(arguments);
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_TRUE(outcome.err.ends_with("shows no further point; 1 points were measured\n"))
        << outcome.err;
    EXPECT_EQ(storedMeasurements(), 0U);
}

TEST_F(MeasureCommandTest, WhatIsNoNumberIsWrongUsage) {
    for (const auto& [option, text] : {std::pair{"--speed", "nan"},
                                       {"--speed", "inf"},
                                       {"--patience", "nan"},
                                       {"--patience", "0"}}) {
        std::vector<std::string> arguments{"measure", "--client",        client, "--kind", "P",
                                           "--port",  "/dev/null-probe", option, text};
        const ToolOutcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitStatus, 2) << option << text;
        EXPECT_NE(outcome.err.find(option), std::string::npos) << outcome.err;
    }
}

} // namespace
} // namespace vorna
