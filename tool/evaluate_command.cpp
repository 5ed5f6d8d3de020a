#include "evaluation/balance_window.h"
#include "evaluation/chart_window.h"
#include "evaluation/element_window.h"
#include "evaluation/quadrant_window.h"
#include "platform/files.h"
#include "tool/command.h"

namespace vorna {
namespace {

using nlohmann::ordered_json;

// Looks on while windows open and notes what they show.
class Onlooker {
public:
    void visit(Window& window) {
        if (auto* const chart = dynamic_cast<ChartWindow*>(&window))
            visitChart(*chart);
        else if (auto* const balance = dynamic_cast<BalanceWindow*>(&window))
            visitBalance(*balance);
        else if (auto* const element = dynamic_cast<ElementWindow*>(&window))
            visitElement(*element);
        else if (auto* const quadrant = dynamic_cast<QuadrantWindow*>(&window))
            visitQuadrant(*quadrant);
    }

    ordered_json windowName = nullptr;
    ordered_json title = nullptr;
    ordered_json documents = ordered_json::array();
    ordered_json rows = ordered_json::array();
    ordered_json labels = ordered_json::object();
    ordered_json marker = nullptr;

private:
    void visitChart(const ChartWindow& window) {
        windowName = "ChartWindow";
        title = jsonText(window.caption());
        noteDocuments(window, "");
        for (const ListRow& row : window.problems.rows())
            rows.push_back(problemRowAnswer(row));
    }

    void visitBalance(const BalanceWindow& window) {
        windowName = "BalanceWindow";
        title = jsonText(window.caption());
        noteDocuments(window, "");
        for (const Label* const label : {&window.title, &window.subtitle, &window.leftRight,
                                         &window.handsFeet, &window.yinYang})
            noteLabel("", *label);
        labels[window.energyLevel.name()] = jsonText(window.energyLevel.text.get());
        labels[window.balancePercent.name()] = jsonText(window.balancePercent.text.get());
        if (window.marker)
            marker = {{"centreX", window.marker->centreX},
                      {"referenceY", window.marker->referenceY}};
    }

    void visitElement(const ElementWindow& window) {
        windowName = "ElementWindow";
        title = jsonText(window.title.caption.get());
        noteDocuments(window, "");
        noteLabel("", window.title);
        noteLabel("", window.subtitle);
        window.quadrants.click();
    }

    void visitQuadrant(const QuadrantWindow& window) {
        noteDocuments(window, "QuadrantWindow.");
        noteLabel("QuadrantWindow.", window.title);
        noteLabel("QuadrantWindow.", window.subtitle);
    }

    void noteLabel(const std::string& prefix, const Label& label) {
        labels[prefix + label.name()] = jsonText(label.caption.get());
    }

    // The windows' chart controls stand in the order in which they are drawn.
    void noteDocuments(const Window& window, const std::string& prefix) {
        for (const Control* const control : window.controls()) {
            const auto* const chart = dynamic_cast<const ChartControl*>(control);
            if (chart != nullptr && !chart->dataXml.get().empty())
                documents.push_back({{"control", prefix + chart->name()},
                                     {"chartType", chart->chartType.get()},
                                     {"xml", jsonText(chart->dataXml.get())}});
        }
    }
};

CommandResult run(const ChartPress& press, const ToolOptions& options) {
    ToolProcess process(options);
    Onlooker onlooker;
    pressChart(press, process, [&](Window& window) { onlooker.visit(window); });
    return {{{"messages", messagesOf(process)},
             {"window", onlooker.windowName},
             {"title", onlooker.title},
             {"chartType", process.state.chartType},
             {"currentKind", process.state.CurrentKind},
             {"documents", onlooker.documents},
             {"rows", onlooker.rows},
             {"apmTherapyText", jsonText(process.state.apmTherapyText)},
             {"labels", onlooker.labels},
             {"marker", onlooker.marker}}};
}

} // namespace

nlohmann::ordered_json problemRowAnswer(const ListRow& row) {
    auto sub = ordered_json::array();
    for (std::size_t i = 1; i <= 4; ++i)
        sub.push_back(jsonText(row.subItem(i)));
    return {{"text", jsonText(row.text)}, {"sub", sub}, {"tag", jsonText(row.tag)}};
}

void declareChartPress(CLI::App& subcommand, ChartPress& press) {
    subcommand.add_option("--client", press.client, "the client's intid")->required();
    subcommand.add_option("--measurement", press.measurement, "the measurement's file name")
        ->required();
    subcommand.add_option("--button", press.button, "the chart button, 0 to 6")
        ->required()
        ->check(CLI::Range(0, chartButtonCount - 1));
}

void pressChart(const ChartPress& press, ToolProcess& process,
                const std::function<void(Window&)>& visit) {
    if (isForbiddenFileName(press.measurement))
        throw WrongUsage("--measurement: \"" + press.measurement + "\" is no plain file name");
    process.start();
    process.selectClient(press.client);
    process.selectMeasurement(press.measurement);
    process.windows.visit = visit;
    process.window.chartButtons.at(press.button)->click();
}

CommandBody declareEvaluate(CLI::App& subcommand) {
    const auto press = std::make_shared<ChartPress>();
    declareChartPress(subcommand, *press);
    return [press](const ToolOptions& options) { return run(*press, options); };
}

} // namespace vorna
