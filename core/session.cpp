#include "core/session.h"

#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {
namespace {

Database& opened(std::optional<Database>& database) {
    if (!database)
        throw Failure("a database is not open");
    return *database;
}

} // namespace

std::string alphabetOf(std::int16_t language) {
    switch (language) {
    case languageCzech:
        return "cs";
    case languageGerman:
        return "de";
    case languageRussian:
        return "ru";
    default:
        return "en";
    }
}

Database& referenceDatabase(Session& session) {
    return opened(session.referenceDb);
}

Database& clientDatabase(Session& session) {
    return opened(session.clientDb);
}

std::filesystem::path currentClientFile(const Session& session, std::string_view name) {
    const std::string& folder = session.currentClientFolder;
    if (isForbiddenFileName(name) || (!folder.empty() && isForbiddenFileName(folder)))
        throw Failure("a client's file has a name that no folder can hold");
    return under(under(session.clientsFolder, folder), name);
}

} // namespace vorna
