#include "clients/client_documents.h"

#include "core/file_names.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace vorna {
namespace {

// A missing template leaves the document missing, which its opening tells.
void makeFromTemplate(const Session& session, std::string_view name, const fs::path& document) {
    attempt([&] { copyFileOver(under(session.dataRoot, name), document); });
}

} // namespace

void openDocument(Platform& platform, const std::filesystem::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error) || !platform.opener.open(path))
        platform.dialogs.message("Unable to open " + pathText(path));
}

void openAnamnesis(const Session& session, Platform& platform) {
    if (session.currentClientFolder.empty())
        return;
    attempt([&] {
        const fs::path document = currentClientFile(session, names::anamnesis);
        if (isMissing(document))
            makeFromTemplate(session, names::anamnesis, document);
        openDocument(platform, document);
    });
}

void openTodaysRecommendation(const Session& session, Platform& platform, MeasurementTab& tab) {
    if (session.currentClientFolder.empty())
        return;
    attempt([&] {
        const std::string today = formatTime(platform.clock.now(), "yyMMdd");
        const fs::path document = currentClientFile(session, names::recommendationOf(today));
        if (isMissing(document)) {
            makeFromTemplate(session, names::recommendation, document);
            fillDocumentList(session, tab);
        }
        openDocument(platform, document);
    });
}

void openSelectedDocument(const Session& session, Platform& platform, const MeasurementTab& tab) {
    const ListRow* const row = tab.documents.selectedRow();
    if (row == nullptr)
        return;
    attempt([&] { openDocument(platform, currentClientFile(session, row->text)); });
}

} // namespace vorna
