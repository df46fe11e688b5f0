#include "Fiscarel_SG/pages/documents/RecordPanel.h"

#include "Fiscarel_SG/documents/PersonFit.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/editors/ChoiceEdit.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/documents/ProposalDesk.h"
#include "Fiscarel_SG/pages/documents/ProposalRow.h"
#include "Fiscarel_SG/pages/documents/ProposalText.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Kind = ProposedRecord::Kind;

namespace {

QString counted(int count, const QString& one, const QString& many) {
    return count == 1 ? one : many.arg(count);
}

QString titleOf(const ItemOption& option, Kind kind, std::size_t index) {
    return option.title.empty() ? u"%1 %2"_s.arg(qs(taxcore::label(kind))).arg(index + 1)
                                : qs(option.title);
}

} // namespace

RecordPanel::RecordPanel(ProposalDesk& desk, int record, QWidget* parent)
    : QFrame(parent), desk_(desk), record_(record), take_(new QCheckBox(this)),
      head_(new look::ElidingButton(this)), amount_(new QLabel(this)), summary_(new QLabel(this)),
      column_(new QVBoxLayout(this)) {
    look::setRole(this, "card");
    setObjectName(u"panel:%1"_s.arg(record));
    makeHead();
    refresh();
}

void RecordPanel::makeHead() {
    take_->setObjectName(u"record:%1"_s.arg(record_));
    take_->setAccessibleName(u"%1 übernehmen"_s.arg(qs(desk_.record(record_).title)));
    head_->setObjectName(u"openRecord:%1"_s.arg(record_));
    head_->setCheckable(true);
    look::setRole(head_, "row");
    QFont strong = head_->font();
    strong.setWeight(QFont::DemiBold);
    head_->setFont(strong);
    look::setRole(amount_, "figure");
    look::setRole(summary_, "small");
    summary_->setWordWrap(true);
    summary_->setMinimumWidth(1);
    summary_->setObjectName(u"summary:%1"_s.arg(record_));
    auto* const line = new QHBoxLayout;
    line->setSpacing(2);
    line->addWidget(take_);
    line->addWidget(head_, 1);
    line->addWidget(amount_);
    column_->setContentsMargins(12, 8, 14, 10);
    column_->setSpacing(2);
    column_->addLayout(line);
    column_->addWidget(summary_);
    summary_->setContentsMargins(40, 0, 0, 0);
    connect(take_, &QCheckBox::toggled, this,
            [this](bool taken) { desk_.includeRecord(record_, taken); });
    connect(head_, &QPushButton::toggled, this, &RecordPanel::open);
}

void RecordPanel::open(bool opened) {
    if (opened && body_ == nullptr) {
        fill();
    }
    if (body_ != nullptr) {
        body_->setVisible(opened);
    }
    const QSignalBlocker quiet(head_);
    head_->setChecked(opened);
    refresh();
}

bool RecordPanel::isOpen() const { return head_->isChecked(); }

void RecordPanel::focusFirst() {
    if (!isOpen()) {
        head_->setFocus(Qt::OtherFocusReason);
    } else if (body_->isEnabled() && !rows_.empty()) {
        rows_.front()->focusTick();
    } else {
        take_->setFocus(Qt::OtherFocusReason);
    }
}

ProposalRow* RecordPanel::row(int proposal) {
    if (std::ranges::find(desk_.valuesOf(record_), proposal) == desk_.valuesOf(record_).end()) {
        return nullptr;
    }
    if (!isOpen()) {
        open(true);
    }
    return *std::ranges::find(rows_, proposal, &ProposalRow::proposal);
}

void RecordPanel::fill() {
    body_ = new QWidget(this);
    auto* const inside = new QVBoxLayout(body_);
    inside->setContentsMargins(8, 6, 0, 0);
    inside->setSpacing(2);
    const ProposedRecord& record = desk_.record(record_);
    if (!record.advice.empty()) {
        QLabel& advice = addLabel(*inside, labelText("Hinweis: " + record.advice), "faint");
        advice.setObjectName(u"advice:%1"_s.arg(record_));
        advice.setMinimumWidth(1);
        advice.setContentsMargins(0, 0, 0, 6);
    }
    addTarget();
    rival_ = &addLabel(*inside, {}, "note");
    for (const int proposal : desk_.valuesOf(record_)) {
        auto* const row = new ProposalRow(desk_, proposal, body_);
        connect(row, &ProposalRow::focused, this, &RecordPanel::focused);
        inside->addWidget(row);
        rows_.push_back(row);
    }
    column_->addWidget(body_);
}

