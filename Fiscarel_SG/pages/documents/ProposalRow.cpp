#include "Fiscarel_SG/pages/documents/ProposalRow.h"

#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/forms/FieldEditor.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/editors/InputLine.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/documents/ProposalDesk.h"
#include "Fiscarel_SG/pages/documents/ProposalText.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Outcome = PlannedValue::Outcome;

namespace {

/// Whether something is typed that cannot be read.
bool isUnread(const forms::FieldEditor& editor) { return !editor.unreadText().isNull(); }

constexpr int leastLabel = 110;
constexpr int leastEditor = 172; ///< for 118’400.50 with its unit
constexpr int labelShare = 3;    ///< of the room of both
constexpr int editorShare = 5;
constexpr int aroundText = 22; ///< pixels between a text and the edges of its line

int trustWidth(const QWidget& row) {
    return row.fontMetrics().horizontalAdvance(u"≈ wahrscheinlich"_s) + 22;
}

/// The longest unit of a record's values.
QString longestUnit(const ProposalDesk& desk, int record) {
    QString longest;
    for (const int value : desk.valuesOf(record)) {
        const auto* const field = desk.declaration(value);
        if (field != nullptr && qs(field->unit).size() > longest.size()) {
            longest = qs(field->unit);
        }
    }
    return longest;
}

QLabel* textLabel(const char* role, const QString& name, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setWordWrap(true);
    label->setMinimumWidth(1); // a long word is cut rather than the row widened
    label->setObjectName(name);
    look::setRole(label, role);
    label->hide();
    return label;
}

void say(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

ProposalRow::ProposalRow(ProposalDesk& desk, int proposal, QWidget* parent)
    : QWidget(parent), desk_(desk), proposal_(proposal), take_(new QCheckBox(this)),
      label_(new QLabel(this)), trust_(new QToolButton(this)),
      before_(textLabel("small", u"before:%1"_s.arg(proposal), this)),
      warning_(textLabel("note", u"warning:%1"_s.arg(proposal), this)),
      problem_(textLabel("error", u"problem:%1"_s.arg(proposal), this)),
      details_(textLabel("help", u"details:%1"_s.arg(proposal), this)) {
    setObjectName(u"proposalRow:%1"_s.arg(proposal));
    makeEditor();
    take_->setObjectName(u"take:%1"_s.arg(proposal));
    label_->setWordWrap(true);
    label_->setBuddy(editor_->input());
    trust_->setObjectName(u"trust:%1"_s.arg(proposal));
    trust_->setCheckable(true);
    details_->setText(evidenceOf(desk_.proposal(proposal_)));
    trust_->setToolTip(tipText(details_->text()));
    details_->setAccessibleName(details_->text());
    say(*warning_, labelText(warningOf(desk_.proposal(proposal_))));
    before_->setTextFormat(Qt::RichText);
    layOut();
    take_->installEventFilter(this);
    editor_->input()->installEventFilter(this);
    trust_->installEventFilter(this);
    connect(take_, &QCheckBox::toggled, this,
            [this](bool taken) { desk_.includeValue(proposal_, taken); });
    connect(trust_, &QToolButton::toggled, details_, &QWidget::setVisible);
    connectEditor();
    refresh();
}

void ProposalRow::makeEditor() {
    forms::BoundField field;
    if (const auto* const declared = desk_.declaration(proposal_)) {
        field = *declared;
    } else { // no page of this region has it; it can be taken over all the same
        field.label = desk_.proposal(proposal_).field;
        field.isOptional = true;
    }
    const forms::EditorContext context{
        .page = desk_.pageContext(),
        .taxCase = [&desk = desk_]() -> const taxcore::TaxCase& { return desk.taxCase(); },
        .pageId = {}};
    editor_ = forms::makeEditor(field, context, this);
    editor_->setMinimumWidth(leastEditor);
    if (auto* const line = dynamic_cast<forms::InputLine*>(editor_->input())) {
        line->setUnitRoom(longestUnit(desk_, desk_.proposal(proposal_).recordIndex));
    }
    // The page behind has a field of the same name.
    editor_->input()->setObjectName(u"proposal:%1"_s.arg(proposal_));
    if (const auto value = fieldValue(field, desk_.value(proposal_).value)) {
        const auto* const text = std::get_if<std::string>(&*value);
        const QString shown = text != nullptr ? withGroupedIbans(*text) : QString();
        editor_->setValue(field.editor == forms::Editor::text ? forms::Value(utf8(shown)) : *value);
        if (auto* const line = qobject_cast<QLineEdit*>(editor_->input())) {
            line->setCursorPosition(0); // a long text begins in sight
            line->setToolTip(tipText(shown));
        }
    } else {
        showUnreadableText();
    }
}

/// What was read stays as it is until somebody puts it right, as if it had been typed.
void ProposalRow::showUnreadableText() {
    if (auto* const line = qobject_cast<QLineEdit*>(editor_->input())) {
        const QString text = qs(desk_.value(proposal_).value);
        line->setText(text);
        Q_EMIT line->textEdited(text);
        Q_EMIT line->returnPressed();
    }
}

void ProposalRow::layOut() {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 3, 0, 3);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(1);
    label_->setMinimumWidth(leastLabel);
    editor_->input()->setMaximumWidth(QWIDGETSIZE_MAX); // all end at the same edge
    grid->setColumnStretch(1, labelShare);
    grid->setColumnStretch(2, editorShare);
    grid->setColumnMinimumWidth(3, trustWidth(*this));
    place(false);
}

/// All of it, as the keyboard goes by the order in which things were put there.
void ProposalRow::place(bool below) {
    isBelow_ = below;
    auto& grid = static_cast<QGridLayout&>(*layout());
    while (QLayoutItem* const item = grid.takeAt(0)) {
        delete item;
    }
    grid.addWidget(take_, 0, 0, Qt::AlignVCenter);
    grid.addWidget(label_, 0, 1, 1, below ? 2 : 1, Qt::AlignVCenter);
    if (below) {
        grid.addWidget(editor_, 1, 1, 1, 3);
    } else {
        grid.addWidget(editor_, 0, 2, Qt::AlignVCenter);
    }
    grid.addWidget(trust_, 0, 3, Qt::AlignVCenter | Qt::AlignRight);
    grid.addWidget(before_, 2, below ? 1 : 2, 1, below ? 3 : 2);
    grid.addWidget(problem_, 3, 1, 1, 3);
    grid.addWidget(warning_, 4, 1, 1, 3);
    grid.addWidget(details_, 5, 1, 1, 3);
}

/// Whether what is proposed would be cut beside its label: digits and names are to be compared.
bool ProposalRow::isTooLong() const {
    const auto* const line = qobject_cast<QLineEdit*>(editor_->input());
    if (line == nullptr) {
        return false;
    }
    const auto& grid = static_cast<QGridLayout&>(*layout());
    const int room =
        width() - take_->sizeHint().width() - trustWidth(*this) - 3 * grid.horizontalSpacing();
    const int beside = std::max(
        leastEditor, std::min(room - leastLabel, room * editorShare / (labelShare + editorShare)));
    const int needed = line->fontMetrics().horizontalAdvance(line->text())
                       + line->textMargins().left() + line->textMargins().right() + aroundText;
    return needed > beside;
}

void ProposalRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // Not while somebody types: nothing moves below the hands.
    if (event->size().width() != event->oldSize().width() && isTooLong() != isBelow_) {
        place(!isBelow_);
    }
}

