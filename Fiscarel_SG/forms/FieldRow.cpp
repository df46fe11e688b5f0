#include "Fiscarel_SG/forms/FieldRow.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/DocumentClip.h"
#include "Fiscarel_SG/forms/HelpButton.h"
#include "Fiscarel_SG/forms/UnreadNotice.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int editorWidth = 320; ///< the most an editor takes
constexpr int rowHeight = 30;
constexpr int problemHeight = 19; ///< kept free below every editor, so that nothing moves
constexpr int belowText = 3;      ///< between a text below an editor and the next field
constexpr int leastTextWidth = 420;

/// As wide as the editor's input gets, so that what follows stands right beside it.
int widthOf(FieldEditor& editor, Editor kind) {
    QWidget& input = *editor.input();
    if (kind == Editor::check) {
        input.ensurePolished();
        return input.sizeHint().width();
    }
    return std::min(editorWidth, input.maximumWidth());
}

} // namespace

FieldRow::FieldRow(BoundField field, AppStore& store, const EditorContext& context, QWidget* parent)
    : QWidget(parent), field_(std::move(field)), pageId_(context.pageId), year_(context.page.year),
      store_(store), label_(new QLabel(labelText(field_.label), this)),
      editor_(makeEditor(field_, context, this)), problem_(new QLabel(this)),
      wording_(new QLabel(this)), help_(new QLabel(this)),
      helpButton_(new HelpButton(u"Hilfe zu diesem Feld"_s, qs(field_.label), this)),
      clip_(new DocumentClip(store, this)) {
    setObjectName(u"row:"_s + qs(field_.path));
    label_->setWordWrap(true);
    label_->setBuddy(editor_->input());
    label_->setFixedWidth(labelWidth);
    editor_->setFixedWidth(widthOf(*editor_, field_.editor));
    problem_->setWordWrap(true);
    problem_->setContentsMargins(0, 0, 0, belowText);
    problem_->setObjectName(u"problem:"_s + qs(field_.path));
    look::setRole(problem_, "error");
    wording_->setWordWrap(true);
    wording_->setObjectName(u"wording:"_s + qs(field_.path));
    look::setRole(wording_, "help");
    wording_->hide();
    help_->setWordWrap(true);
    help_->setContentsMargins(0, 2, 0, 4 * belowText);
    help_->setText(labelText(field_.help));
    help_->setObjectName(u"help:"_s + qs(field_.path));
    look::setRole(help_, "help");
    help_->hide();
    helpButton_->setVisible(!field_.help.empty());

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(0);
    auto* const line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(editor_);
    line->addWidget(helpButton_);
    line->addWidget(clip_);
    line->addStretch(1);
    grid->addWidget(label_, 0, 0, Qt::AlignVCenter);
    grid->addLayout(line, 0, 1);
    auto* const state = new QVBoxLayout;
    state->setSpacing(0);
    state->addWidget(problem_);
    state->addWidget(wording_);
    state->addWidget(help_);
    state->addStretch(1);
    grid->addLayout(state, 1, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowMinimumHeight(0, rowHeight);
    grid->setRowMinimumHeight(1, problemHeight);

    connect(helpButton_, &QToolButton::toggled, help_, &QWidget::setVisible);
    connect(editor_, &FieldEditor::edited, this, &FieldRow::write);
    connect(editor_, &FieldEditor::problemChanged, this, &FieldRow::showState);
    connect(editor_, &FieldEditor::left, this, [this] {
        store_.endMerging();
        showUsable();
    });
    refresh();
    restoreUnread();
}

void FieldRow::refresh() {
    const TaxCase& taxCase = store_.current();
    setVisible(field_.shown(taxCase));
    showUsable();
    showLabel();
    clip_->follow(field_.path, label_->text());
    editor_->setValue(field_.get(taxCase));
    if (!unread_.isNull() && store_.unreadText(field_.path) == nullptr) {
        editor_->dropUnread(); // as when the year was reset
    }
    editor_->refresh();
    showState();
    if (field_.computed) {
        editor_->setComputed(field_.computed(taxCase));
        return;
    }
    const auto lastYear = store_.cases().find(store_.year() - 1);
    editor_->setHint(lastYear != store_.cases().end() ? field_.get(lastYear->second) : Value{});
}

void FieldRow::write() {
    if (store_.year() != year_) {
        return; // the keyboard leaves it while its page gives way to that of another year
    }
    showState();
    const Value value = editor_->value();
    // Writing what stands there already could still bring an optional record into being.
    if (value == field_.get(store_.current())) {
        return;
    }
    store_.edit(field_.label, [&](TaxCase& taxCase) { field_.set(taxCase, value); });
    Q_EMIT written(field_.path);
}

/// A name may change while the field is there.
void FieldRow::showLabel() {
    if (field_.labelFor) {
        label_->setText(labelText(field_.labelFor(store_.current())));
        editor_->input()->setAccessibleName(label_->text());
    }
}

void FieldRow::tellUnread() {
    const QString text = editor_->unreadText();
    if (text == unread_) {
        return;
    }
    unread_ = text;
    std::optional<UnreadText> told;
    if (!text.isNull()) {
        told = unreadNotice(field_, {.text = text,
                                     .label = label_->text(),
                                     .problem = editor_->problem(),
                                     .before = editor_->value(),
                                     .pageId = pageId_});
    }
    store_.setUnread(year_, field_.path, std::move(told));
}

void FieldRow::restoreUnread() {
    if (const std::string* const text = store_.unreadText(field_.path)) {
        const QString typed = qs(*text); // the store's may go while it is shown
        editor_->showUnread(typed);
        if (editor_->unreadText().isNull()) {
            store_.setUnread(year_, field_.path, {});
        }
    }
}

void FieldRow::showState() {
    tellUnread();
    const QString problem = editor_->problem();
    QString wording = editor_->wording();
    if (wording.isEmpty() && field_.note) {
        wording = qs(field_.note(store_.current()));
    }
    const QString note = editor_->note();
    look::setRole(problem_, problem.isEmpty() ? "note" : "error");
    problem_->setText(labelText(problem.isEmpty() ? note : problem));
    problem_->setVisible(!problem_->text().isEmpty());
    wording_->setText(labelText(wording));
    const bool isOneLine = fontMetrics().horizontalAdvance(wording) < leastTextWidth;
    wording_->setContentsMargins(0, 0, 0, isOneLine ? belowText : 3 * belowText);
    wording_->setVisible(!wording.isEmpty());
}

/// What one types in stays open, even when it takes away what it hangs on.
void FieldRow::showUsable() {
    const bool isUsable = field_.usable(store_.current()) || editor_->input()->hasFocus();
    label_->setEnabled(isUsable);
    editor_->setEnabled(isUsable);
}

bool FieldRow::focusField() {
    const bool isThere = !isHidden() && editor_->isEnabled();
    if (isThere) {
        editor_->input()->setFocus(Qt::OtherFocusReason);
    }
    return isThere;
}

void FieldRow::showHelp(bool shown) { helpButton_->setChecked(shown && !field_.help.empty()); }

void FieldRow::toggleHelp() { showHelp(!helpButton_->isChecked()); }

} // namespace fiscarel::forms
