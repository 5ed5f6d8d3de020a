#include "desktop/help/help_pages.h"

#include "desktop/theme.h"
#include "platform/failure.h"

#include <QDesktopServices>
#include <QRegularExpression>
#include <QUrl>

namespace vorna {

HelpPages::HelpPages(const ChmBook& book, QWidget* parent) : QTextBrowser(parent), book_(book) {
    setFrameShape(QFrame::NoFrame);
    setOpenExternalLinks(false);
    document()->setDocumentMargin(px(20));
    document()->setDefaultFont(sizedFont(15));
}

// Qt reads few of a style sheet's rules: the page is given the program's own look.
QString HelpPages::themed(QString page) const {
    const Theme& t = theme();
    const QString look =
        QString("<style>body{color:%1}h1{font-size:%4px;color:%2}h2{font-size:%5px;color:%2}"
                "h3{font-size:%6px}a{color:%2}code,kbd{color:%3}th{color:%3;text-align:left}"
                "td,th{padding:%7px}p{margin-bottom:%7px}li{margin-bottom:%8px}</style>")
            .arg(t.ink.name(), t.accent.name(), t.ink2.name())
            .arg(px(26))
            .arg(px(19))
            .arg(px(16))
            .arg(px(6))
            .arg(px(4));
    static const QRegularExpression sheet("<link[^>]*stylesheet[^>]*>");
    page.remove(sheet);
    const qsizetype head = page.indexOf("</head>", 0, Qt::CaseInsensitive);
    return head < 0 ? look + page : page.insert(head, look);
}

QVariant HelpPages::loadResource(int type, const QUrl& name) {
    const std::string topic = name.path().toStdString();
    QVariant found;
    attempt([&] {
        if (type == QTextDocument::HtmlResource) {
            found = themed(QString::fromStdString(book_.readPage(topic)));
        } else {
            const std::string bytes = book_.read(topic);
            found = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
        }
    });
    return found;
}

void HelpPages::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (!name.scheme().isEmpty() && name.scheme() != "file")
        return; // the book leads nowhere outside
    QTextBrowser::doSetSource(name, type);
    if (shown)
        shown(source().path().toStdString());
}

} // namespace vorna
