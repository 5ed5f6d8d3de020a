#include "desktop/windows/views.h"

#include "acquisition/measurement_wizard.h"
#include "clients/info_panel.h"
#include "clients/picture_window.h"
#include "evaluation/balance_window.h"
#include "evaluation/chart_window.h"
#include "evaluation/element_window.h"
#include "evaluation/quadrant_window.h"
#include "recommendation/recommendation_window.h"

namespace vorna {
namespace {

using View = std::unique_ptr<WindowView>;

template <class T>
bool make(const Session& session, Window& window, View (*maker)(const Session&, T&), View& view) {
    auto* const model = dynamic_cast<T*>(&window);
    if (model == nullptr)
        return false;
    view = maker(session, *model);
    return true;
}

} // namespace

View makeView(const Session& session, Window& window) {
    View view;
    static_cast<void>(make(session, window, &makeWizardView, view) ||
                      make(session, window, &makeChartView, view) ||
                      make(session, window, &makeBalanceView, view) ||
                      make(session, window, &makeElementView, view) ||
                      make(session, window, &makeQuadrantView, view) ||
                      make(session, window, &makeRecommendationView, view) ||
                      make(session, window, &makeInfoView, view) ||
                      make(session, window, &makePictureWindowView, view));
    return view;
}

} // namespace vorna
