#include "acquisition/measurement_sets.h"
#include "core/reference_database.h"
#include "tests/support/workplace.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

class MeasurementSetsTest : public ::testing::Test {
protected:
    void SetUp() override {
        place.openReference();
        nastavJazyk(referenceDatabase(session), languageCzech);
    }

    Workplace place;
    Session& session = place.session;
};

TEST_F(MeasurementSetsTest, APointIsFoundByEachOfItsThreeNumbers) {
    struct Case {
        const char* rule;
        SetKey keyKind;
        int key, sada;
        PointField field;
        const char* value;
    };
    // In set 1, slot 14 is run place 4 and chart place 11; its meridian is 02.
    const Case cases[] = {
        {"by slot", SetKey::Slot, 14, 1, PointField::Label, "TS/LI 4"},
        {"by run place", SetKey::RunPlace, 4, 1, PointField::Slot, "14"},
        {"by chart place", SetKey::ChartPlace, 11, 1, PointField::Slot, "14"},
        {"the short name ends in its blank", SetKey::Slot, 1, 1, PointField::ShortName, "P/LU "},
        {"description", SetKey::Slot, 1, 1, PointField::Description, "Na zápěstí"},
        {"place", SetKey::Slot, 1, 1, PointField::Place, "ruka"},
        {"pictures' key", SetKey::RunPlace, 2, 1, PointField::ExtIndex, "0132"},
        {"a slot means nothing without its set", SetKey::Slot, 5, 2, PointField::Label, "P/LU 11"},
        {"sets have their own run places", SetKey::RunPlace, 1, 2, PointField::Slot, "5"},
        {"no such point", SetKey::Slot, 6, 2, PointField::Slot, ""},
        {"no such key", SetKey::RunPlace, 25, 1, PointField::Slot, ""},
        {"a field of charts only", SetKey::Slot, 1, 1, PointField::Meridian, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(lookupSetPoint(session, c.key, c.sada, c.field, c.keyKind), c.value) << c.rule;
}

TEST_F(MeasurementSetsTest, AChartAsksByItsOwnPlaces) {
    struct Case {
        const char* rule;
        int position, kind, graf;
        PointField field;
        const char* value;
    };
    const Case cases[] = {
        {"by one of 24 places", 2, 1, 1, PointField::Slot, "14"},
        {"element of the meridian", 2, 1, 1, PointField::ElementName, "dřevo"},
        {"by the pair of columns, the first of it", 3, 1, 9, PointField::Slot, "2"},
        {"a pair is no place", 1, 1, 9, PointField::Slot, ""},
        {"by element entry, whatever the kind", 1, 9, 3, PointField::Meridian, "02"},
        {"no such place", 3, 1, 1, PointField::Slot, ""},
        {"no such kind", 1, 2, 1, PointField::Slot, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(lookupChartPoint(session, c.position, c.kind, c.field, c.graf), c.value)
            << c.rule;
    EXPECT_EQ(vratCisloUlozeni(session, "02", 1), "2") << "side 0";
    EXPECT_THROW(vratCisloUlozeni(session, "02", 2), Failure);
    EXPECT_THROW(vratCisloUlozeni(session, "0'", 1), Failure);
}

TEST(MeasurementSets, OnlyNumbersFrom1To24AreSlots) {
    EXPECT_EQ(slotOfText("1"), 1U);
    EXPECT_EQ(slotOfText(" 24"), 24U);
    for (const char* const text : {"", "0", "25", "-1", "1e9", "nan", "x"})
        EXPECT_THROW(static_cast<void>(slotOfText(text)), Failure) << text;
}

TEST(MeasurementSets, AClickBringsTheOtherPictureIntoTheLargePlace) {
    struct Case {
        int counter;
        std::array<int, 3> folders;
        int afterSecond, afterThird;
    };
    for (const Case& c :
         {Case{1, {1, 2, 3}, 2, 3}, Case{2, {2, 1, 3}, 1, 3}, Case{3, {3, 1, 2}, 1, 2}}) {
        EXPECT_EQ(pictureArrangement(c.counter), c.folders) << c.counter;
        const int second = largePictureAfterSecondClick(c.counter);
        const int third = largePictureAfterThirdClick(c.counter);
        EXPECT_EQ(second, c.afterSecond) << c.counter;
        EXPECT_EQ(third, c.afterThird) << c.counter;
        EXPECT_EQ(pictureArrangement(second)[0], c.folders[1]) << c.counter;
        EXPECT_EQ(pictureArrangement(third)[0], c.folders[2]) << c.counter;
    }
}

TEST_F(MeasurementSetsTest, PicturesBeginWithThePointsKey) {
    for (const char* const name : {"00110109b.jpg", "00110109a.jpg", "01320109.JPG", "x0021.jpg"})
        place.folder.write(std::string("installation/rezim/tcm/Sady/1/PIC/1/") + name, "");
    const std::array<std::string, 25> pictures = findSetPictures(session, 1);
    EXPECT_EQ(pictures[1], "00110109a.jpg") << "the first that matches";
    EXPECT_EQ(pictures[2], "01320109.JPG");
    EXPECT_EQ(pictures[3], "");
    EXPECT_EQ(findSetPictures(session, 3)[1], "") << "no such set";
    EXPECT_EQ(pathText(setPicturePath(session, 1, 1, pictures[1]).filename()), "00110109a.jpg");
}

TEST_F(MeasurementSetsTest, TheTextsOfAPointEndWithItsSide) {
    SetPointTexts texts = setPointTexts(session, 2, 1, "01320109.jpg");
    EXPECT_EQ(texts.label, "P/LU 9");
    EXPECT_EQ(texts.description, "Na zápěstí");
    EXPECT_EQ(texts.place, "ruka vpravo");
    EXPECT_EQ(texts.chinese, "太淵");
    EXPECT_EQ(setPointTexts(session, 2, 1, "").chinese, "") << "no picture";
    texts = setPointTexts(session, 25, 1, "");
    EXPECT_EQ(texts.label + texts.description + texts.place, "") << "no row";
}

} // namespace
} // namespace vorna
