// The pictures of a pathway: its course with its direction on the whole figure, its points on the
// whole figure, its points on the parts of the body.
#pragma once

#include "content/pictures/atlas.h"

#include <QImage>

#include <map>
#include <string>
#include <vector>

namespace vorna {

// The views that show a pathway, by their names.
struct MeridianViews {
    std::vector<std::string> figures; // one or two
    std::string inset;                // small between two figures; empty: none
    std::vector<std::string> parts;   // together they show every point
};

// By meridian, out of the atlas's table meridian_views.tsv. Failure, naming the file, when it is
// faulty or names a view that there is not.
std::map<std::string, MeridianViews> readMeridianViews(const Atlas& atlas, const fs::path& file);

struct MeridianSubject {
    std::string meridian;
    std::string code; // "LU"
    MeridianViews views;
};

// The course on both sides with arrows in its direction, its first and last point named.
QImage coursePicture(const Atlas& atlas, const MeridianSubject& subject);

// The course of the left side with all its points, every fifth numbered.
QImage bodyPointsPicture(const Atlas& atlas, const MeridianSubject& subject);

// Parts of the body, side by side, with every point numbered.
QImage regionPointsPicture(const Atlas& atlas, const MeridianSubject& subject);

} // namespace vorna
