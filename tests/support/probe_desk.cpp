#include "tests/support/probe_desk.h"

#include "core/file_names.h"
#include "platform/files.h"

#include <utility>

namespace vorna {

void HeardSounds::play(const std::filesystem::path& file, bool wait) {
    const std::string name = file.stem().string();
    heard_.push_back(wait ? name + ", waited for" : name);
    if (whenHeard)
        whenHeard(name);
    if (wait)
        loop_.wait(std::chrono::seconds{1});
}

std::vector<std::string> HeardSounds::take() {
    return std::exchange(heard_, {});
}

ProbeDesk::ProbeDesk()
    : link((place.openReference(), session), platform, line, mainWindow.activity) {
    std::string texts = "[other]\n";
    for (const char* const key :
         {"t2", "t3", "t4", "t36", "t37", "t38", "t40", "noClient", "t126", "t127", "t128", "t145"})
        texts += std::string(key) + "=" + key + "\n";
    place.folder.write("installation/lang1.ini", texts);
    place.folder.write("VORNA/setup.ini", "[Global]\nport=COM4\n");
    place.useClient("a82654,5");
}

int ProbeDesk::millisecondsSince(LocalTime moment) const {
    return static_cast<int>((seams.clock.now() - moment).count());
}

std::vector<std::string> ProbeDesk::takeShown() {
    return std::exchange(seams.dialogs.shown, {});
}

std::vector<std::string> ProbeDesk::clientFiles() const {
    return listFiles(session.clientsFolder / session.currentClientFolder, "*");
}

} // namespace vorna
