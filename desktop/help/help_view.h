// The help: the book's contents and its search at the left, the page at the right. It stands beside
// the main window.
#pragma once

#include "desktop/texts.h"
#include "platform/chm_book.h"

#include <QWidget>

#include <filesystem>
#include <memory>

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTreeWidget;

namespace vorna {

class HelpPages;

class HelpView final : public QWidget {
public:
    // Failure when the file is no help book.
    HelpView(const Session& session, const Window& section, const std::filesystem::path& file);
    ~HelpView() override;

    // An empty topic is the first page.
    void showTopic(const std::string& topic);

private:
    QWidget* makeSide(const Texts& texts);
    void fillContents();
    void search(const QString& words);
    void markInContents(const std::string& topic);

    ChmBook book_;
    QLineEdit* search_ = nullptr;
    QStackedWidget* lists_ = nullptr; // the contents, or what was found
    QTreeWidget* contents_ = nullptr;
    QListWidget* found_ = nullptr;
    HelpPages* pages_ = nullptr;
};

} // namespace vorna
