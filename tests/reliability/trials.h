// Tries of one operation, each on a machine of its own and all of them alike, and the judgement of
// what a try left behind.
#pragma once

#include "tests/reliability/faulty_disk.h"
#include "tests/reliability/operations.h"
#include "tests/support/scratch_folder.h"

#include <functional>
#include <string>
#include <vector>

namespace vorna {

// How a trial went, and what the next start found.
struct Trial {
    int operations = 0;
    std::string failed;
    std::vector<std::string> strays;
    std::vector<fs::path> torn;
    std::string escaped; // what the operation threw
    DiskFault fault;
    MachineState state;
};

class Trials {
public:
    explicit Trials(const Operation& operation);

    // The operation with a disk that fails.
    Trial run(DiskFault fault);
    // The operation after `trouble`, and the next start after `mend`.
    Trial runIn(const std::function<void()>& trouble, const std::function<void()>& mend);

    [[nodiscard]] const Machine& machine() const { return machine_; }

    MachineState before;
    Trial whole; // without a fault

private:
    Trial runWith(DiskFault fault, const std::function<void()>& trouble,
                  const std::function<void()>& mend);
    std::string escapedFrom(Program& program);

    const Operation& operation_;
    ScratchFolder scratch_;
    Machine machine_{scratch_ / "machine"};
};

// What is not whole after a trial: a file or row that is neither old nor new, one that is gone,
// what was replaced and is in no backup, what stands outside, and what came out of the operation.
std::vector<std::string> faultsOf(const Operation& operation, const Trials& trials,
                                  const Trial& trial);

} // namespace vorna