void ProposalRow::connectEditor() {
    connect(editor_, &forms::FieldEditor::edited, this, [this] {
        desk_.setValue(proposal_, proposalText(editor_->value()));
        desk_.setUnread(proposal_, isUnread(*editor_));
    });
    connect(editor_, &forms::FieldEditor::problemChanged, this, [this] {
        if (isUnread(*editor_) && !desk_.isUnreadable(proposal_)) {
            desk_.setUnread(proposal_, true);
        } else if (!isUnread(*editor_)) {
            desk_.setUnread(proposal_, false);
        }
        showProblem();
    });
}

void ProposalRow::refresh() {
    const PlannedValue* const planned = desk_.planned(proposal_);
    const std::string path = planned != nullptr ? planned->path : std::string();
    if (!field_ || path != fieldPath_) {
        fieldPath_ = path;
        field_ = desk_.field(proposal_);
        QString label = qs(desk_.proposal(proposal_).field);
        if (field_) {
            label = qs(field_->labelFor ? field_->labelFor(desk_.taxCase()) : field_->label);
        }
        label_->setText(breakable(labelText(label)));
        take_->setAccessibleName(u"%1 übernehmen"_s.arg(label));
    }
    const QSignalBlocker quiet(take_);
    // Of a record that is left out nothing is taken over, whatever would be ticked in it.
    take_->setChecked(desk_.value(proposal_).isIncluded
                      && desk_.target(desk_.proposal(proposal_).recordIndex).isIncluded);
    showBefore();
    showTrust();
    showProblem();
}

