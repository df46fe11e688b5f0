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

ListView::ListView(ListCard list, AppStore& store, EditorContext context, QWidget* parent)
    : RecordsView(std::move(list), store, parent), context_(std::move(context)),
      rowsLayout_(new QVBoxLayout), empty_(new QLabel(labelText(card().emptyText), this)),
      addButton_(new QPushButton(qs(card().itemName) + u" hinzufügen"_s, this)) {
    look::setRole(empty_, "faint");
    rowsLayout_->setSpacing(4);
    content().addWidget(empty_);
    content().addLayout(rowsLayout_);
    addButton_->setObjectName(u"add:"_s + qs(card().path));
    addButton_->setVisible(card().add != nullptr); // the items of some lists come from another page
    auto* const foot = new QHBoxLayout;
    foot->addWidget(addButton_);
    foot->addWidget(&takeOver());
    foot->addStretch(1);
    foot->addWidget(&total());
    content().addLayout(foot);
    connect(addButton_, &QPushButton::clicked, this, &ListView::addOpened);
    rebuild();
}

void ListView::refresh() {
    CardView::refresh();
    const TaxCase& taxCase = store().current();
    bool same = count() == rows_.size();
    for (std::size_t i = 0; same && i < rows_.size(); ++i) {
        same = rows_[i].id == card().id(taxCase, i);
    }
    if (!same) {
        rebuild();
        return;
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        refreshRow(i);
    }
    refreshFoot();
}

void ListView::rebuild() {
    for (const Row& row : rows_) {
        row.frame->hide();
        row.frame->deleteLater(); // the click that led here may come from inside it
    }
    rows_.clear();
    const std::size_t records = count();
    for (std::size_t i = 0; i < records; ++i) {
        rows_.push_back(makeRow(i));
    }
    for (std::size_t i = 0; i < records; ++i) {
        refreshRow(i);
        if (opened_ == rows_[i].id) {
            open(i, true);
        }
    }
    empty_->setVisible(records == 0 && !card().emptyText.empty());
    refreshFoot();
}

