#include "application/measuring.h"

#include "acquisition/measurement_name.h"
#include "platform/failure.h"

namespace vorna {
namespace {

// While a new client is not saved yet, a row of the list may still be selected, but there is no
// folder that a measurement could go to.
std::string selectedClientLabel(const Session& session, const ListView& clients) {
    const ListRow* const row = clients.selectedRow();
    if (row == nullptr || session.currentClientFolder.empty())
        throw Failure("no client is selected");
    return clientLabel(row->text, subItem(*row, ClientColumn::FirstName));
}

} // namespace

Measuring::Measuring(MainWindow& window, EvaluationContext& context, ProbeSeams probe)
    : window_(window), link_(context.session, context.platform, probe.line, window.activity),
      freeMeasurement_(window.freeMeasurement, context.session, context.platform, link_),
      calibration_(window.probe.calibrationText,
                   {.session = context.session,
                    .platform = context.platform,
                    .link = link_,
                    .freeMeasurement = {.start = [this] { freeMeasurement_.start(); },
                                        .press = [this] { freeMeasurement_.press(); }}}),
      wizard_{.session = context.session,
              .platform = context.platform,
              .link = link_,
              .clientLabel =
                  [&session = context.session, &list = window.clients.list] {
                      return selectedClientLabel(session, list);
                  },
              .refreshClient =
                  [&window, &session = context.session] {
                      fillMeasurementList(session, window.measurements);
                  }} {
    const auto open = [this, &windows = context.windows](int sada) {
        return [this, &windows, sada] { openMeasurementWizard(wizard_, windows, sada); };
    };
    window.measureSource.clicked = open(setP);
    window.measureTerminal.clicked = open(setT);
    window.measureBiorhythm.clicked = open(setB);
    window.measureEnergy.clicked = open(setE);
    window.probe.calibrate.clicked = [this] { calibration_.calibrate(); };
    window.probe.findProbe.clicked = [&window, &session = context.session, &search = probe.search] {
        findProbe(window.probe, session, search);
    };
    window.probe.listPorts.clicked = [&window, &search = probe.search] {
        listPorts(window.probe, search);
    };
    window.probe.useSimulated.clicked = [&window, &session = context.session,
                                         &search = probe.search] {
        useSimulatedProbe(window.probe, session, search);
    };
}

Measuring::~Measuring() {
    for (Button* const button :
         {&window_.measureSource, &window_.measureTerminal, &window_.measureBiorhythm,
          &window_.measureEnergy, &window_.probe.calibrate, &window_.probe.findProbe,
          &window_.probe.listPorts, &window_.probe.useSimulated})
        button->clicked = nullptr;
}

} // namespace vorna
