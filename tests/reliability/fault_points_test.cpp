// Every operation with a disk that fails at each place in turn, once or from there on: the next
// start finds each file and row whole, old or new, and what was replaced in the backup.
#include "tests/reliability/trials.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace vorna {
namespace {

using Faults = std::vector<std::string>;

std::string joined(const Faults& faults) {
    std::string text;
    for (const std::string& fault : faults)
        text += fault;
    return text;
}

// At one place: once, and at every second place lasting, each for another reason from place to
// place. Everything at every place where VORNA_ALL_FAULTS is set.
std::vector<DiskFault> faultsAt(int at) {
    constexpr std::array reasons{ENOSPC, EIO, EACCES};
    std::vector<DiskFault> faults;
    const auto add = [&](bool lasting, int reason) {
        faults.push_back({.at = at, .lasting = lasting, .error = reasons[std::size_t(reason % 3)]});
    };
    const bool all = std::getenv("VORNA_ALL_FAULTS") != nullptr;
    for (int reason = 0; all && reason < 3; ++reason) {
        add(false, reason);
        add(true, reason);
    }
    if (!all)
        add(false, at);
    if (!all && at % 2 == 1)
        add(true, at);
    return faults;
}

class FaultPoints : public ::testing::TestWithParam<Operation> {
protected:
    // A machine in memory is made and looked through in no time.
    FaultPoints() {
        std::error_code error;
        if (fs::is_directory("/dev/shm", error))
            ::setenv("TMPDIR", "/dev/shm", 0);
    }
};

TEST_P(FaultPoints, LeaveEverythingWhole) {
    constexpr std::size_t enough = 20;
    const Operation& operation = GetParam();
    Trials trials(operation);
    ASSERT_EQ(joined(faultsOf(operation, trials, trials.whole)), "");
    ASSERT_GT(trials.whole.operations, 0);
    Faults faults;
    int count = 0;
    for (int at = 1; at <= trials.whole.operations && faults.size() < enough; ++at)
        for (const DiskFault& fault : faultsAt(at)) {
            const Trial trial = trials.run(fault);
            ++count;
            for (const std::string& what : faultsOf(operation, trials, trial))
                faults.push_back("\n" + std::to_string(at) + (fault.lasting ? " on, " : " once, ") +
                                 std::strerror(fault.error) + ", " + trial.failed + ": " + what);
        }
    RecordProperty("trials", count);
    RecordProperty("operations", trials.whole.operations);
    EXPECT_EQ(joined(faults), "");
}

// The data root goes away between two operations, as a folder of another computer does, and comes
// back for the next start. Nothing is made in its place meanwhile.
TEST_P(FaultPoints, AVanishedDataRootComesBackAsItWas) {
    const Operation& operation = GetParam();
    if (operation.isStart) // which makes another one, as it must
        return;
    Trials trials(operation);
    const Machine& machine = trials.machine();
    bool made = false;
    const Trial trial =
        trials.runIn([&] { fs::rename(machine.dataRoot(), machine.folder / "elsewhere"); },
                     [&] {
                         made = fs::exists(machine.dataRoot());
                         fs::remove_all(machine.dataRoot());
                         fs::rename(machine.folder / "elsewhere", machine.dataRoot());
                     });
    EXPECT_FALSE(made);
    EXPECT_EQ(trial.escaped, "");
    EXPECT_EQ(trial.state.files, trials.before.files);
    EXPECT_EQ(trial.state.databases, trials.before.databases);
}

INSTANTIATE_TEST_SUITE_P(Of, FaultPoints, testing::ValuesIn(operations()),
                         [](const auto& test) { return test.param.name; });

} // namespace
} // namespace vorna
