// A failing statement, and how a handler passes over it.
//
// Lookups, conversions and file steps that cannot give their result throw `Failure`. A handler
// that must go on wraps each of its statements in `attempt`: the statement has no effect, and the
// next one runs. The logic throws nothing else.
#pragma once

#include <stdexcept>
#include <string>

namespace vorna {

// What went wrong, for developers. The text names the operation and never a client's name or
// values, since it may reach the log.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& text) : std::runtime_error(text) {}
};

// Tells the log of developers (off by default, see log.h) that a statement was passed over.
void logPassedOver(const Failure& failure);

// Runs one statement; a Failure in it is passed over. True when it ran to its end.
template <class Statement>
bool attempt(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const Failure& failure) {
        logPassedOver(failure);
        return false;
    }
}

} // namespace vorna
