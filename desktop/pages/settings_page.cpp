#include "desktop/card.h"
#include "desktop/choice_button.h"
#include "desktop/icons.h"
#include "desktop/list_table.h"
#include "desktop/pages/free_measurement_frame.h"
#include "desktop/pages/pages.h"
#include "desktop/state_box.h"
#include "desktop/theme.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <array>

namespace vorna {
namespace {

constexpr int listWidth = 236;
constexpr int narrowListWidth = 196;
constexpr std::array rowIcons{"help", "sliders", "pulse", "info"};

QPushButton* bound(const PageParts& parts, Button& control, const QString& iconName,
                   ButtonRole role = ButtonRole::Plain) {
    QPushButton* const made = button(iconName, role);
    parts.binder.bind(control, *made);
    return made;
}

// ---- Mode and language

QWidget* modeChoices(const PageParts& parts) {
    auto* const whole = new QWidget;
    auto* const line = row(10);
    whole->setLayout(line);
    auto* const group = new QButtonGroup(whole);
    const auto add = [&](CheckBox& control, const char* sign) {
        auto* const choice = new ChoiceButton(sign, ChoiceButton::Form::Beside, false);
        group->addButton(choice);
        parts.binder.bind(control, *choice);
        line->addWidget(choice, 1);
    };
    add(parts.window.apmOption, "star");
    add(parts.window.tcmOption, "taiji");
    return whole;
}

QWidget* languageChoices(const PageParts& parts) {
    // A language's name does not depend on the language in use.
    constexpr std::array names{"Čeština", "English", "Deutsch", "Русский"};
    constexpr std::array flagSigns{"flag-cs", "flag-en", "flag-de", "flag-ru"};
    auto* const whole = new QWidget;
    auto* const line = row(10);
    whole->setLayout(line);
    auto* const group = new QButtonGroup(whole);
    for (const auto& control : parts.window.languageOptions.members) {
        const auto index = static_cast<std::size_t>(control->index());
        auto* const choice = new ChoiceButton(flagSigns.at(index), ChoiceButton::Form::Above, true);
        group->addButton(choice);
        parts.binder.bind(*control, *choice);
        choice->setWord(QString::fromUtf8(names.at(index)));
        line->addWidget(choice, 1);
    }
    return whole;
}

Card* modeCard(const PageParts& parts) {
    auto* const card = new Card("taiji", parts.texts("Frame7.caption"));
    card->body().addWidget(modeChoices(parts));
    card->body().addSpacing(px(6));
    card->body().addWidget(new Heading("globe", parts.texts("Frame8.caption")));
    card->body().addWidget(languageChoices(parts));
    card->body().addWidget(hint("info", parts.texts("Label15.caption")));
    card->body().addWidget(
        bound(parts, parts.window.saveModeAndLanguage, "save", ButtonRole::Primary));
    return card;
}

// ---- The other groups

Card* practitionerCard(const PageParts& parts) {
    MainWindow& window = parts.window;
    auto* const card = new Card("card", parts.texts("Frame10.caption"));
    const auto add = [&](const char* label, TextBox& box) {
        auto* const edit = new QLineEdit;
        card->body().addWidget(field(parts.texts(label), *edit));
        parts.binder.bind(box, *edit);
    };
    add("SkinLabel17.caption", window.practitionerName);
    add("SkinLabel18.caption", window.practitionerContact);
    add("SkinLabel19.caption", window.practitionerAddress);
    card->body().addWidget(bound(parts, window.savePractitioner, "save"), 0, Qt::AlignRight);
    return card;
}

QWidget* lineList(const PageParts& parts, ListView& list, const Button& named) {
    TableForm form;
    form.emptyText = parts.texts(list.name() + ".empty");
    form.columns = {TableColumn{}};
    form.headers = false;
    form.rowHeight = 28;
    auto* const table = new ListTable(std::move(form));
    table->setFixedHeight(px(92));
    table->setAccessibleName(qt(named.caption));
    parts.binder.bind(list, *table);
    return table;
}

Card* probeCard(const PageParts& parts) {
    ProbeSettings& probe = parts.window.probe;
    auto* const card = new Card("probe", parts.texts("Frame11.caption"));
    card->body().addWidget(new StateBox(parts.binder, probe.calibrationText));
    card->body().addWidget(bound(parts, probe.calibrate, "pulse"));
    auto* const lists = row(10);
    const auto add = [&](Button& control, const char* iconName, ListView& list) {
        auto* const lines = column(8);
        lines->addWidget(bound(parts, control, iconName));
        lines->addWidget(lineList(parts, list, control));
        lists->addLayout(lines, 1);
    };
    add(probe.findProbe, "search", probe.searchResult);
    add(probe.listPorts, "usb", probe.ports);
    card->body().addLayout(lists);
    card->body().addWidget(bound(parts, probe.useSimulated, "probe"));
    return card;
}

Card* templateCard(const PageParts& parts) {
    auto* const card = new Card("doc", parts.texts("Frame12.caption"));
    auto* const line = row(10);
    line->addWidget(bound(parts, parts.window.anamnesisTemplate, "edit"), 1);
    line->addWidget(bound(parts, parts.window.recommendationTemplate, "edit"), 1);
    card->body().addLayout(line);
    return card;
}

Card* dataCard(const PageParts& parts) {
    MainWindow& window = parts.window;
    auto* const card = new Card("folder", parts.texts("Frame13.caption"));
    card->body().addWidget(bound(parts, window.exportGroup, "export"));
    auto* const imports = row(10);
    imports->addWidget(bound(parts, window.importGroup, "import"), 1);
    imports->addWidget(bound(parts, window.importFolders, "folder"), 1);
    card->body().addLayout(imports);
    card->body().addWidget(bound(parts, window.deleteAllData, "alert", ButtonRole::DangerOutlined),
                           0, Qt::AlignRight);
    return card;
}

// Two columns of cards, one below the other where there is no room beside it.
class CardColumns final : public QScrollArea {
public:
    CardColumns() {
        auto* const content = new QWidget;
        content->setLayout(sides_);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setWidget(content);
    }

