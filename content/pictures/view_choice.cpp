#include "content/pictures/view_choice.h"

#include "content/table_source.h"
#include "core/number.h"

#include <QLineF>

#include <algorithm>

namespace vorna {
namespace {

// The distance to the next outline of the body, in units of the view.
double distanceFromOutline(const AtlasView& view, const QPointF& at) {
    double least = view.canvas.width();
    for (const DrawnShape& shape : view.drawing) {
        if (shape.layer != Layer::Skin)
            continue;
        for (const QPolygonF& line : shape.path.toSubpathPolygons())
            for (const QPointF& corner : line)
                least = std::min(least, QLineF(at, corner).length());
    }
    return least;
}

std::string columnOf(ViewUse use) {
    switch (use) {
    case ViewUse::Close:
        return "close";
    case ViewUse::Region:
        return "region";
    default:
        return "body";
    }
}

constexpr std::array allUses{ViewUse::Close, ViewUse::Region, ViewUse::Body};

} // namespace

ViewChoice::ViewChoice(const Atlas& atlas, const fs::path& folder) : atlas_(atlas) {
    readRanks(folder / "views.tsv");
    readChosen(folder / "chosen_views.tsv");
}

void ViewChoice::readRanks(const fs::path& file) {
    const TableSource table = readTable(file);
    for (const SourceRow& row : table.rows) {
        const auto number = [&](const std::string& column) {
            return numberOfDecimalText(table.text(row, column));
        };
        Rank rank{.cun = number("cun"), .closeWidth = number("closeCun") * number("cun")};
        for (const ViewUse use : allUses)
            rank.of[use] = number(columnOf(use));
        const std::string view = table.text(row, "view");
        naming(file, [&] { ranks_[atlas_.view(view).name] = rank; });
    }
    for (const auto& [name, view] : atlas_.views())
        if (!ranks_.contains(name))
            failAt(table.header, "the view " + name + " has no row");
}

void ViewChoice::readChosen(const fs::path& file) {
    const TableSource table = readTable(file);
    for (const SourceRow& row : table.rows) {
        const std::string point = table.text(row, "pointLong");
        for (const ViewUse use : allUses) {
            const std::string view = table.text(row, columnOf(use));
            if (view.empty())
                continue;
            if (!naming(file, [&] { return atlas_.view(view).points.contains(point); }))
                failAt(table.placeOf(row), "the view " + view + " does not show the point");
            chosen_[use][point] = view;
        }
    }
}

double ViewChoice::merit(const AtlasView& view, const std::string& pointLong, ViewUse use) const {
    const auto place = view.points.find(pointLong);
    const Rank& rank = ranks_.at(view.name);
    if (place == view.points.end() || rank.of.at(use) <= 0)
        return 0;
    constexpr double faceOn = 1000;
    constexpr double rankWeight = 100; // cun from the outline are never as many
    return (place->second.edge ? 0 : faceOn) + rankWeight * rank.of.at(use) +
           distanceFromOutline(view, place->second.at) / rank.cun;
}

const AtlasView& ViewChoice::viewOf(const std::string& pointLong, ViewUse use) const {
    const auto chosen = chosen_.find(use);
    if (chosen != chosen_.end())
        if (const auto found = chosen->second.find(pointLong); found != chosen->second.end())
            return atlas_.view(found->second);
    const AtlasView* best = nullptr;
    double most = 0;
    for (const auto& [name, view] : atlas_.views())
        if (const double worth = merit(view, pointLong, use); worth > most) {
            most = worth;
            best = &view;
        }
    if (best == nullptr)
        throw Failure("the atlas does not show the point " + pointLong);
    return *best;
}

double ViewChoice::closeWidth(const AtlasView& view) const {
    return ranks_.at(view.name).closeWidth;
}

} // namespace vorna
