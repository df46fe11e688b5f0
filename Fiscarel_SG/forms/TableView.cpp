#include "Fiscarel_SG/forms/TableView.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/DocumentClip.h"
#include "Fiscarel_SG/forms/HelpButton.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/RecordModel.h"
#include "Fiscarel_SG/forms/RecordTable.h"
#include "Fiscarel_SG/forms/SumRow.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int problemHeight = 19; ///< kept free, so that nothing moves
constexpr int aroundProblem = 12; ///< kept in sight around it, pixels

} // namespace

TableView::TableView(ListCard list, AppStore& store, const std::string& pageId, QWidget* parent)
    : RecordsView(std::move(list), store, parent),
      model_(new RecordModel(card(), store, pageId, this)), table_(new RecordTable(*model_, this)),
      sums_(new SumRow(*table_, this)), problem_(new QLabel(this)), help_(new QLabel(this)),
      helpButton_(new HelpButton(u"Hilfe zu dieser Spalte"_s, qs(card().title), this)),
      clip_(new DocumentClip(store, this)) {
    table_->setObjectName(u"table:"_s + qs(card().path));
    table_->setAccessibleName(qs(card().title));
    auto* const grid = new QVBoxLayout;
    grid->setSpacing(0);
    grid->addWidget(table_);
    grid->addWidget(sums_);
    grid->addWidget(&table_->columnBar());
    content().addLayout(grid);
    sums_->setObjectName(u"sums:"_s + qs(card().path));
    look::setRole(problem_, "error");
    problem_->setObjectName(u"problem:"_s + qs(card().path));
    problem_->setWordWrap(true);
    problem_->setMinimumHeight(problemHeight);
    look::setRole(help_, "help");
    help_->setObjectName(u"help:"_s + qs(card().path));
    help_->setWordWrap(true);
    help_->hide();
    content().addWidget(help_);

    auto* const foot = new QHBoxLayout;
    foot->setSpacing(18);
    addTools(*foot);
    auto* const below = new QVBoxLayout;
    below->setSpacing(0);
    below->addLayout(foot);
    below->addWidget(problem_);
    content().addLayout(below);
    auto* const end = new QHBoxLayout;
    end->addWidget(&takeOver(), 0, Qt::AlignLeft);
    end->addWidget(&total(), 1);
    total().setWordWrap(true);
    content().addLayout(end);
    connect(model_, &RecordModel::problemChanged, this, &TableView::showProblem);
    connect(model_, &RecordModel::textKept, this, &TableView::bringProblemInSight,
            Qt::QueuedConnection);
    connect(table_, &RecordTable::moved, this, [this] {
        model_->reach(table_->currentIndex());
        showProblem();
    });
    connect(table_, &RecordTable::moved, this, &TableView::showHelp);
    connect(table_, &RecordTable::moved, this, &TableView::refreshTools);
    connect(helpButton_, &QToolButton::toggled, this, &TableView::showHelp);
    refreshFoot();
    refreshSums();
    refreshTools();
    showProblem();
}

void TableView::showProblem() {
    problem_->setText(labelText(model_->problem(table_->currentIndex())));
}

/// For who goes on by the keyboard; below a pointer that is pressed nothing may move.
void TableView::bringProblemInSight() {
    const QWidget* const focused = QApplication::focusWidget();
    if (!isAncestorOf(focused) || QApplication::mouseButtons() != Qt::NoButton) {
        return;
    }
    for (QWidget* at = parentWidget(); at != nullptr; at = at->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(at)) {
            area->ensureWidgetVisible(problem_, 0, aroundProblem);
            return;
        }
    }
}

void TableView::refreshSums() {
    QStringList texts;
    bool hasSums = false;
    for (const auto& sum : card().sums(store().current())) {
        hasSums = hasSums || sum.has_value();
        texts << (sum ? qs(formatAmount(*sum)) : QString());
    }
    sums_->setVisible(hasSums);
    sums_->setSums(texts);
}

int TableView::wishedWidth() const {
    const QMargins around = layout()->contentsMargins();
    return table_->wishedWidth() + around.left() + around.right() + 2;
}

