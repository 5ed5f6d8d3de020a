#include "acquisition/probe_search.h"

#include "core/file_names.h"
#include "core/number.h"
#include "core/settings_file.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

constexpr std::string_view portPrefix = "COM";

// The rest of a search, with the device open or not.
void tellDevice(ListView& list, Session& session, DeviceSearch& search) {
    const auto tell = [&](std::string text) { list.add({.text = std::move(text)}); };
    const DeviceSearch::Memory memory = search.readMemory();
    if (memory.status != 0)
        tell("EE_Read Failed: code " + decimalText(std::int64_t{memory.status}));
    tell(memory.description);
    tell(memory.serialNumber);
    const std::optional<int> port = search.portNumber();
    if (!port)
        tell(t(session, "t6"));
    const std::string number = decimalText(std::int64_t{port.value_or(0)});
    tell(t(session, "t7") + number);
    // Without a number, too: then the setting names the first port, which may be another device's.
    attempt([&] {
        WriteIniValue(under(session.dataRoot, names::setup), "global", "port",
                      std::string(portPrefix) + number);
    });
    if (!search.close())
        tell("Close Failed");
}

} // namespace

ProbeSettings::ProbeSettings(Window& window)
    : frame(window, "Frame11"), calibrationText(window, "Text20"), calibrate(window, "Command5"),
      findProbe(window, "Command3"), listPorts(window, "Command4"),
      useSimulated(window, "Command48"), searchResult(window, "List2"), ports(window, "List3") {
    useSimulated.visible = false;
}

void findProbe(ProbeSettings& probe, Session& session, DeviceSearch& search) {
    if (!probe.findProbe.enabled)
        return;
    probe.findProbe.enabled = false;
    probe.searchResult.clear();
    attempt([&] {
        if (!search.open())
            probe.searchResult.add({.text = t(session, "t5")});
    });
    attempt([&] { tellDevice(probe.searchResult, session, search); });
    probe.findProbe.enabled = true;
}

void listPorts(ProbeSettings& probe, DeviceSearch& search) {
    probe.ports.clear();
    probe.useSimulated.visible = !search.simulatedPort().empty();
    attempt([&] {
        for (const std::string& port : search.ports())
            if (port.starts_with(portPrefix))
                probe.ports.add({.text = std::string(withoutLastCharacters(
                                     std::string_view(port).substr(portPrefix.size()), 1))});
    });
}

void useSimulatedProbe(ProbeSettings& probe, Session& session, DeviceSearch& search) {
    const std::string port = search.simulatedPort();
    probe.useSimulated.visible = !port.empty();
    if (port.empty())
        return;
    attempt([&] {
        WriteIniValue(under(session.dataRoot, names::setup), "global", "port", port);
        probe.searchResult.setRows({{.text = t(session, "t7") + port}});
    });
}

} // namespace vorna
