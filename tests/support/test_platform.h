// The seams without a desktop: what was asked and shown is kept, answers are given beforehand, and
// the time moves by waits alone.
#pragma once

#include "platform/platform.h"
#include "platform/virtual_event_loop.h"

#include <deque>
#include <string>
#include <vector>

namespace vorna {

class ScriptedDialogs final : public Dialogs {
public:
    explicit ScriptedDialogs(EventLoop& loop) : loop_(loop) {}

    void message(const std::string& text, const std::string& title) override {
        keep("message", text, title);
    }
    bool question(const std::string& text, const std::string& title) override {
        keep("question", text, title);
        return next(answers);
    }
    bool confirmation(const std::string& text, const std::string& title) override {
        keep("confirmation", text, title);
        return next(answers);
    }
    std::string input(const std::string& prompt, const std::string& title) override {
        keep("input", prompt, title);
        return next(inputs);
    }
    std::filesystem::path chooseFolder(const std::string& title) override {
        keep("folder", {}, title);
        return next(paths);
    }
    std::filesystem::path chooseFile(const std::string& title,
                                     const std::string& pattern) override {
        keep("file", pattern, title);
        return next(paths);
    }
    void notice(const std::string& text) override {
        keep("notice", text, {});
        loop_.wait(std::chrono::milliseconds{2000});
    }

    // "message: text", or "message: text | title" where there is a title.
    std::vector<std::string> shown;
    // The answers, first to last; when they run out: No, the empty text, cancelled.
    std::deque<bool> answers;
    std::deque<std::string> inputs;
    std::deque<std::filesystem::path> paths;

private:
    void keep(const std::string& kind, const std::string& text, const std::string& title) {
        shown.push_back(kind + ": " + text + (title.empty() ? "" : " | " + title));
    }
    template <class T>
    static T next(std::deque<T>& given) {
        T value{};
        if (!given.empty()) {
            value = given.front();
            given.pop_front();
        }
        return value;
    }

    EventLoop& loop_;
};

struct RecordingClipboard final : Clipboard {
    void setText(const std::string& text) override { texts.push_back(text); }
    std::vector<std::string> texts;
};

struct RecordingOpener final : Opener {
    bool open(const std::filesystem::path& path) override {
        opened.push_back(path);
        return true;
    }
    std::vector<std::filesystem::path> opened;
};

struct RecordingSound final : Sound {
    void play(const std::filesystem::path& file, bool) override { played.push_back(file); }
    std::vector<std::filesystem::path> played;
};

struct RecordingDrawing final : ChartDrawing {
    void draw(std::string_view document, int, PictureSize, const std::filesystem::path&) override {
        documents.emplace_back(document);
    }
    std::vector<std::string> documents;
};

// The 31st of January 2025, 14:30:05, in a Czech locale.
struct TestPlatform {
    VirtualClock clock{*parseTime("2025-01-31T14:30:05")};
    VirtualEventLoop loop{clock};
    ScriptedDialogs dialogs{loop};
    RecordingClipboard clipboard;
    RecordingOpener opener;
    RecordingSound sound;
    RecordingDrawing drawing;
    Platform platform{loop,  clock,  localeByName("cs_CZ"), dialogs, clipboard, opener,
                      sound, drawing};
};

} // namespace vorna
