// The simulated probe: prints one line after the other to a pseudo-terminal, and notes what it is
// sent. It reacts to nothing else. Each reader begins the play anew.
#pragma once

#include "probe/play.h"

#include <filesystem>
#include <ostream>

namespace vorna {

struct ProbeOptions {
    std::filesystem::path link; // a symbolic link to make; empty: none
    Play play;
    double linesPerSecond = 25; // a reader uses 50 at most
    double speed = 1;           // the play and the lines run this many times as fast
    bool timed = false;         // each line begins with its time in the play, in milliseconds
};

// Prints the pseudo-terminal's path to `out` and plays until SIGINT or SIGTERM, which must be
// blocked, or until the reader has left in the last point or after it. Each "c" becomes a line of
// `notes`, with the seconds since the reader came. Failure when there is no pseudo-terminal, or
// when the link cannot be made: another symbolic link in its place is replaced, anything else is
// not.
void runSimulatedProbe(const ProbeOptions& options, std::ostream& out, std::ostream& notes);

// Blocks SIGINT and SIGTERM, so that they end the probe in order. To be called before any thread
// begins, and not before what may wait without end, such as reading a file.
void blockEndingSignals();

} // namespace vorna
