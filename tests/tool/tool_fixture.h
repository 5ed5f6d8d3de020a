// The real tool, run as a process on an installation and a data root of the test's own.
#pragma once

#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace vorna {

struct ToolOutcome {
    int exitStatus = -1; // negative when a signal ended the process
    std::string out;
    std::string err;
};

// Runs a program to its end. The user's data folder is one of the scratch folder's.
ToolOutcome runProgram(const fs::path& program, const std::vector<std::string>& arguments,
                       const ScratchFolder& folder);

// A JSON text as the tool prints it.
std::string printed(std::string_view json);

// An installation whose texts are their own keys; the time is the 31st of January 2025, 14:30:05.
class ToolTest : public ::testing::Test {
protected:
    ToolTest();

    // Runs a command as it stands.
    ToolOutcome runPlain(const std::vector<std::string>& arguments) const;
    // Runs a command on the installation and the data root.
    ToolOutcome run(std::vector<std::string> arguments) const;
    // The answer of a command that must run. `exitStatus` is the one that it must have.
    nlohmann::ordered_json answer(const std::vector<std::string>& arguments,
                                  int exitStatus = 0) const;

    // Makes the data root and a client, whose intid is returned.
    std::string addClient() const;
    // Writes a measurement of the client with the sample's values and returns its file name.
    std::string addMeasurement(std::string_view kindLetter, char modeLetter = 'T') const;

    ScratchFolder folder;
    fs::path app = folder / "installation";
    fs::path dataRoot = folder / "data/VORNA";
};

} // namespace vorna
