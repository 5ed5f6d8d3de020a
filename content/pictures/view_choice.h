// Which of the atlas's views shows a point best: closely, with its whole region, on the whole body.
#pragma once

#include "content/pictures/atlas.h"

#include <map>
#include <string>

namespace vorna {

enum class ViewUse { Close, Region, Body };

// A point is taken from the view of the highest rank that does not show it at the rim only; among
// equals from that in which it lies farthest from the outline, so that it faces the reader. The
// ranks stand in views.tsv, and the points for which the rule does not find the customary view in
// chosen_views.tsv.
class ViewChoice {
public:
    // The atlas must outlive the choice. Failure, naming the file, when a table is faulty.
    ViewChoice(const Atlas& atlas, const fs::path& folder);

    // Failure when no view shows the point.
    [[nodiscard]] const AtlasView& viewOf(const std::string& pointLong, ViewUse use) const;

    // How wide a close-up of the view is, in its units.
    [[nodiscard]] double closeWidth(const AtlasView& view) const;

private:
    struct Rank {
        std::map<ViewUse, double> of; // 0: not for this use
        double cun = 1;               // units of the view
        double closeWidth = 0;
    };
    void readRanks(const fs::path& file);
    void readChosen(const fs::path& file);
    [[nodiscard]] double merit(const AtlasView& view, const std::string& pointLong,
                               ViewUse use) const;

    const Atlas& atlas_;
    std::map<std::string, Rank> ranks_; // by the view's name
    std::map<ViewUse, std::map<std::string, std::string>> chosen_;
};

} // namespace vorna
