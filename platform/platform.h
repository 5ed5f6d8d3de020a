// The seams of one process, handed to whoever needs the world outside. The program makes each
// once; all outlive what they are handed to.
#pragma once

#include "platform/chart_drawing.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/locale.h"

namespace vorna {

struct Platform {
    EventLoop& loop;
    Clock& clock;
    Locale locale;
    Dialogs& dialogs;
    Clipboard& clipboard;
    Opener& opener;
    Sound& sound;
    ChartDrawing& drawing;
};

} // namespace vorna
