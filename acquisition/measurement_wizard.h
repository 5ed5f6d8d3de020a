// The window of the guided measurement: the practitioner measures the 24 points of one set on the
// selected client and saves them as a file in the client's folder.
#pragma once

#include "acquisition/guided_run.h"
#include "acquisition/point_display.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace vorna {

// What the wizard needs of its surroundings. There is one in a process, and it outlives every
// wizard.
struct WizardContext {
    Session& session;
    Platform& platform;
    DeviceLink& link;
    // Surname "_" first name of the selected client. Failure when none is selected, or only a new
    // one that was not saved yet: then nothing can be saved, and the user is told.
    std::function<std::string()> clientLabel;
    // Refreshes what the main window shows of the client, after the wizard.
    std::function<void()> refreshClient;
    // Which of the three pictures stands in the large place, 1 to 3; it stays from run to run.
    int largePicture = 1;
};

struct MeasurementWizard final : Window {
    // The set of the kind button, 1 to 4.
    MeasurementWizard(WizardContext& context, int sada);

    ComboBox setChooser{*this, "Combo1"};
    Button loadSet{*this, "Command4"}; // not while a run is under way: its points stay its own
    Button save{*this, "Command3"};
    Frame boxFrame{*this, "Frame1"};
    Label leftHeading{*this, "Label6"}; // hidden, as the right one, for a set of other sides
    Label rightHeading{*this, "Label7"};
    // Between the boxes i and i + 12: the label of their point, or of both points.
    ControlArray<Label> pairLabels{*this, "Label15", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}};
    RunControls run{*this};
    PointDisplay point{*this};

    // Twips; empty: the window's own size.
    std::optional<float> width;
    std::optional<float> height;

    // Texts and size, then the set is loaded.
    void load() override;
    // Asks when nothing was saved, and stops a run that is under way. Stays open after a no.
    void close() override;

    // The action that leads now: save once all 24 boxes are filled or a run came to its end or was
    // stopped, otherwise start. Null while a run goes on that has boxes to fill.
    [[nodiscard]] const Button* leadingAction() const;

    // The name of the measurement's file, once it was saved and written.
    [[nodiscard]] const std::optional<std::string>& storedFile() const { return storedFile_; }

private:
    void readSize();
    [[nodiscard]] std::string chooserText() const;
    void onLoadSet();
    void showSet();
    void showPairs();
    void showPoint(int box);
    void makeLarge(int largePicture);
    void onStart();
    void onSave();

    WizardContext& context_;
    int sada_;
    std::array<std::string, slotCount + 1> pictureNames_; // by run place; [0] is empty
    int shownBox_ = 0;                                    // 0: none yet
    bool started_ = false;
    bool saved_ = false;
    std::optional<std::string> storedFile_;
    GuidedRun guidedRun_;
};

// Opens the wizard for a set and comes back when it is closed.
void openMeasurementWizard(WizardContext& context, WindowHost& windows, int sada);

} // namespace vorna