    void add(std::initializer_list<Card*> cards) {
        auto* const lines = column();
        for (Card* const card : cards)
            lines->addWidget(card);
        lines->addStretch(1);
        sides_->addLayout(lines, 1);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        int needed = sides_->spacing() * (sides_->count() - 1);
        for (int i = 0; i < sides_->count(); ++i)
            needed += sides_->itemAt(i)->minimumSize().width();
        sides_->setDirection(viewport()->width() < needed ? QBoxLayout::TopToBottom
                                                          : QBoxLayout::LeftToRight);
        QScrollArea::resizeEvent(event);
    }

private:
    QBoxLayout* sides_ = row(16);
};

QWidget* settingsFrame(const PageParts& parts) {
    auto* const columns = new CardColumns;
    columns->add({modeCard(parts), practitionerCard(parts)});
    columns->add({probeCard(parts), templateCard(parts), dataCard(parts)});
    return columns;
}

QWidget* aboutFrame(const PageParts& parts) {
    auto* const card = new Card("info", parts.texts("aboutFrame.caption"));
    auto* const sign = new QLabel;
    sign->setPixmap(drawnIcon("vorna").pixmap(px(96)));
    auto* const name = new QLabel("VORNA");
    name->setFont(sizedFont(34, true));
    auto* const version = new QLabel;
    parts.binder.bind(parts.window.settings.version, *version);
    auto* const line = row(20);
    auto* const words = column(6);
    words->addWidget(name);
    words->addWidget(wrappingLabel(parts.texts("Label18.caption")));
    auto* const number = row(6);
    number->addWidget(new QLabel(parts.texts("Label19.caption")));
    number->addWidget(version);
    number->addStretch(1);
    words->addLayout(number);
    line->addWidget(sign, 0, Qt::AlignTop);
    line->addLayout(words, 1);
    card->body().addLayout(line);
    card->body().addStretch(1);
    return card;
}

QWidget* settingsList(const PageParts& parts) {
    TableForm form;
    form.columns = {TableColumn{}};
    form.headers = false;
    form.rowHeight = 48;
    const ListView& list = parts.window.settingsList;
    form.sign = [&list](const ListRow& row) {
        const auto place = static_cast<std::size_t>(&row - list.unfinishedRows().data());
        return place < rowIcons.size() ? QString(rowIcons.at(place)) : QString();
    };
    auto* const table = new ListTable(std::move(form));
    table->setFixedHeight(px(48) * static_cast<int>(rowIcons.size()) + 2);
    table->setMinimumWidth(px(narrowListWidth));
    table->setMaximumWidth(px(listWidth));
    table->setAccessibleName(parts.texts.message("t108"));
    table->setChosenByEnter();
    parts.binder.bind(parts.window.settingsList, *table);
    return table;
}

} // namespace

QWidget* makeSettingsPage(const PageParts& parts) {
    parts.binder.beginPage();
    auto* const page = new QWidget;
    auto* const line = row(16);
    line->setContentsMargins(px(20), px(18), px(20), px(16));
    page->setLayout(line);
    line->addWidget(settingsList(parts), 0, Qt::AlignTop);
    QWidget* const settings = settingsFrame(parts);
    parts.binder.bind(static_cast<Control&>(parts.window.settings.settings), *settings);
    QWidget* const free = makeFreeMeasurementFrame(parts);
    parts.binder.bind(static_cast<Control&>(parts.window.freeMeasurement.frame), *free);
    QWidget* const about = aboutFrame(parts);
    parts.binder.bind(static_cast<Control&>(parts.window.settings.about), *about);
    for (QWidget* const frame : {settings, free, about})
        line->addWidget(frame, 1);
    line->addStretch(0);
    return page;
}

} // namespace vorna
