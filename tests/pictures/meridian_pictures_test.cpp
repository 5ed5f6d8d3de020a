// The pictures of the pathways, drawn from the atlas that is shipped.
#include "content/pictures/meridian_pictures.h"
#include "content/pictures/palette.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

// How many pixels of a row's first ones have the colour of the heading.
int headingPixels(const QImage& image, int row) {
    constexpr int reach = 140;
    int count = 0;
    for (int x = 0; x < reach; ++x)
        if (image.pixelColor(x, row) == palette::accent)
            ++count;
    return count;
}

TEST(MeridianPictures, NoViewCoversTheHeading) {
    const fs::path folder = fs::path(VORNA_TEST_SOURCE) / "installation" / "atlas";
    const Atlas atlas(folder);
    const auto meridians = readMeridianViews(atlas, folder / "meridian_views.tsv");
    // The views of these pictures have skin in their upper left corner.
    for (const char* meridian : {"01", "05", "09"}) {
        const QImage image = regionPointsPicture(
            atlas, {.meridian = meridian, .code = "HT", .views = meridians.at(meridian)});
        // The upper and the lower edge of the heading's box are lines equally long.
        int upper = 0;
        int lower = 0;
        for (int row = 0; row < 50; ++row) {
            upper = std::max(upper, headingPixels(image, row));
            lower = std::max(lower, headingPixels(image, 80 + row));
        }
        EXPECT_GT(upper, 60) << meridian;
        EXPECT_EQ(lower, upper) << meridian;
    }
}

} // namespace
} // namespace vorna
