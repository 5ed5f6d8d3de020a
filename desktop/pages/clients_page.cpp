#include "desktop/card.h"
#include "desktop/icons.h"
#include "desktop/list_table.h"
#include "desktop/pages/pages.h"
#include "desktop/theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {
namespace {

// The columns' shares of the room; the headers come from the list.
TableForm clientForm(const Texts& texts) {
    const auto column = [](std::size_t source, double width, bool second = false) {
        TableColumn made;
        made.source = source;
        made.width = width;
        made.second = second;
        return made;
    };
    TableForm form;
    form.columns = {column(0, 18), column(1, 15),       column(2, 12),      column(3, 14),
                    column(4, 17), column(5, 16, true), column(6, 15, true)};
    form.columns[6].header = "ID";
    form.emptyText = texts("ListView2.empty");
    return form;
}

QWidget* searchRow(const PageParts& parts) {
    ClientListTab& clients = parts.window.clients;
    auto* const whole = new QWidget;
    auto* const line = row();
    whole->setLayout(line);
    auto* const filter = new QLineEdit;
    filter->setMinimumHeight(px(44));
    filter->setMaximumWidth(px(420));
    filter->setPlaceholderText(parts.texts("Text13.empty"));
    filter->setClearButtonEnabled(true);
    filter->addAction(icon("search"), QLineEdit::LeadingPosition);
    filter->setAccessibleName(parts.texts("Text13.empty"));
    parts.binder.bind(clients.filter, *filter);
    QObject::connect(filter, &QLineEdit::textChanged, filter, [&clients, filter] {
        // The sign in the line's end empties it, which is no typing.
        if (filter->text().isEmpty() && !clients.filter.text.get().empty()) {
            clients.filter.text = std::string();
            call(clients.filter.edited);
        }
    });
    line->addWidget(filter, 1);
    QPushButton* const search = button({});
    search->setMinimumHeight(px(44));
    parts.binder.bind(clients.search, *search);
    line->addWidget(search);
    auto* const active = new QCheckBox;
    active->setFocusPolicy(Qt::NoFocus);
    active->setAttribute(Qt::WA_TransparentForMouseEvents);
    parts.binder.bind(static_cast<Control&>(clients.filterActive), *active);
    parts.binder.onChange(clients.filterActive, [&clients, active] {
        active->setText(qt(clients.filterActive.caption).replace('&', "&&"));
        active->setAccessibleName(qt(clients.filterActive.caption));
    });
    parts.binder.onChange(clients.filter, [&clients, active] {
        active->setChecked(!clients.filter.text.get().empty());
    });
    line->addWidget(active);
    line->addStretch(1);
    QPushButton* const added = button("userplus", ButtonRole::Primary);
    added->setMinimumHeight(px(44));
    parts.binder.bind(clients.newClient, *added);
    line->addWidget(added);
    return whole;
}

} // namespace

QWidget* makeClientsPage(const PageParts& parts) {
    ClientListTab& clients = parts.window.clients;
    parts.binder.beginPage();
    auto* const page = new QWidget;
    auto* const lines = column();
    lines->setContentsMargins(px(20), px(18), px(20), px(16));
    page->setLayout(lines);
    lines->addWidget(searchRow(parts));

    auto* const table = new ListTable(clientForm(parts.texts));
    table->setAccessibleName(parts.texts.message("t103"));
    table->setGivingWay({6, 5}, 860);
    parts.binder.bind(clients.list, *table);
    parts.binder.onChange(clients.list, [&clients, table] {
        std::vector<QString> headers;
        for (const std::string& header : clients.list.headers.get())
            headers.push_back(qt(header));
        table->setHeaders(headers);
    });
    lines->addWidget(table, 1);

    auto* const foot = row(10);
    QPushButton* const remove = button("trash", ButtonRole::Danger);
    parts.binder.bind(clients.deleteClient, *remove);
    foot->addWidget(remove);
    foot->addStretch(1);
    const auto exchange = [&](const char* name, const QString& iconName) {
        auto* const control = dynamic_cast<Button*>(parts.window.find(name));
        if (control == nullptr)
            return;
        QPushButton* const made = button(iconName);
        parts.binder.bind(*control, *made);
        foot->addWidget(made);
    };
    exchange("Command24", "import");
    exchange("Command20", "export");
    lines->addLayout(foot);
    return page;
}

} // namespace vorna
