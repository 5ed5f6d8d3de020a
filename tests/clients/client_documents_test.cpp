#include "clients/client_documents.h"
#include "tests/clients/client_desk.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(ClientDocuments, AreMadeFromTheirTemplatesOnce) {
    ClientDesk desk;
    const auto& opened = desk.seams.opener.opened;
    openAnamnesis(desk.place.session, desk.seams.platform);
    openTodaysRecommendation(desk.place.session, desk.seams.platform, desk.measurements);
    openSelectedDocument(desk.place.session, desk.seams.platform, desk.measurements);
    EXPECT_TRUE(opened.empty()) << "nobody is selected";
    EXPECT_TRUE(fs::is_empty(desk.place.session.clientsFolder));

    desk.place.useClient("a1");
    openAnamnesis(desk.place.session, desk.seams.platform);
    const std::string anamnesis = pathText(desk.folderOf("a1") / "anamneza.rtf");
    EXPECT_EQ(desk.seams.dialogs.shown, Texts{"message: Unable to open " + anamnesis})
        << "there is no template";

    desk.place.folder.write("VORNA/anamneza.rtf", "{\\rtf1 first}");
    desk.place.folder.write("VORNA/doporuceni.rtf", "{\\rtf1 second}");
    desk.place.folder.write("VORNA/data/a1/D250130.rtf", "yesterday");
    openAnamnesis(desk.place.session, desk.seams.platform);
    openTodaysRecommendation(desk.place.session, desk.seams.platform, desk.measurements);
    ASSERT_EQ(desk.measurements.documents.size(), 2U);
    EXPECT_EQ(desk.measurements.documents.row(0).text, "D250131.rtf") << "the newest on top";
    desk.place.folder.write("VORNA/data/a1/D250131.rtf", "edited");
    openTodaysRecommendation(desk.place.session, desk.seams.platform, desk.measurements);
    desk.measurements.documents.selected = 1;
    openSelectedDocument(desk.place.session, desk.seams.platform, desk.measurements);
    const fs::path folder = desk.folderOf("a1");
    EXPECT_EQ(opened, (std::vector<fs::path>{folder / "anamneza.rtf", folder / "D250131.rtf",
                                             folder / "D250131.rtf", folder / "D250130.rtf"}));
    EXPECT_EQ(readWholeFile(folder / "anamneza.rtf"), "{\\rtf1 first}");
    EXPECT_EQ(readWholeFile(folder / "D250131.rtf"), "edited");
    EXPECT_EQ(desk.seams.dialogs.shown.size(), 1U);
}

} // namespace
} // namespace vorna
