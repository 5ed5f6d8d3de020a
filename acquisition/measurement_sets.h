// The measurement sets: which 24 points a measurement of one kind consists of, in which order they
// are taken, in which slot of the file each lands, and where it stands on charts. Three numberings
// exist and must not be mixed: the place in the run, the slot in the file, the place on a chart.
#pragma once

#include "core/session.h"

#include <array>
#include <string>
#include <string_view>

namespace vorna {

// The set of each kind: P, T, B, E.
inline constexpr int setP = 1;
inline constexpr int setT = 2;
inline constexpr int setB = 3;
inline constexpr int setE = 4;

// By which of its numbers a point of a set is looked up.
enum class SetKey { Slot = 0, RunPlace = 1, ChartPlace = 2 };

enum class PointField {
    ExtIndex = 1,
    Label = 2, // short name and point number
    Description = 3,
    Place = 4, // on the body
    ShortName = 5,
    Slot = 6,
    Meridian = 7,    // of charts only
    ElementName = 8, // of charts only
};

// One field of a point of a set, as text; empty when there is no such point or field.
std::string lookupSetPoint(Session& session, int key, int sada, PointField field, SetKey keyKind);

// One field of the point at a place of a chart order; empty when there is none. Chart 3 is keyed
// by its twelve element entries, charts 9 to 12 by the column pair, all others by the 24 places.
std::string lookupChartPoint(Session& session, int position, int kind, PointField field, int graf);

// The slot of a meridian on side 0; Failure when the set has none.
std::string vratCisloUlozeni(Session& session, std::string_view meridian, int sada);

// A slot's text as a number 1 to 24. Failure for any other text, the empty one too.
std::size_t slotOfText(std::string_view text);

// The pictures of a set's 24 points, by run place ([0] unused): each name stands in all three
// picture folders. Empty where there is none.
std::array<std::string, 25> findSetPictures(Session& session, int sada);

// Which picture folder (1 to 3) stands in the large, the second and the third place, for the
// counter 1 to 3 of the large picture.
std::array<int, 3> pictureArrangement(int largePicture);
// The counter after a click on the picture in the second or third place.
int largePictureAfterSecondClick(int largePicture);
int largePictureAfterThirdClick(int largePicture);

// The file of a point's picture in one of the three folders of its set.
std::filesystem::path setPicturePath(const Session& session, int sada, int folder,
                                     std::string_view pictureName);

// What is shown of the point at a run place.
struct SetPointTexts {
    std::string label;
    std::string description;
    std::string place;   // place on the body and side
    std::string chinese; // from the picture's name; empty without a picture
};
SetPointTexts setPointTexts(Session& session, int runPlace, int sada, std::string_view pictureName);

} // namespace vorna
