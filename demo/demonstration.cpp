#include "demo/demonstration.h"

#include "content/sample_client.h"
#include "core/file_names.h"
#include "core/settings_file.h"
#include "demo/overview_page.h"
#include "demo/probe_process.h"
#include "evaluation/balance_window.h"
#include "evaluation/chart_window.h"
#include "evaluation/element_window.h"
#include "evaluation/quadrant_window.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "recommendation/proposal.h"
#include "recommendation/recommendation_window.h"
#include "tool/guided_measurement.h"
#include "tool/process.h"

#include <ostream>

namespace vorna {
namespace {

constexpr PictureSize chartSize{745, 320};
constexpr PictureSize smallPieSize{480, 300};
// A calm list of problems: the band of the shipped settings has no width.
constexpr std::string_view demonstrationBand = "15";

// Draws and notes what the windows of one evaluation show.
class Onlooker {
public:
    Onlooker(ToolProcess& process, const DemonstrationOptions& options, std::string stem)
        : process_(process), options_(options), stem_(std::move(stem)) {}

    void visit(Window& window) {
        if (auto* const chart = dynamic_cast<ChartWindow*>(&window)) {
            note(*chart, chart->caption(), problemLines(*chart));
            chart->problems.selected = 0; // the proposals for the first problem
            if (chart->problems.selectedRow() != nullptr)
                call(chart->problems.doubleClicked);
        } else if (auto* const solution = dynamic_cast<RecommendationWindow*>(&window)) {
            noteProposals(*solution);
        } else if (auto* const balance = dynamic_cast<BalanceWindow*>(&window)) {
            note(*balance, balance->caption(), balanceLines(*balance));
        } else if (auto* const element = dynamic_cast<ElementWindow*>(&window)) {
            note(*element, element->title.caption, {});
            element->quadrants.click();
        } else if (auto* const quadrant = dynamic_cast<QuadrantWindow*>(&window)) {
            note(*quadrant, quadrant->title.caption, {});
        }
    }

    std::vector<ShownEvaluation> evaluations;
    std::size_t pictures = 0;

private:
    [[nodiscard]] std::vector<std::string> problemLines(ChartWindow& window) const {
        window.showEvaluation.click();
        if (window.evaluation.visible)
            return {window.evaluation.text};
        std::vector<std::string> lines;
        for (const ListRow& row : window.problems.rows())
            lines.push_back(row.text + ": " + std::string(row.subItem(problemColumn)) + " " +
                            std::string(row.subItem(differenceColumn)) + " " +
                            std::string(row.subItem(sideColumn)));
        return lines;
    }

    static std::vector<std::string> balanceLines(const BalanceWindow& window) {
        return {window.energyHeading.caption.get() + " " + window.energyLevel.text.get(),
                window.balanceHeading.caption.get() + " " + window.balancePercent.text.get(),
                window.leftRight.caption, window.handsFeet.caption, window.yinYang.caption};
    }

    void noteProposals(const RecommendationWindow& window) {
        std::vector<std::string>& lines = evaluations.back().lines;
        lines.push_back(window.caption());
        for (const ListRow& row : window.points.rows())
            lines.push_back(std::string(row.subItem(pointLabelColumn)) + ": " + row.text);
    }

    void note(Window& window, const std::string& title, std::vector<std::string> lines) {
        ShownEvaluation evaluation{.title = title, .lines = std::move(lines)};
        for (const Control* const control : window.controls())
            if (const auto* const chart = dynamic_cast<const ChartControl*>(control))
                draw(*chart, window.section(), evaluation);
        evaluations.push_back(std::move(evaluation));
    }

    void draw(const ChartControl& chart, const std::string& section, ShownEvaluation& evaluation) {
        const std::string picture = stem_ + "-" + section + "-" + chart.name() + ".png";
        const bool small = section != "graffrm";
        process_.drawing.draw(chart.dataXml.get(), chart.chartType,
                              small ? smallPieSize : chartSize, options_.result / picture);
        evaluation.documents.push_back({chart.name(), picture});
        ++pictures;
    }

