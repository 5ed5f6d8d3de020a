// What the program finds in its library of archives by its name.
#include "exchange/zip/zip_archive.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT vorna::Archive* makeArchive(vorna::WorkProgress* progress) {
    return new vorna::ZipArchive(progress);
}
