#include "acquisition/free_measurement.h"
#include "acquisition/measurement_wizard.h"
#include "acquisition/reading_line.h"
#include "platform/files.h"
#include "tests/support/probe_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace vorna {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MeasurementWizardTest : public ::testing::Test {
protected:
    MeasurementRecord saved() {
        const std::vector<std::string> files = desk.clientFiles();
        EXPECT_EQ(files.size(), 1U);
        return files.empty() ? MeasurementRecord{}
                             : readMeasurement(currentClientFile(desk.session, files.front()));
    }
    std::string pictureFolder(int folder) {
        return "installation/rezim/tcm/sady/1/pic/" + std::to_string(folder) + "/";
    }

    ProbeDesk desk;
    int refreshed = 0;
    std::string clientLabel = "Žák_Jan";
    WizardContext context{desk.session, desk.platform, desk.link,
                          [this] {
                              if (clientLabel.empty())
                                  throw Failure("no client is selected");
                              return clientLabel;
                          },
                          [this] { ++refreshed; }};
};

TEST_F(MeasurementWizardTest, TheKindChoosesTheSetThatIsLoaded) {
    MeasurementWizard wizard(context, setT);
    wizard.load();
    EXPECT_THAT(wizard.setChooser.rows.get(), ElementsAre("t126", "t127", "t128", "t145"));
    EXPECT_EQ(wizard.setChooser.index, 1);
    EXPECT_EQ(wizard.caption(), "t127");
    EXPECT_EQ(wizard.boxFrame.caption.get(), "t127");
    EXPECT_EQ(wizard.run.startIndex.text.get(), "1");
    EXPECT_EQ(wizard.leadingAction(), &wizard.run.start);

    wizard.setChooser.choose(3);
    EXPECT_EQ(wizard.caption(), "t127") << "a choice alone changes nothing";
    wizard.loadSet.click();
    EXPECT_EQ(wizard.caption(), "t145");
    wizard.run.boxes.at(7)->clicked();
    EXPECT_EQ(wizard.point.pointLabel.caption.get(), "") << "point 7 is of set 2";
}

TEST_F(MeasurementWizardTest, PairsAreNamedAndSidesHeadedWhereTheyAreSides) {
    MeasurementWizard wizard(context, setP);
    wizard.load();
    // The workplace's set 1 goes by slots, 1 left, 1 right, ...: boxes i and i + 12 differ in two.
    EXPECT_EQ(wizard.pairLabels.at(1)->caption.get(), "P9");
    EXPECT_EQ(wizard.pairLabels.at(3)->caption.get(), "TS4 · P9");
    EXPECT_FALSE(wizard.leftHeading.visible);
    desk.session.referenceDb->execute("update sadymereni set longpoint = '0109'");
    wizard.loadSet.click();
    EXPECT_EQ(wizard.pairLabels.at(3)->caption.get(), "P9");
    EXPECT_TRUE(wizard.rightHeading.visible);
}

TEST_F(MeasurementWizardTest, ItsSizeComesFromTheSettingsWhereItIsOne) {
    struct Case {
        const char *settings, *rule;
        std::optional<float> width, height;
    };
    const Case cases[] = {
        {"[design]\npruv1frm.width=15000,5\nPRUV1FRM.HEIGHT=9000\n", "Czech numbers", 15000.5F,
         9000.0F},
        {"[design]\npruv1frm.width=\n", "none", {}, {}},
        {"[design]\npruv1frm.width=15000.5\npruv1frm.Height=-3\n", "no numbers of a size", {}, {}},
    };
    for (const Case& c : cases) {
        desk.place.folder.write("VORNA/setup.ini", c.settings);
        MeasurementWizard wizard(context, setP);
        wizard.load();
        EXPECT_EQ(wizard.width, c.width) << c.rule;
        EXPECT_EQ(wizard.height, c.height) << c.rule;
    }
}

