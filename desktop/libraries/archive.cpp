#include "desktop/libraries/makers.h"
#include "exchange/zip/zip_archive.h"

vorna::Archive* makeArchive(vorna::WorkProgress* progress) {
    return new vorna::ZipArchive(progress);
}
