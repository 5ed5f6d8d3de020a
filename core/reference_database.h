// The reference database of the mode: its opening, the switch to the session's language, and the
// small lookups by which everybody asks it. A lookup that finds no row is a Failure unless its
// comment says otherwise.
#pragma once

#include "core/session.h"
#include "platform/failure.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorna {

inline constexpr std::string_view referencePassword = "dremoKLAT";

// Brings the plain tables into the language: rows that differ are rewritten, rows without a text in
// the language keep theirs. A step that fails is passed over; all that ran take effect together.
void nastavJazyk(Database& database, std::int16_t language);

// While it lives, all lookups read one state of the database, which saves each of them the look for
// a writer; whoever wants to write waits. For one evaluation or a start, never while a window is
// up. Without effect where there is no database.
class ReferenceReading {
public:
    explicit ReferenceReading(Session& session);
    ReferenceReading(const ReferenceReading&) = delete;
    ReferenceReading& operator=(const ReferenceReading&) = delete;
    ~ReferenceReading();

private:
    Database* database_ = nullptr;
};

std::string vratSkelet(Session& session, std::int64_t id);
std::string vratElement(Session& session, std::int64_t id);
// The special types of a point, joined by ", "; empty when it has none.
std::string vratTypBodu(Session& session, std::string_view pointLong);
std::string vratTherapyApm(Session& session, int graf, int column);
std::string vratProblem(Session& session, int problem);
// The row id of a client in the client database.
std::int64_t vratIdKlienta(Session& session, std::string_view intid);
// In capital letters.
std::string vratNazevGrafu(Session& session, int id);
// The point is named by the first four characters of the text.
std::string vratPopisBodu(Session& session, std::string_view text);
std::string vratChinaBodu(Session& session, std::string_view text);

// The same of a proposal's tag, which a side's digit ends.
inline std::string vratDescr(Session& session, std::string_view tag) {
    return vratPopisBodu(session, tag);
}
inline std::string vratChina(Session& session, std::string_view tag) {
    return vratChinaBodu(session, tag);
}

// The result of a lookup, or the empty text when it fails: for labels and titles, which a failing
// query leaves empty.
template <class Lookup>
std::string orEmpty(Lookup&& lookup) {
    std::string text;
    attempt([&] { text = lookup(); });
    return text;
}

} // namespace vorna