void TableView::refreshTools() {
    const auto record = table_->currentRecord();
    const std::array tools{
        std::pair(duplicate_, record.has_value()), std::pair(up_, record && *record > 0),
        std::pair(down_, record && *record + 1 < count()), std::pair(remove_, record.has_value())};
    for (const auto& [tool, works] : tools) {
        if (!works && tool->hasFocus()) {
            table_->setFocus(Qt::OtherFocusReason);
        }
        tool->setEnabled(works);
    }
    const QModelIndex at = table_->currentIndex();
    const bool hasField = record && at.isValid();
    if (!hasField && clip_->hasFocus()) {
        table_->setFocus(Qt::OtherFocusReason);
    }
    std::optional<BoundField> field;
    if (hasField) {
        field = card().fields(*record)[static_cast<std::size_t>(at.column())];
    }
    clip_->follow(field ? field->path : std::string(), field ? qs(field->label) : QString());
}

void TableView::addTools(QHBoxLayout& line) {
    const auto add = [&](const QString& text, const QString& name, const auto& act) {
        QPushButton* const tool = addTool(line, text, u"%1:%2"_s.arg(name, qs(card().path)), act);
        nameTool(*tool, qs(card().title));
        return tool;
    };
    const auto withRecord = [this](auto act) {
        return [this, act] {
            if (const auto record = table_->currentRecord()) {
                act(*record);
            }
        };
    };
    line.addWidget(helpButton_);
    line.addWidget(clip_);
    duplicate_ = add(u"Duplizieren"_s, u"duplicate"_s,
                     withRecord([this](std::size_t record) { duplicate(record); }));
    up_ = add(u"Nach oben"_s, u"up"_s, [this] { moveSelected(-1); });
    down_ = add(u"Nach unten"_s, u"down"_s, [this] { moveSelected(1); });
    line.addStretch(1);
    remove_ = add(u"Zeile entfernen"_s, u"remove"_s,
                  withRecord([this](std::size_t record) { remove(record); }));
    look::setRole(remove_, "danger");
}

void TableView::refresh() {
    CardView::refresh();
    const QModelIndex at = table_->currentIndex();
    model_->reload();
    table_->fitHeight();
    refreshFoot();
    refreshSums();
    if (at.isValid() && !table_->currentIndex().isValid()) {
        table_->setCurrentIndex(
            model_->index(std::min(at.row(), model_->rowCount() - 1), at.column()));
    }
    refreshTools();
}

void TableView::toggleHelp() { helpButton_->toggle(); }

/// What belongs into the column with the keyboard, or into the first one.
void TableView::showHelp() {
    const BoundField& field = model_->column(std::max(0, table_->currentIndex().column()));
    help_->setText(labelText(field.label + ": " + field.help));
    help_->setVisible(helpButton_->isChecked());
}

void TableView::moveSelected(int by) {
    const auto record = table_->currentRecord();
    const int to = record ? static_cast<int>(*record) + by : -1;
    if (to >= 0 && to < model_->rowCount() - 1) {
        move(*record, static_cast<std::size_t>(to));
        table_->setCurrentIndex(model_->index(to, table_->currentIndex().column()));
    }
}

/// One goes on from what was typed and cannot be read.
void TableView::goTo(const QModelIndex& cell) {
    if (cell.data(RecordModel::problemRole).isValid()) {
        table_->editAt(cell);
        return;
    }
    table_->setCurrentIndex(cell);
    table_->setFocus(Qt::OtherFocusReason);
}

bool TableView::reveal(const std::string& path) {
    if (!path.starts_with(card().path)) {
        return false;
    }
    for (std::size_t row = 0; row < card().size(store().current()); ++row) {
        const auto fields = card().fields(row);
        for (std::size_t column = 0; column < fields.size(); ++column) {
            const bool isItem = fields[column].path.starts_with(path + ".");
            if (fields[column].path == path || isItem) {
                goTo(model_->index(static_cast<int>(row), static_cast<int>(column)));
                return true;
            }
        }
    }
    table_->setFocus(Qt::OtherFocusReason);
    return true;
}

} // namespace fiscarel::forms
