#include "application/measuring.h"

#include "acquisition/measurement_name.h"
#include "platform/failure.h"

namespace vorna {
namespace {

std::string selectedClientLabel(const ListView& clients) {
    const ListRow* const row = clients.selectedRow();
    if (row == nullptr)
        throw Failure("no client is selected");
    return clientLabel(row->text, subItem(*row, ClientColumn::FirstName));
}

} // namespace

Measuring::Measuring(MainWindow& window, EvaluationContext& context, ProbeSeams probe)
    : link_(context.session, context.platform, probe.line, window.activity),
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
              .clientLabel = [&list = window.clients.list] { return selectedClientLabel(list); },
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
}

} // namespace vorna
