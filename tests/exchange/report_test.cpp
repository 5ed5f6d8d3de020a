#include "core/file_names.h"
#include "core/settings_file.h"
#include "exchange/report.h"
#include "exchange/report_page.h"
#include "platform/encoding.h"
#include "platform/failure.h"
#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

const std::string pageBegin =
    std::string(page::head) + std::string(page::tableOpen) + std::string(page::reportTitleRow);

// A desk with a report's controls; each chart window is waited for as long as a report needs it.
struct ReportDesk : EvaluationDesk {
    ReportDesk() {
        windows.visit = [this](Window&) { seams.loop.wait(std::chrono::milliseconds{2000}); };
        fs::remove_all(html());
        fs::create_directories(html());
    }
    // Measurements of the client, the first on top, checked.
    void measureChecked(int count) {
        std::vector<ListRow> rows;
        for (int i = 0; i < count; ++i) {
            measure("P", levelValues(50 + 10 * i));
            ListRow row = window.measurements.list.row(0);
            row.checked = true;
            rows.push_back(row);
        }
        window.measurements.list.setRows(rows);
    }
    [[nodiscard]] fs::path html() const { return session.dataRoot / names::html; }
    [[nodiscard]] std::string pageText() const { return readWholeFile(html() / names::reportPage); }
    void document(const std::string& name, const std::string& rtf) const {
        writeFileAtomically(currentClientFile(session, name), rtf);
    }
};

TEST(Report, JoinsTheChartsOfTheCheckedMeasurementsInOrder) {
    ReportDesk desk;
    desk.measureChecked(3);
    desk.window.measurements.list.change(1, [](ListRow& row) { row.checked = false; });
    desk.window.print.charts.at(0)->checked = true;
    desk.window.print.charts.at(5)->checked = true;
    desk.window.activeControl = &desk.window.measurements.list;
    desk.window.print.print.click();
    const std::string spacers = "<tr><td> </td></tr><tr><td> </td></tr><tr><td> </td></tr>";
    EXPECT_EQ(desk.pageText(), pageBegin + spacers + page::chartRow("10") + page::chartRow("20") +
                                   spacers + page::chartRow("15") + page::chartRow("25") +
                                   std::string(page::tableClose) + "</div>" +
                                   std::string(page::foot) + "\r\n");
    EXPECT_EQ(desk.seams.drawing.documents.size(), 4U);
    EXPECT_EQ(desk.window.measurements.list.selected, 2) << "the last checked row";
    EXPECT_EQ(desk.state.ReportChartIndex, 0);
    EXPECT_EQ(desk.seams.opener.opened, std::vector<fs::path>{desk.html() / names::reportPage});
}

TEST(Report, AFourthMeasurementIsRefusedAndTheNextChartBehavesAsInAReport) {
    ReportDesk desk;
    desk.measureChecked(4);
    desk.window.print.charts.at(0)->checked = true;
    desk.window.print.print.click();
    EXPECT_EQ(desk.seams.dialogs.shown, std::vector<std::string>{"message: t18"});
    EXPECT_FALSE(fs::exists(desk.html() / names::reportPage));
    EXPECT_EQ(desk.state.ReportChartIndex, 4);
    desk.press(0);
    EXPECT_EQ(desk.seams.drawing.documents.size(), 1U);
}

