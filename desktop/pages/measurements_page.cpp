#include "desktop/card.h"
#include "desktop/list_table.h"
#include "desktop/pages/pages.h"
#include "desktop/theme.h"
#include "desktop/tile.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace vorna {
namespace {

constexpr int panelWidth = 336;
constexpr int narrowPanelWidth = 272;
constexpr int narrowBelow = 1000; // pixels of the 15 px body text

// The control key with the right button on the list copies, as the button does.
class CopyClick final : public QObject {
public:
    CopyClick(const Button& copy, QObject* parent) : QObject(parent), copy_(copy) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) {
            const auto* const mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::RightButton &&
                (mouse->modifiers() & Qt::ControlModifier) != 0) {
                copy_.click();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    const Button& copy_;
};

// The charts in one row of seven, or in two rows where the room is narrow.
class TileGrid final : public QWidget {
public:
    explicit TileGrid(std::vector<ChartTile*> tiles) : tiles_(std::move(tiles)) {
        grid_ = new QGridLayout;
        grid_->setContentsMargins(0, 0, 0, 0);
        grid_->setSpacing(px(9));
        setLayout(grid_);
        lay(false);
    }
    // In two rows, so that the window may become narrow enough for them.
    [[nodiscard]] QSize minimumSizeHint() const override { return {px(330), px(100)}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        const bool low = window()->width() < px(narrowBelow) || window()->height() < px(640);
        if (low != low_)
            lay(low);
    }

private:
    void lay(bool low) {
        low_ = low;
        const int inRow = low ? 4 : 7;
        for (ChartTile* const tile : tiles_)
            grid_->removeWidget(tile);
        for (std::size_t i = 0; i < tiles_.size(); ++i) {
            tiles_[i]->setLow(low);
            const int place = static_cast<int>(i);
            grid_->addWidget(tiles_[i], place / inRow, place % inRow);
        }
        for (int c = 0; c < 7; ++c)
            grid_->setColumnStretch(c, c < inRow ? 1 : 0);
    }

    std::vector<ChartTile*> tiles_;
    QGridLayout* grid_;
    bool low_ = false;
};

// Narrower where its window is.
class SidePanel final : public QScrollArea {
public:
    SidePanel() {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFixedWidth(px(panelWidth));
    }
    void fit(int windowWidth) {
        const int wanted = px(windowWidth < px(narrowBelow) ? narrowPanelWidth : panelWidth);
        const QSize needed = widget()->minimumSizeHint();
        const int bar = needed.height() > height() ? verticalScrollBar()->sizeHint().width() : 0;
        setFixedWidth(std::max(wanted, needed.width() + bar));
    }
};

class MeasurementsPage final : public QWidget {
public:
    SidePanel* panel = nullptr;

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        panel->fit(width());
    }
};

TableForm measurementForm(const Texts& texts) {
    TableForm form;
    for (std::size_t i = 0; i < 4; ++i) {
        TableColumn column;
        column.source = i;
        constexpr std::array widths{182.0, 12.0, 36.0, 15.0};
        column.width = widths.at(i);
        column.fixed = i == 0; // a date with its time
        form.columns.push_back(column);
    }
    form.checks = true;
    form.emptyText = texts("ListView1.empty");
    return form;
}

QWidget* kindButtons(const PageParts& parts) {
    MainWindow& window = parts.window;
    auto* const whole = new QWidget;
    auto* const line = row(12);
    whole->setLayout(line);
    for (Button* const control : {&window.measureSource, &window.measureTerminal,
                                  &window.measureBiorhythm, &window.measureEnergy}) {
        auto* const kind = new KindButton;
        parts.binder.bind(*control, *kind);
        line->addWidget(kind, 1);
    }
    return whole;
}

QWidget* chartTiles(const PageParts& parts) {
    std::vector<ChartTile*> tiles;
    for (const auto& control : parts.window.chartButtons.members) {
        const int index = control->index();
        auto* const tile = new ChartTile(QString("tile-%1").arg(index));
        parts.binder.bindPassive(*control, *tile);
        if (Label* const label = parts.window.chartLabels.at(index))
            parts.binder.onChange(*label, [label, tile] { tile->setName(qt(label->caption)); });
        tiles.push_back(tile);
    }
    return new TileGrid(std::move(tiles));
}

