#include "Fiscarel_SG/pages/documents/ProposalByHand.h"

#include "Fiscarel_SG/documents/ScanSummary.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/documents/ProposalDesk.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Kind = StoredDocument::Kind;

namespace {

/// Where the amounts of a kind of document are entered; empty: anywhere.
std::string pathFor(Kind kind, const taxcore::TaxCase& taxCase) {
    switch (kind) {
    case Kind::lohnausweis:
        return "income1.salaries";
    case Kind::krankenkasse:
        return "householdDeductions.healthInsurancePremiums";
    case Kind::saeule3a:
        return "deductions1.pillar3a";
    case Kind::pensionskasse:
        return "deductions1.pensionBuyIn";
    case Kind::steuerauszug:
    case Kind::bankauszug:
        return "securities";
    case Kind::arztrechnung:
        return "householdDeductions.medicalCosts";
    case Kind::spende:
        return "householdDeductions.donations";
    case Kind::kinderbetreuung:
        return taxCase.children.empty() ? "children" : "children[0].childcareCosts";
    case Kind::weiterbildung:
        return "deductions1.furtherEducation";
    case Kind::versicherung:
        return "insurances";
    case Kind::liegenschaft:
        return "realEstate";
    case Kind::anderes:
        break;
    }
    return {};
}

} // namespace

ProposalByHand::ProposalByHand(ProposalDesk& desk, QWidget* parent)
    : QWidget(parent), desk_(desk), column_(new QVBoxLayout(this)) {
    setObjectName(u"byHand"_s);
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(10);
    sayWhatWasRead();
}

void ProposalByHand::sayWhatWasRead() {
    const ScanResult& scan = desk_.scan();
    if (scan.problem && scan.text.empty()) {
        return; // the problem stands above and says all
    }
    auto& card = addCard(*column_, u"Kein Wert zum Übernehmen gefunden"_s);
    if (scan.text.empty()) {
        addLabel(card,
                 u"In diesem Beleg wurde kein Text erkannt. Er bleibt abgelegt; die Beträge können "
                 "Sie von Hand eintragen."_s,
                 "");
        return;
    }
    addLabel(card,
             u"Der Text wurde gelesen, aber kein Betrag liess sich sicher einem Feld der "
             "Steuererklärung zuordnen. Der Beleg bleibt abgelegt; die Beträge können Sie von Hand "
             "eintragen."_s,
             "");
    const auto fields = credibleFields(scan);
    if (fields.empty()) {
        return;
    }
    addLabel(card, u"Nach den Wörtern könnte darin stehen:"_s, "faint");
    for (const ExtractedField& field : fields) {
        addLabel(card,
                 labelText(u"%1: %2"_s.arg(qs(field.label), qs(forms::formatAmount(field.value)))),
                 "");
    }
}

void ProposalByHand::showKind(Kind kind) {
    delete doors_;
    doors_ = new QWidget(this);
    auto* const column = new QVBoxLayout(doors_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    addLabel(*column, u"Von Hand eintragen"_s, "heading");
    const auto addDoor = [&](const QString& text, const QString& name) {
        auto* const door = new QPushButton(text, doors_);
        door->setObjectName(name);
        look::setRole(door, "door");
        column->addWidget(door, 0, Qt::AlignLeft);
        return door;
    };
    const std::string path = pathFor(kind, desk_.taxCase());
    if (const forms::Page* const page = forms::pageWithPath(desk_.pages(), path)) {
        auto* const door =
            addDoor(u"%1 eintragen (Seite «%2»)"_s.arg(qs(taxcore::label(kind)), qs(page->title)),
                    u"byHand:"_s + qs(taxcore::rawValue(kind)));
        connect(door, &QPushButton::clicked, this,
                [this, path = qs(path)] { Q_EMIT fieldWanted(path); });
    } else {
        for (const forms::Page& other : desk_.pages()) {
            auto* const door =
                addDoor(u"Seite «%1»"_s.arg(qs(other.title)), u"byHand:"_s + qs(other.id));
            connect(door, &QPushButton::clicked, this,
                    [this, id = qs(other.id)] { Q_EMIT pageWanted(id); });
        }
    }
    column_->addWidget(doors_);
}

} // namespace fiscarel::pages