/// Whose it is and which entry it becomes, where there is a choice.
void RecordPanel::addTarget() {
    const Kind kind = desk_.record(record_).kind;
    const taxcore::TaxCase& taxCase = desk_.taxCase();
    auto& inside = static_cast<QVBoxLayout&>(*body_->layout());
    auto* const form = new QGridLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(6);
    form->setColumnStretch(1, 1);
    addPerson(*form);
    if (isListed(kind) && (canBeNew(kind) || !itemOptions(taxCase, kind, 1).empty())) {
        item_ = addChoice(*form, kind == Kind::child ? u"Kind"_s : u"Eintrag"_s, "item");
        connect(item_, &QComboBox::activated, this, [this](int index) {
            const QString id = item_->itemData(index).toString();
            desk_.setItem(record_, taxcore::Uuid::parse(utf8(id)));
        });
    } else if (kind == Kind::child) {
        addLabel(inside, u"In der Steuererklärung steht noch kein Kind."_s, "note");
        auto* const door = new QPushButton(u"Kind erfassen"_s, body_);
        look::setRole(door, "link");
        inside.addWidget(door, 0, Qt::AlignLeft);
        connect(door, &QPushButton::clicked, this, [this] { Q_EMIT fieldWanted(u"children"_s); });
    }
    form->setContentsMargins(0, 0, 0, 8);
    inside.addLayout(form);
    refreshTarget();
}

forms::ChoiceBox* RecordPanel::addChoice(QGridLayout& form, const QString& label,
                                         const char* name) {
    auto* const box = new forms::ChoiceBox(body_);
    box->setObjectName(u"%1:%2"_s.arg(QString::fromLatin1(name)).arg(record_));
    box->setAccessibleName(label);
    const int row = form.rowCount();
    form.addWidget(new QLabel(label, body_), row, 0);
    form.addWidget(box, row, 1);
    return box;
}

/// The person, and whom the document names, so that both can be compared.
void RecordPanel::addPerson(QGridLayout& form) {
    const ProposedRecord& record = desk_.record(record_);
    const taxcore::TaxCase& taxCase = desk_.taxCase();
    if (isOfAdult(record.kind) && taxCase.isJoint()) {
        person_ = addChoice(form, u"Person"_s, "person");
        person_->setPlaceholderText(u"Bitte wählen"_s);
        person_->addItem(qs(personName(taxCase, 1)), 1);
        person_->addItem(qs(personName(taxCase, 2)), 2);
        connect(person_, &QComboBox::activated, this,
                [this](int index) { desk_.setPerson(record_, index + 1); });
    }
    if (!record.personName.empty()) {
        QLabel* const named =
            makeLabel(labelText(u"Auf dem Beleg: %1"_s.arg(qs(record.personName))), "faint", body_);
        named->setObjectName(u"namedPerson:%1"_s.arg(record_));
        named->setMinimumWidth(1);
        form.addWidget(named, form.rowCount(), 1);
    }
    nameWarning_ = makeLabel({}, "note", body_);
    nameWarning_->setObjectName(u"nameWarning:%1"_s.arg(record_));
    nameWarning_->setMinimumWidth(1);
    form.addWidget(nameWarning_, form.rowCount(), 1);
}

