#include "Fiscarel_SG/forms/ListView.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

ListView::ListView(ListCard card, AppStore& store, const EditorContext& context, QWidget* parent)
    : CardView(card.title, card.help, card.figures, card.shown, store, parent),
      card_(std::move(card)), context_(context), rowsLayout_(new QVBoxLayout),
      empty_(new QLabel(qs(card_.emptyText), this)), total_(new QLabel(this)),
      takeOver_(new QPushButton(u"Vom Vorjahr übernehmen"_s, this)) {
    setObjectName(u"list:"_s + qs(card_.path));
    look::setRole(empty_, "faint");
    look::setRole(total_, "figure");
    total_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rowsLayout_->setSpacing(4);
    content().addWidget(empty_);
    content().addLayout(rowsLayout_);

    auto* const addButton = new QPushButton(qs(card_.itemName) + u" hinzufügen"_s, this);
    addButton->setObjectName(u"add:"_s + qs(card_.path));
    takeOver_->setObjectName(u"takeover:"_s + qs(card_.path));
    takeOver_->setAccessibleName(qs(card_.title) + u" vom Vorjahr übernehmen"_s);
    auto* const foot = new QHBoxLayout;
    addButton->setVisible(card_.add != nullptr); // the items of some lists come from another page
    foot->addWidget(addButton);
    foot->addWidget(takeOver_);
    foot->addStretch(1);
    foot->addWidget(total_);
    content().addLayout(foot);
    connect(addButton, &QPushButton::clicked, this, &ListView::add);
    connect(takeOver_, &QPushButton::clicked, this, &ListView::takeOver);
    rebuild();
}

void ListView::refresh() {
    CardView::refresh();
    const TaxCase& taxCase = store().current();
    bool same = card_.size(taxCase) == rows_.size();
    for (std::size_t i = 0; same && i < rows_.size(); ++i) {
        same = rows_[i].id == card_.id(taxCase, i);
    }
    if (!same) {
        rebuild();
        return;
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        refreshRow(i);
    }
    showTotal();
}

void ListView::showTotal() {
    total_->setText(card_.total ? qs(card_.total(store().current())) : QString());
    total_->setVisible(!total_->text().isEmpty() && !rows_.empty());
}

void ListView::rebuild() {
    for (const Row& row : rows_) {
        row.frame->hide();
        row.frame->deleteLater(); // the click that led here may come from inside it
    }
    rows_.clear();
    const TaxCase& taxCase = store().current();
    const std::size_t count = card_.size(taxCase);
    for (std::size_t i = 0; i < count; ++i) {
        rows_.push_back(makeRow(i));
    }
    for (std::size_t i = 0; i < count; ++i) {
        refreshRow(i);
        if (opened_ == rows_[i].id) {
            open(i, true);
        }
    }
    empty_->setVisible(count == 0 && !card_.emptyText.empty());
    const auto lastYear = store().cases().find(store().year() - 1);
    takeOver_->setVisible(card_.offersLastYear && count == 0 && lastYear != store().cases().end()
                          && card_.size(lastYear->second) > 0);
    showTotal();
}

ListView::Row ListView::makeRow(std::size_t index) {
    Row row;
    row.id = card_.id(store().current(), index);
    row.frame = new QWidget(this);
    row.head = new look::ElidingButton(row.frame);
    row.head->setCheckable(true);
    row.head->setObjectName(u"open:%1[%2]"_s.arg(qs(card_.path)).arg(index));
    look::setRole(row.head, "row");
    row.amount = new QLabel(row.frame);
    look::setRole(row.amount, "figure");
    auto* const layout = new QVBoxLayout(row.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* const headLine = new QHBoxLayout;
    headLine->addWidget(row.head, 1);
    headLine->addWidget(row.amount);
    layout->addLayout(headLine);
    auto* const line = new QFrame(row.frame);
    look::setRole(line, "line");
    layout->addWidget(line);
    rowsLayout_->addWidget(row.frame);
    connect(row.head, &QPushButton::clicked, this,
            [this, index](bool checked) { open(index, checked); });
    return row;
}

void ListView::refreshRow(std::size_t index) {
    Row& row = rows_[index];
    const RowSummary summary = card_.summary(store().current(), index);
    const QString title = summary.title.empty() ? u"%1 %2"_s.arg(qs(card_.itemName)).arg(index + 1)
                                                : qs(summary.title);
    const QString sign = row.head->isChecked() ? u"▾  "_s : u"▸  "_s;
    row.head->setText(sign + title
                      + (summary.detail.empty() ? QString() : u"  ·  "_s + qs(summary.detail)));
    row.head->setAccessibleName(title);
    row.amount->setText(qs(summary.amount));
    for (FieldRow* field : row.fields) {
        field->refresh();
    }
}

void ListView::open(std::size_t index, bool opened) {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const bool open = i == index && opened;
        rows_[i].head->setChecked(open);
        if (open && rows_[i].body == nullptr) {
            fill(rows_[i], i);
        }
        if (rows_[i].body != nullptr) {
            rows_[i].body->setVisible(open);
        }
        refreshRow(i);
    }
    opened_ = opened ? std::optional(rows_[index].id) : std::nullopt;
}

