// The client's rich-text documents: the system places them, another program edits them.
#pragma once

#include "clients/measurement_tab.h"
#include "core/session.h"
#include "platform/platform.h"

#include <filesystem>

namespace vorna {

// Opens a document with the desktop's program for it and does not wait. What is missing or taken
// by no program is told.
void openDocument(Platform& platform, const std::filesystem::path& path);

// The anamnesis of the current client, made from the template at its first opening. Nothing
// without a client.
void openAnamnesis(const Session& session, Platform& platform);

// The recommendation of today, made from the template when there is none yet; at most one a day.
// Nothing without a client.
void openTodaysRecommendation(const Session& session, Platform& platform, MeasurementTab& tab);

// The document that is selected in the list. Nothing when none is.
void openSelectedDocument(const Session& session, Platform& platform, const MeasurementTab& tab);

} // namespace vorna
