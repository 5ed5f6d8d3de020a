// The sample client: a made-up person with measurements of all kinds, for the demonstration and
// for a first look at the program.
#pragma once

#include "platform/files.h"

namespace vorna {

struct SampleClientPlan {
    fs::path sources;
    fs::path dataRoot; // with its client database
};

// Adds the client as a save would: the folder with klient.dat, the measurements, and the row. A
// data root whose client database has the client already is left as it is. True when the client was
// added. Failure, naming the file, when a source is faulty, or the data root has no client database
// or cannot be written; the row comes last, so that a second run then mends what is there.
bool addSampleClient(const SampleClientPlan& plan);

} // namespace vorna
