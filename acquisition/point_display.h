// What the wizard shows of a point: its three pictures, of which one is large, its names and where
// it lies.
#pragma once

#include "acquisition/measurement_sets.h"
#include "core/session.h"
#include "core/window.h"

#include <array>
#include <string>

namespace vorna {

struct SetPoint {
    int runPlace = 0;
    std::string pictureName; // empty when there is none
};

struct PointDisplay {
    explicit PointDisplay(Window& window);

    Label pointLabel; // short name and number
    Label place;      // on the body, and side
    TextBox chineseName;
    TextBox description;
    Picture largePicture;
    Picture secondPicture; // a click on it or on the third makes it the large one
    Picture thirdPicture;
    Label clickHint;

    // Shows a point of a set; what is missing leaves its place empty. `largeCounter`, 1 to 3, is
    // the picture folder of the large place.
    void show(Session& session, int sada, const SetPoint& point, int largeCounter);
};

} // namespace vorna