TEST_F(MeasurementWizardTest, APointShowsItsPicturesAndAClickMakesOneLarge) {
    const auto picture = [&](int folder, const std::string& name) {
        return pathText(desk.place.folder.write(pictureFolder(folder) + name, "x"));
    };
    // Box 5 is slot 3: the point 0109 on the left.
    const std::string first = picture(1, "00310109.jpg");
    const std::string second = picture(2, "00310109.jpg");
    const std::string other = picture(1, "00110109.jpg");
    const auto places = [](MeasurementWizard& wizard) {
        return std::vector<std::string>{wizard.point.largePicture.path,
                                        wizard.point.secondPicture.path,
                                        wizard.point.thirdPicture.path};
    };
    {
        MeasurementWizard wizard(context, setP);
        wizard.load();
        wizard.point.secondPicture.clicked();
        EXPECT_THAT(places(wizard), ElementsAre("", "", "")) << "no point is shown yet";
        wizard.point.secondPicture.clicked();
        wizard.run.boxes.at(5)->clicked();
        EXPECT_THAT(places(wizard), ElementsAre(first, second, "")) << "one is missing";
        EXPECT_EQ(wizard.point.chineseName.text.get(), "太淵");
        EXPECT_EQ(wizard.point.description.text.get(), "Na zápěstí");
        EXPECT_EQ(wizard.point.place.caption.get(), "ruka vlevo");
        EXPECT_EQ(wizard.run.progress.currentBox, 1) << "a look at a box is no change";
        wizard.point.thirdPicture.clicked();
        EXPECT_THAT(places(wizard), ElementsAre("", first, second));
        wizard.point.secondPicture.clicked();
        EXPECT_THAT(places(wizard), ElementsAre(first, second, ""));
        wizard.point.secondPicture.clicked();
        EXPECT_THAT(places(wizard), ElementsAre(second, first, ""));
        wizard.run.boxes.at(2)->clicked();
        EXPECT_THAT(places(wizard), ElementsAre("", "", "")) << "no picture";
        EXPECT_EQ(wizard.point.chineseName.text.get(), "");
        wizard.run.boxes.at(5)->clicked();
        wizard.run.startIndex.text = "25";
        wizard.run.start.click();
        EXPECT_THAT(places(wizard), ElementsAre("", "", "")) << "there is no such point";
        EXPECT_EQ(wizard.point.pointLabel.caption.get(), "");
        EXPECT_EQ(wizard.point.description.text.get(), "");
        wizard.run.stop.click();
    }
    MeasurementWizard wizard(context, setP);
    wizard.load();
    wizard.run.boxes.at(1)->clicked();
    EXPECT_EQ(wizard.point.secondPicture.path.get(), other) << "the choice outlives the window";
}

TEST_F(MeasurementWizardTest, SavingWhileMeasuringStopsFirst) {
    MeasurementWizard wizard(context, setP);
    wizard.load();
    wizard.run.start.click();
    desk.pass(400);
    desk.link.currentReading = 900;
    desk.pass(600);
    wizard.setChooser.choose(2); // and not loaded
    wizard.save.click();
    EXPECT_FALSE(desk.line.isOpen);
    EXPECT_THAT(desk.takeShown(), ElementsAre("notice: t37")) << "no question";
    EXPECT_TRUE(wizard.closed());
    EXPECT_EQ(refreshed, 1);
    EXPECT_THAT(desk.clientFiles(), ElementsAre("250131143008_B_Žák_Jan~Dvořák^T.daf"))
        << "named when the stop is through, by the chooser";
    const MeasurementRecord record = saved();
    EXPECT_EQ(record.setLabel, "t128");
    EXPECT_EQ(record.values[1], 900) << "of set 1, as it was loaded";
    for (std::size_t slot = 2; slot <= slotCount; ++slot)
        EXPECT_EQ(record.values[slot], 0);
    desk.pass(5000);
    EXPECT_THAT(desk.sounds.take(), ElementsAre("start", "pip", "twinkles")) << "all is quiet";
}

TEST_F(MeasurementWizardTest, WithoutAClientASaveEndsWithAMessage) {
    clientLabel.clear();
    MeasurementWizard wizard(context, setP);
    wizard.load();
    wizard.save.click();
    EXPECT_THAT(desk.takeShown(), ElementsAre("message: noClient"));
    EXPECT_FALSE(wizard.closed());
    wizard.close();
    EXPECT_THAT(desk.takeShown(), ElementsAre("question: t38 | POZOR")) << "nothing was saved";
}

