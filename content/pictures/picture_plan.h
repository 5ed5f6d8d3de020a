// All pictures of an installation: which there are, by which names, and how each is drawn. The
// names come from the same patterns by which the system looks the pictures up.
#pragma once

#include "content/pictures/meridian_pictures.h"
#include "content/pictures/picture_job.h"
#include "content/pictures/reference_texts.h"

#include <vector>

namespace vorna {

// The pictures of points and sets, of meridians, of the teaching tab, and the emblems. The texts
// must outlive the jobs. Failure when a set asks for a point that there is not.
std::vector<PictureJob> picturePlan(const ReferenceTexts& texts,
                                    const std::map<std::string, MeridianViews>& views);

} // namespace vorna
