#include "core/file_names.h"

namespace vorna::names {

std::string languageFile(std::int16_t language) {
    return "lang" + std::to_string(language) + ".ini";
}

std::string helpFile(std::int16_t language) {
    return "VORNAhelp" + std::to_string(language) + ".chm";
}

std::string languagePicture(std::string_view stem, std::int16_t language) {
    return "obr2\\lang\\" + std::string(stem) + std::to_string(language) + ".jpg";
}

std::string setPictures(int sada, int folder) {
    return "sady\\" + std::to_string(sada) + "\\pic\\" + std::to_string(folder);
}

std::string reportChartPicture(std::string_view reportChartKey) {
    return "HTML\\graf" + std::string(reportChartKey) + ".bmp";
}

} // namespace vorna::names
