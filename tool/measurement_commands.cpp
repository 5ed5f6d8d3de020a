#include "acquisition/measurement_record.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"
#include "tool/command.h"

#include <charconv>

namespace vorna {
namespace {

using nlohmann::ordered_json;

ordered_json rowsOf(const ListView& list) {
    auto rows = ordered_json::array();
    for (const ListRow& row : list.rows()) {
        auto columns = ordered_json::array({jsonText(row.text)});
        for (std::size_t i = 1; i <= 3; ++i)
            columns.push_back(jsonText(row.subItem(i)));
        rows.push_back({{"columns", columns}, {"tag", jsonText(row.tag)}});
    }
    return rows;
}

std::array<std::int32_t, slotCount + 1> parseValues(const std::string& text) {
    const std::vector<std::string_view> pieces = split(text, ',');
    if (pieces.size() != slotCount)
        throw WrongUsage("--values: " + std::to_string(pieces.size()) +
                         " values are given, 24 are wanted");
    std::array<std::int32_t, slotCount + 1> values{};
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::string_view piece = trimmed(pieces[i]);
        const char* const end = piece.data() + piece.size();
        const auto [stop, error] = std::from_chars(piece.data(), end, values[i + 1]);
        if (error != std::errc{} || stop != end)
            throw WrongUsage("--values: \"" + std::string(piece) + "\" is no 32-bit whole number");
    }
    return values;
}

ordered_json recordAnswer(const MeasurementRecord& record) {
    return {{"messages", ordered_json::array()},
            {"setLabel", jsonText(record.setLabel)},
            {"values", std::vector<std::int32_t>(record.values.begin() + 1, record.values.end())}};
}

} // namespace

CommandBody declareMeasurements(CLI::App& subcommand) {
    const auto client = std::make_shared<std::string>();
    subcommand.add_option("--client", *client, "the client's intid")->required();
    return [client](const ToolOptions& options) -> CommandResult {
        ToolProcess process(options);
        process.start();
        process.selectClient(*client);
        return {{{"messages", messagesOf(process)},
                 {"rows", rowsOf(process.window.measurements.list)}}};
    };
}

CommandBody declareReadDaf(CLI::App& subcommand) {
    const auto file = std::make_shared<std::string>();
    subcommand.add_option("FILE", *file, "the measurement file")->required();
    return [file](const ToolOptions&) -> CommandResult {
        std::string bytes;
        if (!attempt([&] { bytes = readWholeFile(*file); }))
            throw CannotRun("the file " + *file + " cannot be read");
        return {recordAnswer(parseMeasurement(bytes))};
    };
}

CommandBody declareWriteDaf(CLI::App& subcommand) {
    struct Arguments {
        std::string file;
        std::string label;
        std::string values;
    };
    const auto arguments = std::make_shared<Arguments>();
    subcommand.add_option("FILE", arguments->file, "the measurement file")->required();
    subcommand.add_option("--label", arguments->label, "the set's label")->required();
    subcommand.add_option("--values", arguments->values, "24 stored values, comma-separated")
        ->required();
    return [arguments](const ToolOptions&) -> CommandResult {
        const MeasurementRecord record{.setLabel = arguments->label,
                                       .values = parseValues(arguments->values)};
        std::string bytes;
        if (!attempt([&] { bytes = formatMeasurement(record); }))
            throw CannotRun("--label: the label is longer than 202 bytes");
        if (!attempt([&] { writeFileAtomically(arguments->file, bytes); }))
            throw CannotRun("the file " + arguments->file + " cannot be written");
        return {recordAnswer(record)};
    };
}

} // namespace vorna
