#include "acquisition/measurement_sets.h"

#include "acquisition/measurement_record.h"
#include "core/file_names.h"
#include "core/number.h"
#include "core/reference_database.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vorna {
namespace {

constexpr std::string_view setPointSelect =
    "select sadymereni.cisloulozeni, sadymereni.poradimereni, sadymereni.poradiGraf,"
    " sadymereni.sada, sadymereni.extIndex, Points.descr, Points.point, Meridians.shortName,"
    " Skelet.hodnota from sadymereni"
    " join Points on sadymereni.longpoint = Points.pointLong"
    " join Meridians on Points.Meridian = Meridians.meridian"
    " join Skelet on Points.misto = Skelet.ID where sadymereni.sada = ?2 and sadymereni.";

std::string fieldText(const Recordset& row, PointField field) {
    switch (field) {
    case PointField::ExtIndex:
        return row.text("extIndex");
    case PointField::Label:
        return row.text("shortName") + row.text("point");
    case PointField::Description:
        return row.text("descr");
    case PointField::Place:
        return row.text("hodnota");
    case PointField::ShortName:
        return row.text("shortName");
    case PointField::Slot:
        return row.text("cisloulozeni");
    case PointField::Meridian:
        return row.text("meridian");
    case PointField::ElementName:
        return row.text("elementname");
    }
    return {};
}

std::string firstRowField(Session& session, std::string_view statement,
                          const std::vector<DatabaseValue>& values, PointField field) {
    return orEmpty(
        [&] { return fieldText(referenceDatabase(session).query(statement, values), field); });
}

} // namespace

std::string lookupSetPoint(Session& session, int key, int sada, PointField field, SetKey keyKind) {
    static const std::array<std::string, 3> statements{
        std::string(setPointSelect) + "cisloulozeni = ?1",
        std::string(setPointSelect) + "poradimereni = ?1",
        std::string(setPointSelect) + "poradiGraf = ?1"};
    return firstRowField(session, statements[static_cast<std::size_t>(keyKind)],
                         {std::int64_t{key}, std::int64_t{sada}}, field);
}

std::string lookupChartPoint(Session& session, int position, int kind, PointField field, int graf) {
    if (graf == 3)
        return firstRowField(session,
                             "select * from q6elements where sl14 = ? order by elements6 desc",
                             {decimalText(std::int64_t{position})}, field);
    const std::vector<DatabaseValue> values{std::int64_t{kind}, std::int64_t{position},
                                            std::int64_t{graf}};
    if (graf >= 9 && graf <= 12)
        return firstRowField(
            session,
            "select * from qporadigrafy where sada = ? and dvojicesloupcu = ? and graf = ?", values,
            field);
    return firstRowField(session,
                         "select * from qporadigrafy where sada = ? and sl24 = ? and graf = ?"
                         " order by dvojicesloupcu, sloupec",
                         values, field);
}

std::string vratCisloUlozeni(Session& session, std::string_view meridian, int sada) {
    return referenceDatabase(session)
        .query("select * from sadymereni where strana = 0 and meridian = ? and sada = ?",
               {quotedText(meridian), std::int64_t{sada}})
        .text("cisloulozeni");
}

std::size_t slotOfText(std::string_view text) {
    const std::int16_t slot = roundToInt16(numberOfDecimalText(text));
    if (slot < 1 || slot > slotCount)
        throw Failure("a slot's number is out of range");
    return static_cast<std::size_t>(slot);
}

std::array<std::string, 25> findSetPictures(Session& session, int sada) {
    std::array<std::string, 25> pictures;
    const fs::path folder = setPicturePath(session, sada, 1, {});
    for (int box = 1; box <= 24; ++box) {
        const std::string extIndex =
            lookupSetPoint(session, box, sada, PointField::ExtIndex, SetKey::RunPlace);
        if (!extIndex.empty())
            pictures[static_cast<std::size_t>(box)] = findFirst(folder, extIndex + "*");
    }
    return pictures;
}

std::array<int, 3> pictureArrangement(int largePicture) {
    switch (largePicture) {
    case 2:
        return {2, 1, 3};
    case 3:
        return {3, 1, 2};
    default:
        return {1, 2, 3};
    }
}

int largePictureAfterSecondClick(int largePicture) {
    return largePicture == 1 ? 2 : 1;
}

int largePictureAfterThirdClick(int largePicture) {
    return largePicture == 3 ? 2 : 3;
}

std::filesystem::path setPicturePath(const Session& session, int sada, int folder,
                                     std::string_view pictureName) {
    const fs::path pictures = under(session.modeFolder, names::setPictures(sada, folder));
    return pictureName.empty() ? pictures : pictures / pictureName;
}

SetPointTexts setPointTexts(Session& session, int runPlace, int sada,
                            std::string_view pictureName) {
    const auto field = [&](PointField which) {
        return lookupSetPoint(session, runPlace, sada, which, SetKey::RunPlace);
    };
    SetPointTexts texts{.label = field(PointField::Label),
                        .description = field(PointField::Description)};
    attempt([&] {
        const std::string extIndex = field(PointField::ExtIndex);
        const double side = numberOfDecimalText(lastCharacters(extIndex, 1));
        texts.place = field(PointField::Place) + " " + vratSkelet(session, roundToInt32(side));
    });
    texts.chinese = orEmpty([&] { return vratChinaBodu(session, characters(pictureName, 5, 4)); });
    return texts;
}

} // namespace vorna
