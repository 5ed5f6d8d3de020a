#include "acquisition/measurement_sets.h"
#include "platform/failure.h"
#include "recommendation/energy_therapy.h"
#include "recommendation/meridian_therapy.h"
#include "tests/support/evaluation_fixture.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using Lines = std::vector<std::string>;

// "label|meridian|name|tag" of each row.
Lines lines(const Proposals& proposals) {
    Lines found;
    for (const ListRow& row : proposals)
        found.push_back(std::string(row.subItem(pointLabelColumn)) + "|" +
                        std::string(row.subItem(proposalMeridianColumn)) + "|" + row.tag);
    return found;
}

// A desk whose last loaded measurement has these chart units by slot; all others show 100.
struct TherapyDesk : EvaluationDesk {
    Lines energy(int problem, std::string code, const std::map<int, int>& changed) {
        state.CurrentRecord.values = levelValues(100, changed);
        Proposals proposals;
        therapyEnergy(context, static_cast<std::int16_t>(problem), code, proposals);
        return lines(proposals);
    }
    // The rows that stand when the therapy has ended or failed.
    Proposals meridian(int problem, int slot, int kind) {
        state.CurrentKind = static_cast<std::int16_t>(kind);
        Proposals proposals;
        ran = attempt([&] {
            therapyMeridian(context, static_cast<std::int16_t>(problem),
                            static_cast<std::int16_t>(slot), proposals);
        });
        return proposals;
    }
    void replaceProposals(const char* rows) {
        session.referenceDb->executeScript(std::string("delete from Therapy_m;") + rows);
    }
    bool ran = false;
};

// The lung stands in the slots 5 and 17 of the first set.
constexpr int lungLeft = 5;
constexpr int lungRight = 17;

TEST(EnergyTherapy, StrengthensByTheMotherAndDrainsByTheChild) {
    struct Case {
        const char* rule;
        int problem;
        const char* code;
        std::map<int, int> values;
        Lines rows;
    };
    const Case cases[] = {
        {"the lower side of two", 1, "1", {{lungLeft, 80}}, {"LU 07 t42||01070"}},
        {"the other", 1, "01", {{lungRight, 80}}, {"LU 07 t43||01071"}},
        {"equal sides", 1, "01", {}, {}},
        {"equal after rounding", 1, "01", {{lungLeft, 100}}, {}},
        {"deficiency on the right: earth point, and the mother's own point",
         2,
         "01",
         {{lungRight, 60}},
         {"LU 09 t43|01|01091", "SP 03 t43|04|04031"}},
        {"deficiency on both sides, the left first",
         2,
         "1",
         {{lungLeft, 60}, {lungRight, 60}},
         {"LU 09 t42|01|01090", "LU 09 t43|01|01091", "SP 03 t42|04|04030", "SP 03 t43|04|04031"}},
        {"excess on the left: water point, and the child's own point",
         3,
         "01",
         {{lungLeft, 140}},
         {"LU 05 t42|01|01050", "KI 10 t42|08|08100"}},
        {"a yang pathway stays among the yang ones",
         3,
         "11",
         {{9, 140}, {21, 140}},
         {"GB 38 t42|11|11380", "GB 38 t43|11|11381", "SI 05 t42|06|06050", "SI 05 t43|06|06051",
          "TE 06 t42|10|10060", "TE 06 t43|10|10061"}},
        {"no such problem", 4, "01", {{lungLeft, 0}}, {}},
        {"no such pathway", 2, "25", {{lungLeft, 0}}, {}},
        {"no point of a pathway without a slot", 2, "13", {{lungLeft, 0}}, {}},
    };
    TherapyDesk desk;
    for (const Case& c : cases)
        EXPECT_EQ(desk.energy(c.problem, c.code, c.values), c.rows) << c.rule;
    desk.session.referenceDb->executeScript("update Therapy_e set kdeP = null where therapy = 3;"
                                            "update Therapy_e set therapyText = null where"
                                            " therapy = 2");
    EXPECT_EQ(desk.energy(2, "01", {{lungLeft, 60}}), Lines{"SP 03 t42|04|04030"})
        << "a rule without a text makes no row";
    std::string code = "1";
    Proposals proposals;
    therapyEnergy(desk.context, 1, code, proposals);
    EXPECT_EQ(code, "01") << "the caller sees the widened code";
    EXPECT_THROW(desk.energy(2, "x", {}), Failure);
    desk.session.referenceDb->executeScript("delete from Therapy_e where problem = 1");
    EXPECT_THROW(desk.energy(1, "01", {{lungLeft, 80}}), Failure) << "no text for any row";
    desk.session.koef = 0;
    EXPECT_EQ(desk.energy(2, "01", {{lungLeft, 0}}), Lines{}) << "nothing can be compared";
}

