// The demonstration: the whole road from a guided measurement on the simulated probe to charts and
// proposals, run on the sample client in a data root of its own, with one overview page of the
// results.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>

namespace vorna {

struct DemonstrationOptions {
    std::filesystem::path installation; // the assembled installation folder
    std::filesystem::path sources;      // the installation's sources, with the sample client
    std::filesystem::path result;       // gets data/, the pictures and index.html
    std::string locale;                 // empty: the user's own
};

// Measures the sample client, lists all measurements, draws the charts of each with what they
// propose and writes the overview page.
// Returns the page. What happens goes to `out`, a line for each measurement. Failure when the
// installation or the sample is not there.
std::filesystem::path runDemonstration(const DemonstrationOptions& options, std::ostream& out);

} // namespace vorna
