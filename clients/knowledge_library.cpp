#include "clients/knowledge_library.h"

#include "clients/info_panel.h"
#include "clients/picture_window.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdint>

namespace vorna {
namespace {

// ---- Records and rows

std::vector<MeridianRecord> readMeridians(Session& session) {
    Recordset rows = referenceDatabase(session).query(
        "select Meridians.meridianName, Meridians.china, Meridians.meridian, Meridians.description,"
        " Meridians.shortName, Elements.elementname, EnergyTypes.energy, Meridians.[descr-short]"
        " from (Meridians inner join Elements on Meridians.Element = Elements.id)"
        " inner join EnergyTypes on Meridians.Energy = EnergyTypes.id order by Meridians.meridian");
    std::vector<MeridianRecord> meridians;
    for (; !rows.atEnd(); rows.moveNext())
        meridians.push_back({.meridian = rows.textOrEmpty("meridian"),
                             .meridianName = rows.textOrEmpty("meridianName"),
                             .china = rows.textOrEmpty("china"),
                             .description = rows.textOrEmpty("description"),
                             .shortName = rows.textOrEmpty("shortName"),
                             .elementname = rows.textOrEmpty("elementname"),
                             .energy = rows.textOrEmpty("energy"),
                             .descrShort = rows.textOrEmpty("descr-short")});
    return meridians;
}

// Asks for the columns of a point, at the places where `pointRecord` reads them.
constexpr std::string_view selectPoint =
    "select Points.Meridian, Points.point, Points.pointLong, Points.descr, Points.Povel";

PointRecord pointRecord(const Recordset& row, std::string elementname) {
    enum Place : std::uint8_t { Meridian, Point, PointLong, Descr, Povel };
    return {.meridian = row.textOrEmpty(Meridian),
            .point = row.textOrEmpty(Point),
            .elementname = std::move(elementname),
            .pointLong = row.textOrEmpty(PointLong),
            .descr = row.textOrEmpty(Descr),
            .povel = row.textOrEmpty(Povel)};
}

std::vector<PointRecord> readAllPoints(Session& session) {
    Recordset rows = referenceDatabase(session).query(std::string(selectPoint) +
                                                      " from Points order by pointLong");
    std::vector<PointRecord> points;
    for (; !rows.atEnd(); rows.moveNext())
        points.push_back(pointRecord(rows, {}));
    return points;
}

std::vector<PointRecord> readPointsOf(Session& session, const std::string& meridian) {
    Recordset rows = referenceDatabase(session).query(
        std::string(selectPoint) +
            ", Elements.elementname from Points inner join Elements on Points.Povel = Elements.id"
            " where Points.Meridian = ? order by Points.point",
        {meridian});
    std::vector<PointRecord> points;
    for (; !rows.atEnd(); rows.moveNext())
        points.push_back(pointRecord(rows, rows.textOrEmpty("elementname")));
    return points;
}

void showMeridians(LibraryTab& tab, std::vector<MeridianRecord> meridians) {
    tab.meridians = std::move(meridians);
    std::vector<ListRow> rows;
    for (const MeridianRecord& one : tab.meridians)
        rows.push_back({.text = one.meridian,
                        .sub = {one.meridianName, one.shortName, one.elementname, one.energy}});
    tab.meridianGrid.setRows(std::move(rows));
}

void showPoints(LibraryTab& tab, std::vector<PointRecord> points) {
    tab.points = std::move(points);
    std::vector<ListRow> rows;
    for (const PointRecord& one : tab.points)
        rows.push_back({.text = one.meridian,
                        .sub = {one.point, one.elementname, one.descr},
                        .tag = one.pointLong});
    tab.pointGrid.setRows(std::move(rows));
}

template <class Record>
const Record& currentRecord(const DataGrid& grid, const std::vector<Record>& records) {
    const auto row = static_cast<std::size_t>(grid.selected.get());
    if (row >= records.size())
        throw Failure("a grid has no current row");
    return records[row];
}

const MeridianRecord& currentMeridian(const LibraryTab& tab) {
    return currentRecord(tab.meridianGrid, tab.meridians);
}

const PointRecord& currentPoint(const LibraryTab& tab) {
    return currentRecord(tab.pointGrid, tab.points);
}

// ---- Pictures

// The first file of the mode's pictures that matches. Failure when there is none.
std::string pictureName(const Session& session, const std::string& pattern) {
    std::string name = findFirst(under(session.modeFolder, names::libraryPictures), pattern);
    if (name.empty())
        throw Failure("a picture is missing");
    return name;
}

std::string picturePath(const Session& session, const std::string& name) {
    return pathText(under(session.modeFolder, names::libraryPictures) / name);
}

// The picture's address for a page: slashes, no drive colon, and no sign that ends an address.
std::string pictureAddress(const Session& session, const std::string& name) {
    std::string address = "file://";
    const std::string folder = pathText(session.modeFolder);
    for (const char c : (folder.starts_with('/') ? "" : "/") + folder + "/" +
                            std::string(names::libraryPictures) + "/" + name) {
        if (c == '\\')
            address += '/';
        else if (c == ':')
            address += '|';
        else if (c == '%')
            address += "%25";
        else if (c == '#')
            address += "%23";
        else if (c == '?')
            address += "%3F";
        else if (c == '"')
            address += "%22";
        else
            address += c;
    }
    return address;
}

struct PointPictures {
    std::string front;
    std::string close;
};

PointPictures pointPictures(const Session& session, const PointRecord& point) {
    return {.front = pictureName(session, names::pointPicture(point.pointLong, 'F')),
            .close = pictureName(session, names::pointPicture(point.pointLong, 'K'))};
}

void fillMeridianTexts(InfoPanel& panel, const MeridianRecord& meridian, const char* view) {
    panel.name.text = meridian.meridian + " " + meridian.meridianName;
    panel.kind.text = "Element: " + meridian.elementname;
    panel.shortDescription.text = meridian.descrShort;
    panel.view.caption = view;
    panel.china.caption = meridian.china;
}

void showPoint(LibraryContext& context) {
    Session& session = context.session;
    const PointRecord& point = currentPoint(context.tab);
    const PointPictures pictures = pointPictures(session, point);
    InfoPanel panel(session);
    panel.picture.path = picturePath(session, pictures.front);
    panel.secondPicture.path = picturePath(session, pictures.close);
    attempt([&] { panel.name.text = currentMeridian(context.tab).shortName + point.point; });
    attempt([&] { panel.kind.text = vratTypBodu(session, point.pointLong); });
    panel.description.text = point.descr;
    const std::string china = orEmpty([&] { return vratChinaBodu(session, point.pointLong); });
    panel.setCaption(china);
    panel.china.caption = china;
    context.windows.showModal(panel);
}

void addToPrintList(LibraryContext& context) {
    ListView& list = context.tab.printList;
    const PointRecord& point = currentPoint(context.tab);
    const PointPictures pictures = pointPictures(context.session, point);
    if (list.size() >= printListLength) {
        context.platform.dialogs.message(t(context.session, "t144"));
        return;
    }
    list.add({.text = point.pointLong,
              .sub = {pictureAddress(context.session, pictures.front),
                      pictureAddress(context.session, pictures.close)}});
}

void showWhenThere(LibraryContext& context, const fs::path& picture) {
    std::error_code error;
    if (fs::is_regular_file(picture, error))
        showPicture(context.session, context.windows, picture);
}

} // namespace

LibraryTab::LibraryTab(Window& window)
    : meridianGrid{window, "DataGrid1"}, meridianBox{window, "Text16"}, chinaBox{window, "Text23"},
      showApm{window, "Command27"}, showTcm{window, "Command28"}, pointGrid{window, "DataGrid2"},
      pointBox{window, "Text22"}, pointTypesBox{window, "Text19"}, star{window, "Image3"},
      pentagram{window, "Image8"}, yin{window, "Image4"}, yang{window, "Image5"},
      printList{window, "ListView3"}, printPictures{window, "Command29"} {}

void bindLibrary(Session& session, LibraryTab& tab) {
    attempt([&] { showMeridians(tab, readMeridians(session)); });
    attempt([&] { showPoints(tab, readAllPoints(session)); });
    tab.showApm.visible = session.mode == modeApm;
}

void changeMeridian(LibraryContext& context) {
    attempt([&] {
        const MeridianRecord& meridian = currentMeridian(context.tab);
        context.tab.meridianBox.text = meridian.meridian + " " + meridian.meridianName;
        context.tab.chinaBox.text = meridian.china;
        showPoints(context.tab, readPointsOf(context.session, meridian.meridian));
    });
}

void changePoint(LibraryContext& context) {
    attempt([&] {
        const PointRecord& point = currentPoint(context.tab);
        attempt([&] {
            context.tab.pointTypesBox.text = vratTypBodu(context.session, point.pointLong);
        });
        context.tab.pointBox.text = point.point;
    });
}

void showApmMeridian(LibraryContext& context) {
    attempt([&] {
        const MeridianRecord& meridian = currentMeridian(context.tab);
        const std::string picture =
            pictureName(context.session, names::meridianApmPicture(meridian.meridian));
        InfoPanel panel(context.session);
        panel.picture.path = picturePath(context.session, picture);
        fillMeridianTexts(panel, meridian, "APM");
        panel.description.text = meridian.description;
        context.windows.showModal(panel);
    });
}

void showTcmMeridian(LibraryContext& context) {
    attempt([&] {
        const MeridianRecord& meridian = currentMeridian(context.tab);
        const auto picture = [&](int number) {
            return pictureName(context.session,
                               names::meridianTcmPicture(meridian.meridian, number));
        };
        const std::string first = picture(0);
        const std::string second = picture(1);
        InfoPanel panel(context.session);
        panel.picture.path = picturePath(context.session, first);
        panel.secondPicture.path = picturePath(context.session, second);
        fillMeridianTexts(panel, meridian, "TCM");
        context.windows.showModal(panel);
    });
}

void pressPointButton(LibraryContext& context, int column) {
    attempt([&] {
        if (column == pointPicturesColumn)
            showPoint(context);
        else if (column == printListColumn)
            addToPrintList(context);
    });
}

void removeFromPrintList(LibraryContext& context) {
    ListView& list = context.tab.printList;
    attempt([&] { list.remove(static_cast<std::size_t>(list.selected.get())); });
}

void showTeachingPicture(LibraryContext& context, std::string_view stem) {
    showWhenThere(context, under(context.session.modeFolder,
                                 names::languagePicture(stem, context.session.language)));
}

void showPentagram(LibraryContext& context) {
    showWhenThere(context, under(context.session.modeFolder, names::energyPentagram));
}

} // namespace vorna