TEST(EnergyTherapy, TheBoundsAreStrict) {
    // 22 points at 100, one at 124 and the lung's left at 76: the level is 100.
    TherapyDesk desk;
    desk.session.odchylka = 24;
    EXPECT_EQ(desk.energy(2, "01", {{lungLeft, 76}, {1, 124}}), Lines{});
    EXPECT_EQ(desk.energy(2, "01", {{lungLeft, 75}, {1, 124}}).size(), 2U);
    EXPECT_EQ(desk.energy(3, "01", {{lungLeft, 124}, {1, 76}}), Lines{});
    EXPECT_EQ(desk.energy(3, "01", {{lungLeft, 125}, {1, 76}}).size(), 2U);
}

TEST(MeridianTherapy, TakesThePointOrItsPairOfEachProposal) {
    TherapyDesk desk;
    desk.replaceProposals("insert into Therapy_m values (2, 1, 2, 16, 'paired', null),"
                          " (1, 1, 1, 16, 'luo', 'careful'), (3, 1, 3, 11, 'shu', null),"
                          " (4, 2, 2, 12, 'mu', 'front')");
    const Proposals left = desk.meridian(1, 12, setP); // the spleen
    EXPECT_TRUE(desk.ran);
    EXPECT_EQ(lines(left), (Lines{"SP 04 t42|04|04040", "ST 40|04|03400", "BL 20 t42|04|07200"}));
    EXPECT_EQ(left[0].text, "luo");
    EXPECT_EQ(left[0].subItem(additionalTextColumn), "careful");
    EXPECT_EQ(left[1].subItem(additionalTextColumn), "");
    EXPECT_EQ(lines(desk.meridian(1, 13, setP)), // the heart's right side
              (Lines{"HT 05 t43|05|05051", "SI 07|05|06071", "BL 15 t43|05|07151"}));
    EXPECT_EQ(lines(desk.meridian(2, 13, setP)), Lines{"CV 14|05|14141"});
}

TEST(MeridianTherapy, AFailureKeepsTheRowsBefore) {
    const std::pair<const char*, const char*> cases[] = {
        {"no proposal at all", ""},
        {"a kind of point that no pathway has",
         "insert into Therapy_m values (1, 1, 1, 16, 'a', null), (2, 1, 1, 8, 'b', null),"
         " (3, 1, 1, 99, 'c', null), (4, 1, 1, 8, 'd', null)"},
        {"a proposal without a text",
         "insert into Therapy_m values (1, 1, 1, 16, 'a', null), (2, 1, 1, 8, 'b', null),"
         " (3, 1, 1, 8, null, null), (4, 1, 1, 8, 'd', null)"},
        {"a proposal with no way to its point",
         "pragma ignore_check_constraints = on;"
         "insert into Therapy_m values (1, 1, 1, 16, 'a', null), (2, 1, 1, 8, 'b', null),"
         " (3, 1, 9, 8, 'c', null), (4, 1, 1, 8, 'd', null)"},
    };
    for (const auto& [rule, rows] : cases) {
        TherapyDesk desk;
        desk.replaceProposals(rows);
        EXPECT_EQ(desk.meridian(1, 1, setP).size(), *rows == '\0' ? 0U : 2U) << rule;
        EXPECT_FALSE(desk.ran) << rule;
    }
    TherapyDesk desk;
    EXPECT_TRUE(desk.meridian(1, 25, setP).empty()) << "no such slot";
    EXPECT_TRUE(desk.meridian(7, 1, setP).empty()) << "no such problem";
}

} // namespace
} // namespace vorna
