// The port of a simulated probe that runs on this machine.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace vorna {

// The terminal that a running vorna-probe of this user reads and writes as the device; nothing when
// none runs. `processes` is the system's folder of processes.
std::optional<std::filesystem::path>
runningSimulatedPort(const std::filesystem::path& processes = "/proc");

// The same of this machine as a text; empty when none runs.
std::string simulatedPortName();

} // namespace vorna
