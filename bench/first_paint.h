// Ends a program once its window has been painted for the first time.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

class FirstPaint final : public QObject {
public:
    explicit FirstPaint(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) // the turn that paints comes to its end first
            QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
        return QObject::eventFilter(watched, event);
    }
};
