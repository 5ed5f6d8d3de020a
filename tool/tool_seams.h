// The tool's side of the seams: dialogs that are recorded and answered from the command line, a
// clipboard and an opener that note what was asked, silence, and charts drawn without a display.
#pragma once

#include "core/window.h"
#include "platform/chart_drawing.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorna {

struct ShownMessage {
    std::string kind; // "message", "notice" or "question"
    std::string text;
    std::optional<std::string> answer; // of questions
};

// Answers questions in the order given; the last answer stays, and without any it is no or cancel.
// Input boxes are cancelled, and so are choosers that have no path to answer with.
class RecordingDialogs final : public Dialogs {
public:
    RecordingDialogs(EventLoop& loop, std::vector<std::string> answers)
        : loop_(loop), answers_(std::move(answers)) {}

    void message(const std::string& text, const std::string& title) override;
    bool question(const std::string& text, const std::string& title) override;
    bool confirmation(const std::string& text, const std::string& title) override;
    std::string input(const std::string& prompt, const std::string& title) override;
    std::filesystem::path chooseFolder(const std::string& title) override;
    std::filesystem::path chooseFile(const std::string& title, const std::string& pattern) override;
    void notice(const std::string& text) override;

    [[nodiscard]] const std::vector<ShownMessage>& shown() const { return shown_; }

    // What every chooser answers, of which nothing is recorded then.
    std::filesystem::path chosenPath;

private:
    bool ask(const std::string& text, const char* otherwise);
    std::string nextAnswer();
    std::filesystem::path choose(const std::string& title);

    EventLoop& loop_;
    std::vector<std::string> answers_;
    std::size_t answered_ = 0;
    std::vector<ShownMessage> shown_;
};

class RecordingClipboard final : public Clipboard {
public:
    void setText(const std::string& newText) override { text = newText; }
    std::string text;
};

class RecordingOpener final : public Opener {
public:
    bool open(const std::filesystem::path& path) override {
        opened.push_back(path);
        return true;
    }
    std::vector<std::filesystem::path> opened;
};

class SilentSound final : public Sound {
public:
    void play(const std::filesystem::path&, bool) override {}
};

// What Qt needs in a process without a display: the application object, unless there is one.
class OffscreenQt {
public:
    OffscreenQt();
    OffscreenQt(const OffscreenQt&) = delete;
    OffscreenQt& operator=(const OffscreenQt&) = delete;
    ~OffscreenQt();

    // Lets in what comes from outside (a serial port) until a moment, and at least once.
    static void letEventsInUntil(std::chrono::steady_clock::time_point until);

private:
    struct Application;
    std::unique_ptr<Application> application_;
};

// Draws as the desktop does, without a display. What it needs of Qt is made at the first drawing.
class OffscreenDrawing final : public ChartDrawing {
public:
    OffscreenDrawing();
    ~OffscreenDrawing() override;
    void draw(std::string_view document, int chartType, PictureSize size,
              const std::filesystem::path& path) override;

private:
    struct Qt;
    std::unique_ptr<Qt> qt_;
};

// Shows modal windows to whoever looks on: loads the window, lets `visit` act on it, and closes it
// unless it closes itself while the time goes on (as a chart window of a report does).
class ModalWindows final : public WindowHost {
public:
    ModalWindows(EventLoop& loop, std::function<bool(const Window&)> closesItself)
        : loop_(loop), closesItself_(std::move(closesItself)) {}

    void showModal(Window& window) override;

    std::function<void(Window&)> visit;

private:
    EventLoop& loop_;
    std::function<bool(const Window&)> closesItself_;
};

} // namespace vorna
