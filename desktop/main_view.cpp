#include "desktop/main_view.h"

#include "desktop/card.h"
#include "desktop/icons.h"
#include "desktop/pages/pages.h"
#include "desktop/picture_view.h"
#include "desktop/tab_bar.h"
#include "desktop/theme.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace vorna {
namespace {

constexpr int widthForIcons = 1000; // pixels of the 15 px body text
constexpr std::array flagNames{"flag-cs", "flag-en", "flag-de", "flag-ru"};

// A round label in the strip.
class Badge final : public QWidget {
public:
    explicit Badge(QWidget* parent = nullptr) : QWidget(parent) {
        auto* const line = row(8);
        line->setContentsMargins(px(11), px(5), px(11), px(5));
        setLayout(line);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(theme().line);
        painter.setBrush(theme().surface);
        const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.drawRoundedRect(box, box.height() / 2, box.height() / 2);
    }
};

struct Sign {
    QIcon drawing;
    QSize size;
};

QWidget* badge(Binder& binder, Picture& control, const Sign& sign, bool withWord) {
    auto* const made = new Badge;
    auto* const picture = new QLabel;
    made->layout()->addWidget(picture);
    auto* const word = new QLabel(made);
    word->setFont(sizedFont(13, true));
    setShown(*word, withWord);
    if (withWord)
        made->layout()->addWidget(word);
    binder.bind(static_cast<Control&>(control), *made);
    binder.onChange(control, [&control, made, picture, sign, word, withWord] {
        if (control.visible && picture->pixmap().isNull())
            picture->setPixmap(sign.drawing.pixmap(sign.size));
        if (withWord)
            word->setText(qt(control.caption));
        made->setToolTip(qt(control.caption));
        made->setAccessibleName(qt(control.caption));
    });
    return made;
}

} // namespace

MainView::MainView(const Session& session, MainWindow& window)
    : window_(window), texts_(session, window), binder_(window) {
    auto* const lines = column(0);
    setLayout(lines);
    lines->addWidget(makeStrip());
    pages_ = new QStackedWidget;
    for (std::size_t i = 0; i < mainTabCount; ++i) {
        auto* const page = new QWidget;
        page->setLayout(column(0));
        pages_->addWidget(page);
    }
    makePage(window.tabs.selected);
    lines->addWidget(pages_, 1);
    nextPage_.setInterval(0);
    connect(&nextPage_, &QTimer::timeout, this, [this] { makeNextPage(); });
    binder_.onChange(window.tabs, [this] { showPage(); });
    binder_.windowChanged = [this] { setWindowTitle(qt(window_.caption())); };
    setWindowTitle(qt(window.caption()));
    setWindowIcon(drawnIcon("vorna"));
    addShortcuts();
    const auto pixels = [](float twips) { return static_cast<int>(twips / twipsPerPixel); };
    setGeometry(pixels(window.place.left), pixels(window.place.top), pixels(window.place.width),
                pixels(window.place.height));
    placed_ = true;
    if (QWidget* const filter = binder_.widgetOf(window.clients.filter))
        filter->setFocus();
}

MainView::~MainView() = default;

void MainView::takeFirstPlace() {
    constexpr int firstWidth = 1280;
    constexpr int firstHeight = 800;
    const QRect room = screen()->availableGeometry();
    const QSize size = QSize(px(firstWidth), px(firstHeight)).boundedTo(room.size());
    setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, room));
}

