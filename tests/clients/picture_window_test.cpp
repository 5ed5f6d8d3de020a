#include "clients/picture_window.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// Notes the picture of each window and closes it by its button.
struct PressingHost final : WindowHost {
    void showModal(Window& window) override {
        auto& picture = dynamic_cast<PictureWindow&>(window);
        window.load();
        shown.push_back(picture.picture.path);
        caption = picture.back.caption;
        picture.back.click();
        closed = picture.closed();
    }
    std::vector<std::string> shown;
    std::string caption;
    bool closed = false;
};

TEST(PictureWindow, StaysEmptyWithoutItsPicture) {
    Workplace place;
    place.folder.write("installation/lang1.ini", "[Form6]\nCommand4.caption=Zpět\n");
    const fs::path czech = place.folder.write("installation/rezim/tcm/obr2/Lang/Hvezdice1.JPG", "");
    PressingHost host;
    showLanguagePicture(place.session, host, "hvezdice");
    EXPECT_EQ(host.shown, std::vector<std::string>{pathText(czech)});
    EXPECT_EQ(host.caption, "Zpět");
    EXPECT_TRUE(host.closed);

    place.session.language = languageEnglish;
    showLanguagePicture(place.session, host, "hvezdice");
    showPicture(place.session, host, czech.parent_path());
    showPicture(place.session, host, {});
    const std::vector<std::string> shown{pathText(czech), "", "", ""};
    EXPECT_EQ(host.shown, shown) << "there, missing, a folder, no name";
}

} // namespace
} // namespace vorna