TEST_F(MeasurementWizardTest, ASaveThatCannotBeWrittenClosesWithoutAWord) {
    for (const char* const label : {"Žák_Jan?", "Žák_Jan"}) {
        clientLabel = label;
        MeasurementWizard wizard(context, setP);
        wizard.load();
        const FullDisk disk(150);
        wizard.save.click();
        EXPECT_TRUE(wizard.closed());
    }
    EXPECT_THAT(desk.takeShown(), IsEmpty());
    EXPECT_THAT(desk.clientFiles(), IsEmpty());
}

TEST_F(MeasurementWizardTest, ASetIsNotChangedUnderARun) {
    MeasurementWizard wizard(context, setP);
    wizard.load();
    const auto loadOther = [&](int position) {
        wizard.setChooser.choose(position);
        wizard.loadSet.click();
        return wizard.caption();
    };
    wizard.run.start.click();
    EXPECT_FALSE(wizard.loadSet.enabled);
    EXPECT_EQ(loadOther(1), "t126") << "the points that are measured are of its set";
    wizard.run.stop.click();
    EXPECT_EQ(loadOther(1), "t127");
    wizard.run.preparePoint.click();
    EXPECT_EQ(loadOther(2), "t127") << "nor under a single point";
    desk.session.dobamer = 0;
    desk.link.currentReading = 900;
    desk.pass(400 + 1000 + 2000 + 500);
}

TEST_F(MeasurementWizardTest, TwoSavesInOneSecondAreOneFileWhoseNameIsTold) {
    for (int time = 0; time < 2; ++time) {
        MeasurementWizard wizard(context, setP);
        wizard.load();
        EXPECT_EQ(wizard.storedFile(), std::nullopt);
        wizard.save.click();
        EXPECT_EQ(wizard.storedFile(), "250131143005_P_Žák_Jan~Dvořák^T.daf");
    }
    MeasurementWizard wizard(context, setP);
    wizard.load();
    const FullDisk disk(150);
    wizard.save.click();
    EXPECT_EQ(wizard.storedFile(), std::nullopt) << "the older file of that name is not its own";
    EXPECT_EQ(desk.clientFiles().size(), 1U);
}

TEST_F(MeasurementWizardTest, ClosingAsksAndStops) {
    MeasurementWizard wizard(context, setP);
    wizard.load();
    wizard.run.start.click();
    desk.pass(400);
    wizard.close();
    EXPECT_FALSE(wizard.closed()) << "no is the answer when none is given";
    EXPECT_TRUE(desk.line.isOpen);
    EXPECT_EQ(refreshed, 0);
    desk.pass(200);
    EXPECT_EQ(wizard.run.boxes.at(1)->backColour, BackColour::Red) << "the run goes on";

    desk.seams.dialogs.answers = {true};
    wizard.close();
    EXPECT_TRUE(wizard.closed());
    EXPECT_FALSE(desk.line.isOpen);
    EXPECT_EQ(refreshed, 1);
    EXPECT_TRUE(desk.link.blinkHold);
    EXPECT_THAT(desk.takeShown(),
                ElementsAre("question: t38 | POZOR", "question: t38 | POZOR", "notice: t37"));
    EXPECT_THAT(desk.clientFiles(), IsEmpty());
}

TEST_F(MeasurementWizardTest, SaveLeadsOnceAllPointsAreThereOrTheRunWasStopped) {
    MeasurementWizard wizard(context, setP);
    wizard.load();
    EXPECT_EQ(wizard.leadingAction(), &wizard.run.start);
    wizard.run.start.click();
    EXPECT_EQ(wizard.leadingAction(), nullptr);
    wizard.run.stop.click();
    EXPECT_EQ(wizard.leadingAction(), &wizard.save);
    wizard.run.start.click();
    for (const auto& box : wizard.run.boxes.members)
        box->text = "5";
    EXPECT_EQ(wizard.leadingAction(), &wizard.save);
    wizard.run.stop.click();
    desk.session.dobamer = 0;
    wizard.run.boxes.at(1)->text = "";
    wizard.run.startIndex.text = "24";
    wizard.run.start.click();
    EXPECT_EQ(wizard.leadingAction(), nullptr);
    desk.link.currentReading = 900;
    desk.pass(400 + 1000 + 2000);
    EXPECT_EQ(wizard.leadingAction(), &wizard.save) << "the run has come to its end";
}

