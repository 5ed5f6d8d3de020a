#include "application/picture_check.h"

#include "acquisition/measurement_record.h"
#include "acquisition/measurement_sets.h"
#include "application/main_window.h"
#include "core/file_names.h"
#include "core/reference_database.h"
#include "platform/files.h"
#include "platform/text.h"

#include <fstream>
#include <map>

namespace vorna {
namespace {

constexpr int leastPixels = 300;
constexpr int mostPixels = 4000;

// ---- The size of a picture

struct PixelSize {
    int width = 0;
    int height = 0;
};

// The number of two bytes, high byte first; 0 behind the end.
int twoBytes(std::string_view bytes, std::size_t at) {
    if (at + 1 >= bytes.size())
        return 0;
    return static_cast<unsigned char>(bytes[at]) * 256 + static_cast<unsigned char>(bytes[at + 1]);
}

// picture = FF D8 segment* FF D9   segment = FF kind length(2) byte*, the length counting itself
// frame   = FF C0..CF length(2) depth height(2) width(2) ..., but not C4, C8 and CC
PixelSize frameSize(std::string_view bytes) {
    if (twoBytes(bytes, 0) != 0xFFD8)
        return {};
    for (std::size_t at = 2; twoBytes(bytes, at) >= 0xFF00 && twoBytes(bytes, at + 2) >= 2;
         at += 2 + static_cast<std::size_t>(twoBytes(bytes, at + 2))) {
        const int marker = twoBytes(bytes, at);
        if (marker >= 0xFFC0 && marker <= 0xFFCF && marker != 0xFFC4 && marker != 0xFFC8 &&
            marker != 0xFFCC)
            return {.width = twoBytes(bytes, at + 7), .height = twoBytes(bytes, at + 5)};
    }
    return {};
}

// The size of a whole JPEG picture, out of its head and its last two bytes; 0 by 0 for any other
// file and for one that was cut short.
PixelSize jpegSize(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string head(4096, '\0');
    in.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(in.gcount()));
    in.clear();
    in.seekg(-2, std::ios::end);
    std::string end(2, '\0');
    in.read(end.data(), 2);
    return in && twoBytes(end, 0) == 0xFFD9 ? frameSize(head) : PixelSize{};
}

// ---- What is looked up

// The files of one folder under the mode's folder, with what was found out about each.
class PictureFolder {
public:
    PictureFolder(const Session& session, const std::string& name, std::vector<std::string>& faults)
        : folder_(under(session.modeFolder, name)),
          name_(pathText(session.modeFolder.filename()) + "\\" + name), faults_(faults) {
        for (const std::string& file : listFiles(folder_, "*"))
            files_.emplace(foldCase(file), file);
    }

    // The first file that the pattern finds has to be a picture; its name, empty without one.
    std::string mustFind(const std::string& pattern) {
        const std::string start = foldCase(pattern.substr(0, pattern.find('*')));
        for (auto at = files_.lower_bound(start);
             at != files_.end() && at->first.starts_with(start); ++at)
            if (matchesPattern(at->second, pattern)) {
                checkFile(at->second);
                return at->second;
            }
        faults_.push_back("the picture " + name_ + "\\" + pattern + " is missing");
        return {};
    }

private:
    void checkFile(const std::string& file) {
        const PixelSize size = jpegSize(folder_ / file);
        const auto isSensible = [](int side) { return side >= leastPixels && side <= mostPixels; };
        if (!isSensible(size.width) || !isSensible(size.height))
            faults_.push_back("the picture " + name_ + "\\" + file + " has " +
                              std::to_string(size.width) + " by " + std::to_string(size.height) +
                              " pixels");
    }

    std::filesystem::path folder_;
    std::string name_;
    std::vector<std::string>& faults_;
    std::map<std::string, std::string> files_; // by folded name
};

void checkLibrary(Session& session, std::vector<std::string>& faults) {
    PictureFolder library(session, std::string(names::libraryPictures), faults);
    Database& reference = referenceDatabase(session);
    for (Recordset meridians = reference.query("select meridian from Meridians");
         !meridians.atEnd(); meridians.moveNext()) {
        const std::string meridian = meridians.text("meridian");
        library.mustFind(names::meridianApmPicture(meridian));
        for (const int number : {0, 1})
            library.mustFind(names::meridianTcmPicture(meridian, number));
    }
    for (Recordset points = reference.query("select pointLong from Points"); !points.atEnd();
         points.moveNext())
        for (const char side : {'0', '1'})
            for (const char kind : {'F', 'K'})
                library.mustFind(names::pointPictureOfTag(points.text("pointLong") + side, kind));
}

// All three pictures of a point have the name that is found in the first folder.
void checkSetPictures(Session& session, std::vector<std::string>& faults) {
    for (int sada = setP; sada <= setE; ++sada) {
        const auto folder = [&](int number) {
            return PictureFolder(session, names::setPictures(sada, number), faults);
        };
        PictureFolder close = folder(1);
        PictureFolder region = folder(2);
        PictureFolder body = folder(3);
        for (int place = 1; place <= slotCount; ++place) {
            const std::string extIndex =
                lookupSetPoint(session, place, sada, PointField::ExtIndex, SetKey::RunPlace);
            const std::string name = close.mustFind(extIndex + "*");
            if (name.empty())
                continue;
            region.mustFind(name);
            body.mustFind(name);
        }
    }
}

void checkTeachingPictures(const Session& session, std::vector<std::string>& faults) {
    std::string lang(names::energyPentagram);
    lang.resize(lang.rfind('\\'));
    PictureFolder teaching(session, lang, faults);
    const auto fileOf = [&](const std::string& name) { return name.substr(lang.size() + 1); };
    teaching.mustFind(fileOf(std::string(names::energyPentagram)));
    for (std::int16_t language = 1; language <= languageCount; ++language)
        for (const char* stem : {"hvezdice", "tomek-jin", "tomek-jang"})
            teaching.mustFind(fileOf(names::languagePicture(stem, language)));
}

} // namespace

void checkPictures(Session& session, std::vector<std::string>& faults) {
    checkLibrary(session, faults);
    checkSetPictures(session, faults);
    checkTeachingPictures(session, faults);
}

} // namespace vorna
