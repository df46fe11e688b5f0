#include "Fiscarel_SG/forms/FieldRow.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/shell/Theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int labelWidth = 250;
constexpr int editorWidth = 270;
constexpr int rowHeight = 34;

} // namespace

FieldRow::FieldRow(BoundField field, AppStore& store, const EditorContext& context, QWidget* parent)
    : QWidget(parent), field_(std::move(field)), store_(store),
      editor_(makeEditor(field_, context, this)), problem_(new QLabel(this)),
      help_(new QLabel(this)), helpButton_(new QToolButton(this)) {
    setObjectName(u"row:"_s + qs(field_.path));
    auto* const label = new QLabel(qs(field_.label), this);
    label->setWordWrap(true);
    label->setBuddy(editor_->input());
    label->setFixedWidth(labelWidth);
    editor_->setFixedWidth(editorWidth);
    problem_->setWordWrap(true);
    shell::setRole(problem_, "error");
    help_->setWordWrap(true);
    help_->setText(qs(field_.help));
    help_->setObjectName(u"help:"_s + qs(field_.path));
    shell::setRole(help_, "small");
    help_->hide();
    helpButton_->setText(u"?"_s);
    helpButton_->setToolTip(u"Hilfe zu diesem Feld (F1)"_s);
    helpButton_->setAccessibleName(u"Hilfe zu "_s + qs(field_.label));
    helpButton_->setCheckable(true);
    helpButton_->setFocusPolicy(Qt::ClickFocus); // F1 does the same from the field
    helpButton_->setVisible(!field_.help.empty());

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(2);
    grid->addWidget(label, 0, 0, Qt::AlignVCenter);
    grid->addWidget(editor_, 0, 1, Qt::AlignVCenter);
    grid->addWidget(helpButton_, 0, 2, Qt::AlignVCenter);
    grid->addWidget(problem_, 0, 3, Qt::AlignVCenter);
    grid->addWidget(help_, 1, 1, 1, 3);
    grid->setColumnStretch(3, 1);
    grid->setRowMinimumHeight(0, rowHeight);

    connect(helpButton_, &QToolButton::toggled, help_, &QWidget::setVisible);
    connect(editor_, &FieldEditor::edited, this, &FieldRow::write);
    connect(editor_, &FieldEditor::problemChanged, this, &FieldRow::showProblem);
    connect(editor_, &FieldEditor::left, this, [this] { store_.endMerging(); });
    refresh();
}

void FieldRow::refresh() {
    const TaxCase& taxCase = store_.current();
    setVisible(field_.shown(taxCase));
    editor_->setValue(field_.get(taxCase));
    editor_->refresh();
    const auto lastYear = store_.cases().find(store_.year() - 1);
    editor_->setHint(lastYear != store_.cases().end() ? field_.get(lastYear->second) : Value{});
}

void FieldRow::write() {
    const Value value = editor_->value();
    // Writing what stands there already could still bring an optional record into being.
    if (value == field_.get(store_.current())) {
        return;
    }
    store_.edit(field_.label, [&](TaxCase& taxCase) { field_.set(taxCase, value); });
    Q_EMIT written(field_.path);
}

void FieldRow::showProblem() { problem_->setText(editor_->problem()); }

void FieldRow::focusField() { editor_->input()->setFocus(Qt::OtherFocusReason); }

void FieldRow::showHelp(bool shown) { helpButton_->setChecked(shown && !field_.help.empty()); }

void FieldRow::toggleHelp() { showHelp(!helpButton_->isChecked()); }

} // namespace fiscarel::forms
