#include "Fiscarel_SG/forms/CardView.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/ListView.h"
#include "Fiscarel_SG/forms/TableView.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace fiscarel::forms {

namespace {

constexpr int side = 20;
constexpr int margin = 16;
constexpr int gap = 8;
constexpr int marginBelowRoom = 4; ///< the room for a problem is margin enough otherwise

} // namespace

CardView::CardView(const std::string& title, const std::string& help, Figures figures,
                   Condition shown, AppStore& store, QWidget* parent)
    : QFrame(parent), store_(store), figures_(std::move(figures)), shown_(std::move(shown)),
      content_(new QVBoxLayout), figureGrid_(new QGridLayout) {
    look::setRole(this, "card");
    auto* const outer = new QVBoxLayout(this);
    outer->setSpacing(0);
    if (!title.empty()) {
        auto* const heading = new QLabel(labelText(title), this);
        look::setRole(heading, "heading");
        outer->addWidget(heading);
        outer->addSpacing(gap);
    }
    if (!help.empty()) {
        auto* const text = new QLabel(labelText(help), this);
        text->setWordWrap(true);
        look::setRole(text, "faint");
        outer->addWidget(text);
        outer->addSpacing(gap);
    }
    content_->setSpacing(6);
    outer->addLayout(content_);
    figureGrid_->setHorizontalSpacing(12);
    figureGrid_->setVerticalSpacing(4);
    outer->addLayout(figureGrid_);
    placeEnd();
}

void CardView::refresh() {
    if (shown_) {
        setVisible(shown_(store_.current()));
    }
}

void CardView::refreshFigures() {
    const auto* result = store_.result();
    std::vector<Figure> figures =
        figures_ && result != nullptr ? figures_(store_.current(), *result) : std::vector<Figure>{};
    if (!keepsFigures()) {
        std::erase_if(figures, [](const Figure& figure) { return figure.text == noFigure; });
    }
    if (figures == shownFigures_) {
        return;
    }
    shownFigures_ = std::move(figures);
    const auto shown = static_cast<int>(shownFigures_.size());
    while (static_cast<int>(figureRows_.size()) < shown) {
        addFigureRow();
    }
    for (int row = 0; row < static_cast<int>(figureRows_.size()); ++row) {
        showFigure(row < shown ? shownFigures_[static_cast<std::size_t>(row)] : Figure{}, row);
    }
    placeEnd();
}

void CardView::addFigureRow() {
    const FigureRow made{new QLabel(this), new QLabel(this), new QLabel(this)};
    made.label->setWordWrap(true);
    made.label->setFixedWidth(FieldRow::labelWidth);
    look::setRole(made.label, "faint");
    made.text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    made.note->setWordWrap(true);
    look::setRole(made.note, "small");
    const auto row = static_cast<int>(figureRows_.size());
    figureGrid_->addWidget(made.label, row, 0);
    figureGrid_->addWidget(made.text, row, 1);
    figureGrid_->addWidget(made.note, row, 2);
    figureGrid_->setColumnStretch(2, 1);
    figureRows_.push_back(made);
}

/// A figure without a label is none.
void CardView::showFigure(const Figure& figure, int row) {
    const FigureRow& labels = figureRows_[static_cast<std::size_t>(row)];
    const bool isShown = !figure.label.empty();
    labels.label->setText(labelText(figure.label));
    labels.text->setText(labelText(figure.text));
    look::setRole(labels.text, figure.text == noFigure ? "faint" : "figure");
    labels.note->setText(labelText(figure.note));
    for (QLabel* const label : {labels.label, labels.text, labels.note}) {
        label->setVisible(isShown);
    }
    const int noteRoom = 2 * QFontMetrics(labels.note->font()).lineSpacing();
    figureGrid_->setRowMinimumHeight(row, isShown && figure.keepsNoteRoom ? noteRoom : 0);
}

void CardView::setEndsWithRoom() {
    endsWithRoom_ = true;
    placeEnd();
}

void CardView::placeEnd() {
    const bool hasFigures = !shownFigures_.empty();
    figureGrid_->setContentsMargins(0, hasFigures && !endsWithRoom_ ? gap : 0, 0, 0);
    layout()->setContentsMargins(side, margin, side,
                                 endsWithRoom_ && !hasFigures ? marginBelowRoom : margin);
}

FieldsView::FieldsView(const FieldsCard& card, AppStore& store, const EditorContext& context,
                       QWidget* parent)
    : CardView(card.title, card.help, card.figures, card.shown, store, parent) {
    content().setSpacing(0);
    setEndsWithRoom();
    for (const BoundField& field : card.fields) {
        auto* const row = new FieldRow(field, store, context, this);
        content().addWidget(row);
        rows_.push_back(row);
    }
}

void FieldsView::refresh() {
    CardView::refresh();
    for (FieldRow* row : rows_) {
        row->refresh();
    }
}

bool FieldsView::reveal(const std::string& path) {
    for (FieldRow* row : rows_) {
        if (row->field().path == path && row->focusField()) {
            return true;
        }
    }
    return false;
}

CardView* makeCard(const Card& card, AppStore& store, const EditorContext& context,
                   QWidget* parent) {
    if (const auto* fields = std::get_if<FieldsCard>(&card)) {
        return new FieldsView(*fields, store, context, parent);
    }
    const auto& list = std::get<ListCard>(card);
    if (list.isTable) {
        return new TableView(list, store, context.pageId, parent);
    }
    return new ListView(list, store, context, parent);
}

} // namespace fiscarel::forms
