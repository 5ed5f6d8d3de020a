#include "evaluation/element_window.h"

#include "clients/picture_window.h"
#include "core/reference_database.h"
#include "evaluation/chart_document.h"
#include "evaluation/quadrant_window.h"
#include "evaluation/summary_pies.h"
#include "platform/failure.h"

#include <array>

namespace vorna {
namespace {

constexpr int elementTitleRow = 14;

} // namespace

ElementWindow::ElementWindow(EvaluationContext& context) : Window("Form7"), context_(context) {
    setCaption(context.session.texts.value(section(), "Form7.caption"));
    back.clicked = [this] { close(); };
    quadrants.clicked = [this] { showQuadrantWindow(context_); };
    yinPicture.clicked = [this] {
        showLanguagePicture(context_.session, context_.windows, "tomek-jin");
    };
    yangPicture.clicked = [this] {
        showLanguagePicture(context_.session, context_.windows, "tomek-jang");
    };
    applyLanguage(context.session, *this);
}

void ElementWindow::load() {
    const ReferenceReading reading(context_.session);
    attempt([&] {
        const ListRow& row = selectedMeasurement(context_);
        const std::filesystem::path path = selectedMeasurementPath(context_);
        const std::array<ChartControl*, 3> controls{&yang, &yin, &all};
        for (std::size_t i = 0; i < controls.size(); ++i)
            attempt([&] {
                BuildElementPie(context_, path, row.subItem(kindColumn), *controls[i],
                                static_cast<ElementPie>(i + 1));
            });
    });
    // The pies have named the client by now.
    title.caption = orEmpty([&] { return vratNazevGrafu(context_.session, elementTitleRow); });
    subtitle.caption = subcaption(context_, kindLabel(context_));
}

void showElementWindow(EvaluationContext& context) {
    ElementWindow window(context);
    context.windows.showModal(window);
}

} // namespace vorna