void ListView::fill(Row& row, std::size_t index) {
    row.body = new QWidget(row.frame);
    auto* const layout = new QVBoxLayout(row.body);
    layout->setContentsMargins(16, 4, 0, 12);
    layout->setSpacing(0);
    for (const BoundField& field : card_.fields(index)) {
        auto* const fieldRow = new FieldRow(field, store(), context_, row.body);
        layout->addWidget(fieldRow);
        row.fields.push_back(fieldRow);
    }
    if (card_.add) {
        layout->addWidget(makeTools(index, row.body));
    }
    row.frame->layout()->addWidget(row.body);
}

QWidget* ListView::makeTools(std::size_t index, QWidget* parent) {
    auto* const tools = new QWidget(parent);
    auto* const layout = new QHBoxLayout(tools);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(18);
    const auto addTool = [&](const QString& text, const char* name, bool enabled, auto act) {
        auto* const button = new QPushButton(text, tools);
        button->setObjectName(
            u"%1:%2[%3]"_s.arg(QLatin1StringView(name), qs(card_.path)).arg(index));
        button->setEnabled(enabled);
        look::setRole(button, "link");
        connect(button, &QPushButton::clicked, this, act);
        layout->addWidget(button);
    };
    const QString item = qs(card_.itemName);
    addTool(u"Duplizieren"_s, "duplicate", true, [this, index, item] {
        opened_.reset();
        change(item + u" duplizieren"_s,
               [&](TaxCase& taxCase) { card_.duplicate(taxCase, index); });
    });
    addTool(u"Nach oben"_s, "up", index > 0, [this, index, item] {
        change(item + u" verschieben"_s,
               [&](TaxCase& taxCase) { card_.move(taxCase, index, index - 1); });
    });
    addTool(u"Nach unten"_s, "down", index + 1 < card_.size(store().current()),
            [this, index, item] {
                change(item + u" verschieben"_s,
                       [&](TaxCase& taxCase) { card_.move(taxCase, index, index + 1); });
            });
    addTool(u"Entfernen"_s, "remove", true, [this, index, item] {
        opened_.reset();
        change(item + u" entfernen"_s, [&](TaxCase& taxCase) { card_.remove(taxCase, index); });
    });
    layout->addStretch(1);
    return tools;
}

void ListView::change(const QString& name, const std::function<void(TaxCase&)>& edit) {
    store().edit(utf8(name), edit);
}

void ListView::add() {
    change(qs(card_.itemName) + u" hinzufügen"_s, card_.add);
    refresh(); // where nobody listens to the store yet
    if (!rows_.empty()) {
        open(rows_.size() - 1, true);
        const auto& fields = rows_.back().fields;
        if (!fields.empty()) {
            fields.front()->focusField();
        }
    }
}

void ListView::takeOver() {
    const auto lastYear = store().cases().find(store().year() - 1);
    if (lastYear != store().cases().end()) {
        change(qs(card_.title) + u" vom Vorjahr übernehmen"_s,
               [&](TaxCase& taxCase) { card_.takeOver(taxCase, lastYear->second); });
    }
}

bool ListView::reveal(const std::string& path) {
    if (!path.starts_with(card_.path)) {
        return false;
    }
    const std::string rest = path.substr(card_.path.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const std::string item = "[" + std::to_string(i) + "]";
        if (rest.starts_with(item)) {
            open(i, true);
            const auto field = std::ranges::find_if(
                rows_[i].fields, [&](const FieldRow* row) { return row->field().path == path; });
            if (field != rows_[i].fields.end() && !(*field)->isHidden()) {
                (*field)->focusField();
            } else {
                rows_[i].head->setFocus(Qt::OtherFocusReason);
            }
            return true;
        }
    }
    const bool here = rest.empty();
    if (here && card_.add) {
        findChild<QPushButton*>(u"add:"_s + qs(card_.path))->setFocus(Qt::OtherFocusReason);
    }
    return here;
}

} // namespace fiscarel::forms
