// The list of all pictures, against what the tables call for.
#include "content/pictures/picture_plan.h"
#include "platform/failure.h"

#include <gtest/gtest.h>

#include <set>

namespace vorna {
namespace {

fs::path sources() {
    return fs::path(VORNA_TEST_SOURCE) / "installation";
}

class PicturePlanTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<PictureJob> plan() const {
        const Atlas atlas(sources() / "atlas");
        return picturePlan(texts,
                           readMeridianViews(atlas, sources() / "atlas" / "meridian_views.tsv"));
    }

    ReferenceTexts texts = readReferenceTexts(sources());
};

TEST_F(PicturePlanTest, DrawsEachOnceUnderNamesOfItsOwn) {
    const std::vector<PictureJob> jobs = plan();
    std::set<std::string> all;
    for (const PictureJob& job : jobs)
        for (const std::string& name : job.names)
            EXPECT_TRUE(all.insert(name).second) << name;
    // Two kinds of two sides of each point in two modes, three of each place of a set.
    EXPECT_EQ(all.size(), 361U * 2 * 2 * 2 + 4 * 24 * 3 * 2 + 14 * 3 * 2 + (4 * 3 + 1) * 2 + 6);
    EXPECT_LT(jobs.size(), all.size() / 2) << "the modes share their pictures";
}

TEST_F(PicturePlanTest, SetsShareThePicturesOfTheirPointsAndSides) {
    const auto sharesOne = [jobs = plan()](const std::string& a, const std::string& b) {
        for (const PictureJob& job : jobs) {
            const std::set<std::string> of(job.names.begin(), job.names.end());
            if (of.contains(a))
                return of.contains(b);
        }
        return false;
    };
    const std::string tcm = "rezim/tcm/";
    const std::string apm = "rezim/apm/";
    EXPECT_TRUE(sharesOne(tcm + "obr2/01090K.jpg", apm + "sady/1/pic/1/01110109.jpg"));
    EXPECT_TRUE(sharesOne(tcm + "obr2/01091F.jpg", tcm + "sady/1/pic/2/01120109.jpg"));
    EXPECT_TRUE(sharesOne(tcm + "obr2/14030F.jpg", tcm + "obr2/14031F.jpg")) << "the midline";
    EXPECT_FALSE(sharesOne(tcm + "obr2/01090K.jpg", tcm + "obr2/01091K.jpg"));
    EXPECT_FALSE(sharesOne(tcm + "sady/1/pic/3/01110109.jpg", tcm + "sady/1/pic/3/01120109.jpg"));
}

TEST_F(PicturePlanTest, RefusesASetWithAPointThatThereIsNot) {
    texts.setRows.push_back({.sada = 1, .extIndex = "0111", .pointLong = "0199"});
    EXPECT_THROW(plan(), Failure);
}

} // namespace
} // namespace vorna
