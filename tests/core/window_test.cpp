#include "core/session.h"
#include "core/window.h"
#include "platform/failure.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

struct ArrayWindow final : Window {
    ArrayWindow() : Window("Form1") {}
    Button first{*this, "tlac", 0};
    Button second{*this, "tlac", 1};
    ListView list{*this, "ListView1"};
};

TEST(Window, ControlsAreFoundByNameAndPlaceInTheirArray) {
    const ArrayWindow window;
    EXPECT_EQ(window.find("tlac", 1), &window.second);
    EXPECT_EQ(window.find("ListView1"), &window.list);
    EXPECT_EQ(window.find("tlac"), nullptr) << "an array's member needs its index";
    EXPECT_EQ(window.find("tlac", 2), nullptr);
    EXPECT_EQ(window.controls().front(), &window.first) << "the control order";
}

TEST(Window, AListKeepsItsSelectionInBounds) {
    ArrayWindow window;
    ListView& list = window.list;
    list.setRows({{.text = "a"}, {.text = "b"}});
    EXPECT_EQ(list.selectedRow(), nullptr);
    list.selected = 1;
    ASSERT_NE(list.selectedRow(), nullptr);
    EXPECT_EQ(list.selectedRow()->text, "b");
    for (const int row : {-1, -2, 2}) {
        list.selected = row;
        EXPECT_EQ(list.selectedRow(), nullptr) << row;
    }
    list.change(0, [](ListRow& row) { row.setSubItem(3, "č"); });
    EXPECT_EQ(list.rows()[0].subItem(3), "č");
    EXPECT_EQ(list.rows()[0].subItem(1), "");
    EXPECT_EQ(list.rows()[0].subItem(4), "");
    EXPECT_THROW(list.change(2, [](ListRow&) {}), Failure);
    EXPECT_THROW(list.remove(2), Failure);
    list.selected = 1;
    list.remove(0);
    EXPECT_EQ(list.selectedRow(), nullptr) << "a removal drops the selection";
    list.selected = 0;
    list.setRows(list.rows());
    EXPECT_EQ(list.selectedRow(), nullptr) << "as new rows do";
}

TEST(Session, AClientsFileStaysInTheClientsFolder) {
    Session session{.clientsFolder = "/home/data", .currentClientFolder = "a826541203,5"};
    EXPECT_EQ(currentClientFile(session, "x~O'Neil^A.daf"),
              "/home/data/a826541203,5/x~O'Neil^A.daf");
    for (const char* const name : {"../x.daf", "..", "a/b", "a\\b", "C:x", ""})
        EXPECT_THROW(static_cast<void>(currentClientFile(session, name)), Failure) << name;
    for (const char* const folder : {"..", "../..", "/etc"}) {
        session.currentClientFolder = folder;
        EXPECT_THROW(static_cast<void>(currentClientFile(session, "x.daf")), Failure) << folder;
    }
}

TEST(MaskedBox, TakesWhatItsMaskHasRoomFor) {
    Window window("Form1");
    MaskedBox box(window, "MaskEdBox1", "##.##.####");
    const std::pair<const char*, const char*> cases[] = {
        {"", "__.__.____"},           {"12.02.1978", "12.02.1978"}, {"12021978", "12.02.1978"},
        {"1.2.1980", "1_.2_.1980"},   {"_5.12.1980", "_5.12.1980"}, {"__.__.19_5", "__.__.19_5"},
        {".1978", "__.19.78__"},      {"x1y", "1_.__.____"},        {"12.02.19789", "12.02.1978"},
        {"12.3.4.5.6", "12.3_.456_"}, {"#1", "1_.__.____"},         {"____________", "__.__.____"},
    };
    for (const auto& [typed, taken] : cases) {
        box.type(typed);
        EXPECT_EQ(box.text.get(), taken) << typed;
    }
}

} // namespace
} // namespace vorna
