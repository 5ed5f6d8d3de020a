// The content of an installation folder: all that the installer lays down beside the programs.
#pragma once

#include "platform/files.h"

namespace vorna {

struct InstallationPlan {
    fs::path sources;
    fs::path into; // made when missing; what else lies there stays
    // Where the names of the files laid down are kept, one a line; empty: nowhere. A file that the
    // list of an earlier run names and that has no source any more is removed.
    fs::path list;
    // Also lays down what a first run has moved aside, as for a new installation.
    bool asNew = false;
};

// Lays down the databases, document templates, settings, language files, sounds and folders; a file
// that is as it should be is not touched. In an installation that was started once, the starter
// folders bear their moved-aside names: HTML is laid again only when its sources have changed
// since, and data, which starts empty, not at all. Failure, naming the file, at the first fault of
// a source or file that cannot be written; what was laid down before it stays.
void layInstallation(const InstallationPlan& plan);

} // namespace vorna