QString ProposalRow::beforeText() const {
    const PlannedValue* const planned = desk_.planned(proposal_);
    if (planned == nullptr) {
        return {};
    }
    if (planned->outcome == Outcome::isComputed) {
        return u"Stimmt mit dem überein, was aus den anderen Angaben gerechnet wird; darum wird es "
               "nicht eigens eingetragen."_s;
    }
    QStringList parts;
    const auto value =
        planned->outcome == Outcome::unreadable ? std::nullopt : desk_.before(proposal_);
    if (value && field_) {
        const QString before = forms::cellText(*field_, *value);
        parts << (planned->before == planned->after ? u"unverändert"_s
                  : before.isEmpty()                ? u"neu"_s
                                     : u"bisher <s>%1</s>"_s.arg(before.toHtmlEscaped()));
    }
    if (const auto sum = desk_.sum(proposal_)) {
        const QString total = qs(forms::formatAmount(sum->total));
        parts << (sum->documents > 1 ? u"Summe aus %1 Belegen: %2"_s.arg(sum->documents).arg(total)
                                     : u"Summe der Beträge dieses Belegs: %1"_s.arg(total));
    }
    return parts.join(u" · "_s);
}

void ProposalRow::showBefore() { say(*before_, beforeText()); }

void ProposalRow::showTrust() {
    const Proposal& proposal = desk_.proposal(proposal_);
    const bool isEdited = desk_.value(proposal_).value != proposal.value;
    trust_->setText(isEdited ? u"✎ geändert"_s : signOf(proposal.confidence));
    look::setRole(trust_, isEdited ? "faint" : roleOf(proposal.confidence));
    trust_->setAccessibleName(
        u"%1: %2. Herkunft zeigen"_s.arg(label_->text(), trust_->text().mid(2)));
}

void ProposalRow::showProblem() {
    QString text;
    if (desk_.isUnreadable(proposal_)) {
        text = editor_->problem();
        if (text.isEmpty()) {
            text = u"Dieser Wert passt nicht in das Feld."_s;
        }
        text += u" Bitte berichtigen oder das Häkchen entfernen."_s;
    } else if (!isUnread(*editor_)) {
        text = editor_->problem().isEmpty() ? editor_->note() : editor_->problem();
    }
    look::setRole(problem_, desk_.isUnreadable(proposal_) ? "error" : "note");
    say(*problem_, labelText(text));
}

void ProposalRow::focusValue() { editor_->input()->setFocus(Qt::OtherFocusReason); }

void ProposalRow::focusTick() { take_->setFocus(Qt::OtherFocusReason); }

bool ProposalRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        Q_EMIT focused(proposal_, reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                                      || reason == Qt::MouseFocusReason);
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace fiscarel::pages
