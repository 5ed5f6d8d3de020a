#include "desktop/chart_view.h"

#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/list_table.h"
#include "desktop/text_view.h"
#include "desktop/texts.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"
#include "evaluation/chart_window.h"

#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace vorna {
namespace {

// In pixels of the 15 px body text.
constexpr int evaluationWidth = 420;
constexpr int besideFrom = 1100;
constexpr double evaluationShareBelow = 0.42;
constexpr const char* takesKeyboard = "vornaTakesKeyboard";

// The chart fills the window; the evaluation stands beside it, or below where the window is narrow.
class ChartWindowView final : public WindowView {
public:
    ChartWindowView(ChartWindow& window, QSplitter* split) : WindowView(window), split_(split) {}

protected:
    void resizeEvent(QResizeEvent* event) override {
        WindowView::resizeEvent(event);
        const bool beside = width() >= px(besideFrom);
        const Qt::Orientation wanted = beside ? Qt::Horizontal : Qt::Vertical;
        if (std::exchange(laidOut_, true) && split_->orientation() == wanted)
            return;
        split_->setOrientation(wanted);
        const int all = beside ? width() : height();
        const int evaluation =
            beside ? px(evaluationWidth) : static_cast<int>(all * evaluationShareBelow);
        split_->setSizes({std::max(all - evaluation, 1), evaluation});
    }

private:
    QSplitter* split_;
    bool laidOut_ = false;
};

QString problemSign(const ListRow& row) {
    if (row.tag == "1")
        return "lr";
    return row.tag == "2" ? "low" : row.tag == "3" ? "up" : QString();
}

TableForm problemForm(const Texts& texts) {
    TableForm form;
    constexpr std::array widths{27.0, 38.0, 18.0, 0.0, 17.0}; // without the point id
    for (std::size_t i = 0; i < widths.size(); ++i) {
        TableColumn column;
        column.source = i;
        column.width = widths.at(i);
        column.right = column.strong = i == differenceColumn;
        form.columns.push_back(column);
    }
    form.lines = 2;
    form.rowHeight = 44;
    form.emptyText = texts("ListView3.empty");
    form.sign = &problemSign;
    return form;
}

Heading* panelHeading(Binder& binder, const QString& iconName, Label& control) {
    auto* const heading = new Heading(iconName, {});
    heading->label().setFont(sizedFont(17, true));
    binder.bind(control, heading->label());
    return heading;
}

QWidget* problemPanel(Binder& binder, const Texts& texts, ChartWindow& window) {
    auto* const panel = new QWidget;
    QVBoxLayout* const lines = column(10);
    panel->setLayout(lines);
    Heading* const heading = panelHeading(binder, "alert", window.problemsHeading);
    lines->addWidget(heading);
    auto* const table = new ListTable(problemForm(texts));
    table->setAccessibleName(qt(window.problemsHeading.caption));
    binder.bind(window.problems, *table);
    lines->addWidget(table, 1);
    QWidget* const foot = hint("info", qt(window.hint.caption));
    lines->addWidget(foot);
    binder.onChange(window.hint, [&window, foot] { foot->setVisible(window.hint.visible); });
    binder.onChange(window.problems, [&window, panel, heading, table] {
        std::vector<QString> headers;
        for (const std::string& header : window.problems.headers.get())
            headers.push_back(qt(header));
        table->setHeaders(headers);
        heading->setNote(QString::number(window.problems.size()));
        panel->setVisible(window.problems.visible);
    });
    return panel;
}

QWidget* textPanel(Binder& binder, ChartWindow& window) {
    auto* const panel = new QWidget;
    QVBoxLayout* const lines = column(10);
    panel->setLayout(lines);
    lines->addWidget(panelHeading(binder, "doc", window.evaluationHeading));
    auto* const card = new Card;
    auto* const text = new TextView;
    text->setFont(sizedFont(17));
    text->setAccessibleName(qt(window.evaluationHeading.caption));
    binder.bind(window.evaluation, *text);
    card->body().addWidget(text);
    lines->addWidget(card, 1);
    binder.onChange(window.evaluation,
                    [&window, panel] { panel->setVisible(window.evaluation.visible); });
    return panel;
}

QWidget* evaluationSide(Binder& binder, const Texts& texts, ChartWindow& window) {
    auto* const side = new QWidget;
    QVBoxLayout* const lines = column(0);
    side->setLayout(lines);
    lines->addWidget(problemPanel(binder, texts, window));
    lines->addWidget(textPanel(binder, window));
    const auto follow = [&window, side] {
        side->setVisible(window.problems.visible || window.evaluation.visible);
    };
    binder.onChange(window.problems, follow);
    binder.onChange(window.evaluation, follow);
    return side;
}

// Two buttons in one place, of which one stands: as wide as each other, and the one that comes
// takes over the keyboard from the one that goes.
void shareOnePlace(Binder& binder, ChartWindow& window, QPushButton& show, QPushButton& hide) {
    const int width = std::max(show.sizeHint().width(), hide.sizeHint().width());
    const auto takeOver = [](const Button& control, QPushButton& coming,
                                    QPushButton& going) {
        QObject::connect(&going, &QPushButton::clicked, &coming, [&coming, &going] {
            coming.setProperty(takesKeyboard, going.hasFocus());
        });
        return [&control, &coming] {
            if (!control.visible || !coming.property(takesKeyboard).toBool())
                return;
            coming.setProperty(takesKeyboard, false);
            coming.setFocus();
        };
    };
    show.setMinimumWidth(width);
    hide.setMinimumWidth(width);
    binder.onChange(window.hideEvaluation, takeOver(window.hideEvaluation, hide, show));
    binder.onChange(window.showEvaluation, takeOver(window.showEvaluation, show, hide));
}

QWidget* chartFoot(Binder& binder, ChartWindow& window) {
    auto* const foot = new WindowFoot;
    QPushButton* const hide = boundButton(binder, window.hideEvaluation, "eyeoff");
    QPushButton* const show = boundButton(binder, window.showEvaluation, "eye");
    shareOnePlace(binder, window, *show, *hide);
    foot->addLeft(hide);
    foot->addLeft(show);
    foot->addLeft(boundButton(binder, window.elements, "pie"));
    foot->addLeft(boundButton(binder, window.balance, "cross"));
    foot->addLeft(boundButton(binder, window.star, "star"));
    QPushButton* const save = boundButton(binder, window.savePicture, "save", ButtonRole::Quiet);
    foot->addRight(save);
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    foot->setGivingWay(save);
    return foot;
}

} // namespace

std::unique_ptr<WindowView> makeChartView(const Session& session, ChartWindow& window) {
    auto* const split = new QSplitter;
    auto view = std::make_unique<ChartWindowView>(window, split);
    Binder& binder = view->binder();
    auto* const chart = new ChartView;
    binder.bind(window.chart, *chart);
    split->addWidget(chart);
    split->addWidget(evaluationSide(binder, Texts(session, window), window));
    split->setChildrenCollapsible(false);
    split->setHandleWidth(px(16));
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 0);
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(split, 1);
    lines->addWidget(chartFoot(binder, window));
    view->setFirstSize(1280, 800);
    return view;
}

} // namespace vorna
