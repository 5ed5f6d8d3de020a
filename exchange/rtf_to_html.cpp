#include "exchange/rtf_to_html.h"

#include "exchange/rtf_html.h"
#include "exchange/rtf_reader.h"
#include "platform/failure.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vorna {
namespace {

constexpr std::uintmax_t maxFileBytes = 256ULL << 20U;
constexpr std::string_view digits = "0123456789";

std::string readRichText(const fs::path& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error && size > maxFileBytes)
        throw Failure("a document is too large");
    return readWholeFile(path);
}

// Tells the documents of one page apart: two of them hardly ever have the same number.
std::string documentPrefix(const fs::path& path) {
    std::error_code error;
    std::uint32_t hash = 2166136261U;
    for (const char c : pathText(fs::weakly_canonical(path, error)))
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return "rtf" + std::to_string(hash) + "-";
}

// Cuts a number off the front of the name. False when there is none.
bool takeNumber(std::string_view& name) {
    const std::size_t count = std::min(name.find_first_not_of(digits), name.size());
    name.remove_prefix(count);
    return count > 0 && count <= 10;
}

bool takeText(std::string_view& name, std::string_view text) {
    const bool found = name.starts_with(text);
    if (found)
        name.remove_prefix(text.size());
    return found;
}

bool isPictureName(std::string_view name) {
    return takeText(name, "rtf") && takeNumber(name) && takeText(name, "-") && takeNumber(name) &&
           (name == ".png" || name == ".jpg" || name == ".bmp");
}

void removePictures(const fs::path& folder, std::string_view prefix) {
    std::error_code error; // what resists stays
    for (const std::string& name : listFiles(folder, "rtf*"))
        if (name.starts_with(prefix) && isPictureName(name))
            fs::remove(folder / name, error);
}

// The names of the pictures' files; empty for those that could not be written.
std::vector<std::string> writePictures(const std::vector<RtfPicture>& pictures,
                                       const fs::path& folder, const std::string& prefix) {
    std::vector<std::string> names(pictures.size());
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const std::string name = prefix + std::to_string(i + 1) + "." + pictures[i].extension;
        if (attempt([&] { writeFileAtomically(folder / name, pictures[i].bytes); }))
            names[i] = name;
    }
    return names;
}

} // namespace

std::string rtfToHtml(const fs::path& rtfPath, const fs::path& folder) {
    const RtfDocument document = parseRtf(readRichText(rtfPath));
    const std::string prefix = documentPrefix(rtfPath);
    removePictures(folder, prefix);
    return formatRtfHtml(document, writePictures(document.pictures, folder, prefix));
}

void removeRtfPictures(const fs::path& folder) {
    removePictures(folder, "rtf");
}

} // namespace vorna
