// A small machine with the program installed: an installation folder, a data root with two clients,
// a folder for archives, and what is looked at of them before and after an operation.
#pragma once

#include "application/main_window.h"
#include "application/startup.h"
#include "exchange/exchange_context.h"
#include "platform/files.h"
#include "tests/support/no_windows.h"
#include "tests/support/test_platform.h"

#include <map>
#include <string>
#include <vector>

namespace vorna {

struct Machine {
    fs::path folder;

    [[nodiscard]] fs::path installation() const { return folder / "installation"; }
    [[nodiscard]] fs::path commonData() const { return folder / "common"; }
    [[nodiscard]] fs::path dataRoot() const { return commonData() / "VORNA"; }
    [[nodiscard]] fs::path archives() const { return folder / "archives"; }
};

// Installs the program on a machine where it never ran.
void install(const Machine& machine);

// Runs it for the first time and makes the clients Adam (a1) and Novák (a2), each with files.
void settleIn(const Machine& machine);

// One start of the program on a machine, which takes place when it is asked for.
struct Program {
    explicit Program(const Machine& machine);

    bool start();
    void select(std::string_view intid);

    const Machine machine;
    TestPlatform seams;
    NoWindows windows;
    Session session;
    EvaluationState state;
    MainWindow window;
    EvaluationContext evaluation;
    ClientContext clients;
    ExchangeContext exchange;
};

using Tree = std::map<std::string, std::string>;
using Rows = std::vector<std::string>;
using Tables = std::map<std::string, Rows>;

// What a machine holds: the content of its files, and of its databases the rows of their tables;
// of an archive the tree that it unpacks to.
struct MachineState {
    Tree files;
    std::map<std::string, Tables> databases;
    std::map<std::string, Tree> archives;
    std::vector<std::string> damaged; // databases and archives that cannot be read whole
};

MachineState stateOf(const Machine& machine);

} // namespace vorna