/// What is to be said of the name on the document as things are chosen now; empty: it fits.
QString RecordPanel::personWarning() const {
    const ProposedRecord& record = desk_.record(record_);
    const taxcore::TaxCase& taxCase = desk_.taxCase();
    const bool isAdults = isOfAdult(record.kind);
    const NamedAdult named = namedAdult(taxCase, record);
    if (record.kind == Kind::child) {
        return {}; // which one it is, is chosen by name
    }
    if (!isAdults) {
        return namesStranger(taxCase, record) ? u"Der Name passt zu niemandem im Haushalt."_s
                                              : QString();
    }
    const int chosen = desk_.target(record_).person;
    if (taxCase.isJoint() && chosen == 0) {
        return named == NamedAdult::nobody
                   ? u"Der Name passt zu niemandem im Haushalt. Bitte Person wählen."_s
               : named == NamedAdult::both ? u"Der Name passt zu beiden. Bitte Person wählen."_s
                                           : u"Bitte Person wählen."_s;
    }
    if (named == NamedAdult::nobody) {
        return taxCase.isJoint()
                   ? u"Der Name passt zu niemandem im Haushalt."_s
                   : u"Der Name passt nicht zu %1. Bitte nur übernehmen, was in diese "
                     "Steuererklärung gehört."_s.arg(qs(personName(taxCase, 1)));
    }
    if ((named == NamedAdult::first && chosen == 2)
        || (named == NamedAdult::second && chosen == 1)) {
        return u"Der Name passt zu %1."_s.arg(qs(personName(taxCase, 3 - chosen)));
    }
    return hasOtherLastName(chosen == 2 ? taxCase.person2 : taxCase.person1, record)
               ? u"Der Nachname ist ein anderer als in der Steuererklärung."_s
               : QString();
}

void RecordPanel::refreshPerson() {
    if (person_ != nullptr) {
        person_->setCurrentIndex(desk_.target(record_).person - 1); // -1: nobody yet
        person_->setMarked(desk_.lacksPerson(record_));
    }
    const QString warning = personWarning();
    nameWarning_->setText(warning.isEmpty() ? warning : labelText(u"⚠ "_s + warning));
    nameWarning_->setVisible(!warning.isEmpty());
}

void RecordPanel::refreshTarget() {
    const RecordTarget& target = desk_.target(record_);
    const Kind kind = desk_.record(record_).kind;
    refreshPerson();
    if (item_ == nullptr) {
        return;
    }
    const auto options = itemOptions(desk_.taxCase(), kind, target.person);
    QStringList ids{QString()};
    for (const ItemOption& option : options) {
        ids << qs(option.id.toString());
    }
    if (ids != offered_) {
        offered_ = ids;
        item_->clear();
        item_->addItem(canBeNew(kind) ? u"Neuer Eintrag"_s : u"Bitte wählen"_s, QString());
        for (std::size_t i = 0; i < options.size(); ++i) {
            item_->addItem(titleOf(options[i], kind, i), qs(options[i].id.toString()));
        }
    }
    const QString chosen = target.item ? qs(target.item->toString()) : QString();
    item_->setCurrentIndex(std::max(0, static_cast<int>(offered_.indexOf(chosen))));
}

void RecordPanel::refresh() {
    {
        const QSignalBlocker quiet(take_);
        take_->setChecked(desk_.target(record_).isIncluded);
    }
    const QString title = withGroupedIbans(desk_.record(record_).title);
    head_->setText((isOpen() ? u"▾  "_s : u"▸  "_s) + title);
    head_->setAccessibleName(title + (isOpen() ? u", schliessen"_s : u", öffnen"_s));
    amount_->setText(amount());
    summary_->setText(labelText(summary()));
    look::setRole(summary_, warnings().isEmpty() ? "small" : "note");
    setVisible(!desk_.isSetAside(record_));
    if (body_ == nullptr) {
        return;
    }
    body_->setEnabled(desk_.target(record_).isIncluded);
    refreshTarget();
    const auto rival = desk_.rival(record_);
    rival_->setText(
        rival ? labelText(u"Auch «%1» geht in diesen Eintrag; was zuletzt kommt, gilt."_s.arg(
            withGroupedIbans(desk_.record(*rival).title)))
              : QString());
    rival_->setVisible(rival.has_value());
    for (ProposalRow* const row : rows_) {
        row->refresh();
    }
}