// The kernel kills the process after the first half of the record.
TEST_F(MeasurementWizardTest, AKillInTheMiddleOfTheWriteLeavesNoHalfMeasurement) {
    const auto saveAndDie = [&] {
        MeasurementWizard wizard(context, setP);
        wizard.load();
        std::signal(SIGXFSZ, SIG_DFL);
        const ::rlimit limit{150, 150};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        wizard.save.click();
    };
    EXPECT_EXIT(saveAndDie(), ::testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_THAT(listFiles(desk.session.clientsFolder / "a82654,5", "*.daf"), IsEmpty());

    // Nor does it harm an older measurement of that name.
    const std::string older(300, '\x01');
    const fs::path file =
        desk.place.folder.write("VORNA/data/a82654,5/250131143005_P_Žák_Jan~Dvořák^T.daf", older);
    EXPECT_EXIT(saveAndDie(), ::testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_EQ(readWholeFile(file), older);
}

// ---- A whole set over the line

// Goes to each point in turn, holds the probe to it until the bell, and lifts it. The device prints
// a line every 30 ms; for 0.3 s in the middle of the contact it prints the point's peak.
class SimulatedHand {
public:
    SimulatedHand(ProbeDesk& desk, RunControls& run, std::function<int(int place)> peak)
        : desk_(desk), run_(run), peak_(std::move(peak)),
          timer_(desk.seams.loop, std::chrono::milliseconds{30}, Timer::Kind::Repeating,
                 [this] { print(); }) {
        desk_.sounds.whenHeard = [this](const std::string& name) {
            lifted_ = lifted_ || name == "dingdong";
        };
        timer_.start();
    }

private:
    static constexpr int air = 12;

    void print() {
        if (run_.progress.currentBox != place_) {
            place_ = run_.progress.currentBox;
            lines_ = 0;
            lifted_ = false;
        }
        desk_.line.receive(formatReadingLine(reading(++lines_)));
    }
    [[nodiscard]] int reading(int line) const {
        if (lifted_ || line <= 25)
            return air;
        if (line >= 120 && line < 130)
            return peak_(place_);
        return peak_(place_) - 1 - (line < 120 ? 120 - line : line % 7);
    }

    ProbeDesk& desk_;
    RunControls& run_;
    std::function<int(int)> peak_;
    int place_ = 0;
    int lines_ = 0; // since the point began
    bool lifted_ = false;
    Timer timer_;
};

TEST_F(MeasurementWizardTest, AWholeSetGoesFromTheLineToTheFile) {
    desk.session.posun = 30;
    FreeMeasurementTab tab(desk.mainWindow);
    const FreeMeasurement freeMeasurement(tab, desk.session, desk.platform, desk.link);
    MeasurementWizard wizard(context, setP);
    wizard.load();
    // Chart units 21 to 44; below, at and above the half.
    const auto peak = [](int place) { return 30 + 30 * (20 + place) + 14 + place % 3; };
    const auto chartUnits = [](int place) {
        const int whole = 20 + place;
        const int rest = 14 + place % 3;
        return rest > 15 || (rest == 15 && whole % 2 == 1) ? whole + 1 : whole;
    };
    const SimulatedHand hand(desk, wizard.run, peak);
    const LocalTime began = desk.seams.clock.now();
    wizard.run.start.click();
    desk.seams.loop.runUntil(
        [&] { return !desk.link.parserRunning() || desk.millisecondsSince(began) > 3600000; });
    EXPECT_EQ(wizard.run.boxesDone(), 24);
    EXPECT_EQ(wizard.leadingAction(), &wizard.save);
    wizard.save.click();

    const std::vector<std::string> files = desk.clientFiles();
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].substr(12), "_P_Žák_Jan~Dvořák^T.daf");
    EXPECT_EQ(readWholeFile(currentClientFile(desk.session, files[0])).size(), 300U);
    const MeasurementRecord record = saved();
    EXPECT_EQ(record.setLabel, "t126");
    for (int place = 1; place <= slotCount; ++place) // places 1, 2, 3 ... are slots 1, 13, 2 ...
        EXPECT_EQ(record.values[static_cast<std::size_t>((place + 1) / 2 +
                                                         (place % 2 == 0 ? pairDistance : 0))],
                  chartUnits(place) * 30)
            << place;
}

} // namespace
} // namespace vorna
