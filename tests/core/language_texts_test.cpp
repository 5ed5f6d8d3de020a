#include "core/language_texts.h"
#include "core/window.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(LanguageTexts, ALookupReturnsWhatTheFileSaysNow) {
    const ScratchFolder folder;
    const fs::path file = folder / "lang1.ini";
    LanguageTexts texts;
    EXPECT_EQ(texts.value("other", "t1"), "") << "no file named yet";
    texts.setFile(file, false);
    EXPECT_EQ(texts.value("other", "t1"), "") << "the file is missing";

    folder.write("lang1.ini", "[other]\nt103=Klienti\nT103=later\n100=Pie\n[Form1]\nt1=no\n"
                              "t2=" +
                                  std::string(300, 'x') + "\n");
    EXPECT_EQ(texts.value("Other", "T103"), "Klienti") << "keys fold case, the first one wins";
    EXPECT_EQ(texts.value("other", "100"), "Pie");
    EXPECT_EQ(texts.value("other", "t1"), "") << "the key of another section";
    EXPECT_EQ(texts.value("form1", "t2"), std::string(254, 'x'));

    // Of the same length, and as a copy with an older date.
    const auto changed = fs::last_write_time(file) - std::chrono::hours{1};
    folder.write("lang1.ini", "[other]\nt103=Clients\n");
    fs::last_write_time(file, changed);
    EXPECT_EQ(texts.value("other", "t103"), "Clients");
    fs::remove(file);
    EXPECT_EQ(texts.value("other", "t103"), "");

    folder.write("lang4.ini", "[other]\nt1=\xCF\xEE\xEB\n");
    texts.setFile(folder / "lang4.ini", true);
    EXPECT_EQ(texts.value("other", "t1"), "Пол") << "the Russian code page";
}

struct SampleWindow final : Window {
    SampleWindow() : Window("Form1") {}
    Button button{*this, "Command10"};
    Button unnamed{*this, "Command11"};
    TextBox box{*this, "Text1"};
    ComboBox combo{*this, "Combo2"};
    ListView list{*this, "ListView1"};
    Label first{*this, "SkinLabel20", 0};
    Label second{*this, "SkinLabel20", 1};
};

TEST(LanguageTexts, EveryControlGetsItsCaptionAndText) {
    Workplace place;
    place.folder.write("installation/lang1.ini", "[form1]\ncommand10.Caption=Uložit\n"
                                                 "Combo2.text=Vyberte\nText1.caption=no\n"
                                                 "SkinLabel20.caption=Graf\nListView1.text=no\n");
    SampleWindow window;
    window.button.caption = "old";
    window.unnamed.caption = "old";
    window.box.text = "old";
    applyLanguage(place.session, window);
    EXPECT_EQ(window.button.caption.get(), "Uložit");
    EXPECT_EQ(window.unnamed.caption.get(), "") << "a missing key blanks the caption";
    EXPECT_EQ(window.box.text.get(), "") << "a missing key clears the box";
    EXPECT_EQ(window.combo.text.get(), "Vyberte");
    EXPECT_EQ(window.first.caption.get(), "Graf");
    EXPECT_EQ(window.second.caption.get(), "Graf") << "an array's members share one text";
}

} // namespace
} // namespace vorna