ListView::Row ListView::makeRow(std::size_t index) {
    Row row;
    row.id = card().id(store().current(), index);
    row.frame = new QWidget(this);
    row.head = new look::ElidingButton(row.frame);
    row.head->setCheckable(true);
    row.head->setObjectName(u"open:%1[%2]"_s.arg(qs(card().path)).arg(index));
    look::setRole(row.head, "row");
    row.amount = new QLabel(row.frame);
    look::setRole(row.amount, "figure");
    auto* const layout = new QVBoxLayout(row.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* const headLine = new QHBoxLayout;
    headLine->setSpacing(0);
    headLine->addWidget(row.head, 1);
    headLine->addWidget(row.amount);
    layout->addLayout(headLine);
    auto* const line = new QFrame(row.frame);
    look::setRole(line, "line");
    layout->addWidget(line);
    rowsLayout_->addWidget(row.frame);
    connect(row.head, &QPushButton::clicked, this, [this, index](bool checked) {
        open(index, checked);
        if (checked) {
            Q_EMIT partOpened(rows_[index].frame);
        }
    });
    return row;
}

void ListView::refreshRow(std::size_t index) {
    Row& row = rows_[index];
    const RowSummary summary = card().summary(store().current(), index);
    const QString title = titleOf(index);
    const QString sign = row.head->isChecked() ? u"▾  "_s : u"▸  "_s;
    row.head->setText(
        sign + title
        + (summary.detail.empty() ? QString() : u"  ·  "_s + labelText(summary.detail)));
    row.head->setAccessibleName(title);
    for (QPushButton* tool : row.tools) {
        nameTool(*tool, title);
    }
    row.amount->setText(qs(summary.amount));
    row.amount->setVisible(!summary.amount.empty());
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
    layout->setContentsMargins(0, 4, 0, 12);
    layout->setSpacing(0);
    for (const BoundField& field : card().fields(index)) {
        auto* const fieldRow = new FieldRow(field, store(), context_, row.body);
        layout->addWidget(fieldRow);
        row.fields.push_back(fieldRow);
    }
    if (card().add) {
        layout->addWidget(makeTools(row, index));
    }
    row.frame->layout()->addWidget(row.body);
}

QWidget* ListView::makeTools(Row& row, std::size_t index) {
    auto* const tools = new QWidget(row.body);
    auto* const line = new QHBoxLayout(tools);
    line->setContentsMargins(0, 4, 0, 0);
    line->setSpacing(18);
    const auto addRowTool = [&](const QString& text, const QString& name, const auto& act) {
        QPushButton* const button =
            addTool(*line, text, u"%1:%2[%3]"_s.arg(name, qs(card().path)).arg(index), act);
        nameTool(*button, titleOf(index));
        row.tools.push_back(button);
        return button;
    };
    addRowTool(u"Duplizieren"_s, u"duplicate"_s, [this, index] {
        opened_.reset();
        duplicate(index);
        refresh();
        focusRow(index + 1);
    });
    addRowTool(u"Nach oben"_s, u"up"_s, [this, index] {
        moveRow(index, index - 1, u"up"_s);
    })->setEnabled(index > 0);
    addRowTool(u"Nach unten"_s, u"down"_s, [this, index] {
        moveRow(index, index + 1, u"down"_s);
    })->setEnabled(index + 1 < count());
    line->addStretch(1);
    look::setRole(addRowTool(u"Entfernen"_s, u"remove"_s,
                             [this, index] {
                                 opened_.reset();
                                 remove(index);
                                 refresh();
                                 focusRow(index);
                             }),
                  "danger");
    return tools;
}

void ListView::addOpened() {
    add();
    refresh(); // where nobody listens to the store yet
    if (!rows_.empty()) {
        open(rows_.size() - 1, true);
        const auto& fields = rows_.back().fields;
        if (!fields.empty()) {
            fields.front()->focusField();
        }
        Q_EMIT partOpened(rows_.back().frame);
    }
}

void ListView::moveRow(std::size_t from, std::size_t to, const QString& button) {
    move(from, to);
    refresh();
    if (to >= rows_.size()) {
        return;
    }
    auto* const same = rows_[to].frame->findChild<QPushButton*>(
        u"%1:%2[%3]"_s.arg(button, qs(card().path)).arg(to));
    (same != nullptr && same->isEnabled() ? same : rows_[to].head)->setFocus(Qt::OtherFocusReason);
}

void ListView::focusRow(std::size_t index) {
    QPushButton* const next =
        rows_.empty() ? addButton_ : rows_[std::min(index, rows_.size() - 1)].head;
    next->setFocus(Qt::OtherFocusReason);
}

void ListView::openOneOf(const std::vector<taxcore::Uuid>& records) {
    const auto found = std::ranges::find_if(
        rows_, [&](const Row& row) { return std::ranges::find(records, row.id) != records.end(); });
    if (found != rows_.end()) {
        open(static_cast<std::size_t>(found - rows_.begin()), true);
    }
}

bool ListView::reveal(const std::string& path) {
    if (!path.starts_with(card().path)) {
        return false;
    }
    const std::string rest = path.substr(card().path.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const std::string item = "[" + std::to_string(i) + "]";
        if (rest.starts_with(item)) {
            open(i, true);
            const auto field = std::ranges::find_if(
                rows_[i].fields, [&](const FieldRow* row) { return row->field().path == path; });
            if (field == rows_[i].fields.end() || !(*field)->focusField()) {
                rows_[i].head->setFocus(Qt::OtherFocusReason);
            }
            return true;
        }
    }
    const bool here = rest.empty();
    if (here && card().add) {
        addButton_->setFocus(Qt::OtherFocusReason);
    }
    return here;
}

} // namespace fiscarel::forms
