// The main window: the strip of tabs with the badges of mode, language and activity, and below it
// the page of the tab in front. The only window that is open all the time.
#pragma once

#include "application/main_window.h"
#include "desktop/binder.h"
#include "desktop/texts.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QStackedWidget;

namespace vorna {

class TabBar;

class MainView final : public QWidget {
public:
    // The window is started up and bound. All that is passed must outlive the view.
    MainView(const Session& session, MainWindow& window);
    ~MainView() override;

    // A roomy size in the middle of the screen, for a start that has none of before.
    void takeFirstPlace();

    [[nodiscard]] Binder& binder() { return binder_; }

    // The window is closed by the user.
    std::function<void()> closed;
    // F1.
    std::function<void()> helpWanted;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeStrip();
    QWidget* makeBadges();
    void addShortcuts();
    void goToFilter();
    void keepPlace();
    void showPage();
    void makePage(int index);
    void makeNextPage();

    MainWindow& window_;
    Texts texts_;
    Binder binder_;
    TabBar* tabs_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    // The page in front is made at once, the others in the turns after the first painting.
    QTimer nextPage_;
    int madePages_ = 0;
    bool placed_ = false;
};

} // namespace vorna
