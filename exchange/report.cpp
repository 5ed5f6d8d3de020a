#include "exchange/report.h"

#include "core/file_names.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "exchange/report_page.h"
#include "exchange/rtf_to_html.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

fs::path reportFolder(const Session& session) {
    return under(session.dataRoot, names::html);
}

void writeAndOpen(const ReportContext& context, std::string_view name, const std::string& text) {
    const fs::path page = under(reportFolder(context.evaluation.session), name);
    writeFileAtomically(page, page::encoded(text));
    static_cast<void>(context.evaluation.platform.opener.open(page)); // no failure is told
}

// Counts the checked measurements into ReportChartIndex, selecting each; `act` follows each count.
void walkChecked(ReportContext& context, const std::function<void()>& act) {
    std::int16_t& index = context.evaluation.state.ReportChartIndex;
    index = 0;
    ListView& list = context.measurements.list;
    for (std::size_t row = 0; row < list.size(); ++row) {
        if (!list.row(row).checked)
            continue;
        list.selected = static_cast<int>(row);
        ++index;
        act();
    }
}

std::string chartRows(ReportContext& context, int chart) {
    std::string rows;
    for (int i = 0; i < 3; ++i)
        rows += page::spacerRow;
    EvaluationState& state = context.evaluation.state;
    walkChecked(context, [&] {
        state.reportChartKey =
            decimalText(std::int64_t{state.ReportChartIndex}) + decimalText(std::int64_t{chart});
        // A chart that does not come up must not leave the picture of an earlier report.
        removeTree(under(context.evaluation.session.dataRoot,
                         names::reportChartPicture(state.reportChartKey)));
        context.pressChart(chart);
        rows += page::chartRow(state.reportChartKey);
    });
    return rows;
}

// A heading and the body of a document of the client; nothing without the document.
std::string document(const ReportContext& context, std::string_view heading,
                     std::string_view name) {
    const Session& session = context.evaluation.session;
    fs::path file;
    attempt([&] { file = currentClientFile(session, name); });
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return {};
    return std::string(heading) + "</b></p><hr/>" +
           page::bodyOf(rtfToHtml(file, reportFolder(session)));
}

} // namespace

PrintPanel::PrintPanel(Window& window)
    : charts{window, "Check2", {0, 1, 2, 3, 5, 6}}, history{window, "Check3"},
      recommendation{window, "Check4"}, pictures{window, "obrC"}, print{window, "Command41"} {}

std::string pridatOBR(ReportContext& context) {
    Session& session = context.evaluation.session;
    std::string table = std::string(page::tableOpen) + std::string(page::pictureTitleRow);
    for (const ListRow& row : context.library.printList.rows()) {
        const std::string shortName = referenceDatabase(session)
                                          .query("select * from meridians where meridian = ?",
                                                 {quotedText(firstCharacters(row.text, 2))})
                                          .text("ShortName");
        table += page::pictureRow(row.subItem(1));
        table += page::pictureTextRow(shortName + " " + std::string(lastCharacters(row.text, 2)),
                                      vratDescr(session, row.text));
    }
    return table + std::string(page::tableClose);
}

void reportMain(ReportContext& context) {
    EvaluationState& state = context.evaluation.state;
    const Session& session = context.evaluation.session;
    walkChecked(context, [] {});
    if (state.ReportChartIndex > measurementsOfReport) {
        context.evaluation.platform.dialogs.message(t(session, "t18"));
        return;
    }
    state.ReportChartIndex = 0;
    removeRtfPictures(under(session.dataRoot, names::html)); // of other clients' documents
    std::string text(page::head);
    text += page::tableOpen;
    text += page::reportTitleRow;
    for (const auto& box : context.panel.charts.members)
        if (box->checked)
            text += chartRows(context, box->index());
    text += page::tableClose;
    text += "</div>";
    if (context.panel.history.checked)
        text += document(context, "<b>" + t(session, "t131"), names::anamnesis);
    if (context.panel.recommendation.checked && context.measurements.documents.size() > 0)
        text += document(context, "</p></p></p><b>" + t(session, "t132"),
                         context.measurements.documents.row(0).text);
    if (context.panel.pictures.checked)
        text += "<p></p><br><p></p><br>" + pridatOBR(context);
    text += page::foot;
    writeAndOpen(context, names::reportPage, text);
    state.ReportChartIndex = 0;
}

void reportPictures(ReportContext& context) {
    writeAndOpen(context, names::picturePage,
                 std::string(page::head) + pridatOBR(context) + "</div>" + std::string(page::foot));
}

} // namespace vorna
