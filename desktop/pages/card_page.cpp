#include "desktop/card.h"
#include "desktop/pages/pages.h"
#include "desktop/theme.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace vorna {
namespace {

// Fields that stand side by side in a card.
void addPair(QVBoxLayout& body, QWidget* left, QWidget* right) {
    auto* const line = row(12);
    line->addWidget(left, 1);
    line->addWidget(right, 1);
    body.addLayout(line);
}

struct CardFields {
    const PageParts& parts;

    [[nodiscard]] QWidget* text(const char* label, TextBox& box) const {
        auto* const edit = new QLineEdit;
        QWidget* const whole = field(parts.texts(label), *edit);
        parts.binder.bind(box, *edit);
        return whole;
    }
    [[nodiscard]] QWidget* readOnly(const char* label, TextBox& box) const {
        auto* const edit = new QLineEdit;
        edit->setReadOnly(true);
        edit->setFocusPolicy(Qt::ClickFocus);
        QWidget* const whole = field(parts.texts(label), *edit);
        parts.binder.bind(box, *edit);
        return whole;
    }
    [[nodiscard]] QWidget* combo(const char* label, ComboBox& box) const {
        auto* const edit = new QComboBox;
        QWidget* const whole = field(parts.texts(label), *edit);
        parts.binder.bind(box, *edit);
        return whole;
    }
    [[nodiscard]] QWidget* date(const char* label, MaskedBox& box) const {
        auto* const edit = new QLineEdit;
        QWidget* const whole = field(parts.texts(label), *edit);
        parts.binder.bind(box, *edit);
        return whole;
    }
};

Card* personCard(const PageParts& parts, const CardFields& fields) {
    ClientCard& card = parts.window.card;
    auto* const person = new Card("card", parts.texts("Frame2.caption"));
    QVBoxLayout& body = person->body();
    addPair(body, fields.text("SkinLabel1.caption", card.surname),
            fields.text("SkinLabel2.caption", card.firstName));
    addPair(body, fields.text("SkinLabel5.caption", card.titleBefore),
            fields.text("SkinLabel6.caption", card.titleAfter));
    auto* const line = row(12);
    line->addWidget(fields.text("SkinLabel7.caption", card.personalNumber), 1);
    QPushButton* const fill = button("load");
    parts.binder.bind(card.fillFromNumber, *fill);
    line->addWidget(fill, 0, Qt::AlignBottom);
    body.addLayout(line);
    addPair(body, fields.date("SkinLabel3.caption", card.born),
            fields.combo("SkinLabel8.caption", card.gender));
    body.addWidget(fields.combo("SkinLabel9.caption", card.maritalStatus));
    body.addStretch(1);
    return person;
}

Card* addressCard(const PageParts& parts, const CardFields& fields) {
    ClientCard& card = parts.window.card;
    auto* const address = new Card("globe", parts.texts("Frame3.caption"));
    QVBoxLayout& body = address->body();
    body.addWidget(fields.text("SkinLabel10.caption", card.address));
    body.addWidget(fields.text("SkinLabel11.caption", card.address2));
    body.addWidget(fields.text("SkinLabel12.caption", card.occupation));
    addPair(body, fields.text("SkinLabel4.caption", card.telephone),
            fields.text("SkinLabel13.caption", card.telephone2));
    body.addWidget(fields.text("SkinLabel15.caption", card.email));
    body.addStretch(1);
    return address;
}

QWidget* recordColumn(const PageParts& parts, const CardFields& fields) {
    ClientCard& card = parts.window.card;
    auto* const whole = new QWidget;
    auto* const lines = column(16);
    whole->setLayout(lines);
    auto* const anamnesis = new Card("doc", parts.texts("Frame4.caption"));
    anamnesis->body().addWidget(hint("info", parts.texts("Label11.caption")));
    QPushButton* const open = button("edit");
    parts.binder.bind(card.anamnesis, *open);
    anamnesis->body().addWidget(open);
    lines->addWidget(anamnesis);
    auto* const record = new Card("info", parts.texts("Frame6.caption"));
    record->body().addWidget(fields.readOnly("SkinLabel14.caption", card.founded));
    record->body().addWidget(fields.readOnly("SkinLabel16.caption", card.lastVisit));
    lines->addWidget(record);
    lines->addStretch(1);
    return whole;
}

} // namespace

QWidget* makeCardPage(const PageParts& parts) {
    parts.binder.beginPage();
    auto* const cards = new QWidget;
    auto* const line = row(16);
    line->setContentsMargins(px(20), px(18), px(20), px(6));
    cards->setLayout(line);
    const CardFields fields{parts};
    line->addWidget(personCard(parts, fields), 5, Qt::AlignTop);
    line->addWidget(addressCard(parts, fields), 5, Qt::AlignTop);
    line->addWidget(recordColumn(parts, fields), 4);

    auto* const scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(cards);
    auto* const page = new QWidget;
    auto* const lines = column(8);
    lines->setContentsMargins(0, 0, 0, px(16));
    page->setLayout(lines);
    lines->addWidget(scroll, 1);
    auto* const foot = row();
    foot->setContentsMargins(px(20), 0, px(20), 0);
    foot->addWidget(hint("info", parts.texts("Label12.caption")), 1, Qt::AlignVCenter);
    QPushButton* const save = button("save", ButtonRole::Primary);
    save->setMinimumHeight(px(48));
    parts.binder.bind(parts.window.card.save, *save);
    foot->addWidget(save);
    lines->addLayout(foot);
    return page;
}

} // namespace vorna