    ToolProcess& process_;
    const DemonstrationOptions& options_;
    std::string stem_;
};

// A copy, since the first run renames folders of the installation that it starts from.
fs::path ownInstallation(const DemonstrationOptions& options) {
    return options.result / options.installation.filename();
}

fs::path dataRoot(const DemonstrationOptions& options) {
    return options.result / "data" / names::dataRoot;
}

ToolOptions toolOptions(const DemonstrationOptions& options) {
    return {.appFolder = ownInstallation(options),
            .commonData = options.result / "data",
            .locale = options.locale};
}

// Evaluates the measurements that were made in this process's mode.
class ModeRun {
public:
    ModeRun(const DemonstrationOptions& options, std::ostream& out)
        : options_(options), out_(out), process_(toolOptions(options)) {
        process_.start();
        if (process_.window.clients.list.rows().empty())
            throw Failure("the sample client is not in the client list");
        selectClientRow(process_.window, 0);
    }

    void evaluateAll(std::vector<ShownMeasurement>& measurements) {
        const std::string letter = process_.session.mode == modeApm ? "A" : "T";
        const std::vector<ListRow> rows = process_.window.measurements.list.rows();
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (rows[i].subItem(modeColumn) == letter)
                measurements.push_back(evaluate(rows[i], static_cast<int>(i)));
    }

    [[nodiscard]] std::string client() const {
        const ListRow& row = process_.window.clients.list.rows().front();
        return row.text + " " + std::string(row.subItem(1));
    }

private:
    ShownMeasurement evaluate(const ListRow& row, int index) {
        process_.window.measurements.list.selected = index;
        ShownMeasurement shown{.heading = row.text + ", " + std::string(row.subItem(kindColumn)) +
                                          ", " + std::string(row.subItem(modeColumn)) + ", " +
                                          std::string(row.subItem(practitionerColumn))};
        std::size_t pictures = 0;
        const std::size_t before = process_.dialogs.shown().size();
        for (int button = 0; button < chartButtonCount; ++button) {
            Onlooker onlooker(process_, options_,
                              row.tag.substr(0, 14) + "-" + std::to_string(button));
            process_.windows.visit = [&](Window& window) { onlooker.visit(window); };
            process_.window.chartButtons.at(button)->click();
            pictures += onlooker.pictures;
            for (ShownEvaluation& evaluation : onlooker.evaluations)
                shown.evaluations.push_back(std::move(evaluation));
        }
        for (std::size_t i = before; i < process_.dialogs.shown().size(); ++i)
            shown.messages.push_back(process_.dialogs.shown()[i].text);
        out_ << "  " << shown.heading << ": " << pictures << " pictures\n";
        return shown;
    }

    const DemonstrationOptions& options_;
    std::ostream& out_;
    ToolProcess process_;
};

// A guided run of the sample client on the simulated probe, with a clock of fifty times the speed.
void measureOnProbe(const DemonstrationOptions& options, std::ostream& out) {
    constexpr double speed = 50;
    const OffscreenQt qt;
    const ProbeProcess probe(options.installation / "vorna-probe", speed);
    ToolProcess process(toolOptions(options));
    process.start();
    selectClientRow(process.window, 0);
    out << "A guided measurement of 24 points on the simulated probe:" << std::flush;
    const std::string file = measureGuided(
        process, {.kind = "P", .port = probe.port(), .speed = speed, .pointsChanged = [&](int) {
                      out << " ." << std::flush;
                  }});
    out << "\n  " << file << '\n';
}

void writeSetting(const DemonstrationOptions& options, std::string_view key,
                  std::string_view value) {
    WriteIniValue(dataRoot(options) / names::setup, "Global", key, value);
}

} // namespace

std::filesystem::path runDemonstration(const DemonstrationOptions& options, std::ostream& out) {
    std::error_code error;
    fs::create_directories(options.result, error);
    copyFolderInto(options.installation, options.result);
    ToolProcess(toolOptions(options)).start(); // makes the data root
    addSampleClient({.sources = options.sources, .dataRoot = dataRoot(options)});

    measureOnProbe(options, out);

    std::vector<ShownMeasurement> measurements;
    std::string client;
    for (const std::string_view mode : {"1", "0"}) {
        writeSetting(options, "ModFunkce", mode);
        writeSetting(options, "odchylka", demonstrationBand);
        ModeRun run(options, out);
        client = run.client();
        if (measurements.empty())
            out << client << '\n';
        run.evaluateAll(measurements);
    }
    std::filesystem::path page = options.result / "index.html";
    writeFileAtomically(page, formatOverviewPage(client, measurements));
    return page;
}

} // namespace vorna
