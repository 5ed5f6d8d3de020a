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

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QSplitter>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace vorna {
namespace {

// In pixels of the 15 px body text.
constexpr int evaluationWidth = 420;
constexpr int besideFrom = 1100;
constexpr int evaluationPercentBelow = 40;
constexpr const char* takesKeyboard = "vornaTakesKeyboard";

// The chart, and beside it the evaluation, or below where the window is narrow. Beside, the
// evaluation keeps its width as the window grows.
class EvaluationSplit final : public QSplitter {
public:
    EvaluationSplit() {
        setChildrenCollapsible(false);
        setHandleWidth(px(16));
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        const bool beside = window()->width() >= px(besideFrom);
        const Qt::Orientation wanted = beside ? Qt::Horizontal : Qt::Vertical;
        const bool anew = !std::exchange(laidOut_, true) || orientation() != wanted;
        if (anew) {
            setOrientation(wanted);
            setStretchFactor(0, beside ? 1 : 100 - evaluationPercentBelow);
            setStretchFactor(1, beside ? 0 : evaluationPercentBelow);
        }
        QSplitter::resizeEvent(event);
        if (!anew)
            return;
        const int evaluation =
            beside ? px(evaluationWidth) : height() * evaluationPercentBelow / 100;
        setSizes(
            {std::max((beside ? width() : height()) - handleWidth() - evaluation, 1), evaluation});
    }

private:
    bool laidOut_ = false;
};

QString problemSign(const ListRow& row) {
    if (row.tag == "1")
        return "lr";
    return row.tag == "2" ? "low" : row.tag == "3" ? "up" : QString();
}

// The first header has two words, which stand below each other.
std::vector<QString> problemHeaders(const ChartWindow& window) {
    std::vector<QString> headers;
    for (const std::string& header : window.problems.headers.get())
        headers.push_back(qt(header).replace(" / ", " /\n"));
    return headers;
}

// All columns are as wide as their headers, or as what stands in them; the problem has the rest.
TableForm problemForm(const Texts& texts, const ChartWindow& window) {
    constexpr std::array least{104.0, 0.0, 56.0, 0.0, 66.0};
    constexpr double headerMargins = 22;
    constexpr std::size_t pointIdColumn = pathwayColumn;
    const QFontMetrics metrics(sizedFont(13, true));
    const double pixel = px(1000) / 1000.0;
    const std::vector<QString> headers = problemHeaders(window);
    TableForm form;
    for (std::size_t i = 0; i < headers.size(); ++i) {
        const double header = metrics.size(0, headers[i]).width() / pixel + headerMargins;
        TableColumn column;
        column.header = headers[i];
        column.source = i;
        column.fixed = i != problemColumn;
        if (column.fixed)
            column.width = i == pointIdColumn ? 0 : std::max(least.at(i), header);
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
    auto* const table = new ListTable(problemForm(texts, window));
    table->header()->setTextElideMode(Qt::ElideNone);
    table->header()->setFixedHeight(px(46));
    table->setAccessibleName(qt(window.problemsHeading.caption));
    binder.bind(window.problems, *table);
    lines->addWidget(table, 1);
    QWidget* const foot = hint("info", qt(window.hint.caption));
    lines->addWidget(foot);
    binder.onChange(window.hint, [&window, foot] { setShown(*foot, window.hint.visible); });
    binder.onChange(window.problems, [&window, panel, heading] {
        heading->setNote(QString::number(window.problems.size()));
        setShown(*panel, window.problems.visible);
    });
    return panel;
}

QWidget* textPanel(Binder& binder, ChartWindow& window) {
    auto* const panel = new QWidget;
    QVBoxLayout* const lines = column(10);
    panel->setLayout(lines);
    lines->addWidget(panelHeading(binder, "doc", window.evaluationHeading));
    auto* const text = new TextView;
    text->setFrameShape(QFrame::StyledPanel);
    text->viewport()->setAutoFillBackground(true);
    text->document()->setDocumentMargin(px(16));
    text->setFont(sizedFont(17));
    text->setAccessibleName(qt(window.evaluationHeading.caption));
    binder.bind(window.evaluation, *text);
    lines->addWidget(text, 1);
    binder.onChange(window.evaluation,
                    [&window, panel] { setShown(*panel, window.evaluation.visible); });
    return panel;
}

QWidget* evaluationSide(Binder& binder, const Texts& texts, ChartWindow& window) {
    auto* const side = new QWidget;
    QVBoxLayout* const lines = column(0);
    side->setLayout(lines);
    lines->addWidget(problemPanel(binder, texts, window));
    lines->addWidget(textPanel(binder, window));
    const auto follow = [&window, side] {
        setShown(*side, window.problems.visible || window.evaluation.visible);
    };
    binder.onChange(window.problems, follow);
    binder.onChange(window.evaluation, follow);
    return side;
}

// Two buttons in one place, of which one stands: as wide as each other, and the one that comes
// takes over the keyboard from the one that goes.
void shareOnePlace(Binder& binder, ChartWindow& window, QPushButton& show, QPushButton& hide) {
    const int width = std::max(show.sizeHint().width(), hide.sizeHint().width());
    const auto takeOver = [](const Button& control, QPushButton& coming, QPushButton& going) {
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
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    auto* const split = new EvaluationSplit;
    auto* const chart = new ChartView;
    binder.bind(window.chart, *chart);
    split->addWidget(chart);
    split->addWidget(evaluationSide(binder, Texts(session, window), window));
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(split, 1);
    lines->addWidget(chartFoot(binder, window));
    view->setFirstSize(1280, 800);
    return view;
}

} // namespace vorna
