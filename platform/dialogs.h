// What the user is told and asked, and the desktop's services: message boxes, questions, choosers,
// notices, the clipboard, the default programs and the sounds. The logic knows only these seams.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace vorna {

class Dialogs {
public:
    virtual ~Dialogs() = default;
    // A message box with one button. `title` may be empty: the program's name then.
    virtual void message(const std::string& text, const std::string& title = {}) = 0;
    // Yes and No; the safe answer No is the default.
    virtual bool question(const std::string& text, const std::string& title = {}) = 0;
    // OK and Cancel; Cancel is the default.
    virtual bool confirmation(const std::string& text, const std::string& title = {}) {
        return question(text, title);
    }
    // A line of text; empty when cancelled.
    virtual std::string input(const std::string& prompt, const std::string& title) = 0;
    // Empty when cancelled.
    virtual std::filesystem::path chooseFolder(const std::string& title) = 0;
    virtual std::filesystem::path chooseFile(const std::string& title,
                                             const std::string& pattern) = 0;
    // A text that closes itself after 2000 ms; comes back when it has, while other timers go on.
    virtual void notice(const std::string& text) = 0;
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    // Replaces what was there.
    virtual void setText(const std::string& text) = 0;
};

class Opener {
public:
    virtual ~Opener() = default;
    // Opens a document or page with the desktop's default program, without waiting for it.
    // False when no program took it.
    virtual bool open(const std::filesystem::path& path) = 0;
};

class Sound {
public:
    virtual ~Sound() = default;
    // Plays a file; a missing file or device is silence. With `wait` it comes back when the sound
    // has ended, and never later than the sound is long.
    virtual void play(const std::filesystem::path& file, bool wait) = 0;
};

} // namespace vorna
