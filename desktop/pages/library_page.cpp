#include "desktop/card.h"
#include "desktop/icons.h"
#include "desktop/list_table.h"
#include "desktop/pages/pages.h"
#include "desktop/picture_view.h"
#include "desktop/text_view.h"
#include "desktop/theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace vorna {
namespace {

constexpr std::size_t elementColumn = 2;
constexpr int sideWidth = 228;
constexpr int leastPathwayLine = 350;

TableColumn tableColumn(std::size_t source, double width, bool fixed = false) {
    TableColumn made;
    made.source = source;
    made.width = width;
    made.fixed = fixed;
    return made;
}

void followHeaders(const PageParts& parts, ListView& list, ListTable& table) {
    parts.binder.onChange(list, [&list, &table] {
        std::vector<QString> headers;
        for (const std::string& header : list.headers.get())
            headers.push_back(qt(header));
        table.setHeaders(headers);
    });
}

// A text box that looks like a label of its card.
QLineEdit* quietLine(double size, bool bold) {
    auto* const line = new QLineEdit;
    line->setReadOnly(true);
    line->setFrame(false);
    line->setFocusPolicy(Qt::ClickFocus);
    line->setFont(sizedFont(size, bold));
    return line;
}

// The chosen pathway with its button, which goes below where there is no room beside it.
class PathwayCard final : public Card {
public:
    PathwayCard() { body().addLayout(line_); }
    QBoxLayout& line() { return *line_; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        line_->setDirection(width() < px(leastPathwayLine) ? QBoxLayout::TopToBottom
                                                           : QBoxLayout::LeftToRight);
        Card::resizeEvent(event);
    }

private:
    QBoxLayout* line_ = row(12);
};

QWidget* meridianColumn(const PageParts& parts) {
    LibraryTab& tab = parts.window.library;
    auto* const whole = new QWidget;
    auto* const lines = column(10);
    whole->setLayout(lines);
    lines->addWidget(new Heading({}, parts.texts("Frame16.caption")));
    TableForm form;
    form.columns = {tableColumn(0, 58, true), tableColumn(1, 45), tableColumn(2, 19),
                    tableColumn(3, 19), tableColumn(4, 17)};
    auto* const table = new ListTable(std::move(form));
    table->setAccessibleName(parts.texts("Frame16.caption"));
    table->setGivingWay({4, 3, 2}, 400);
    parts.binder.bind(tab.meridianGrid, *table);
    followHeaders(parts, tab.meridianGrid, *table);
    lines->addWidget(table, 1);

    auto* const card = new PathwayCard;
    auto* const names = column(0);
    QLineEdit* const meridian = quietLine(17, true);
    meridian->setAccessibleName(parts.texts("Frame16.caption"));
    parts.binder.bind(tab.meridianBox, *meridian);
    QLineEdit* const china = quietLine(20, false);
    china->setAccessibleName("中文");
    parts.binder.bind(tab.chinaBox, *china);
    names->addWidget(meridian);
    names->addWidget(china);
    card->line().addLayout(names, 1);
    for (Button* const control : {&tab.showApm, &tab.showTcm}) {
        QPushButton* const show = button("body");
        parts.binder.bind(*control, *show);
        card->line().addWidget(show);
    }
    lines->addWidget(card);
    return whole;
}

// Of the point in a row of the grid; none for a point without an element.
QColor elementColour(const LibraryTab& tab, const ListRow& row) {
    const auto place = static_cast<std::size_t>(&row - tab.pointGrid.unfinishedRows().data());
    if (place >= tab.points.size() || tab.points[place].elementname.empty())
        return {};
    const int element = qt(tab.points[place].povel).toInt();
    const auto& colours = theme().elements;
    const bool known = element >= 1 && element <= static_cast<int>(colours.size());
    return known ? colours.at(static_cast<std::size_t>(element - 1)) : QColor();
}

QWidget* pointColumn(const PageParts& parts) {
    LibraryTab& tab = parts.window.library;
    auto* const whole = new QWidget;
    auto* const lines = column(10);
    whole->setLayout(lines);
    auto* const heading = new Heading({}, parts.texts("Frame17.caption"));
    heading->setNote(parts.texts("Label13.caption"));
    lines->addWidget(heading);
    TableForm form;
    form.columns = {tableColumn(0, 56, true), tableColumn(1, 62, true), tableColumn(2, 88, true),
                    tableColumn(3, 100)};
    form.columns[0].icon = true;
    form.columns[0].buttonIcon = "plus";
    form.columns[0].buttonName = parts.texts("DataGrid2.add");
    form.emptyText = parts.texts("DataGrid2.empty");
    form.columns[1].icon = true;
    form.lines = 2;
    form.rowHeight = 46;
    form.dot = [&tab](const ListRow& row, std::size_t column) {
        return column == elementColumn ? elementColour(tab, row) : QColor();
    };
    auto* const table = new ListTable(std::move(form));
    table->setAccessibleName(parts.texts("Frame17.caption"));
    table->setGivingWay({2}, 330);
    parts.binder.bind(tab.pointGrid, *table);
    followHeaders(parts, tab.pointGrid, *table);
    lines->addWidget(table, 1);

    auto* const card = new Card;
    auto* const line = row(16);
    QLineEdit* const point = quietLine(28, true);
    point->setMaximumWidth(px(90));
    point->setAccessibleName(parts.texts("Frame17.caption"));
    parts.binder.bind(tab.pointBox, *point);
    line->addWidget(point);
    auto* const types = new TextView;
    types->setFixedHeight(px(62));
    types->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    types->setFont(sizedFont(14));
    types->setAccessibleName(parts.texts("Frame17.caption"));
    parts.binder.bind(tab.pointTypesBox, *types);
    line->addWidget(types, 1);
    card->body().addLayout(line);
    lines->addWidget(card);
    return whole;
}

// A small picture with its name below, which opens the large one.
QWidget* teachingPicture(const PageParts& parts, Picture& control, const QString& drawing) {
    auto* const made = new QPushButton;
    made->setIcon(drawnIcon(drawing));
    made->setIconSize({px(64), px(64)});
    made->setMinimumHeight(px(104));
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* const lines = new QVBoxLayout(made);
    lines->setContentsMargins(px(4), px(6), px(4), px(6));
    auto* const picture = new QLabel;
    picture->setPixmap(made->icon().pixmap(px(64)));
    picture->setAlignment(Qt::AlignCenter);
    made->setIcon({});
    auto* const name = new QLabel;
    name->setFont(sizedFont(12.5));
    name->setAlignment(Qt::AlignCenter);
    for (QLabel* const label : {picture, name})
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    lines->addWidget(picture, 1);
    lines->addWidget(name);
    parts.binder.bind(static_cast<Control&>(control), *made);
    parts.binder.onChange(control, [&control, name, made] {
        name->setText(qt(control.caption));
        made->setAccessibleName(qt(control.caption));
    });
    QObject::connect(made, &QPushButton::clicked, made, [&control] { call(control.clicked); });
    return made;
}

QWidget* pictureColumn(const PageParts& parts) {
    LibraryTab& tab = parts.window.library;
    auto* const whole = new QWidget;
    auto* const lines = column(10);
    whole->setLayout(lines);
    whole->setFixedWidth(px(sideWidth));
    lines->addWidget(new Heading({}, parts.texts("Frame18.caption")));
    auto* const grid = new QGridLayout;
    grid->setSpacing(px(8));
    grid->addWidget(teachingPicture(parts, tab.star, "teach-star"), 0, 0);
    grid->addWidget(teachingPicture(parts, tab.pentagram, "teach-pentagram"), 0, 1);
    grid->addWidget(teachingPicture(parts, tab.yin, "teach-yin"), 1, 0);
    grid->addWidget(teachingPicture(parts, tab.yang, "teach-yang"), 1, 1);
    lines->addLayout(grid);
    auto* const heading = new Heading({}, parts.texts("Frame19.caption"));
    parts.binder.onChange(tab.printList, [&tab, heading] {
        heading->setNote(QString("%1 / %2").arg(tab.printList.size()).arg(printListLength));
    });
    lines->addWidget(heading);
    TableForm form;
    form.columns = {tableColumn(0, 100)};
    form.headers = false;
    form.emptyText = parts.texts("ListView3.empty");
    auto* const table = new ListTable(std::move(form));
    table->setAccessibleName(parts.texts("Frame19.caption"));
    parts.binder.bind(tab.printList, *table);
    lines->addWidget(table, 1);
    lines->addWidget(hint("info", parts.texts("Label14.caption")));
    QPushButton* const print = button("printer");
    parts.binder.bind(tab.printPictures, *print);
    lines->addWidget(print);
    return whole;
}

} // namespace

QWidget* makeLibraryPage(const PageParts& parts) {
    parts.binder.beginPage();
    auto* const page = new QWidget;
    auto* const line = row(16);
    line->setContentsMargins(px(20), px(16), px(20), px(16));
    page->setLayout(line);
    auto* const split = new QSplitter(Qt::Horizontal);
    split->addWidget(meridianColumn(parts));
    split->addWidget(pointColumn(parts));
    split->setChildrenCollapsible(false);
    split->setHandleWidth(px(16));
    line->addWidget(split, 1);
    line->addWidget(pictureColumn(parts));
    return page;
}

} // namespace vorna