QString RecordPanel::targetName() const {
    const Kind kind = desk_.record(record_).kind;
    const RecordTarget& target = desk_.target(record_);
    QStringList parts;
    if (isOfAdult(kind) && desk_.taxCase().isJoint() && target.person != 0) {
        parts << qs(personName(desk_.taxCase(), target.person));
    }
    if (isListed(kind)) {
        const auto options = itemOptions(desk_.taxCase(), kind, target.person);
        const auto found = std::ranges::find_if(
            options, [&](const ItemOption& option) { return option.id == target.item; });
        parts << (found != options.end()
                      ? titleOf(*found, kind, static_cast<std::size_t>(found - options.begin()))
                  : canBeNew(kind) ? u"neuer Eintrag"_s
                                   : u"noch kein Kind gewählt"_s);
    }
    return parts.join(u", "_s);
}

QString RecordPanel::summary() const {
    QStringList parts;
    if (!desk_.target(record_).isIncluded) {
        return (warnings() << u"wird nicht übernommen"_s).join(u" · "_s);
    }
    // Open it stands below, as a choice.
    if (const QString target = targetName(); !target.isEmpty() && !isOpen()) {
        parts << u"→ "_s + target;
    }
    const auto& values = desk_.valuesOf(record_);
    const int all = static_cast<int>(values.size());
    const int taken = desk_.includedCount(record_);
    parts << (taken == all ? counted(all, u"1 Wert"_s, u"%1 Werte"_s)
                           : u"%1 von %2 Werten"_s.arg(taken).arg(all));
    parts << warnings();
    const auto unsure = static_cast<int>(std::ranges::count_if(
        values, [&](int value) { return isLeftUnsure(value) && !desk_.isAmount(value); }));
    if (unsure > 0) {
        parts << counted(unsure, u"1 unsicher, nicht angekreuzt"_s,
                         u"%1 unsicher, nicht angekreuzt"_s);
    }
    return parts.join(u" · "_s);
}

/// Nobody is sure of it, and it is not ticked.
bool RecordPanel::isLeftUnsure(int value) const {
    return !desk_.value(value).isIncluded && !isTrusted(desk_.proposal(value));
}

/// What is to be looked at before it is taken over.
QStringList RecordPanel::warnings() const {
    QStringList warnings;
    if (desk_.isOfAnotherYear(record_)) {
        warnings << u"⚠ Steuerjahr %1"_s.arg(*desk_.record(record_).year);
    }
    if (!desk_.target(record_).isIncluded) {
        return warnings;
    }
    const auto& values = desk_.valuesOf(record_);
    const auto count = [&](const auto& is) {
        return static_cast<int>(std::ranges::count_if(values, is));
    };
    if (desk_.lacksPerson(record_)) {
        warnings << u"⚠ Bitte Person wählen"_s;
    }
    if (const int unreadable = count([&](int value) { return desk_.isUnreadable(value); })) {
        warnings << u"⚠ "_s + counted(unreadable, u"1 nicht lesbar"_s, u"%1 nicht lesbar"_s);
    }
    if (const int amounts =
            count([&](int value) { return isLeftUnsure(value) && desk_.isAmount(value); })) {
        warnings << u"⚠ "_s
                        + counted(amounts, u"Betrag bitte prüfen"_s, u"%1 Beträge bitte prüfen"_s);
    } else if (desk_.lacksAmount(record_)) {
        warnings << u"⚠ ohne Betrag"_s;
    }
    const int failed = count([&](int value) {
        return !warningOf(desk_.proposal(value)).isEmpty()
               && !(isLeftUnsure(value) && desk_.isAmount(value));
    });
    if (failed > 0) {
        warnings << u"⚠ "_s + counted(failed, u"1 bitte prüfen"_s, u"%1 bitte prüfen"_s);
    }
    return warnings;
}

/// The first amount that is taken over: what a list of many records is read by.
QString RecordPanel::amount() const {
    if (!desk_.target(record_).isIncluded) {
        return {};
    }
    for (const int value : desk_.valuesOf(record_)) {
        const forms::BoundField* const field = desk_.declaration(value);
        const auto amount = Decimal::parse(desk_.value(value).value);
        if (field != nullptr && field->editor == forms::Editor::amount && amount
            && desk_.value(value).isIncluded) {
            return qs(forms::formatAmount(*amount));
        }
    }
    return {};
}

} // namespace fiscarel::pages
