// The texts of headings and hints that belong to a window's look alone: keys of its section in the
// language files, as "Frame2.caption".
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <QString>

#include <string>
#include <utility>

namespace vorna {

class Texts {
public:
    Texts(const Session& session, const Window& window)
        : session_(session), section_(window.section()) {}

    [[nodiscard]] QString operator()(const std::string& key) const {
        return QString::fromStdString(session_.texts.value(section_, key));
    }
    // The text of a key in the section of messages.
    [[nodiscard]] QString message(const std::string& key) const {
        return QString::fromStdString(session_.texts.value("other", key));
    }

private:
    const Session& session_;
    std::string section_;
};

} // namespace vorna
