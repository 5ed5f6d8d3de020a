// The desktop's services: its clipboard and its default programs.
#pragma once

#include "platform/dialogs.h"

namespace vorna {

class QtClipboard final : public Clipboard {
public:
    void setText(const std::string& text) override;
};

class QtOpener final : public Opener {
public:
    bool open(const std::filesystem::path& path) override;
};

} // namespace vorna
