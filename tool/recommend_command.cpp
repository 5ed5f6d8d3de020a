#include "platform/files.h"
#include "recommendation/recommendation_window.h"
#include "tool/command.h"

namespace vorna {
namespace {

using nlohmann::ordered_json;

struct Arguments {
    std::string client;
    std::string measurement;
    int button = 0;
    int row = 0;
};

constexpr int highestRow = 999;

std::string fileName(const Picture& picture) {
    return fs::path(picture.path.get()).filename().string();
}

ordered_json answerOf(const RecommendationWindow& window) {
    auto rows = ordered_json::array();
    for (const ListRow& row : window.points.rows())
        rows.push_back(problemRowAnswer(row));
    ordered_json display;
    for (const Label* const label :
         {&window.labelFirstHalf, &window.labelSecondHalf, &window.additionalText,
          &window.description, &window.meridianName, &window.china})
        display[label->name()] = jsonText(label->caption.get());
    for (const Picture* const picture : {&window.frontPicture, &window.sidePicture})
        display[picture->name()] = jsonText(fileName(*picture));
    return {{"title", jsonText(window.caption())}, {"rows", rows}, {"display", display}};
}

CommandResult run(const Arguments& arguments, const ToolOptions& options) {
    if (isForbiddenFileName(arguments.measurement))
        throw WrongUsage("--measurement: \"" + arguments.measurement + "\" is no plain file name");
    ToolProcess process(options);
    process.start();
    process.selectClient(arguments.client);
    process.selectMeasurement(arguments.measurement);
    ordered_json shown;
    bool chartOpened = false;
    process.windows.visit = [&](Window& window) {
        if (auto* const chart = dynamic_cast<ChartWindow*>(&window)) {
            chartOpened = true;
            if (static_cast<std::size_t>(arguments.row) >= chart->problems.size())
                return;
            chart->problems.selected = arguments.row;
            call(chart->problems.doubleClicked);
        } else if (const auto* const window4 = dynamic_cast<const RecommendationWindow*>(&window)) {
            shown = answerOf(*window4);
        }
    };
    process.window.chartButtons.at(arguments.button)->click();
    if (!chartOpened)
        throw CannotRun("--button: the press opens no window with a problem list");
    if (shown.is_null())
        throw CannotRun("--row: the problem list has no row " + std::to_string(arguments.row));
    ordered_json answer{{"messages", messagesOf(process)}};
    answer.update(shown);
    return {answer};
}

} // namespace

CommandBody declareRecommend(CLI::App& subcommand) {
    const auto arguments = std::make_shared<Arguments>();
    subcommand.add_option("--client", arguments->client, "the client's intid")->required();
    subcommand.add_option("--measurement", arguments->measurement, "the measurement's file name")
        ->required();
    subcommand.add_option("--button", arguments->button, "the chart button, 0 to 6")
        ->required()
        ->check(CLI::Range(0, chartButtonCount - 1));
    subcommand.add_option("--row", arguments->row, "the problem row, from 0")
        ->required()
        ->check(CLI::Range(0, highestRow));
    return [arguments](const ToolOptions& options) { return run(*arguments, options); };
}

} // namespace vorna
