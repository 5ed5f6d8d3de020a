// The detail window of the library: up to two pictures of a meridian or point and what is known of
// it.
#pragma once

#include "core/session.h"
#include "core/window.h"

#include <string>

namespace vorna {

struct InfoPanel final : Window {
    explicit InfoPanel(const Session& session);

    Picture picture{*this, "Image1"};
    Picture secondPicture{*this, "Image2"}; // empty when there is one picture alone
    TextBox name{*this, "Text1"};
    TextBox kind{*this, "Text2"};        // the element, or the special types of a point
    TextBox description{*this, "Text3"}; // empty where only the short one is shown
    TextBox shortDescription{*this, "Text4"};
    Label view{*this, "Label1"}; // "APM" or "TCM"; empty for a point
    Label china{*this, "Label2"};
    Button back{*this, "Command4"};
};

} // namespace vorna
