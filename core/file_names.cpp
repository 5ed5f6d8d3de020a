#include "core/file_names.h"

namespace vorna::names {

std::string languageFile(std::int16_t language) {
    return "lang" + std::to_string(language) + ".ini";
}

std::string helpFile(std::int16_t language) {
    return "VORNAhelp" + std::to_string(language) + ".chm";
}

std::string flagPicture(std::int16_t language) {
    return "obr\\flag" + std::to_string(language) + ".png";
}

std::string modePicture(std::string_view modeName) {
    return "obr\\mode-" + std::string(modeName) + ".png";
}

std::string languagePicture(std::string_view stem, std::int16_t language) {
    return "obr2\\lang\\" + std::string(stem) + std::to_string(language) + ".jpg";
}

std::string setPictures(int sada, int folder) {
    return "sady\\" + std::to_string(sada) + "\\pic\\" + std::to_string(folder);
}

std::string meridianApmPicture(std::string_view meridian) {
    return "M" + std::string(meridian) + "apm-0*.jpg";
}

std::string meridianTcmPicture(std::string_view meridian, int number) {
    return "M" + std::string(meridian) + "TCM-" + std::to_string(number) + "*.jpg";
}

std::string pointPicture(std::string_view pointLong, char side) {
    return std::string(pointLong) + "0" + side + "*.jpg";
}

std::string pointPictureOfTag(std::string_view tag, char kind) {
    return std::string(tag) + kind + "*.jpg";
}

std::string recommendationOf(std::string_view yymmdd) {
    return "D" + std::string(yymmdd) + ".rtf";
}

std::string reportChartPicture(std::string_view reportChartKey) {
    return "HTML\\graf" + std::string(reportChartKey) + ".bmp";
}

} // namespace vorna::names
