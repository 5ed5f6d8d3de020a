// Draws the pictures of an installation and lays them down.
#pragma once

#include "platform/files.h"

namespace vorna {

struct PicturePlan {
    fs::path sources;
    fs::path into; // made when missing; what else lies there stays
    // Where the names of the files laid down are kept, one a line; empty: nowhere. A file that the
    // list of an earlier run names and that is no picture any more is removed.
    fs::path list;
};

// Draws on as many threads as the machine has cores. A picture with several names is stored once,
// its names being links to one file, where the file system has links. A file that is as it should
// be is not touched. Needs a QGuiApplication, for the fonts. Failure, naming the file, at the first
// fault of a source or file that cannot be written; what was laid down before it stays.
void layPictures(const PicturePlan& plan);

} // namespace vorna
