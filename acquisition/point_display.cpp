#include "acquisition/point_display.h"

#include "platform/failure.h"
#include "platform/files.h"

#include <utility>

namespace vorna {

PointDisplay::PointDisplay(Window& window)
    : pointLabel(window, "Label13"), place(window, "Label14"), chineseName(window, "Text3"),
      description(window, "Text4"), largePicture(window, "Image1"), secondPicture(window, "Image2"),
      thirdPicture(window, "Image3"), clickHint(window, "Label2") {}

void PointDisplay::show(Session& session, int sada, const SetPoint& point, int largeCounter) {
    const SetPointTexts texts = setPointTexts(session, point.runPlace, sada, point.pictureName);
    pointLabel.caption = texts.label;
    place.caption = texts.place;
    chineseName.text = texts.chinese;
    description.text = texts.description;
    const std::array<int, 3> folders = pictureArrangement(largeCounter);
    const std::array<Picture*, 3> places{&largePicture, &secondPicture, &thirdPicture};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const fs::path file = setPicturePath(session, sada, folders[i], point.pictureName);
        std::error_code error;
        places[i]->path = fs::is_regular_file(file, error) ? pathText(file) : std::string{};
        places[i]->caption = texts.label;
    }
}

} // namespace vorna
