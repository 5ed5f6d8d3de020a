// What the commands of the tool share: the options of every command, the way to say that a command
// cannot run, and the table of commands.
#pragma once

#include "tool/process.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorna {

// A command cannot run: exit status 1 and one line.
class CannotRun : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The arguments make no sense: exit status 2 and one line.
class WrongUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct CommandResult {
    nlohmann::ordered_json answer;
    int exitStatus = 0;
    std::string complaint; // the line on standard error of a status other than 0
};

// Runs a command whose arguments were read.
using CommandBody = std::function<CommandResult(const ToolOptions&)>;

// Declares a command on its subcommand and returns what runs it.
using CommandDeclaration = CommandBody (*)(CLI::App& subcommand);

CommandBody declareSession(CLI::App& subcommand);
CommandBody declareConfigure(CLI::App& subcommand);
CommandBody declareClients(CLI::App& subcommand);
CommandBody declareClientSave(CLI::App& subcommand);
CommandBody declareClientDelete(CLI::App& subcommand);
CommandBody declareMeasurements(CLI::App& subcommand);
CommandBody declareMeasure(CLI::App& subcommand);
CommandBody declareReadDaf(CLI::App& subcommand);
CommandBody declareWriteDaf(CLI::App& subcommand);
CommandBody declareEvaluate(CLI::App& subcommand);
CommandBody declareRecommend(CLI::App& subcommand);
CommandBody declareReport(CLI::App& subcommand);
CommandBody declareExport(CLI::App& subcommand);
CommandBody declareImport(CLI::App& subcommand);
CommandBody declareRtfToHtml(CLI::App& subcommand);
CommandBody declareDraw(CLI::App& subcommand);
CommandBody declareCheck(CLI::App& subcommand);

// A press of a chart button on one measurement, which several commands begin with.
struct ChartPress {
    std::string client;
    std::string measurement;
    int button = 0;
};
void declareChartPress(CLI::App& subcommand, ChartPress& press);
// Starts up, selects the measurement and presses; `visit` acts on the windows that open. WrongUsage
// when the measurement's name is no plain file name.
void pressChart(const ChartPress& press, ToolProcess& process,
                const std::function<void(Window&)>& visit);

// A row of the client list: its row id (null in a table that is not the system's own) and its seven
// columns.
nlohmann::ordered_json clientRowAnswer(const ListRow& row);

// A row of a problem list or of a list of proposed points: its text, columns 1 to 4 and its tag.
nlohmann::ordered_json problemRowAnswer(const ListRow& row);

// The message boxes, notices and questions of the process so far, in their order.
nlohmann::ordered_json messagesOf(const ToolProcess& process);

// Text that may not be UTF-8 (a name out of an old file) with what is not replaced.
std::string jsonText(std::string_view text);

} // namespace vorna
