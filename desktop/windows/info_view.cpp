#include "clients/info_panel.h"
#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/picture_view.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace vorna {
namespace {

// A text box that is read: it stands as long as there is something in it.
QLabel* readText(Binder& binder, TextBox& box, double size, bool bold) {
    QLabel* const label = textLabel(size, bold, theme().ink);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    binder.bind(static_cast<Control&>(box), *label);
    binder.onChange(box, [&box, label] {
        label->setText(qt(box.text).trimmed());
        setShown(*label, box.visible && !label->text().isEmpty());
    });
    return label;
}

QWidget* infoPictures(Binder& binder, InfoPanel& window) {
    auto* const whole = new QWidget;
    auto* const line = row(12);
    whole->setLayout(line);
    for (Picture* const control : {&window.picture, &window.secondPicture}) {
        auto* const picture = new PictureView;
        picture->setSizeWanted({px(200), px(190)});
        bindUnlessEmpty(binder, *control, *picture);
        binder.onChange(window.name,
                        [&window, picture] { picture->setName(qt(window.name.text)); });
        line->addWidget(picture, 1);
    }
    return whole;
}

Card* infoText(Binder& binder, InfoPanel& window) {
    auto* const card = new Card;
    QVBoxLayout& lines = card->body();
    lines.setSpacing(px(6));
    auto* const head = row(14);
    head->addWidget(readText(binder, window.name, 22, true), 1);
    QLabel* const china = textLabel(24, false, theme().ink);
    china->setWordWrap(false);
    bindUnlessEmpty(binder, window.china, *china);
    head->addWidget(china);
    QLabel* const view = textLabel(15, true, theme().accent);
    bindUnlessEmpty(binder, window.view, *view);
    head->addWidget(view);
    lines.addLayout(head);
    lines.addWidget(readText(binder, window.kind, 15, true));
    lines.addWidget(readText(binder, window.shortDescription, 17, false));
    lines.addWidget(readText(binder, window.description, 17, false));
    return card;
}

} // namespace

std::unique_ptr<WindowView> makeInfoView(const Session&, InfoPanel& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    auto* const content = new QWidget;
    QVBoxLayout* const parts = column(12);
    content->setLayout(parts);
    parts->addWidget(infoPictures(binder, window), 1);
    parts->addWidget(infoText(binder, window));
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(scrollingColumn(content), 1);
    auto* const foot = new WindowFoot;
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    lines->addWidget(foot);
    view->setFirstSize(960, 820);
    return view;
}

} // namespace vorna