QWidget* MainView::makeStrip() {
    auto* const strip = new QWidget;
    strip->setAutoFillBackground(true);
    QPalette palette = strip->palette();
    palette.setColor(QPalette::Window, theme().raised);
    strip->setPalette(palette);
    auto* const line = row(8);
    line->setContentsMargins(px(20), 0, px(20), 0);
    strip->setLayout(line);
    tabs_ =
        new TabBar(binder_, window_.tabs, {"users", "card", "pulse", "bars", "book", "sliders"});
    line->addWidget(tabs_, 1);
    line->addWidget(makeBadges());
    auto* const whole = new QWidget;
    auto* const lines = column(0);
    whole->setLayout(lines);
    lines->addWidget(strip);
    auto* const hairline = new QFrame;
    hairline->setFixedHeight(1);
    hairline->setAutoFillBackground(true);
    palette.setColor(QPalette::Window, theme().line);
    hairline->setPalette(palette);
    lines->addWidget(hairline);
    return whole;
}

QWidget* MainView::makeBadges() {
    auto* const badges = new QWidget;
    badges->setFixedHeight(px(32));
    auto* const line = row(8);
    badges->setLayout(line);
    const auto sign = [](const char* name) { return Sign{icon(name), {px(18), px(18)}}; };
    line->addWidget(badge(binder_, window_.activity, sign("pulse"), false));
    line->addWidget(badge(binder_, window_.apmBadge, sign("star"), true));
    line->addWidget(badge(binder_, window_.tcmBadge, sign("taiji"), true));
    for (const auto& flag : window_.flags.members) {
        const char* const name = flagNames.at(static_cast<std::size_t>(flag->index()));
        line->addWidget(badge(binder_, *flag, {drawnIcon(name), {px(24), px(16)}}, false));
    }
    return badges;
}

void MainView::addShortcuts() {
    constexpr std::array tabOfKey{MainTab::Clients, MainTab::Card, MainTab::Measurements,
                                  MainTab::Library, MainTab::Settings};
    for (std::size_t i = 0; i < tabOfKey.size(); ++i) {
        const auto keys =
            QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(i)));
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, tab = tabOfKey.at(i)] {
                    const auto index = static_cast<std::size_t>(tab);
                    if (window_.tabs.tabs()[index].enabled)
                        window_.tabs.select(index);
                });
    }
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            [this] { call(helpWanted); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
            [this] { goToFilter(); });
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, this,
            [this] { window_.clients.newClient.click(); });
}

void MainView::goToFilter() {
    window_.tabs.select(static_cast<std::size_t>(MainTab::Clients));
    binder_.showChanges();
    if (auto* const filter = qobject_cast<QLineEdit*>(binder_.widgetOf(window_.clients.filter))) {
        filter->setFocus();
        filter->selectAll();
    }
}

void MainView::showPage() {
    makePage(window_.tabs.selected);
    pages_->setCurrentIndex(window_.tabs.selected);
}

void MainView::makePage(int index) {
    using Maker = QWidget* (*)(const PageParts&);
    // Nothing is on the tab of the charts, and it is never shown.
    constexpr std::array<Maker, mainTabCount> makers{&makeClientsPage,      &makeCardPage,
                                                     &makeMeasurementsPage, nullptr,
                                                     &makeLibraryPage,      &makeSettingsPage};
    const Maker maker = makers.at(static_cast<std::size_t>(index));
    QLayout& page = *pages_->widget(index)->layout();
    if (maker != nullptr && page.isEmpty())
        page.addWidget(maker({window_, binder_, texts_}));
}

void MainView::makeNextPage() {
    if (madePages_ == pages_->count())
        nextPage_.stop();
    else
        makePage(madePages_++);
}

void MainView::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (madePages_ == 0)
        nextPage_.start();
}

void MainView::keepPlace() {
    if (!placed_ || isMaximized() || isMinimized())
        return;
    const QRect place = geometry();
    const auto twips = [](int pixels) { return static_cast<float>(pixels) * twipsPerPixel; };
    window_.place = {twips(place.left()), twips(place.top()), twips(place.width()),
                     twips(place.height())};
}

void MainView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    tabs_->setWithIcons(width() >= px(widthForIcons));
    keepPlace();
}

void MainView::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    keepPlace();
}

void MainView::closeEvent(QCloseEvent* event) {
    event->accept();
    call(closed);
}

} // namespace vorna
