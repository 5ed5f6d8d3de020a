// A practitioner's desk with a probe: a workplace whose texts are their own keys, a device link on
// a scripted line (COM4, dobamer 40, koef 30, posun 0), sounds that are heard, and the time moved
// by waits.
#pragma once

#include "acquisition/device_link.h"
#include "tests/support/scripted_serial_line.h"
#include "tests/support/test_platform.h"
#include "tests/support/workplace.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// Notes what was played, "pip" or with waiting "dingdong, waited for"; a sound that is waited for
// takes a second.
class HeardSounds final : public Sound {
public:
    explicit HeardSounds(EventLoop& loop) : loop_(loop) {}
    void play(const std::filesystem::path& file, bool wait) override;
    // The sounds so far, which are then forgotten.
    std::vector<std::string> take();

    std::function<void(const std::string& name)> whenHeard;

private:
    EventLoop& loop_;
    std::vector<std::string> heard_;
};

struct ProbeDesk {
    ProbeDesk();

    // Lets time pass.
    void pass(int milliseconds) { seams.loop.wait(std::chrono::milliseconds{milliseconds}); }
    [[nodiscard]] int millisecondsSince(LocalTime moment) const;
    // What was shown so far, which is then forgotten.
    std::vector<std::string> takeShown();
    // The files of the client's folder.
    [[nodiscard]] std::vector<std::string> clientFiles() const;

    struct ActivityWindow final : Window {
        ActivityWindow() : Window("Form1") {}
        Picture activity{*this, "Image9"};
    };

    Workplace place;
    Session& session = place.session;
    TestPlatform seams;
    HeardSounds sounds{seams.loop};
    Platform platform{seams.loop,    seams.clock,     seams.platform.locale,
                      seams.dialogs, seams.clipboard, seams.opener,
                      sounds,        seams.drawing};
    ScriptedSerialLine line;
    ActivityWindow mainWindow;
    DeviceLink link;
};

} // namespace vorna
