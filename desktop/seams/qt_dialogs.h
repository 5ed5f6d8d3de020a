// What the user is told and asked in windows of the desktop: message boxes, questions, choosers and
// the notice that closes itself.
#pragma once

#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace vorna {

class QtDialogs final : public Dialogs {
public:
    explicit QtDialogs(EventLoop& loop) : loop_(loop) {}

    void message(const std::string& text, const std::string& title) override;
    bool question(const std::string& text, const std::string& title) override;
    bool confirmation(const std::string& text, const std::string& title) override;
    std::string input(const std::string& prompt, const std::string& title) override;
    std::filesystem::path chooseFolder(const std::string& title) override;
    std::filesystem::path chooseFile(const std::string& title, const std::string& pattern) override;
    void notice(const std::string& text) override;

private:
    EventLoop& loop_;
};

} // namespace vorna
