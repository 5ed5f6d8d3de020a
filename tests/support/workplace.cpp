#include "tests/support/workplace.h"

#include "core/file_names.h"
#include "core/reference_database.h"

namespace vorna {
namespace {

// In the plain tables the Czech texts, in the sister tables Czech, English and German; meridian 02
// and the second point have no German row. Language 4 has none at all.
constexpr const char* referenceRows = R"(
insert into Elements values (0, '', ''), (1, 'dřevo', 'zelená'), (2, 'kov', 'bílá');
insert into EnergyTypes values (1, 'jin'), (2, 'jang');
insert into Skelet values (1, 'vlevo'), (2, 'vpravo'), (10, 'ruka'), (11, null);
insert into GrafyTypy values (1, 1, 'Dráhy řízené', 'Plíce');
insert into PointTypes values (1, 'Studna'), (2, 'Pramen');
insert into ProblemTypes values (1, 'Strany se liší'), (2, 'Nedostatek');
insert into Meridians values
  ('01', 'Dráha plic', 'P', '肺', 'popis', 'krátce', 2, 1),
  ('02', 'Dráha tlustého střeva', 'TS', '大腸', 'popis', 'krátce', 1, 2);
insert into Points values
  ('0109', 9, '01', 0, 'Na zápěstí', '太淵', 10),
  ('0111', 11, '01', 1, 'U nehtu', '少商', 10),
  ('0204', 4, '02', 0, 'Mezi palcem a ukazovákem', '合谷', 10);
insert into SpecPoints values ('01', '0111', 1), ('01', '0111', 2);
insert into Therapy_APM values (5, 1, 'Více jin');
insert into Therapy_e (therapy, problem, therapyText) values (1, 1, 'Posílit');
insert into Therapy_m values (1, 1, 1, 1, 'Vyrovnat', 'Navíc');

insert into _Meridians values
  (1, '01', 'Dráha plic', 'P', 'krátce', 'popis'),
  (1, '02', 'Dráha tlustého střeva', 'TS', 'krátce', 'popis'),
  (2, '01', 'Lung Meridian', 'LU', 'in short', 'description'),
  (2, '02', 'Large Intestine Meridian', 'LI', 'in short', 'description'),
  (3, '01', 'Lungen-Meridian', 'Lu', 'kurz', 'Beschreibung');
insert into _elements values (1, 1, 'dřevo', 'zelená'), (2, 1, 'wood', 'green');
insert into _EnergyTypes values (1, 1, 'jin'), (2, 1, 'yin');
insert into _GrafyTypy values (1, 1, 1, 'Dráhy řízené', 'Plíce'), (2, 1, 1, 'Meridians', 'Lung');
insert into _Points values (1, '0109', 'Na zápěstí'), (2, '0109', 'On the wrist');
insert into _pointTypes values (1, 1, 'Studna'), (2, 1, 'Well');
insert into _ProblemTypes values (1, 1, 'Strany se liší'), (2, 1, 'Sides differ');
insert into _skelet values (1, 10, 'ruka'), (2, 10, 'hand');
insert into _Therapy_APM values (1, 5, 1, 'Více jin'), (2, 5, 1, 'More yin');
insert into _Therapy_e values (1, 1, 'Posílit'), (2, 1, 'Strengthen');
insert into _Therapy_m values (1, 1, 'Vyrovnat', 'Navíc'), (2, 1, 'Balance', 'Also');

with recursive slot(k) as (select 1 union all select k + 1 from slot where k < 24)
insert into sadymereni
  select 1, k, case when k <= 12 then 2 * k - 1 else 2 * (k - 12) end, 25 - k,
         printf('%03d%d', k, case when k <= 12 then 1 else 2 end),
         case when k % 12 = 2 then '0204' else '0109' end, k > 12,
         case when k % 12 = 2 then '02' else '01' end
  from slot;
insert into sadymereni values (2, 5, 1, 7, 'T051', '0111', 0, '01');
insert into poradigrafy values (1, 1, 1, 1, 1, 2), (1, 1, 2, 1, 2, 14), (1, 9, 1, 3, 1, 2),
                               (1, 9, 2, 3, 2, 14);
insert into elements6 values ('1', 1, '02');
)";

void runScripts(Database& database, std::string_view schema, const std::string& rows) {
    const fs::path tables = fs::path(VORNA_TEST_SOURCE) / "installation" / "tables";
    Transaction transaction(database);
    database.executeScript(readWholeFile(tables / schema));
    database.executeScript(rows);
    transaction.commit();
}

} // namespace

Workplace::Workplace() {
    session.appFolder = folder / "installation";
    session.dataRoot = folder / "VORNA";
    session.clientsFolder = session.dataRoot / names::data;
    session.modeFolder = session.appFolder / "rezim" / "tcm";
    session.language = languageCzech;
    session.userName = "Dvořák";
    fs::create_directories(session.clientsFolder);
    fs::create_directories(session.modeFolder);
    session.texts.setFile(session.appFolder / names::languageFile(languageCzech), false);
}

void Workplace::openReference() {
    const fs::path file = session.dataRoot / names::referenceTcm;
    session.referenceDb.emplace(file, std::string_view{}, Database::Mode::Create);
    runScripts(*session.referenceDb, "schema.sql", referenceRows);
    session.referenceDb->setPassword(referencePassword);
}

void Workplace::openClients() {
    const fs::path file = session.dataRoot / names::clients;
    session.clientDb.emplace(file, std::string_view{}, Database::Mode::Create);
    runScripts(*session.clientDb, "klienti.sql", {});
}

void Workplace::addClient(std::string_view prijmeni, std::string_view intid,
                          std::string_view zalozeni) {
    session.clientDb->execute(
        "insert into klienti (prijmeni, jmeno, narozeni, telefon, intid, zalozeni)"
        " values (?, 'Jan', '01.02.1980', ?, ?, ?)",
        {std::string(prijmeni), std::to_string(clients++), std::string(intid),
         std::string(zalozeni)});
}

void Workplace::useClient(std::string_view intid) {
    session.currentClientFolder = intid;
    fs::create_directories(session.clientsFolder / intid);
}

} // namespace vorna
