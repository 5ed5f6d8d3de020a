// The page of the help book that is read now, with the way back.
#pragma once

#include "platform/chm_book.h"

#include <QTextBrowser>

#include <functional>
#include <string>

namespace vorna {

class HelpPages final : public QTextBrowser {
public:
    // The book must outlive it.
    explicit HelpPages(const ChmBook& book, QWidget* parent = nullptr);

    std::function<void(const std::string& topic)> shown;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    [[nodiscard]] QString themed(QString page) const;

    const ChmBook& book_;
};

} // namespace vorna
