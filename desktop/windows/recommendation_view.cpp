#include "desktop/binder.h"
#include "desktop/card.h"
#include "desktop/flow_layout.h"
#include "desktop/list_table.h"
#include "desktop/picture_view.h"
#include "desktop/texts.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"
#include "recommendation/proposal.h"
#include "recommendation/recommendation_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace vorna {
namespace {

// Percent of the width.
constexpr int listShare = 45;
constexpr int detailShare = 55;
// The point's label is in the large type from this width on.
constexpr int largeLabelFrom = 520;
constexpr double largeLabel = 40;
constexpr double smallLabel = 25;

// The label of the point and its Chinese name, in the largest type that the width has room for.
class PointHead final : public QWidget {
public:
    PointHead() : line_(row(0)) { setLayout(line_); }

    QLabel* add(bool bold, const QColor& ink) {
        QLabel* const label = textLabel(smallLabel, bold, ink);
        label->setWordWrap(false);
        labels_.push_back(label);
        line_->addWidget(label);
        return label;
    }
    void addStretch() { line_->addStretch(1); }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        const double size = width() >= px(largeLabelFrom) ? largeLabel : smallLabel;
        for (QLabel* const label : labels_)
            label->setFont(sizedFont(size, label->font().bold()));
    }

private:
    QHBoxLayout* line_;
    std::vector<QLabel*> labels_;
};

// The list and the detail keep their shares of the width until the user moves the border.
class ProposalSplit final : public QSplitter {
public:
    ProposalSplit() {
        setChildrenCollapsible(false);
        setHandleWidth(px(18));
        connect(this, &QSplitter::splitterMoved, this, [this] { moved_ = true; });
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QSplitter::resizeEvent(event);
        if (!moved_)
            setSizes({width() * listShare / 100, width() * detailShare / 100});
    }

private:
    bool moved_ = false;
};

TableForm proposalForm(const Texts& texts) {
    TableColumn what;
    what.width = 9701;
    TableColumn point;
    point.source = pointLabelColumn;
    point.width = 7937;
    point.strong = true;
    TableForm form;
    form.columns = {what, point};
    form.checks = true;
    form.headers = false;
    form.lines = 3;
    form.rowHeight = 54;
    form.emptyText = texts("ListView3.empty");
    return form;
}

QWidget* proposalList(Binder& binder, const Texts& texts, RecommendationWindow& window) {
    auto* const whole = new QWidget;
    QVBoxLayout* const lines = column(10);
    whole->setLayout(lines);
    auto* const heading = new Heading({}, {});
    heading->label().setFont(sizedFont(17, true));
    binder.bind(window.heading, heading->label());
    lines->addWidget(heading);
    auto* const table = new ListTable(proposalForm(texts));
    table->setAccessibleName(qt(window.heading.caption));
    binder.bind(window.points, *table);
    binder.onChange(window.points, [&window, heading, checked = texts("Label5.caption")] {
        const std::vector<ListRow>& rows = window.points.unfinishedRows();
        const auto count =
            std::count_if(rows.begin(), rows.end(), [](const ListRow& row) { return row.checked; });
        heading->setNote(checked + QString(" %1").arg(count));
    });
    lines->addWidget(table, 1);
    return whole;
}

PointHead* pointHead(Binder& binder, RecommendationWindow& window) {
    auto* const head = new PointHead;
    binder.bind(window.labelFirstHalf, *head->add(true, theme().ink));
    binder.bind(window.labelSecondHalf, *head->add(true, theme().accent));
    head->addStretch();
    binder.bind(window.china, *head->add(false, theme().ink));
    return head;
}

Card* pointCard(Binder& binder, RecommendationWindow& window) {
    auto* const card = new Card;
    QVBoxLayout& lines = card->body();
    lines.setSpacing(px(8));
    lines.setContentsMargins(px(20), px(12), px(20), px(14));
    lines.addWidget(pointHead(binder, window));
    QLabel* const meridian = textLabel(17, true, theme().ink);
    bindUnlessEmpty(binder, window.meridianName, *meridian);
    lines.addWidget(meridian);
    // What to do there, whole: in the list it may be cut.
    QLabel* const what = textLabel(17, false, theme().ink);
    lines.addWidget(what);
    QLabel* const additional = textLabel(15, false, theme().ink2);
    bindUnlessEmpty(binder, window.additionalText, *additional);
    lines.addWidget(additional);
    auto* const rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setForegroundRole(QPalette::Mid);
    lines.addWidget(rule);
    QLabel* const description = textLabel(17, false, theme().ink);
    bindUnlessEmpty(binder, window.description, *description);
    lines.addWidget(description);
    binder.onChange(window.description, [&window, rule] {
        setShown(*rule, !window.description.caption.get().empty());
    });
    binder.onChange(window.points, [&window, card, what] {
        const ListRow* const row = window.points.selectedRow();
        what->setText(row == nullptr ? QString() : qt(row->text));
        setShown(*card, row != nullptr);
    });
    return card;
}

QWidget* pointPictures(Binder& binder, RecommendationWindow& window) {
    auto* const whole = new QWidget;
    auto* const line = row(12);
    whole->setLayout(line);
    for (Picture* const control : {&window.frontPicture, &window.sidePicture}) {
        auto* const picture = new PictureView;
        picture->setSizeWanted({px(160), px(170)});
        bindUnlessEmpty(binder, *control, *picture);
        binder.onChange(window.points, [&window, picture] {
            const ListRow* const row = window.points.selectedRow();
            picture->setName(row == nullptr ? QString() : qt(row->text));
        });
        line->addWidget(picture, 1);
    }
    return whole;
}

QWidget* pointDetail(Binder& binder, RecommendationWindow& window) {
    auto* const content = new QWidget;
    QVBoxLayout* const parts = column(12);
    content->setLayout(parts);
    parts->addWidget(pointCard(binder, window));
    parts->addWidget(pointPictures(binder, window), 1);
    auto* const whole = new QWidget;
    QVBoxLayout* const lines = column(12);
    whole->setLayout(lines);
    lines->addWidget(scrollingColumn(content), 1);
    auto* const buttons = new FlowLayout(px(10));
    buttons->addWidget(boundButton(binder, window.meridianPicture, "body"));
    buttons->addWidget(boundButton(binder, window.star, "star"));
    buttons->addWidget(boundButton(binder, window.yin, "moon"));
    buttons->addWidget(boundButton(binder, window.yang, "sun"));
    lines->addLayout(buttons);
    return whole;
}

} // namespace

std::unique_ptr<WindowView> makeRecommendationView(const Session& session,
                                                   RecommendationWindow& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    auto* const split = new ProposalSplit;
    split->addWidget(proposalList(binder, Texts(session, window), window));
    split->addWidget(pointDetail(binder, window));
    QVBoxLayout* const lines = windowColumn(*view);
    lines->addWidget(split, 1);
    auto* const foot = new WindowFoot;
    foot->addLeft(boundButton(binder, window.copy, "copy"));
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    lines->addWidget(foot);
    view->setFirstSize(1280, 800);
    return view;
}

} // namespace vorna
