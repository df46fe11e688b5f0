#include "Fiscarel_SG/pages/documents/ProposalHead.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/KnownYears.h"
#include "Fiscarel_SG/documents/ScanSummary.h"
#include "Fiscarel_SG/forms/editors/ChoiceEdit.h"
#include "Fiscarel_SG/forms/editors/InputLine.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/documents/ProposalDesk.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Kind = StoredDocument::Kind;

ProposalHead::ProposalHead(ProposalDesk& desk, QWidget* parent)
    : QWidget(parent), desk_(desk), column_(new QVBoxLayout(this)),
      name_(new forms::InputLine(this)), kind_(new forms::ChoiceBox(this)),
      proposedKind_(firstKind(desk.document(), desk.scan())) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(6);
    addNameAndKind();
    addYearNotice();
    if (desk_.hasTotalAndEntries()) {
        addStatementChoice();
    }
    refresh();
}

void ProposalHead::addNameAndKind() {
    auto* const line = new QHBoxLayout;
    line->setSpacing(8);
    name_->setObjectName(u"documentTitle"_s);
    name_->setAccessibleName(u"Name des Belegs"_s);
    name_->setText(qs(desk_.document().title));
    name_->setCursorPosition(0);
    kind_->setObjectName(u"documentKind"_s);
    kind_->setAccessibleName(u"Art des Belegs"_s);
    for (const Kind kind : taxcore::allValues<Kind>()) {
        kind_->addItem(qs(taxcore::label(kind)));
        if (kind == proposedKind_) {
            kind_->setCurrentIndex(kind_->count() - 1);
        }
    }
    kind_->setSizeAdjustPolicy(QComboBox::AdjustToContents); // no kind is cut
    connect(kind_, &QComboBox::activated, this, &ProposalHead::kindChanged);
    auto* const label = new QLabel(u"Name"_s, this);
    line->addWidget(label);
    line->addWidget(name_, 1);
    line->addSpacing(4);
    line->addWidget(new QLabel(u"Art"_s, this));
    line->addWidget(kind_);
    column_->addLayout(line);
    addSuggestion(label->sizeHint().width() + line->spacing());
    // Where nobody has decided the kind yet, what is proposed stands in the box.
    const auto& proposed = desk_.scan().proposedKind;
    if (proposed && *proposed != proposedKind_) {
        addLabel(
            *column_,
            u"Nach seinem Inhalt ist dieser Beleg eher: %1."_s.arg(qs(taxcore::label(*proposed))),
            "small")
            .setObjectName(u"kindNotice"_s);
    }
}

/// A file's name says little in a list; nobody's is changed unasked.
void ProposalHead::addSuggestion(int indent) {
    suggestion_ = new look::ElidingButton(this);
    suggestion_->setObjectName(u"suggestedTitle"_s);
    look::setRole(suggestion_, "smalllink");
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(indent, 0, 0, 0);
    line->addWidget(suggestion_);
    line->addStretch(1);
    column_->addLayout(line);
    connect(suggestion_, &QPushButton::clicked, this, [this] {
        name_->setFocus(Qt::OtherFocusReason);
        name_->selectAll();
        name_->insert(qs(titleFor(kind(), desk_.scan()))); // so that it can be taken back
        name_->setCursorPosition(0);
    });
    connect(name_, &QLineEdit::textChanged, this, &ProposalHead::showSuggestion);
    connect(this, &ProposalHead::kindChanged, this, &ProposalHead::showSuggestion);
    showSuggestion();
}

void ProposalHead::showSuggestion() {
    name_->setToolTip(labelText(name_->text()).toHtmlEscaped());
    const QString title = qs(titleFor(kind(), desk_.scan()));
    suggestion_->setText(u"Umbenennen in «%1»"_s.arg(title));
    suggestion_->setVisible(!title.isEmpty() && title != name_->text().trimmed());
}

std::optional<int> ProposalHead::otherYear() const {
    for (std::size_t i = 0; i < desk_.scan().records.size(); ++i) {
        if (desk_.isOfAnotherYear(static_cast<int>(i))) {
            return desk_.scan().records[i].year;
        }
    }
    return std::nullopt;
}

void ProposalHead::addYearNotice() {
    const auto other = otherYear();
    if (!other) {
        return;
    }
    const int year = desk_.taxCase().year;
    const bool canMove = isKnownYear(desk_.store(), *other);
    QString sentences =
        u"⚠ Dieser Beleg nennt das Jahr %1, gewählt ist das Steuerjahr %2. Was zu %1 gehört, ist "
        "darum nicht angekreuzt."_s.arg(*other)
            .arg(year);
    if (!canMove) {
        sentences += u" Bitte entfernen oder trotzdem ablegen."_s;
    }
    addLabel(*column_, sentences, "banner-warning").setObjectName(u"yearNotice"_s);
    if (canMove) {
        auto* const move =
            new QPushButton(u"Zu den Belegen von %1 verschieben"_s.arg(*other), this);
        move->setObjectName(u"moveToYear"_s);
        look::setRole(move, "link");
        connect(move, &QPushButton::clicked, this,
                [this, year = *other] { Q_EMIT yearWanted(year); });
        column_->addWidget(move, 0, Qt::AlignLeft);
    }
}

void ProposalHead::addStatementChoice() {
    auto& card = addCard(*column_, {});
    card.setContentsMargins(14, 10, 14, 10);
    card.setSpacing(2);
    addLabel(card, u"Wie soll der Auszug ins Wertschriftenverzeichnis?"_s, "figure");
    asEntries_ = new QRadioButton(u"Einzeln: jedes Konto und jede Wertschrift"_s, this);
    asTotal_ = new QRadioButton(u"Als ein Total der Bank"_s, this);
    asEntries_->setObjectName(u"asEntries"_s);
    asTotal_->setObjectName(u"asTotal"_s);
    card.addWidget(asEntries_);
    card.addWidget(asTotal_);
    connect(asTotal_, &QRadioButton::toggled, this, [this](bool total) { desk_.takeTotal(total); });
}

std::string ProposalHead::title() const {
    const QString entered = name_->text().trimmed();
    return entered.isEmpty() ? desk_.document().title : utf8(entered);
}

Kind ProposalHead::kind() const {
    return taxcore::allValues<Kind>()[static_cast<std::size_t>(kind_->currentIndex())];
}

bool ProposalHead::isKindDecided() const {
    return kind() != proposedKind_ || desk_.scan().proposedKind;
}

bool ProposalHead::isEdited() const {
    return title() != desk_.document().title || kind() != proposedKind_;
}

void ProposalHead::refresh() {
    if (asTotal_ != nullptr) {
        const QSignalBlocker quiet(asTotal_);
        (desk_.takesTotal() ? asTotal_ : asEntries_)->setChecked(true);
    }
}

} // namespace fiscarel::pages
