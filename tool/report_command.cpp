#include "core/file_names.h"
#include "exchange/rtf_to_html.h"
#include "platform/encoding.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "tool/command.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

namespace vorna {
namespace {

using nlohmann::ordered_json;

struct ReportArguments {
    std::string client;
    std::vector<std::string> measurements;
    std::vector<int> charts;
    bool history = false;
    bool recommendation = false;
    std::vector<std::string> points;
};

void checkMeasurement(ListView& list, const std::string& name) {
    const auto& rows = list.rows();
    const auto at =
        std::find_if(rows.begin(), rows.end(), [&](const ListRow& row) { return row.tag == name; });
    if (at == rows.end())
        throw CannotRun("--measurement: the client has no measurement " + name);
    list.change(static_cast<std::size_t>(at - rows.begin()),
                [](ListRow& row) { row.checked = true; });
}

void checkChart(PrintPanel& panel, int chart) {
    CheckBox* const box = panel.charts.at(chart);
    if (box == nullptr)
        throw WrongUsage("--chart: a report has no chart " + std::to_string(chart));
    box->checked = true;
}

// Presses the button in the point's row of the library.
void addToPrintList(LibraryTab& library, const std::string& point) {
    const auto& rows = library.pointGrid.rows();
    const auto at = std::find_if(rows.begin(), rows.end(),
                                 [&](const ListRow& row) { return row.tag == point; });
    if (at == rows.end())
        throw CannotRun("--point: there is no point " + point);
    library.pointGrid.selected = static_cast<int>(at - rows.begin());
    library.pointGrid.buttonClicked(printListColumn);
}

// An address as the page means it: the characters that its code page lacks stand there as numbers.
QString withoutReferences(QString address) {
    static const QRegularExpression reference("&#(\\d+);");
    for (auto at = reference.match(address); at.hasMatch(); at = reference.match(address)) {
        const char32_t character = at.captured(1).toUInt();
        address.replace(at.capturedStart(), at.capturedLength(), QString::fromUcs4(&character, 1));
    }
    return address;
}

// The path of a picture's address: one with a scheme, or a name beside the page.
std::string picturePath(const QString& address, const fs::path& folder) {
    const QUrl url(address);
    return url.isLocalFile() ? url.toLocalFile().toStdString()
                             : pathText(folder / address.toStdString());
}

// The paths of the pictures that a page shows, in its order.
ordered_json picturesOf(const std::string& page, const fs::path& folder) {
    static const QRegularExpression picture("<img\\s[^>]*?\\bsrc=\"([^\"]*)\"");
    auto pictures = ordered_json::array();
    auto found = picture.globalMatch(QString::fromStdString(decode(page, CodePage::Windows1250)));
    while (found.hasNext())
        pictures.push_back(
            jsonText(picturePath(withoutReferences(found.next().captured(1)), folder)));
    return pictures;
}

CommandResult run(const ReportArguments& arguments, const ToolOptions& options) {
    ToolProcess process(options);
    process.start();
    process.selectClient(arguments.client);
    MainWindow& window = process.window;
    for (const std::string& name : arguments.measurements)
        checkMeasurement(window.measurements.list, name);
    for (const int chart : arguments.charts)
        checkChart(window.print, chart);
    window.print.history.checked = arguments.history;
    window.print.recommendation.checked = arguments.recommendation;
    window.print.pictures.checked = !arguments.points.empty();
    for (const std::string& point : arguments.points)
        addToPrintList(window.library, point);
    window.print.print.click();
    ordered_json page = nullptr;
    auto pictures = ordered_json::array();
    if (!process.opener.opened.empty()) {
        const fs::path& file = process.opener.opened.back();
        page = jsonText(pathText(file));
        pictures = picturesOf(readWholeFile(file), file.parent_path());
    }
    return {{{"messages", messagesOf(process)}, {"page", page}, {"pictures", pictures}}};
}

CommandResult convert(const std::string& file, const std::string& folder) {
    std::error_code error;
    if (!fs::is_directory(folder, error))
        throw CannotRun("--folder: " + folder + " is no folder");
    std::string html;
    if (!attempt([&] { html = rtfToHtml(file, folder); }))
        throw CannotRun("the file " + file + " cannot be converted");
    return {{{"messages", ordered_json::array()}, {"html", html}}};
}

} // namespace

CommandBody declareReport(CLI::App& subcommand) {
    const auto arguments = std::make_shared<ReportArguments>();
    subcommand.add_option("--client", arguments->client, "the client's intid")->required();
    subcommand.add_option("--measurement", arguments->measurements, "a measurement's file name")
        ->allow_extra_args(false);
    subcommand.add_option("--chart", arguments->charts, "a chart's index: 0, 1, 2, 3, 5 or 6")
        ->check(CLI::IsMember({0, 1, 2, 3, 5, 6}))
        ->allow_extra_args(false);
    subcommand.add_flag("--history", arguments->history, "attaches the anamnesis");
    subcommand.add_flag("--recommendation", arguments->recommendation,
                        "attaches the newest recommendation");
    subcommand.add_option("--point", arguments->points, "a point's key, such as 0109")
        ->allow_extra_args(false);
    return [arguments](const ToolOptions& options) { return run(*arguments, options); };
}

CommandBody declareRtfToHtml(CLI::App& subcommand) {
    const auto file = std::make_shared<std::string>();
    const auto folder = std::make_shared<std::string>();
    subcommand.add_option("FILE", *file, "the document")->required();
    subcommand.add_option("--folder", *folder, "the folder for its pictures")->required();
    return [file, folder](const ToolOptions&) { return convert(*file, *folder); };
}

} // namespace vorna
