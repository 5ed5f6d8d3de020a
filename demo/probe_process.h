// The simulated probe as a process of its own, on a pseudo-terminal that it opens. It tells its
// time in its lines, so that a reader at the same speed can follow it.
#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>

namespace vorna {

class ProbeProcess {
public:
    // Starts the program, with a script or with its practitioner, and reads the path that it
    // prints. Failure when it does not start. The process ends with the object.
    ProbeProcess(const std::filesystem::path& program, double speed,
                 const std::filesystem::path& script = {});
    ProbeProcess(const ProbeProcess&) = delete;
    ProbeProcess& operator=(const ProbeProcess&) = delete;
    ~ProbeProcess();

    [[nodiscard]] const std::string& port() const { return port_; }

private:
    void end() const;

    pid_t process_ = -1;
    int output_ = -1;
    std::string port_;
};

} // namespace vorna
