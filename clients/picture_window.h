// The picture window: one picture file, and a button that closes it.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <filesystem>
#include <string_view>

namespace vorna {

struct PictureWindow final : Window {
    explicit PictureWindow(const Session& session);

    Picture picture{*this, "Image1"};
    Button back{*this, "Command4"};
};

// Shows a picture file modally. With a file that is missing the window stays empty.
void showPicture(const Session& session, WindowHost& windows, const std::filesystem::path& file);

// One of the mode's pictures with words in them: "hvezdice", "tomek-jin" or "tomek-jang", in the
// session's language.
void showLanguagePicture(const Session& session, WindowHost& windows, std::string_view stem);

} // namespace vorna