QWidget* historyTable(const PageParts& parts) {
    MeasurementTab& tab = parts.window.measurements;
    auto* const table = new ListTable(measurementForm(parts.texts));
    table->setAccessibleName(parts.texts("Frame1.caption"));
    table->setMinimumHeight(px(110));
    parts.binder.bind(tab.list, *table);
    table->viewport()->installEventFilter(new CopyClick(tab.copyMeasurement, table));
    parts.binder.onChange(tab.list, [&tab, table] {
        std::vector<QString> headers;
        for (const std::string& header : tab.list.headers.get())
            headers.push_back(qt(header));
        table->setHeaders(headers);
    });
    return table;
}

QWidget* leftSide(const PageParts& parts) {
    MeasurementTab& tab = parts.window.measurements;
    auto* const whole = new QWidget;
    auto* const lines = column(10);
    whole->setLayout(lines);
    lines->addWidget(new Heading({}, parts.texts("Frame14.caption")));
    lines->addWidget(kindButtons(parts));
    auto* const history = new Heading({}, parts.texts("Frame1.caption").remove(':'));
    history->setNote(parts.texts("Label16.caption"));
    lines->addWidget(history);
    lines->addWidget(historyTable(parts), 1);
    auto* const foot = row(10);
    QPushButton* const remove = button("trash", ButtonRole::Danger);
    parts.binder.bind(tab.deleteMeasurement, *remove);
    foot->addWidget(remove);
    foot->addStretch(1);
    QPushButton* const copy = button("copy", ButtonRole::Quiet);
    parts.binder.bind(tab.copyMeasurement, *copy);
    foot->addWidget(copy);
    lines->addLayout(foot);
    lines->addWidget(new Heading({}, parts.texts("Frame15.caption")));
    lines->addWidget(chartTiles(parts));
    return whole;
}

Card* printCard(const PageParts& parts) {
    PrintPanel& print = parts.window.print;
    auto* const card = new Card("printer", parts.texts("Frame9.caption"));
    QVBoxLayout& body = card->body();
    body.setSpacing(px(3));
    const auto add = [&](CheckBox& control) {
        auto* const check = new QCheckBox;
        parts.binder.bind(control, *check);
        body.addWidget(check);
    };
    for (const auto& chart : print.charts.members)
        add(*chart);
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setForegroundRole(QPalette::Mid);
    body.addSpacing(px(6));
    body.addWidget(line);
    body.addSpacing(px(6));
    add(print.history);
    add(print.recommendation);
    add(print.pictures);
    body.addSpacing(px(8));
    QPushButton* const go = button("printer", ButtonRole::Primary);
    go->setMinimumHeight(px(48));
    parts.binder.bind(print.print, *go);
    body.addWidget(go);
    return card;
}

Card* documentsCard(const PageParts& parts) {
    MeasurementTab& tab = parts.window.measurements;
    auto* const card = new Card("doc", parts.texts("Frame5.caption"));
    TableForm form;
    form.columns = {TableColumn{}};
    form.headers = false;
    form.emptyText = parts.texts("List4.empty");
    auto* const table = new ListTable(std::move(form));
    table->setAccessibleName(parts.texts("Frame5.caption"));
    table->setMinimumHeight(px(110));
    parts.binder.bind(tab.documents, *table);
    card->body().addWidget(table, 1);
    QPushButton* const edit = button("edit");
    parts.binder.bind(tab.todaysRecommendation, *edit);
    card->body().addWidget(edit);
    return card;
}

} // namespace

QWidget* makeMeasurementsPage(const PageParts& parts) {
    parts.binder.beginPage();
    auto* const page = new MeasurementsPage;
    auto* const line = row(18);
    line->setContentsMargins(px(20), px(16), px(20), px(16));
    page->setLayout(line);
    line->addWidget(leftSide(parts), 1);
    auto* const right = new QWidget;
    auto* const cards = column();
    right->setLayout(cards);
    cards->addWidget(printCard(parts));
    cards->addWidget(documentsCard(parts), 1);
    page->panel = new SidePanel;
    page->panel->setWidget(right);
    line->addWidget(page->panel);
    return page;
}

} // namespace vorna
