#include "platform/files.h"
#include "recommendation/recommendation_window.h"
#include "tool/command.h"

namespace vorna {
namespace {

using nlohmann::ordered_json;

struct RecommendArguments {
    ChartPress press;
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

CommandResult run(const RecommendArguments& arguments, const ToolOptions& options) {
    ToolProcess process(options);
    ordered_json shown;
    bool chartOpened = false;
    pressChart(arguments.press, process, [&](Window& window) {
        if (auto* const chart = dynamic_cast<ChartWindow*>(&window)) {
            chartOpened = true;
            if (static_cast<std::size_t>(arguments.row) >= chart->problems.size())
                return;
            chart->problems.selected = arguments.row;
            call(chart->problems.doubleClicked);
        } else if (const auto* const solution = dynamic_cast<RecommendationWindow*>(&window)) {
            shown = answerOf(*solution);
        }
    });
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
    const auto arguments = std::make_shared<RecommendArguments>();
    declareChartPress(subcommand, arguments->press);
    subcommand.add_option("--row", arguments->row, "the problem row, from 0")
        ->required()
        ->check(CLI::Range(0, highestRow));
    return [arguments](const ToolOptions& options) { return run(*arguments, options); };
}

} // namespace vorna
