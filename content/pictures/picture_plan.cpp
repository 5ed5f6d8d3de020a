#include "content/pictures/picture_plan.h"

#include "content/pictures/emblems.h"
#include "content/pictures/meridian_pictures.h"
#include "content/pictures/teaching_pictures.h"
#include "content/table_source.h"
#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace vorna {
namespace {

// A name that a pattern finds, in the folder of each mode.
void addInBothModes(std::vector<std::string>& names, const std::string& folder,
                    std::string pattern) {
    std::erase(pattern, '*');
    for (const std::string_view mode : {names::rezimTcm, names::rezimApm}) {
        std::string name = std::string(mode) + "\\" + folder + "\\" + pattern;
        std::replace(name.begin(), name.end(), '\\', '/');
        names.push_back(std::move(name));
    }
}

std::vector<std::string> inLibrary(const std::string& pattern) {
    std::vector<std::string> names;
    addInBothModes(names, std::string(names::libraryPictures), pattern);
    return names;
}

// ---- Points and sets

enum class PictureOfPoint { Close, Region, Body };

// The folder of a set's pictures of this kind.
int setFolder(PictureOfPoint kind) {
    return static_cast<int>(kind) + 1;
}

QImage drawPoint(PointPainter& painter, PictureOfPoint kind, const PointSubject& subject) {
    switch (kind) {
    case PictureOfPoint::Close:
        return painter.close(subject).image;
    case PictureOfPoint::Region:
        return painter.region(subject).image;
    default:
        return painter.body(subject).image;
    }
}

std::vector<std::string> namesOf(const ReferenceTexts& texts, PictureOfPoint kind,
                                 const PointSubject& subject) {
    std::vector<std::string> found;
    const bool midline = isMidline(subject.pointLong);
    for (const char side : {'0', '1'}) {
        if (kind == PictureOfPoint::Body || (!midline && (side == '1') != subject.right))
            continue;
        addInBothModes(found, std::string(names::libraryPictures),
                       names::pointPictureOfTag(subject.pointLong + side,
                                                kind == PictureOfPoint::Close ? 'K' : 'F'));
    }
    for (const SetRow& row : texts.setRows) {
        constexpr char right = '2';
        if (row.pointLong == subject.pointLong &&
            (midline || (row.extIndex.back() == right) == subject.right))
            addInBothModes(found, names::setPictures(row.sada, setFolder(kind)),
                           row.extIndex + row.pointLong + ".jpg");
    }
    return found;
}

void addPoints(const ReferenceTexts& texts, std::vector<PictureJob>& jobs) {
    for (const SetRow& row : texts.setRows)
        if (std::find(texts.points.begin(), texts.points.end(), row.pointLong) ==
            texts.points.end())
            throw Failure("the sets ask for the point " + row.pointLong + ", which is none");
    for (const std::string& pointLong : texts.points)
        for (const bool right : {false, true})
            for (const PictureOfPoint kind :
                 {PictureOfPoint::Region, PictureOfPoint::Close, PictureOfPoint::Body}) {
                const PointSubject subject{.pointLong = pointLong, .right = right};
                std::vector<std::string> found = namesOf(texts, kind, subject);
                if (found.empty() || (right && isMidline(pointLong)))
                    continue;
                jobs.push_back({.names = std::move(found), .draw = [=](PictureTools& tools) {
                                    return drawPoint(tools.points, kind, subject);
                                }});
            }
}

// ---- Meridians

void addMeridians(const ReferenceTexts& texts, const std::map<std::string, MeridianViews>& views,
                  std::vector<PictureJob>& jobs) {
    for (const auto& [meridian, own] : texts.meridians) {
        const MeridianSubject subject{
            .meridian = meridian, .code = own.code, .views = views.at(meridian)};
        jobs.push_back(
            {.names = inLibrary(names::meridianApmPicture(meridian)),
             .draw = [=](PictureTools& tools) { return coursePicture(tools.atlas, subject); }});
        jobs.push_back(
            {.names = inLibrary(names::meridianTcmPicture(meridian, 0)),
             .draw = [=](PictureTools& tools) { return bodyPointsPicture(tools.atlas, subject); }});
        jobs.push_back({.names = inLibrary(names::meridianTcmPicture(meridian, 1)),
                        .draw = [=](PictureTools& tools) {
                            return regionPointsPicture(tools.atlas, subject);
                        }});
    }
}

// ---- The teaching tab

void addTeaching(const ReferenceTexts& texts, std::vector<PictureJob>& jobs) {
    const auto add = [&](std::string_view name, auto draw) {
        std::vector<std::string> found;
        addInBothModes(found, ".", std::string(name));
        for (std::string& each : found)
            each = fs::path(each).lexically_normal().generic_string();
        jobs.push_back({.names = std::move(found), .draw = std::move(draw)});
    };
    for (std::int16_t language = 1; language <= sourceLanguages; ++language) {
        const Vocabulary words{.texts = texts, .language = language};
        add(names::languagePicture("hvezdice", language),
            [=](PictureTools&) { return starPicture(words); });
        add(names::languagePicture("tomek-jin", language),
            [=](PictureTools& tools) { return energyPicture(tools.atlas, words, false); });
        add(names::languagePicture("tomek-jang", language),
            [=](PictureTools& tools) { return energyPicture(tools.atlas, words, true); });
    }
    add(names::energyPentagram, [&texts](PictureTools&) { return pentagramPicture(texts); });
}

// ---- The main window

void addEmblems(std::vector<PictureJob>& jobs) {
    const auto add = [&](std::string name, auto draw) {
        std::replace(name.begin(), name.end(), '\\', '/');
        jobs.push_back({.names = {std::move(name)}, .draw = std::move(draw)});
    };
    for (std::int16_t language = 1; language <= sourceLanguages; ++language)
        add(names::flagPicture(language), [=](PictureTools&) { return flagEmblem(language); });
    add(names::modePicture("TCM"), [](PictureTools&) { return tcmEmblem(); });
    add(names::modePicture("APM"), [](PictureTools&) { return apmEmblem(); });
}

} // namespace

std::vector<PictureJob> picturePlan(const ReferenceTexts& texts,
                                    const std::map<std::string, MeridianViews>& views) {
    std::vector<PictureJob> jobs;
    addEmblems(jobs);
    addTeaching(texts, jobs);
    addMeridians(texts, views, jobs);
    addPoints(texts, jobs);
    return jobs;
}

} // namespace vorna
