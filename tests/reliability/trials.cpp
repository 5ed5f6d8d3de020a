#include "tests/reliability/trials.h"

#include "platform/failure.h"

namespace vorna {

Trials::Trials(const Operation& operation) : operation_(operation) {
    fs::create_directories(machine_.folder);
    operation.prepare(machine_);
    before = stateOf(machine_);
    fs::rename(machine_.folder, scratch_ / "template");
    whole = run({});
}

Trial Trials::run(DiskFault fault) {
    return runWith(
        fault, [] {}, [] {});
}

Trial Trials::runIn(const std::function<void()>& trouble, const std::function<void()>& mend) {
    return runWith({}, trouble, mend);
}

Trial Trials::runWith(DiskFault fault, const std::function<void()>& trouble,
                      const std::function<void()>& mend) {
    std::error_code error;
    fs::remove_all(machine_.folder, error);
    fs::copy(scratch_ / "template", machine_.folder, fs::copy_options::recursive);
    Trial trial{.fault = fault};
    {
        Program program(machine_);
        if (!operation_.isStart)
            program.start();
        trouble();
        const WatchedDisk disk(machine_.folder, fault);
        trial.escaped = escapedFrom(program);
        trial.operations = disk.operations();
        trial.failed = disk.failed();
        if (const std::size_t at = trial.failed.find(pathText(machine_.folder));
            at != std::string::npos)
            trial.failed.erase(at, pathText(machine_.folder).size() + 1);
        trial.strays = disk.strays();
        trial.torn = disk.torn();
    }
    mend();
    Program(machine_).start();
    trial.state = stateOf(machine_);
    return trial;
}

std::string Trials::escapedFrom(Program& program) {
    try {
        if (operation_.isStart)
            program.start();
        operation_.run(program);
    } catch (const Failure& failure) {
        return operation_.mayFail ? "" : failure.what();
    } catch (...) {
        return "another exception";
    }
    return {};
}

} // namespace vorna
