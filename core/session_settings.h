// The numeric settings of a session. Each is read in one of three ways, and the ways differ at the
// edges.
#pragma once

#include "core/session.h"
#include "platform/locale.h"

namespace vorna {

// The settings that start-up reads early (posunrez, maxhod, koeflog), then dobamer, then those of
// evaluation and conversion. Unreadable text gives the default for maxhod and koeflog, as 0 does;
// for the others it leaves 0, and only the empty text gives the default.
void readScaleSettings(Session& session, const Locale& locale);
void readMeasuringTime(Session& session, const Locale& locale);
void readEvaluationSettings(Session& session, const Locale& locale);

} // namespace vorna
