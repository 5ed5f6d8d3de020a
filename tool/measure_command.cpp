#include "acquisition/measurement_record.h"
#include "tool/command.h"
#include "tool/guided_measurement.h"

#include <cmath>
#include <iostream>

namespace vorna {
namespace {

struct MeasureArguments {
    std::string client;
    GuidedMeasurement order;
};

CommandResult run(const MeasureArguments& arguments, const ToolOptions& options) {
    if (!std::isfinite(arguments.order.patience.value_or(0)))
        throw WrongUsage("--patience: not a number of seconds");
    const OffscreenQt qt;
    ToolProcess process(options);
    process.start();
    process.selectClient(arguments.client);
    GuidedMeasurement order = arguments.order;
    order.speed = options.speed > 0 ? options.speed : 1;
    order.pointsChanged = [](int points) {
        if (points > 0)
            std::cerr << "points measured: " << points << '\n';
    };
    const std::string file = measureGuided(process, order);
    const MeasurementRecord record = readMeasurement(currentClientFile(process.session, file));
    return {
        {{"messages", messagesOf(process)},
         {"file", jsonText(file)},
         {"values", std::vector<std::int32_t>(record.values.begin() + 1, record.values.end())}}};
}

} // namespace

CommandBody declareMeasure(CLI::App& subcommand) {
    const auto arguments = std::make_shared<MeasureArguments>();
    GuidedMeasurement& order = arguments->order;
    subcommand.add_option("--client", arguments->client, "the client's intid")->required();
    subcommand.add_option("--kind", order.kind, "P, T, B or E")
        ->required()
        ->check(CLI::IsMember({"P", "T", "B", "E"}));
    subcommand.add_option("--port", order.port, "the serial port's path")->required();
    subcommand.add_option("--start-index", order.startIndex, "the first point, from 1")
        ->check(CLI::Range(1, 24));
    subcommand
        .add_option("--patience", order.patience,
                    "gives up once no further point was measured for so many seconds of real time; "
                    "without it 60, or twice the time that a point of the settings takes")
        ->check(CLI::PositiveNumber);
    return [arguments](const ToolOptions& options) { return run(*arguments, options); };
}

} // namespace vorna
