#include "core/file_names.h"
#include "core/settings_file.h"
#include "tests/tool/tool_fixture.h"

namespace vorna {
namespace {

using nlohmann::ordered_json;

class EvaluateCommandTest : public ToolTest {
protected:
    EvaluateCommandTest() { setting("odchylka", "15"); }

    void setting(std::string_view key, std::string_view value) const {
        WriteIniValue(dataRoot / names::setup, "Global", key, value);
    }
    [[nodiscard]] ordered_json evaluate(const std::string& measurement, int button) const {
        return answer({"evaluate", "--client", client, "--measurement", measurement, "--button",
                       std::to_string(button)});
    }

    std::string client = addClient();
};

// The text of a golden document, which is kept one element a line.
std::string goldenDocument(const std::string& name) {
    std::string text = readWholeFile(fs::path(VORNA_TEST_SOURCE) / "tests" / "evaluation" /
                                     "golden" / (name + ".xml"));
    std::erase(text, '\n');
    return text.substr(0, text.size() - std::string_view("(end)").size());
}

TEST_F(EvaluateCommandTest, PrintsTheChartWindowWhole) {
    ordered_json expected = ordered_json::parse(R"({
        "messages": [], "window": "ChartWindow", "title": "t44CHART 3", "chartType": 3,
        "currentKind": 1,
        "documents": [{"control": "FusionCharts1", "chartType": 11, "xml": ""}],
        "rows": [{"text": "Wood", "sub": ["problem 1", "054", "12", ""], "tag": "1"},
                 {"text": "Fire", "sub": ["problem 1", "052", "09", ""], "tag": "1"},
                 {"text": "Metal", "sub": ["problem 2", "013", "01", "t137"], "tag": "2"},
                 {"text": "Water", "sub": ["problem 2", "028", "07", "t138"], "tag": "2"}],
        "apmTherapyText": "", "labels": {}, "marker": null})");
    expected["documents"][0]["xml"] = goldenDocument("chart3");
    EXPECT_EQ(evaluate(addMeasurement("P"), 2).dump(), expected.dump());
}

TEST_F(EvaluateCommandTest, PrintsTheBalanceWindowWhole) {
    ordered_json expected = ordered_json::parse(R"({
        "messages": [{"kind": "message", "text": "t33", "answer": null}],
        "window": "BalanceWindow", "title": "t44CHART 4", "chartType": 7, "currentKind": 1,
        "documents": [{"control": "FusionCharts1", "chartType": 4, "xml": ""}],
        "rows": [], "apmTherapyText": "key 100",
        "labels": {"Label4": "CHART 4",
                   "Label3": "O'Hara & Co_Jana, 31.01.2025 14:30, t45Dvorak",
                   "Label1": "t79 8 %", "Label2": "t80 4 %", "Label5": "t136 2 %",
                   "Text1": "104", "Text2": "9.5 %"},
        "marker": {"centreX": 2288, "referenceY": 2400}})");
    expected["documents"][0]["xml"] = goldenDocument("quadrant_pie");
    EXPECT_EQ(evaluate(addMeasurement("P", 'A'), 3).dump(), expected.dump());
}

TEST_F(EvaluateCommandTest, PrintsTheElementWindowWithTheQuadrantsBehindIt) {
    const ordered_json shown = evaluate(addMeasurement("P"), 4);
    EXPECT_EQ(shown.at("window"), "ElementWindow");
    EXPECT_EQ(shown.at("title"), "CHART 14");
    EXPECT_EQ(shown.at("chartType"), 0) << "left as it was";
    EXPECT_EQ(shown.at("apmTherapyText"), "key 100") << "the quadrants' text";
    std::string controls;
    for (const ordered_json& document : shown.at("documents"))
        controls += document.at("control").get<std::string>() + " ";
    EXPECT_EQ(controls, "FusionCharts1 FusionCharts2 FusionCharts3 QuadrantWindow.FusionCharts5 "
                        "QuadrantWindow.FusionCharts1 QuadrantWindow.FusionCharts2 "
                        "QuadrantWindow.FusionCharts3 QuadrantWindow.FusionCharts4 ");
    EXPECT_EQ(shown.at("documents")[2].at("xml"), goldenDocument("element_pie_all"));
    EXPECT_EQ(shown.at("documents")[4].at("xml"), goldenDocument("side_pie_9"));
    EXPECT_EQ(shown.at("labels").dump(), ordered_json::parse(R"({"Label4": "CHART 14",
                  "Label3": "O'Hara & Co_Jana, 31.01.2025 14:30, t45Dvorak",
                  "QuadrantWindow.Label4": "CHART 8",
                  "QuadrantWindow.Label3": "O'Hara & Co_Jana, 31.01.2025 14:30, t45Dvorak"})")
                                             .dump());
}

TEST_F(EvaluateCommandTest, PrintsNothingWhereNoWindowOpens) {
    setting("ModFunkce", "0");
    EXPECT_EQ(evaluate(addMeasurement("E"), 6).dump() + "\n", printed(R"({
        "messages": [{"kind": "message", "text": "t33", "answer": null}], "window": null,
        "title": null, "chartType": 0, "currentKind": 0, "documents": [], "rows": [],
        "apmTherapyText": "", "labels": {}, "marker": null})"));
}

TEST_F(EvaluateCommandTest, TakesAMeasurementThatIsGone) {
    const std::string gone = "240101080000_B_Жанна О'Нил~Ó.daf";
    const ordered_json shown = evaluate(gone, 6);
    EXPECT_EQ(shown.at("currentKind"), 3);
    EXPECT_EQ(shown.at("apmTherapyText"), "t100");
    const std::string document = shown.at("documents")[0].at("xml");
    EXPECT_NE(document.find("subcaption='O'Hara & Co_Jana, 01.01.2024 08:00, t47Ó'"),
              std::string::npos);
    EXPECT_TRUE(fs::exists(dataRoot / names::data / client / gone));
}

TEST_F(EvaluateCommandTest, RecommendShowsTheProposalsOfOneRow) {
    const auto recommend = [&](const char* row) {
        return std::vector<std::string>{
            "recommend", "--client", client, "--measurement", addMeasurement("P"), "--button",
            "2",         "--row",    row};
    };
    const ordered_json shown = answer(recommend("2")); // the lungs below the level
    EXPECT_EQ(shown.at("title"), "t34 problem 2");
    ASSERT_GE(shown.at("rows").size(), 2U);
    EXPECT_EQ(shown.at("rows").at(0).at("tag"), "01090");
    EXPECT_EQ(shown.at("rows").at(0).at("sub").at(0), "LU 09 t42");
    std::vector<std::string> keys;
    for (const auto& [key, value] : shown.at("display").items())
        keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"SkinLabel1", "SkinLabel2", "SkinLabel3", "Label1",
                                              "Label2", "Label3", "Image1", "Image2"}));
    EXPECT_EQ(shown.at("display").at("SkinLabel2"), "09 t42");
    EXPECT_EQ(shown.at("display").at("Label3"), "太渊");
    const ToolOutcome outcome = run(recommend("99"));
    EXPECT_EQ(outcome.exitStatus, 1);
    EXPECT_NE(outcome.err.find("--row"), std::string::npos);
}

} // namespace
} // namespace vorna
