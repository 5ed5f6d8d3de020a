#include "recommendation/recommendation_window.h"

#include "clients/picture_window.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "platform/files.h"
#include "platform/text.h"
#include "recommendation/energy_therapy.h"
#include "recommendation/meridian_therapy.h"

namespace vorna {
namespace {

constexpr std::int16_t elementChart = 3;
constexpr std::int16_t balanceChart = 6;

std::string subItem(const ListRow& row, std::size_t column) {
    return std::string(row.subItem(column));
}

std::int16_t numberOf(std::string_view text) {
    return roundToInt16(numberOfDecimalText(text));
}

} // namespace

RecommendationWindow::RecommendationWindow(EvaluationContext& context, const ChartWindow& chart)
    : Window("Form4"), context_(context) {
    applyLanguage(context.session, *this);
    setCaption(context.session.texts.value(section(), "Form4.caption"));
    points.clicked = [this] { displayRow(); };
    const auto showTeaching = [this](const char* stem) {
        return [this, stem] { showLanguagePicture(context_.session, context_.windows, stem); };
    };
    star.clicked = showTeaching("hvezdice");
    yin.clicked = showTeaching("tomek-jin");
    yang.clicked = showTeaching("tomek-jang");
    meridianPicture.clicked = [this] { showMeridianPicture(); };
    copy.clicked = [this] { copyChecked(); };
    back.clicked = [this] { close(); };
    propose(chart);
}

void RecommendationWindow::propose(const ChartWindow& chart) {
    const ListRow* const problem = chart.problems.selectedRow();
    if (context_.state.chartType == balanceChart) {
        points.add({.text = context_.state.apmTherapyText});
        return;
    }
    if (problem == nullptr)
        return;
    const bool energy = context_.state.chartType == elementChart;
    setCaption(t(context_.session, "t34") + (energy ? " " : "") + subItem(*problem, problemColumn));
    Proposals proposals;
    attempt([&] {
        std::string pathway = subItem(*problem, pathwayColumn);
        if (energy)
            therapyEnergy(context_, numberOf(problem->tag), pathway, proposals);
        else
            therapyMeridian(context_, numberOf(problem->tag), numberOf(pathway), proposals);
    });
    points.setRows(std::move(proposals));
    if (points.size() > 0)
        points.selected = 0;
    displayRow();
}

void RecommendationWindow::displayRow() {
    const ListRow* const row = points.selectedRow();
    if (row == nullptr)
        return;
    additionalText.caption = subItem(*row, additionalTextColumn);
    frontPicture.path = "";
    sidePicture.path = "";
    const std::string label = subItem(*row, pointLabelColumn);
    const std::size_t blank = label.find(' ');
    const bool whole = blank == std::string::npos || blank == 0;
    labelFirstHalf.caption = whole ? label : label.substr(0, blank + 1);
    labelSecondHalf.caption = whole ? std::string{} : label.substr(blank + 1);
    meridianName.caption = subItem(*row, meridianNameColumn);
    // Of a row without a point nothing is shown, and not what the row before showed.
    china.caption = "";
    description.caption = "";
    if (row->tag.empty())
        return;
    attempt([&] { china.caption = vratChina(context_.session, row->tag); });
    frontPicture.path = findPicture(row->tag + "F*");
    attempt([&] { description.caption = vratDescr(context_.session, row->tag); });
    sidePicture.path = findPicture(row->tag + "K*");
}

std::string RecommendationWindow::findPicture(const std::string& pattern) const {
    const fs::path folder = under(context_.session.modeFolder, names::libraryPictures);
    const std::string name = findFirst(folder, pattern);
    return name.empty() ? std::string{} : pathText(folder / name);
}

void RecommendationWindow::showMeridianPicture() {
    const ListRow* const row = points.selectedRow();
    if (row == nullptr)
        return;
    const std::string meridian = subItem(*row, proposalMeridianColumn);
    const std::string picture =
        findPicture(context_.session.mode == modeApm ? names::meridianApmPicture(meridian)
                                                     : names::meridianTcmPicture(meridian, 1));
    if (!picture.empty())
        showPicture(context_.session, context_.windows, picture);
}

void RecommendationWindow::copyChecked() {
    std::string text;
    for (const ListRow& row : points.rows())
        if (row.checked)
            text += row.text + " - " + subItem(row, pointLabelColumn) + "\r\n";
    context_.platform.clipboard.setText(text);
    context_.platform.sound.play(under(context_.session.appFolder, names::startSound), false);
}

void showRecommendation(EvaluationContext& context, const ChartWindow& chart) {
    RecommendationWindow window(context, chart);
    context.windows.showModal(window);
}

} // namespace vorna
