#include "clients/info_panel.h"
#include "clients/knowledge_library.h"
#include "clients/picture_window.h"
#include "tests/clients/client_desk.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// Notes what a detail or picture window shows, pictures without their folders.
struct LookingHost final : WindowHost {
    void showModal(Window& window) override {
        if (const auto* const panel = dynamic_cast<const InfoPanel*>(&window))
            shown.push_back(fs::path(panel->picture.path.get()).filename().string() + "|" +
                            fs::path(panel->secondPicture.path.get()).filename().string() + "|" +
                            panel->name.text.get() + "|" + panel->kind.text.get() + "|" +
                            panel->description.text.get() + "|" +
                            panel->shortDescription.text.get() + "|" + panel->view.caption.get() +
                            "|" + panel->china.caption.get() + "|" + panel->caption());
        else if (const auto* const picture = dynamic_cast<const PictureWindow*>(&window))
            shown.push_back(fs::path(picture->picture.path.get()).filename().string());
    }
    Texts shown;
};

struct Library {
    Library() {
        desk.place.openReference();
        bindLibrary(desk.place.session, tab);
    }
    void addPicture(const std::string& name) {
        desk.place.folder.write("installation/rezim/tcm/obr2/" + name, "");
    }

    ClientDesk desk;
    LookingHost windows;
    LibraryTab tab{desk.window};
    LibraryContext context{desk.place.session, desk.seams.platform, windows, tab};
};

TEST(KnowledgeLibrary, TheGridsShowMeridiansAndTheirPoints) {
    Library library;
    ASSERT_EQ(library.tab.meridianGrid.size(), 2U);
    EXPECT_EQ(library.tab.meridianGrid.row(1).text, "02");
    EXPECT_EQ(library.tab.meridianGrid.row(1).sub,
              (Texts{"Dráha tlustého střeva", "TS", "dřevo", "jang"}));
    EXPECT_FALSE(library.tab.showApm.visible);
    ASSERT_EQ(library.tab.pointGrid.size(), 3U) << "all points at first, without their elements";
    EXPECT_EQ(library.tab.pointGrid.row(1).sub, (Texts{"11", "", "U nehtu"}));

    library.tab.meridianGrid.selected = 0;
    changeMeridian(library.context);
    EXPECT_EQ(library.tab.meridianBox.text.get(), "01 Dráha plic");
    EXPECT_EQ(library.tab.chinaBox.text.get(), "肺");
    ASSERT_EQ(library.tab.pointGrid.size(), 2U);
    EXPECT_EQ(library.tab.pointGrid.row(1).sub, (Texts{"11", "dřevo", "U nehtu"}));
    library.tab.pointGrid.selected = 1;
    changePoint(library.context);
    EXPECT_EQ(library.tab.pointTypesBox.text.get(), "Studna, Pramen");
    EXPECT_EQ(library.tab.pointBox.text.get(), "11");
}

TEST(KnowledgeLibrary, AMissingPictureOpensNothing) {
    Library library;
    const auto pressAll = [&] {
        showApmMeridian(library.context);
        showTcmMeridian(library.context);
        pressPointButton(library.context, pointPicturesColumn);
        pressPointButton(library.context, printListColumn);
        showTeachingPicture(library.context, "hvezdice");
        showPentagram(library.context);
    };
    pressAll();
    library.tab.meridianGrid.selected = 0;
    changeMeridian(library.context);
    library.tab.pointGrid.selected = 1;
    library.addPicture("M01TCM-0.jpg");
    library.addPicture("01110F.jpg");
    pressAll();
    EXPECT_TRUE(library.windows.shown.empty());
    EXPECT_EQ(library.tab.printList.size(), 0U);

    for (const char* const name :
         {"m01apm-01.JPG", "M01tcm-1 side.jpg", "01110K1.jpg", "lang/hvezdice1.jpg",
          "lang/EnergyPentagram1.jpg", "M011apm-0.jpg"})
        library.addPicture(name);
    pressAll();
    EXPECT_EQ(library.windows.shown,
              (Texts{"m01apm-01.JPG||01 Dráha plic|Element: kov|popis|krátce|APM|肺|",
                     "M01TCM-0.jpg|M01tcm-1 side.jpg|01 Dráha plic|Element: kov||krátce|TCM|肺|",
                     "01110F.jpg|01110K1.jpg|P11|Studna, Pramen|U nehtu|||少商|少商",
                     "hvezdice1.jpg", "EnergyPentagram1.jpg"}));
}

TEST(KnowledgeLibrary, ThePrintListHoldsFivePoints) {
    Library library;
    library.tab.pointGrid.selected = 1;
    library.addPicture("01110F.jpg");
    library.addPicture("01110K.jpg");
    library.desk.place.session.modeFolder =
        library.desk.place.session.modeFolder.parent_path() / "TCM";
    for (int i = 0; i < 5; ++i)
        pressPointButton(library.context, printListColumn);
    EXPECT_EQ(library.tab.printList.size(), 0U) << "the folder has another name";
    library.desk.place.session.modeFolder = library.desk.place.session.appFolder / "rezim" / "tcm";
    for (int i = 0; i < 6; ++i)
        pressPointButton(library.context, printListColumn);
    EXPECT_EQ(library.tab.printList.size(), 5U);
    EXPECT_EQ(library.desk.seams.dialogs.shown, Texts{"message: full"});
    const ListRow& row = library.tab.printList.row(0);
    EXPECT_EQ(row.text, "0111");
    EXPECT_EQ(row.sub[0],
              "file://" + pathText(library.desk.place.session.modeFolder) + "/obr2/01110F.jpg");
    library.tab.printList.selected = 4;
    removeFromPrintList(library.context);
    EXPECT_EQ(library.tab.printList.size(), 4U);
    removeFromPrintList(library.context);
    EXPECT_EQ(library.tab.printList.size(), 4U) << "nothing is selected";
}

} // namespace
} // namespace vorna
