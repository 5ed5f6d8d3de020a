#include "desktop/seams/qt_dialogs.h"

#include "desktop/seams/notice_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include <chrono>

namespace vorna {
namespace {

constexpr std::chrono::milliseconds noticeTime{2000};

QString qtText(const std::string& text) {
    return QString::fromStdString(text);
}

QString titled(const std::string& title) {
    return title.empty() ? QStringLiteral("VORNA") : qtText(title);
}

// The window that what is said now belongs to.
QWidget* owner() {
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows)
        if (window->isVisible())
            return window;
    return nullptr;
}

std::filesystem::path pathOf(const QString& chosen) {
    return std::filesystem::path(chosen.toStdU16String());
}

} // namespace

void QtDialogs::message(const std::string& text, const std::string& title) {
    QMessageBox box(QMessageBox::Information, titled(title), qtText(text), QMessageBox::Ok,
                    owner());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtDialogs::question(const std::string& text, const std::string& title) {
    QMessageBox box(QMessageBox::Question, titled(title), qtText(text),
                    QMessageBox::Yes | QMessageBox::No, owner());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

bool QtDialogs::confirmation(const std::string& text, const std::string& title) {
    QMessageBox box(QMessageBox::Question, titled(title), qtText(text),
                    QMessageBox::Ok | QMessageBox::Cancel, owner());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Ok;
}

std::string QtDialogs::input(const std::string& prompt, const std::string& title) {
    bool accepted = false;
    const QString text = QInputDialog::getText(owner(), titled(title), qtText(prompt),
                                               QLineEdit::Normal, {}, &accepted);
    return accepted ? text.toStdString() : std::string{};
}

std::filesystem::path QtDialogs::chooseFolder(const std::string& title) {
    return pathOf(QFileDialog::getExistingDirectory(owner(), titled(title)));
}

std::filesystem::path QtDialogs::chooseFile(const std::string& title, const std::string& pattern) {
    // "Words (*.zip)|*.zip": what stands before the bar is the form that Qt reads.
    const QString filter = qtText(pattern).section('|', 0, 0);
    return pathOf(QFileDialog::getOpenFileName(owner(), titled(title), {}, filter));
}

void QtDialogs::notice(const std::string& text) {
    NoticeWindow window(qtText(text), noticeTime, owner());
    window.show();
    loop_.wait(noticeTime);
}

} // namespace vorna
