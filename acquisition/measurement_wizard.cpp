#include "acquisition/measurement_wizard.h"

#include "acquisition/measurement_saving.h"
#include "core/file_names.h"
#include "core/language_texts.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorna {
namespace {

// The chooser's position of a set, and the set of a position: 3 and any other is E.
int chooserPosition(int sada) {
    return sada - 1;
}
int setOfPosition(int position) {
    return position >= 0 && position < setE - 1 ? position + 1 : setE;
}

} // namespace

MeasurementWizard::MeasurementWizard(WizardContext& context, int sada)
    : Window("pruv1frm"), context_(context), sada_(sada),
      guidedRun_(run, {context.session, context.platform, context.link,
                       [this](int box) { showPoint(box); },
                       [this](bool underWay) { loadSet.enabled = !underWay; }}) {
    loadSet.clicked = [this] { onLoadSet(); };
    run.start.clicked = [this] { onStart(); };
    run.stop.clicked = [this] { guidedRun_.stop(); };
    run.preparePoint.clicked = [this] { guidedRun_.preparePoint(); };
    save.clicked = [this] { onSave(); };
    for (const auto& box : run.boxes.members) {
        box->enterPressed = [this] { guidedRun_.skipPoint(); };
        box->clicked = [this, place = box->index()] { showPoint(place); };
    }
    point.secondPicture.clicked = [this] {
        makeLarge(largePictureAfterSecondClick(context_.largePicture));
    };
    point.thirdPicture.clicked = [this] {
        makeLarge(largePictureAfterThirdClick(context_.largePicture));
    };
}

// ---- Opening

void MeasurementWizard::load() {
    applyLanguage(context_.session, *this);
    readSize();
    setChooser.rows =
        std::vector<std::string>{t(context_.session, "t126"), t(context_.session, "t127"),
                                 t(context_.session, "t128"), t(context_.session, "t145")};
    attempt([&] { setChooser.choose(chooserPosition(sada_)); });
    guidedRun_.open();
    showSet();
}

void MeasurementWizard::readSize() {
    const auto read = [&](std::optional<float>& size, std::string_view key) {
        attempt([&] {
            const auto twips = static_cast<float>(numberOfText(
                context_.platform.locale,
                ReadIniValue(under(context_.session.dataRoot, names::setup), "design", key)));
            if (std::isfinite(twips) && twips > 0)
                size = twips;
        });
    };
    read(width, "pruv1frm.width");
    read(height, "pruv1frm.Height");
}

std::string MeasurementWizard::chooserText() const {
    const std::vector<std::string>& rows = setChooser.rows;
    const int chosen = setChooser.index;
    return chosen >= 0 && static_cast<std::size_t>(chosen) < rows.size()
               ? rows[static_cast<std::size_t>(chosen)]
               : std::string{};
}

void MeasurementWizard::onLoadSet() {
    if (loadSet.enabled)
        showSet();
}

void MeasurementWizard::showSet() {
    sada_ = setOfPosition(setChooser.index);
    pictureNames_ = findSetPictures(context_.session, sada_);
    showPairs();
    boxFrame.caption = chooserText();
    setCaption(chooserText());
}

// A set whose boxes are no left and right sides of the same points has no side headings.
void MeasurementWizard::showPairs() {
    const auto field = [&](int place, PointField which) {
        return lookupSetPoint(context_.session, place, sada_, which, SetKey::RunPlace);
    };
    bool sides = true;
    for (const auto& pair : pairLabels.members) {
        const int place = pair->index();
        const std::string left = field(place, PointField::Label);
        const std::string right = field(place + pairDistance, PointField::Label);
        sides = sides && left == right;
        pair->caption = left == right ? left : left + " · " + right;
    }
    leftHeading.visible = sides;
    rightHeading.visible = sides;
}

// ---- Points and pictures

void MeasurementWizard::showPoint(int box) {
    const bool hasPictures = run.boxes.at(box) != nullptr;
    shownBox_ = box;
    point.show(context_.session, sada_,
               {box, hasPictures ? pictureNames_[static_cast<std::size_t>(box)] : std::string{}},
               context_.largePicture);
}

void MeasurementWizard::makeLarge(int largePicture) {
    context_.largePicture = largePicture;
    showPoint(shownBox_);
}

// ---- Start, save and close

void MeasurementWizard::onStart() {
    started_ = true;
    guidedRun_.start();
}

const Button* MeasurementWizard::leadingAction() const {
    const auto& boxes = run.boxes.members;
    const bool complete = std::none_of(boxes.begin(), boxes.end(),
                                       [](const auto& box) { return box->text.get().empty(); });
    if (complete || (started_ && (guidedRun_.finished() || !guidedRun_.stoppable())))
        return &save;
    return run.start.enabled ? &run.start : nullptr;
}

void MeasurementWizard::onSave() {
    if (guidedRun_.stoppable())
        guidedRun_.stop();
    FinishedMeasurement measurement{.setLabel = chooserText(),
                                    .boxTexts = run.boxTexts(),
                                    .sada = sada_,
                                    .kindIndex = setChooser.index};
    try {
        measurement.clientLabel = context_.clientLabel();
    } catch (const Failure& failure) { // no client is selected: the save ends here
        logPassedOver(failure);
        context_.platform.dialogs.message(t(context_.session, "noClient"));
        return;
    }
    SavedMeasurement written =
        writeMeasurement(context_.session, measurement, context_.platform.clock.now());
    if (written.stored)
        storedFile_ = std::move(written.name);
    saved_ = true;
    close();
}

void MeasurementWizard::close() {
    if (!saved_) {
        if (!context_.platform.dialogs.question(t(context_.session, "t38"), "POZOR"))
            return;
        if (guidedRun_.stoppable())
            guidedRun_.stop();
    }
    guidedRun_.leave();
    attempt([&] { context_.refreshClient(); });
    Window::close();
}

void openMeasurementWizard(WizardContext& context, WindowHost& windows, int sada) {
    MeasurementWizard wizard(context, sada);
    windows.showModal(wizard);
}

} // namespace vorna