TEST(Report, AttachesTheClientsDocumentsAndPictures) {
    ReportDesk desk;
    desk.document("anamneza.rtf", "{\\rtf1\\ansi\\ansicpg1250 B\\'f9h \\u20013?}");
    desk.document("D250131.rtf", "{\\rtf1 new}");
    desk.document("D250130.rtf", "{\\rtf1 old}");
    fillDocumentList(desk.session, desk.window.measurements);
    desk.window.print.history.checked = true;
    desk.window.print.recommendation.checked = true;
    desk.window.print.pictures.checked = true;
    desk.window.library.printList.add({.text = "0109", .sub = {"file:///p/01090F.jpg"}});
    desk.window.print.print.click();
    const std::string text = desk.pageText();
    const std::size_t history = text.find("</div><b>t131</b></p><hr/>");
    const std::size_t recommendation = text.find("</p></p></p><b>t132</b></p><hr/>");
    const std::size_t pictures =
        text.find("<p></p><br><p></p><br>" + std::string(page::tableOpen) +
                  std::string(page::pictureTitleRow) + page::pictureRow("file:///p/01090F.jpg"));
    ASSERT_NE(history, std::string::npos);
    ASSERT_LT(history, recommendation);
    ASSERT_LT(recommendation, pictures);
    EXPECT_NE(text.substr(history, recommendation - history).find("B\xF9h &#20013;"),
              std::string::npos)
        << "in Windows-1250, with a reference for what it lacks";
    EXPECT_NE(text.substr(recommendation, pictures - recommendation).find("new"),
              std::string::npos);
    EXPECT_EQ(text.find("old"), std::string::npos);
    EXPECT_NE(text.find("LU  09 : "), std::string::npos) << "short name, blank, two digits";
    EXPECT_EQ(text.find("<body>", text.find("<body>") + 1), std::string::npos);
}

TEST(Report, WhatIsMissingIsLeftOut) {
    ReportDesk desk;
    desk.window.print.history.checked = true;
    desk.window.print.recommendation.checked = true;
    desk.window.measurements.documents.setRows({{.text = "D250131.rtf"}, {.text = "../x"}});
    desk.window.print.print.click();
    EXPECT_EQ(desk.pageText(), pageBegin + std::string(page::tableClose) + "</div>" +
                                   std::string(page::foot) + "\r\n");
}

TEST(Report, NoPictureOfAnEarlierReportIsShown) {
    ReportDesk desk;
    desk.measureChecked(1);
    writeFileAtomically(desk.html() / "graf11.bmp", "another client");
    desk.window.measurements.list.change(0, [](ListRow& row) { row.setSubItem(1, "E"); });
    desk.session.mode = modeApm; // in which an E measurement opens no chart
    desk.window.print.charts.at(1)->checked = true;
    desk.window.print.print.click();
    EXPECT_FALSE(fs::exists(desk.html() / "graf11.bmp"));
}

TEST(Report, ADocumentOrPageThatFailsEndsInAFailure) {
    ReportDesk desk;
    desk.document("anamneza.rtf", "no rich text");
    desk.window.print.history.checked = true;
    EXPECT_THROW(desk.window.print.print.click(), Failure);
    desk.window.print.history.checked = false;
    fs::remove_all(desk.html());
    EXPECT_THROW(desk.window.print.print.click(), Failure);
    fs::create_directories(desk.html()); // without it the next start is a first run
}

TEST(Report, ThePictureReportHoldsTheChosenPointsAlone) {
    ReportDesk desk;
    desk.window.library.printList.add({.text = "0204", .sub = {"file:///a"}});
    desk.window.library.printList.add({.text = "0109", .sub = {"file:///b"}});
    desk.window.library.printPictures.click();
    const std::string text = readWholeFile(desk.html() / names::picturePage);
    EXPECT_TRUE(text.starts_with(std::string(page::head) + std::string(page::tableOpen) +
                                 std::string(page::pictureTitleRow) +
                                 page::pictureRow("file:///a")));
    EXPECT_TRUE(text.ends_with("</table></div></body></html>\r\n"));
    EXPECT_LT(text.find("file:///a"), text.find("file:///b"));
}

TEST(ReportPage, TheBodyIsCutByTheTagsExactly) {
    const std::pair<const char*, const char*> cases[] = {
        {"<html><body>text</body></html>", "text"},
        {"<body>a</body>b</body>", "a"},
        {"<BODY>text</BODY>", ""},
        {"<body>text", ""},
        {"12345text</body>", "text"},
        {"", ""},
    };
    for (const auto& [document, body] : cases)
        EXPECT_EQ(page::bodyOf(document), body) << document;
}

} // namespace
} // namespace vorna
