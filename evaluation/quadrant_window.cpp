#include "evaluation/quadrant_window.h"

#include "clients/picture_window.h"
#include "core/reference_database.h"
#include "evaluation/chart_document.h"
#include "evaluation/summary_pies.h"
#include "platform/failure.h"

#include <array>

namespace vorna {
namespace {

constexpr int quadrantTitleRow = 8;
constexpr int firstSidePie = 9;

} // namespace

QuadrantWindow::QuadrantWindow(EvaluationContext& context) : Window("Form8"), context_(context) {
    setCaption(context.session.texts.value(section(), "Form8.caption"));
    back.clicked = [this] { close(); };
    yinPicture.clicked = [this] {
        showLanguagePicture(context_.session, context_.windows, "tomek-jin");
    };
    yangPicture.clicked = [this] {
        showLanguagePicture(context_.session, context_.windows, "tomek-jang");
    };
    applyLanguage(context.session, *this);
}

void QuadrantWindow::load() {
    title.caption = orEmpty([&] { return vratNazevGrafu(context_.session, quadrantTitleRow); });
    subtitle.caption = subcaption(context_, kindLabel(context_));
    attempt([&] {
        const ListRow& row = selectedMeasurement(context_);
        const std::filesystem::path path = selectedMeasurementPath(context_);
        const std::string_view kindLetter = row.subItem(kindColumn);
        attempt([&] { BuildQuadrantPie(context_, path, kindLetter, quadrants); });
        const std::array<ChartControl*, 4> sides{&leftYin, &leftYang, &rightYin, &rightYang};
        for (std::size_t i = 0; i < sides.size(); ++i)
            attempt([&] {
                BuildSideElementPie(context_, path, kindLetter, firstSidePie + static_cast<int>(i),
                                    *sides[i]);
            });
    });
}

void showQuadrantWindow(EvaluationContext& context) {
    QuadrantWindow window(context);
    context.windows.showModal(window);
}

} // namespace vorna
