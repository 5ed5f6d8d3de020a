// The small card over the middle of its owner that says a sentence and goes by itself: it takes no
// key and no answer, and a thin bar tells how long it stays.
#pragma once

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace vorna {

class NoticeWindow final : public QWidget {
public:
    NoticeWindow(const QString& text, std::chrono::milliseconds shown, QWidget* owner);

protected:
    void paintEvent(QPaintEvent* event) override;
    // It goes by itself alone.
    void closeEvent(QCloseEvent* event) override { event->ignore(); }

private:
    std::chrono::milliseconds shown_;
    QElapsedTimer elapsed_;
    QTimer redraw_;
};

} // namespace vorna
