#include "tool/tool_seams.h"

#include "platform/qt/qt_chart_drawing.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <thread>

namespace vorna {
namespace {

constexpr auto noticeDuration = std::chrono::milliseconds{2000};

} // namespace

void RecordingDialogs::message(const std::string& text, const std::string&) {
    shown_.push_back({"message", text, std::nullopt});
}

bool RecordingDialogs::question(const std::string& text, const std::string&) {
    return ask(text, "no");
}

bool RecordingDialogs::confirmation(const std::string& text, const std::string&) {
    return ask(text, "cancel");
}

bool RecordingDialogs::ask(const std::string& text, const char* otherwise) {
    std::string answer = nextAnswer();
    const bool yes = answer == "yes" || answer == "ok";
    shown_.push_back({"question", text, answer.empty() ? otherwise : std::move(answer)});
    return yes;
}

std::string RecordingDialogs::input(const std::string& prompt, const std::string&) {
    shown_.push_back({"question", prompt, "cancel"});
    return {};
}

std::filesystem::path RecordingDialogs::chooseFolder(const std::string& title) {
    return choose(title);
}

std::filesystem::path RecordingDialogs::chooseFile(const std::string& title, const std::string&) {
    return choose(title);
}

void RecordingDialogs::notice(const std::string& text) {
    shown_.push_back({"notice", text, std::nullopt});
    loop_.wait(noticeDuration);
}

std::filesystem::path RecordingDialogs::choose(const std::string& title) {
    if (chosenPath.empty())
        shown_.push_back({"question", title, "cancel"});
    return chosenPath;
}

std::string RecordingDialogs::nextAnswer() {
    if (answers_.empty())
        return {};
    const std::size_t next = std::min(answered_, answers_.size() - 1);
    ++answered_;
    return answers_[next];
}

struct OffscreenQt::Application {
    int argumentCount = 1;
    std::array<char, 11> name{"vorna-tool"};
    std::array<char*, 2> arguments{name.data(), nullptr};
    std::unique_ptr<QGuiApplication> application;
};

OffscreenQt::OffscreenQt() : application_(std::make_unique<Application>()) {
    if (QCoreApplication::instance() != nullptr)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Standard error belongs to the tool's own lines.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    application_->application = std::make_unique<QGuiApplication>(application_->argumentCount,
                                                                  application_->arguments.data());
}

OffscreenQt::~OffscreenQt() = default;

void OffscreenQt::letEventsInUntil(std::chrono::steady_clock::time_point until) {
    using namespace std::chrono_literals;
    constexpr std::chrono::steady_clock::duration step = 1ms;
    for (;;) {
        QCoreApplication::processEvents();
        const auto rest = until - std::chrono::steady_clock::now();
        if (rest <= 0ms)
            return;
        std::this_thread::sleep_for(std::min(rest, step));
    }
}

// The drawing over the application object that fonts and pictures need.
struct OffscreenDrawing::Qt {
    OffscreenQt application;
    QtChartDrawing drawing;
};

OffscreenDrawing::OffscreenDrawing() = default;
OffscreenDrawing::~OffscreenDrawing() = default;

void OffscreenDrawing::draw(std::string_view document, int chartType, PictureSize size,
                            const std::filesystem::path& path) {
    if (!qt_)
        qt_ = std::make_unique<Qt>();
    qt_->drawing.draw(document, chartType, size, path);
}

void ModalWindows::showModal(Window& window) {
    window.open();
    window.load();
    if (visit)
        visit(window);
    if (closesItself_ && closesItself_(window))
        loop_.runUntil([&] { return window.closed(); });
    if (!window.closed())
        window.close();
}

} // namespace vorna
