#include "desktop/desktop_program.h"

#include "desktop/font_reading.h"
#include "desktop/qt_texts.h"
#include "desktop/seams/late_library.h"
#include "desktop/theme.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/program_folders.h"

#include <QApplication>
#include <QCommandLineParser>

#include <iostream>

namespace vorna {
namespace {

// What a handler lets out ends the program in order, after it was said why.
class Application final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            std::cerr << "vorna: " << error.what() << '\n';
            failed = true;
            if (ended)
                ended();
            return true;
        }
    }

    std::function<void()> ended;
    bool failed = false;
};

ThemeChoice themeOf(const QString& name) {
    if (name == "light")
        return ThemeChoice::Light;
    return name == "dark" ? ThemeChoice::Dark : ThemeChoice::FollowDesktop;
}

} // namespace

DesktopProgram::DesktopProgram(StartupFolders folders)
    : folders_(std::move(folders)), dialogs_(loop_), platform_{.loop = loop_,
                                                               .clock = clock_,
                                                               .locale = localeByName({}),
                                                               .dialogs = dialogs_,
                                                               .clipboard = clipboard_,
                                                               .opener = opener_,
                                                               .sound = sound_,
                                                               .drawing = drawing_},
      windows_(session_, loop_), context_{.session = session_,
                                          .state = state_,
                                          .platform = platform_,
                                          .windows = windows_,
                                          .clientList = window_.clients.list,
                                          .measurementList = window_.measurements.list,
                                          .recommend = {}},
      search_(loop_), work_(window_.work) {
    window_.makeArchive = [](WorkProgress* progress) {
        return seamOfLibrary<decltype(makeArchive)>("archive", "makeArchive", progress);
    };
    bindMainWindow(window_, context_, [this] { end(0); });
    measuring_ = std::make_unique<Measuring>(window_, context_,
                                             ProbeSeams{.line = line_, .search = search_});
}

DesktopProgram::~DesktopProgram() = default;

void DesktopProgram::start() {
    std::error_code error; // without the folder the steps of start-up fail, each on its own
    std::filesystem::create_directories(folders_.commonData, error);
    const bool firstRun = startUp(folders_, session_, window_, platform_);
    textsOfQt_ = textsOfQt(session_.language);
    view_ = std::make_unique<MainView>(session_, window_);
    windows_.behind = view_.get();
    windows_.helpWanted = [this] { showHelp(helpFile(session_)); };
    if (firstRun)
        view_->takeFirstPlace();
    window_.showHelp = [this](const std::filesystem::path& file) { showHelp(file); };
    view_->helpWanted = [this] { showHelp(helpFile(session_)); };
    view_->closed = [this] {
        shutDown(session_, window_, platform_);
        end(0);
    };
}

void DesktopProgram::show() {
    view_->show();
}

int DesktopProgram::run() const {
    if (!ended_)
        QCoreApplication::exec();
    return exitCode_;
}

void DesktopProgram::showHelp(const std::filesystem::path& file) {
    // A help that is missing is told as a help viewer would.
    if (!help_ && !attempt([&] { help_ = std::make_unique<HelpView>(session_, window_, file); })) {
        dialogs_.message(
            "The file " + pathText(file) +
                " does not exist.\nPlease make sure that you have installed help files",
            {});
        return;
    }
    help_->show();
    help_->raise();
    help_->activateWindow();
}

void DesktopProgram::end(int exitCode) {
    ended_ = true;
    exitCode_ = exitCode;
    loop_.end();
    QCoreApplication::exit(exitCode);
}

int runDesktop(int count, char** arguments) {
    Application application(count, arguments);
    QCoreApplication::setApplicationName("vorna");
    QGuiApplication::setDesktopFileName("vorna");
    QCommandLineParser options;
    options.setApplicationDescription("Measures and evaluates meridians.");
    options.addHelpOption();
    options.addOptions({{"app", "The installation folder.", "folder"},
                        {"data", "The common application data folder.", "folder"},
                        {"theme", "light, dark, or desktop.", "theme", "desktop"}});
    options.process(application);
    readFontsBeside();
    applyTheme(application, themeOf(options.value("theme")));
    const auto folder = [&](const char* name, std::filesystem::path otherwise) {
        return options.isSet(name) ? std::filesystem::path(options.value(name).toStdU16String())
                                   : std::move(otherwise);
    };
    DesktopProgram program({folder("app", executableFolder()), folder("data", commonDataFolder())});
    application.ended = [&program] { program.end(1); };
    program.start();
    program.show();
    const int exitCode = program.run();
    application.ended = {}; // the program goes before its application
    return application.failed ? 1 : exitCode;
}

} // namespace vorna
