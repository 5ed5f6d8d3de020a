// The operations of the program that change what the user has, each on the machine that it needs.
#pragma once

#include "tests/reliability/machine.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace vorna {

struct Operation {
    std::string name;
    std::function<void(const Machine&)> prepare; // makes the machine
    bool isStart = false;                        // the operation is the start itself
    std::function<void(Program&)> run;
    bool replaces = false; // what it replaces lies in a backup afterwards
    bool mayFail = false;  // a Failure may leave it, which ends the program in an orderly way
};

// For a test that is told of it.
inline void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

const std::vector<Operation>& operations();

} // namespace vorna
