#include "desktop/help/help_view.h"

#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/help/help_pages.h"
#include "desktop/icons.h"
#include "desktop/round_corners.h"
#include "desktop/theme.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include <vector>

namespace vorna {
namespace {

constexpr int topicRole = Qt::UserRole;

std::string withoutAnchor(const std::string& topic) {
    return topic.substr(0, topic.find('#'));
}

} // namespace

HelpView::HelpView(const Session& session, const Window& section, const std::filesystem::path& file)
    : book_(file) {
    const Texts texts(session, section);
    setWindowTitle(QString("VORNA – %1").arg(texts.message("t122")));
    setWindowIcon(drawnIcon("vorna"));
    pages_ = new HelpPages(book_);
    pages_->setAccessibleName(texts.message("t122"));
    pages_->shown = [this](const std::string& topic) { markInContents(topic); };
    auto* const split = new QSplitter(Qt::Horizontal);
    split->setHandleWidth(px(14));
    split->setChildrenCollapsible(false);
    split->addWidget(makeSide(texts));
    split->addWidget(pages_);
    split->setStretchFactor(1, 1);
    split->setSizes({px(310), px(690)});
    new RoundCorners(*pages_);
    auto* const lines = column(0);
    lines->setContentsMargins(px(16), px(16), px(16), px(16));
    lines->addWidget(split);
    setLayout(lines);
    resize(px(1000), px(720));
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            &QWidget::close);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_,
            [this] { search_->setFocus(); });
    fillContents();
    showTopic({});
}

HelpView::~HelpView() = default;

QWidget* HelpView::makeSide(const Texts& texts) {
    auto* const side = new QWidget;
    auto* const lines = column(10);
    side->setLayout(lines);
    auto* const line = row(8);
    QPushButton* const back = button("back");
    back->setAccessibleName(texts("help.back"));
    back->setToolTip(back->accessibleName());
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, pages_, &QTextBrowser::backward);
    connect(pages_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    line->addWidget(back);
    search_ = new QLineEdit;
    search_->setClearButtonEnabled(true);
    search_->addAction(icon("search"), QLineEdit::LeadingPosition);
    search_->setPlaceholderText(texts("Command22.caption"));
    search_->setAccessibleName(texts("Command22.caption"));
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& words) { search(words); });
    line->addWidget(search_, 1);
    lines->addLayout(line);

    contents_ = new QTreeWidget;
    contents_->setHeaderHidden(true);
    contents_->setAccessibleName(texts.message("t122"));
    connect(contents_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        showTopic(item->data(0, topicRole).toString().toStdString());
    });
    connect(contents_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        showTopic(item->data(0, topicRole).toString().toStdString());
    });
    found_ = new QListWidget;
    found_->setWordWrap(true);
    found_->setAccessibleName(texts("Command22.caption"));
    connect(found_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item != nullptr)
            showTopic(item->data(topicRole).toString().toStdString());
    });
    lists_ = new QStackedWidget;
    lists_->addWidget(contents_);
    lists_->addWidget(found_);
    new RoundCorners(*contents_);
    new RoundCorners(*found_);
    lines->addWidget(lists_, 1);
    return side;
}

void HelpView::fillContents() {
    std::vector<QTreeWidgetItem*> above; // by level
    for (const BookEntry& entry : book_.contents()) {
        const auto level = static_cast<std::size_t>(entry.level);
        auto* const item = new QTreeWidgetItem({qt(entry.title)});
        item->setData(0, topicRole, qt(entry.topic));
        if (level == 0 || above.empty())
            contents_->addTopLevelItem(item);
        else
            above[std::min(level, above.size()) - 1]->addChild(item);
        above.resize(std::min(level, above.size()));
        above.push_back(item);
    }
    contents_->expandAll();
}

void HelpView::showTopic(const std::string& topic) {
    const std::string& wanted = topic.empty() ? book_.startTopic() : topic;
    if (wanted.empty())
        return;
    const std::size_t anchor = wanted.find('#');
    QUrl url;
    url.setPath(qt(wanted.substr(0, anchor)));
    if (anchor != std::string::npos)
        url.setFragment(qt(wanted.substr(anchor + 1)));
    pages_->setSource(url);
}

void HelpView::search(const QString& words) {
    found_->clear();
    for (const BookMatch& match : book_.find(words.toStdString())) {
        auto* const item =
            new QListWidgetItem(QString("%1\n%2").arg(qt(match.title), qt(match.excerpt)));
        item->setData(topicRole, qt(match.topic));
        found_->addItem(item);
    }
    lists_->setCurrentIndex(words.trimmed().isEmpty() ? 0 : 1);
}

void HelpView::markInContents(const std::string& topic) {
    for (QTreeWidgetItemIterator at(contents_); *at != nullptr; ++at)
        if (withoutAnchor((*at)->data(0, topicRole).toString().toStdString()) ==
            withoutAnchor(topic)) {
            contents_->setCurrentItem(*at);
            return;
        }
}

} // namespace vorna
