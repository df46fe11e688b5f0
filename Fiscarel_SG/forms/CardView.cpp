#include "Fiscarel_SG/forms/CardView.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/ListView.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/forms/TableView.h"
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
    const auto same = [](const Figure& a, const Figure& b) {
        return a.label == b.label && a.text == b.text && a.note == b.note;
    };
    if (std::ranges::equal(figures, shownFigures_, same)) {
        return;
    }
    shownFigures_ = std::move(figures);
    while (QLayoutItem* const item = figureGrid_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    int row = 0;
    for (const Figure& figure : shownFigures_) {
        auto* const label = new QLabel(labelText(figure.label), this);
        auto* const text = new QLabel(labelText(figure.text), this);
        auto* const note = new QLabel(labelText(figure.note), this);
        look::setRole(label, "faint");
        look::setRole(text, "figure");
        look::setRole(note, "small");
        note->setWordWrap(true);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
        label->setFixedWidth(FieldRow::labelWidth);
        figureGrid_->addWidget(label, row, 0);
        figureGrid_->addWidget(text, row, 1);
        figureGrid_->addWidget(note, row, 2);
        ++row;
    }
    figureGrid_->setColumnStretch(2, 1);
    placeEnd();
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
        if (row->field().path == path && !row->isHidden()) {
            row->focusField();
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
        return new TableView(list, store, parent);
    }
    return new ListView(list, store, context, parent);
}

} // namespace fiscarel::forms
