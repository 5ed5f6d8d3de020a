// The list of pictures to draw: each once, under all the names by which it is looked up.
#pragma once

#include "content/pictures/point_pictures.h"

#include <QImage>

#include <functional>
#include <string>
#include <vector>

namespace vorna {

// What a job draws with; one for each thread.
struct PictureTools {
    const Atlas& atlas;
    PointPainter points;
};

struct PictureJob {
    // Relative to the installation folder, with slashes; the extension tells the format. The first
    // is the file, the others are further names of it.
    std::vector<std::string> names;
    std::function<QImage(PictureTools&)> draw;
};

} // namespace vorna
