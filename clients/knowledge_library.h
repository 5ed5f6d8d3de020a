// The library of meridians and points: two grids over the reference database, the detail window
// with their pictures, the teaching pictures, and the list of point pictures to print. A picture
// that is missing opens nothing.
#pragma once

#include "core/session.h"
#include "core/window.h"
#include "platform/platform.h"

#include <string>
#include <vector>

namespace vorna {

// The rows behind the grids.
struct MeridianRecord {
    std::string meridian;
    std::string meridianName;
    std::string china;
    std::string description;
    std::string shortName; // ends in a blank
    std::string elementname;
    std::string energy;
    std::string descrShort;
};
struct PointRecord {
    std::string meridian;
    std::string point;
    std::string elementname; // empty before a meridian was chosen
    std::string pointLong;
    std::string descr;
    std::string povel; // the number of its element, "0" for none
};

// The columns of the point grid that have buttons.
inline constexpr int printListColumn = 0;
inline constexpr int pointPicturesColumn = 1;

inline constexpr std::size_t printListLength = 5;

struct LibraryTab {
    explicit LibraryTab(Window& window);

    DataGrid meridianGrid;
    TextBox meridianBox;
    TextBox chinaBox;
    Button showApm; // in APM mode only
    Button showTcm;
    DataGrid pointGrid;
    TextBox pointBox;
    TextBox pointTypesBox;
    Picture star;
    Picture pentagram;
    Picture yin;
    Picture yang;
    ListView printList; // a point's key; its pictures' addresses are sub-items 1 and 2
    Button printPictures;

    std::vector<MeridianRecord> meridians; // by the rows of the meridian grid
    std::vector<PointRecord> points;       // by the rows of the point grid
};

// Fills the grids with all meridians and all points. Failing statements are passed over.
void bindLibrary(Session& session, LibraryTab& tab);

// What the operations work with.
struct LibraryContext {
    Session& session;
    Platform& platform;
    WindowHost& windows;
    LibraryTab& tab;
};

// Another row became the current one: the boxes below the grid follow, and behind a meridian its
// points.
void changeMeridian(LibraryContext& context);
void changePoint(LibraryContext& context);

// The current meridian in the detail window, as either school draws it.
void showApmMeridian(LibraryContext& context);
void showTcmMeridian(LibraryContext& context);

// A button in the current row of the point grid: the point's pictures, or its place in the print
// list, which holds five.
void pressPointButton(LibraryContext& context, int column);
void removeFromPrintList(LibraryContext& context);

// The teaching pictures in the session's language.
void showTeachingPicture(LibraryContext& context, std::string_view stem);
void showPentagram(LibraryContext& context);

} // namespace vorna
