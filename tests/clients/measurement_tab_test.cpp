#include "tests/clients/client_desk.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(MeasurementList, TheNewestStandsOnTopAndNamesAreReadAlone) {
    ClientDesk desk;
    Workplace& place = desk.place;
    const auto measurementRows = [&](const Session& session) -> const std::vector<ListRow>& {
        fillMeasurementList(session, desk.measurements);
        return desk.measurements.list.rows();
    };
    place.folder.write("VORNA/data/250131143005_P_stray.daf", "");
    EXPECT_TRUE(measurementRows(place.session).empty()) << "no client";
    place.useClient("a1");
    EXPECT_TRUE(measurementRows(place.session).empty());
    for (const char* const name : {"241231235959_T_Z.DAF", "250131143005_P_Z~Dvořák^T.daf",
                                   "240101000000_B_Z~D.daf", "klient.dat", "x.daf.new~"})
        place.folder.write(std::string("VORNA/data/a1/") + name, "no record at all");
    const std::vector<ListRow> rows = measurementRows(place.session);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].text, "31.01.2025 14:30");
    EXPECT_EQ(rows[0].sub, (std::vector<std::string>{"P", "Dvořák", "T"}));
    EXPECT_EQ(rows[0].tag, "250131143005_P_Z~Dvořák^T.daf");
    EXPECT_EQ(rows[1].sub, (std::vector<std::string>{"T", "", "A"}));
    EXPECT_EQ(rows[2].sub, (std::vector<std::string>{"B", "D", "A"}));
}

} // namespace
} // namespace vorna
