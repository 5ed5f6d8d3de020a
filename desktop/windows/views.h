// Which view shows which window. Each is made from its view model and bound to it.
#pragma once

#include "desktop/desktop_windows.h"

#include <memory>

namespace vorna {

struct BalanceWindow;
struct ChartWindow;
struct ElementWindow;
struct InfoPanel;
struct MeasurementWizard;
struct PictureWindow;
struct QuadrantWindow;
struct RecommendationWindow;

// Null for a window that has no view.
std::unique_ptr<WindowView> makeView(const Session& session, Window& window);

std::unique_ptr<WindowView> makeWizardView(const Session& session, MeasurementWizard& window);
std::unique_ptr<WindowView> makeChartView(const Session& session, ChartWindow& window);
std::unique_ptr<WindowView> makeBalanceView(const Session& session, BalanceWindow& window);
std::unique_ptr<WindowView> makeElementView(const Session& session, ElementWindow& window);
std::unique_ptr<WindowView> makeQuadrantView(const Session& session, QuadrantWindow& window);
std::unique_ptr<WindowView> makeRecommendationView(const Session& session,
                                                   RecommendationWindow& window);
std::unique_ptr<WindowView> makeInfoView(const Session& session, InfoPanel& window);
std::unique_ptr<WindowView> makePictureWindowView(const Session& session, PictureWindow& window);

} // namespace vorna
