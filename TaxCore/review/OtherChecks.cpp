#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckContext.h"
#include "TaxCore/review/CheckText.h"
#include "TaxCore/review/PartyNames.h"
#include "TaxCore/stgallen/DeductionRules.h"

#include <algorithm>
#include <array>
#include <string>

namespace taxcore::review {

namespace {

constexpr std::string_view page = "other";
constexpr int daysOfALeapYear = 366;
/// Nobody supports more relatives than this; a larger number is an amount in the wrong field.
constexpr int mostSupportedPersons = 10;

FieldPath householdPath(std::string_view field) { return {"householdDeductions", field}; }

void checkChildcareAge(CheckContext& c, const Child& child, int index) {
    const DeductionParams& rules = c.stGallen->cantonal;
    const int year = c.taxCase.year;
    if (child.childcareCosts <= 0 || !child.birthDate || !isBornBy(child, year)) {
        return;
    }
    const std::string age = std::to_string(rules.kinderbetreuungAltersgrenze);
    const FieldPath path = FieldPath("children", "childcareCosts").at(index);
    if (!isWithinChildcareAge(child, year, rules)) {
        c.warning({itemId("kinderbetreuung-alter", index), page,
                   "Kinderbetreuung über Altersgrenze",
                   "Betreuungskosten sind nur bis zum " + age + ". Geburtstag abziehbar. Für "
                       + called(child, index)
                       + " ergibt sich kein Abzug; bitte Betrag und "
                         "Geburtsdatum prüfen.",
                   path});
    } else if (year - child.birthDate->year() == rules.kinderbetreuungAltersgrenze) {
        c.info({itemId("kinderbetreuung-geburtstag", index), page,
                "Kinderbetreuung bis zum Geburtstag",
                called(child, index) + " feiert " + std::to_string(year) + " den " + age
                    + ". Geburtstag. Es zählen nur die Betreuungskosten bis zum Geburtstag.",
                path});
    }
}

void checkChildcareDays(CheckContext& c, const Child& child, int index) {
    const int days = child.childcareDaysWithMealsIncluded;
    const FieldPath path = FieldPath("children", "childcareDaysWithMealsIncluded").at(index);
    if (days > daysOfALeapYear) {
        c.warning({itemId("kinderbetreuung-tage", index), page, "Zu viele Betreuungstage",
                   "Für " + called(child, index) + " sind " + std::to_string(days)
                       + " Betreuungstage mit Essen erfasst, mehr als das Jahr hat.",
                   path});
    }
    if (days > 0 && child.childcareCosts.isZero()) {
        c.warning({itemId("kinderbetreuung-ohne-kosten", index), page,
                   "Betreuungstage ohne Betreuungskosten",
                   "Für " + called(child, index)
                       + " sind Betreuungstage mit Essen erfasst, aber keine Betreuungskosten. "
                         "Bitte die Kosten ergänzen.",
                   FieldPath("children", "childcareCosts").at(index)});
    }
}

/// Who neither works nor trains looks after the children; illness and training the case does not
/// tell. StG SG Art. 45 Abs. 1 Bst. h, DBG Art. 33 Abs. 3
void checkChildcareWithoutWork(CheckContext& c) {
    const auto& children = c.taxCase.children;
    const auto cared = std::ranges::find_if(children, [&](const Child& child) {
        return childcare(child, c.taxCase.year, c.stGallen->cantonal) > 0;
    });
    if (cared == children.end()) {
        return;
    }
    for (const Adult& adult : c.adults) {
        if (!adult.works()) {
            c.warning({adult.id("kinderbetreuung-ohne-erwerb"), page, "Kinderbetreuung ohne Erwerb",
                       std::string("Betreuungskosten sind nur abziehbar, soweit ")
                           + (c.adults.size() > 1 ? "beide Eltern" : "der Elternteil")
                           + " wegen Erwerb, Ausbildung oder Erwerbsunfähigkeit nicht selbst "
                             "betreuen "
                           + (c.adults.size() > 1 ? "können" : "kann") + ". Für " + adult.called()
                           + " ist kein Erwerb eingetragen; bitte prüfen.",
                       FieldPath("children", "childcareCosts")
                           .at(static_cast<int>(cared - children.begin()))});
        }
    }
}

void checkChildEducation(CheckContext& c, const Child& child, int index) {
    if (c.stGallen != nullptr && child.educationCosts > 0
        && child.education == ChildEducation::keine) {
        c.warning(
            {itemId("ausbildungskosten-ohne-ausbildung", index), page,
             "Ausbildungskosten ohne Ausbildung",
             "Bei " + called(child, index)
                 + " sind Ausbildungskosten erfasst, aber keine Ausbildung gewählt. So gibt es "
                   "weder Kinderabzug noch Abzug der Kosten.",
             FieldPath("children", "education").at(index)});
    }
    if (child.scholarships > child.educationCosts) {
        c.warning({itemId("stipendien-ueber-kosten", index), page,
                   "Stipendien über den Ausbildungskosten",
                   "Die Stipendien von " + called(child, index) + " ("
                       + MoneyFormat::fr(child.scholarships)
                       + ") sind höher als die erfassten Ausbildungskosten ("
                       + MoneyFormat::fr(child.educationCosts) + "). Sind die Kosten vollständig?",
                   FieldPath("children", "educationCosts").at(index)});
    }
}

/// Maintenance between former spouses ends when the one who receives it marries again (ZGB
/// Art. 130 Abs. 2); whoever pays it may well be married again.
void checkAlimonyOfJointHousehold(CheckContext& c) {
    if (!c.taxCase.isJoint()) {
        return;
    }
    if (c.taxCase.householdIncome.alimonyReceivedSelf > 0) {
        c.warning({"unterhalt-erhalten-gemeinsam", "income",
                   "Unterhalt trotz gemeinsamer Besteuerung",
                   "Unterhaltsbeiträge für sich selbst sind nur zwischen Getrennten oder "
                   "Geschiedenen steuerbar und enden in der Regel mit einer neuen Heirat. Bitte "
                   "Betrag und Zivilstand prüfen.",
                   FieldPath("householdIncome", "alimonyReceivedSelf")});
    }
    if (c.taxCase.householdDeductions.alimonyPaidPartner > 0) {
        c.info({"unterhalt-bezahlt-gemeinsam", page, "Unterhalt an frühere Partner",
                "Abziehbar sind nur Unterhaltsbeiträge an frühere oder getrennt lebende Partner, "
                "nicht solche innerhalb des Haushalts.",
                householdPath("alimonyPaidPartner")});
    }
}

bool isToParty(const CheckContext& c, const Donation& donation) {
    return c.stGallen != nullptr ? namesParty(donation.recipient, *c.stGallen)
                                 : namesParty(donation.recipient, *c.liechtenstein);
}

void checkDonation(CheckContext& c, const Donation& donation, int index) {
    const auto path = [&](std::string_view field) {
        return FieldPath("householdDeductions", "donations", field).at(index);
    };
    if (!donation.isPoliticalParty && isToParty(c, donation)) {
        c.warning({itemId("spende-an-partei", index), page, "Spende an eine Partei?",
                   itemName(donation.recipient, "Spende", index)
                       + " sieht nach einer politischen Partei aus. Spenden an Parteien werden "
                         "anders behandelt; bitte das Feld «Partei» ankreuzen, falls es zutrifft.",
                   path("isPoliticalParty")});
    }
    if (donation.date && donation.date->year() != c.taxCase.year) {
        c.warning({itemId("spende-anderes-jahr", index), page, "Spende aus einem anderen Jahr",
                   "Die " + called(donation, index) + " trägt ein Datum von "
                       + std::to_string(donation.date->year()) + ". Abziehbar sind nur Spenden von "
                       + std::to_string(c.taxCase.year) + ".",
                   path("date")});
    }
}

void checkMedicalBill(CheckContext& c, const MedicalCost& bill, int index) {
    const auto path = [&](std::string_view field) {
        return FieldPath("householdDeductions", "medicalCosts", field).at(index);
    };
    const std::string name = called(bill, index);
    if (bill.date && bill.date->year() != c.taxCase.year) {
        c.warning({itemId("rechnung-anderes-jahr", index), page, "Rechnung aus einem anderen Jahr",
                   "Die " + name + " trägt ein Datum von " + std::to_string(bill.date->year())
                       + ". Krankheitskosten gehören in das Steuerjahr, in dem sie angefallen "
                         "sind; bitte prüfen.",
                   path("date")});
    }
    if (bill.reimbursed > bill.gross) {
        c.warning({itemId("rechnung-rueckverguetung", index), page,
                   "Rückvergütung über der Rechnung",
                   "Bei der " + name + " ist mehr zurückerstattet ("
                       + MoneyFormat::fr(bill.reimbursed) + ") als in Rechnung gestellt ("
                       + MoneyFormat::fr(bill.gross) + "). Sind die Beträge vertauscht?",
                   path("reimbursed")});
    }
}

void checkDisabilityTwice(CheckContext& c) {
    const HouseholdDeductions& d = c.taxCase.householdDeductions;
    const bool bills = std::ranges::any_of(d.medicalCosts, [](const MedicalCost& bill) {
        return bill.isDisabilityRelated && bill.selfPaid() > 0;
    });
    if (bills && d.disabilityFlatRate > 0) {
        c.warning(
            {"behinderung-doppelt", page, "Behinderung: Kosten und Pauschale",
             "Für dieselbe Person sind entweder die tatsächlichen behinderungsbedingten Kosten "
             "oder die Pauschale abziehbar, nicht beides. Bitte prüfen.",
             householdPath("disabilityFlatRate")});
    }
}

/// The costs beside the flat rate are right where they are the smaller amount: the federation knows
/// no flat rate and takes the costs.
void checkFurtherEducation(CheckContext& c, const Adult& adult) {
    const DeductionParams& rules = c.stGallen->cantonal;
    if (usesFurtherEducationFlatRate(adult.deductions, rules)
        && adult.deductions.furtherEducation > rules.weiterbildungPauschal) {
        c.warning({adult.id("weiterbildung-pauschale"), page, "Weiterbildung: Pauschale zu tief",
                   "Bei " + adult.called() + " ist die Pauschale von "
                       + MoneyFormat::fr(rules.weiterbildungPauschal)
                       + " gewählt, obwohl höhere Kosten erfasst sind ("
                       + MoneyFormat::fr(adult.deductions.furtherEducation)
                       + "). Ohne Pauschale ist der Abzug beim Kanton grösser.",
                   adult.deductionPath("furtherEducationFlatRate")});
    }
}

/// The flat rate stands for costs of the profession.
void checkFurtherEducationWithoutWork(CheckContext& c, const Adult& adult) {
    if (usesFurtherEducationFlatRate(adult.deductions, c.stGallen->cantonal) && !adult.works()) {
        c.warning({adult.id("weiterbildung-ohne-erwerb"), page, "Weiterbildung ohne Erwerb",
                   "Bei " + adult.called()
                       + " ist die Pauschale für die Weiterbildung gewählt, aber kein Erwerb "
                         "eingetragen. Sie steht nur Erwerbstätigen zu; bitte prüfen.",
                   adult.deductionPath("furtherEducationFlatRate")});
    }
}

void checkSupportedPersons(CheckContext& c) {
    const int persons = c.taxCase.householdDeductions.supportedPersons;
    if (persons > mostSupportedPersons) {
        c.warning({"unterstuetzte-personen", page, "Viele unterstützte Personen",
                   "Erfasst sind " + std::to_string(persons)
                       + " unterstützte Personen. Gefragt ist die Anzahl, nicht der Betrag; stimmt "
                         "sie?",
                   householdPath("supportedPersons")});
    }
}

void checkOtherDeductions(CheckContext& c) {
    const HouseholdDeductions& d = c.taxCase.householdDeductions;
    if (!d.otherDeductions.isZero() && isBlank(d.otherDeductionsDescription)) {
        c.warning({"uebrige-abzuege-beschreibung", page, "Übrige Abzüge ohne Beschreibung",
                   "Bitte beschreiben, wofür die übrigen Abzüge von "
                       + MoneyFormat::fr(d.otherDeductions)
                       + " stehen. Ohne Begründung werden sie nicht gewährt.",
                   householdPath("otherDeductionsDescription")});
    }
}

void checkCooperation(CheckContext& c) {
    if (c.taxCase.householdDeductions.significantCooperation && !c.taxCase.isJoint()) {
        c.warning(
            {"mitarbeit-alleinstehend", page, "Mitarbeit ohne Ehegatten",
             "Die erhebliche Mitarbeit im Beruf des andern zählt nur bei gemeinsam besteuerten "
             "Paaren. Bitte das Häkchen oder den Zivilstand prüfen.",
             householdPath("significantCooperation")});
    }
}

/// Entries that the law of Liechtenstein gives no deduction for.
void checkLiechtensteinWithoutEffect(CheckContext& c) {
    const HouseholdDeductions& d = c.taxCase.householdDeductions;
    struct Entry {
        std::string_view name;
        bool entered;
    };
    const std::array entries{
        Entry{"Kinderbetreuungskosten",
              std::ranges::any_of(c.taxCase.children,
                                  [](const Child& child) { return child.childcareCosts > 0; })},
        Entry{"Rentenleistungen", d.annuityPayments > 0},
        Entry{"Verwaltungskosten der Wertschriften", d.actualAssetManagementCosts.value_or(0) > 0},
        Entry{"übrige Abzüge", d.otherDeductions > 0},
        Entry{"Diätpauschale", d.dietFlatRate},
        Entry{"Pauschale für Behinderung", d.disabilityFlatRate > 0},
        Entry{"unterstützte Personen", d.supportedPersons > 0},
    };
    std::string names;
    for (const Entry& entry : entries) {
        if (entry.entered) {
            names += (names.empty() ? "" : ", ") + std::string(entry.name);
        }
    }
    if (!names.empty()) {
        c.info({"li-ohne-wirkung", page, "Abzüge ohne Wirkung",
                "Die Berechnung für Liechtenstein kennt dafür keinen Abzug: " + names + ".",
                std::nullopt});
    }
}

} // namespace

void checkOther(CheckContext& c) {
    const bool stGallen = c.stGallen != nullptr;
    forEachItem(c.taxCase.children, [&](const Child& child, int index) {
        if (stGallen) {
            checkChildcareAge(c, child, index);
            checkChildcareDays(c, child, index);
        }
        checkChildEducation(c, child, index);
    });
    checkAlimonyOfJointHousehold(c);
    forEachItem(c.taxCase.householdDeductions.donations,
                [&](const Donation& donation, int index) { checkDonation(c, donation, index); });
    forEachItem(c.taxCase.householdDeductions.medicalCosts,
                [&](const MedicalCost& bill, int index) { checkMedicalBill(c, bill, index); });
    if (!stGallen) {
        checkLiechtensteinWithoutEffect(c);
        return;
    }
    checkChildcareWithoutWork(c);
    checkDisabilityTwice(c);
    for (const Adult& adult : c.adults) {
        checkFurtherEducation(c, adult);
        checkFurtherEducationWithoutWork(c, adult);
    }
    checkSupportedPersons(c);
    checkOtherDeductions(c);
    checkCooperation(c);
}

} // namespace taxcore::review
