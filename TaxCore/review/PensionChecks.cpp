#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/PensionLimits.h"
#include "TaxCore/stgallen/Adult.h"
#include "TaxCore/stgallen/DeductionRules.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace taxcore::review {

namespace {

constexpr std::string_view page = "pension";

bool holdsBuyIn(const SalaryCertificate& certificate) { return certificate.pensionBuyIn > 0; }

/// Bought into the pension fund, privately or through the salary.
bool buysIn(const PersonIncome& income, const PersonDeductions& deductions) {
    return deductions.pensionBuyIn > 0 || std::ranges::any_of(income.salaries, holdsBuyIn);
}

Decimal earnedOf(const Adult& adult) { return taxcore::Adult(adult).earned(); }

FieldPath pensionFundPath(const Adult& adult) {
    return FieldPath("person", "hasPensionFund").of(adult.number);
}

/// The field of the buy-in: the private one, else that of the certificate.
FieldPath buyInPath(const Adult& adult) {
    if (adult.deductions.pensionBuyIn > 0) {
        return adult.deductionPath("pensionBuyIn");
    }
    const auto found = std::ranges::find_if(adult.income.salaries, holdsBuyIn);
    return FieldPath("income", "salaries", "pensionBuyIn")
        .of(adult.number)
        .at(static_cast<int>(found - adult.income.salaries.begin()));
}

/// Only where it decides something: the maximum of pillar 3a of somebody with earnings. Daily
/// allowances of the unemployment insurance alone keep somebody in the second pillar.
void checkPensionFundWithoutContributions(CheckContext& c, const Adult& adult) {
    if (adult.person.hasPensionFund && adult.deductions.pillar3a > 0 && earnedOf(adult) > 0
        && !hasPensionContributions(adult.income) && !hasNetSalaryOnly(adult.income)
        && !buysIn(adult.income, adult.deductions)) {
        c.warning(
            {adult.id("pensionskasse-ohne-beitrag"), page, "Pensionskasse ohne Beiträge",
             "Bei " + adult.called()
                 + " ist eine Pensionskasse angekreuzt, aber kein Lohnausweis zeigt Beiträge. "
                   "Ohne Pensionskasse gilt für die Säule 3a ein anderes Maximum; bitte prüfen.",
             pensionFundPath(adult)});
    }
}

void checkContributionsWithoutPensionFund(CheckContext& c, const Adult& adult) {
    if (!adult.person.hasPensionFund && hasPensionContributions(adult.income)) {
        c.warning({adult.id("beitrag-ohne-pensionskasse"), page, "Beiträge ohne Pensionskasse",
                   "Ein Lohnausweis von " + adult.called()
                       + " zeigt Beiträge an eine Pensionskasse, angekreuzt ist aber keine. Mit "
                         "Pensionskasse gilt für die Säule 3a das kleine Maximum von "
                       + MoneyFormat::fr(c.stGallen->cantonal.saeule3a.mitPensionskasse) + ".",
                   pensionFundPath(adult)});
    }
}

void checkPillar3aBuyIn(CheckContext& c, const Adult& adult) {
    if (adult.deductions.pillar3aBuyIn <= 0) {
        return;
    }
    const FieldPath path = adult.deductionPath("pillar3aBuyIn");
    if (c.taxCase.year < firstYearOfPillar3aBuyIn) {
        c.error({adult.id("3a-einkauf-zu-frueh"), page, "Einkauf Säule 3a noch nicht möglich",
                 "Einkäufe in die Säule 3a sind erstmals "
                     + std::to_string(firstYearOfPillar3aBuyIn)
                     + " möglich (Art. 7a BVV 3). Bitte den Betrag bei " + adult.called()
                     + " entfernen oder als ordentlichen Beitrag erfassen.",
                 path});
        return;
    }
    const auto maximum = pillar3aMaximumOf(adult, c.stGallen->cantonal.saeule3a);
    if (maximum && adult.deductions.pillar3a < *maximum) {
        c.error(
            {adult.id("3a-einkauf-vor-maximum"), page, "Einkauf Säule 3a vor dem Maximum",
             "Ein Einkauf in die Säule 3a setzt voraus, dass der ordentliche Beitrag des Jahres "
             "voll einbezahlt ist (Art. 7a BVV 3). Bei "
                 + adult.called() + " sind es " + MoneyFormat::fr(adult.deductions.pillar3a)
                 + " von " + MoneyFormat::fr(*maximum) + ".",
             path});
    }
}

/// The first year of buy-ins has only one gap before it. BVV 3 Art. 7a
void checkPillar3aGap(CheckContext& c, const Adult& adult) {
    const int before = c.taxCase.year - 1;
    const Decimal& buyIn = adult.deductions.pillar3aBuyIn;
    const TaxCase* const earlier = caseOf(c.otherYears, before);
    if (c.taxCase.year != firstYearOfPillar3aBuyIn || buyIn <= 0 || earlier == nullptr) {
        return;
    }
    const auto gap = pillar3aGapOf(*earlier, adult.number);
    if (!gap || buyIn <= *gap) {
        return;
    }
    const std::string year = std::to_string(before);
    c.warning({adult.id("3a-einkauf-ohne-luecke"), page, "Einkauf Säule 3a ohne Lücke",
               "Der Einkauf in die Säule 3a von " + adult.called() + " beträgt "
                   + MoneyFormat::fr(buyIn) + ", nach den Angaben von " + year
                   + (gap->isZero() ? " gibt es aber keine Lücke."
                                    : " beträgt die Lücke aber nur " + MoneyFormat::fr(*gap) + ".")
                   + " Lücken früherer Jahre lassen sich nicht schliessen; bitte den Betrag "
                     "prüfen.",
               adult.deductionPath("pillar3aBuyIn")});
}

void checkBuyInWithoutPensionFund(CheckContext& c, const Adult& adult) {
    if (!adult.person.hasPensionFund && !hasPensionContributions(adult.income)
        && buysIn(adult.income, adult.deductions)) {
        c.warning({adult.id("einkauf-ohne-pensionskasse"), page, "Einkauf ohne Pensionskasse",
                   "Bei " + adult.called()
                       + " ist ein Einkauf in die Pensionskasse erfasst, aber keine Pensionskasse "
                         "angekreuzt. Bitte eines von beiden berichtigen.",
                   pensionFundPath(adult)});
    }
}

/// A year near enough to this one in which pension capital was drawn.
std::optional<int> yearOfCapital(const CheckContext& c) {
    if (drewPensionCapital(c.taxCase)) {
        return c.taxCase.year;
    }
    for (const TaxCase* other : c.otherYears) {
        if (std::abs(other->year - c.taxCase.year) <= yearsWithoutCapital
            && drewPensionCapital(*other)) {
            return other->year;
        }
    }
    return std::nullopt;
}

void checkBuyInNearCapital(CheckContext& c, const Adult& adult) {
    if (!buysIn(adult.income, adult.deductions)) {
        return;
    }
    if (const auto year = yearOfCapital(c)) {
        c.warning({adult.id("einkauf-und-kapitalbezug"), page, "Einkauf und Kapitalbezug",
                   adult.called() + " hat sich " + std::to_string(c.taxCase.year)
                       + " in die Pensionskasse eingekauft, " + std::to_string(*year)
                       + " wurde Kapital bezogen. Liegen bei derselben Person weniger als "
                       + std::to_string(yearsWithoutCapital)
                       + " Jahre dazwischen oder ist ein Vorbezug nicht zurückbezahlt, wird der "
                         "Abzug in der Regel gestrichen (Art. 79b Abs. 3 BVG).",
                   buyInPath(adult)});
    }
}

/// The same seen from the year of the capital: an earlier buy-in loses its deduction afterwards.
void checkCapitalAfterBuyIn(CheckContext& c) {
    const auto& payments = c.taxCase.capitalPayments;
    const auto payment = std::ranges::find_if(payments, isPensionCapital);
    if (payment == payments.end()) {
        return;
    }
    const auto bought = [&](const TaxCase* other) {
        const int years = c.taxCase.year - other->year;
        return years > 0 && years <= yearsWithoutCapital
               && (buysIn(other->income1, other->deductions1)
                   || (other->isJoint() && buysIn(other->income2, other->deductions2)));
    };
    const auto found = std::ranges::find_if(c.otherYears, bought);
    if (found != c.otherYears.end()) {
        c.warning(
            {"kapitalbezug-nach-einkauf", page, "Kapitalbezug nach Einkauf",
             std::to_string((*found)->year)
                 + " ist ein Einkauf in die Pensionskasse erfasst, jetzt ein Kapitalbezug. "
                   "Liegen bei derselben Person weniger als "
                 + std::to_string(yearsWithoutCapital)
                 + " Jahre dazwischen, kann der damalige Abzug nachträglich gestrichen werden "
                   "(Art. 79b Abs. 3 BVG).",
             FieldPath("capitalPayments", "amount")
                 .at(static_cast<int>(payment - payments.begin()))});
    }
}

void checkLiechtensteinPillar3a(CheckContext& c, const Adult& adult) {
    if (adult.deductions.pillar3a > 0 || adult.deductions.pillar3aBuyIn > 0) {
        c.info({adult.id("li-saeule-3a"), page, "Säule 3a ohne Wirkung",
                "Liechtenstein kennt keinen Abzug für die schweizerische Säule 3a. Der Betrag von "
                    + adult.called() + " zählt nicht.",
                adult.deductionPath(adult.deductions.pillar3a > 0 ? "pillar3a" : "pillar3aBuyIn")});
    }
}

void checkPillar3aAge(CheckContext& c, const Adult& adult) {
    const bool pays = adult.deductions.pillar3a > 0 || adult.deductions.pillar3aBuyIn > 0;
    if (pays && isTooYoungForPillar3a(adult, c.taxCase.year)) {
        c.warning({adult.id("3a-zu-jung"), page, "Säule 3a vor der AHV-Pflicht",
                   "Beiträge an die Säule 3a setzen AHV-pflichtigen Erwerb voraus, den es erst ab "
                   "dem 1. Januar nach dem 17. Geburtstag gibt. Bitte den Betrag von "
                       + adult.called() + " prüfen.",
                   adult.deductionPath("pillar3a")});
    }
    if (pays && isTooOldForPillar3a(adult, c.taxCase.year)) {
        c.warning({adult.id("3a-zu-spaet"), page, "Säule 3a nach 70",
                   "Beiträge an die Säule 3a sind höchstens bis fünf Jahre nach dem Referenzalter "
                   "möglich. Bitte den Betrag von "
                       + adult.called() + " prüfen.",
                   adult.deductionPath("pillar3a")});
    }
}

void checkPremiums(CheckContext& c) {
    const HouseholdDeductions& d = c.taxCase.householdDeductions;
    if (d.healthInsurancePremiums.isZero()) {
        c.warning(
            {"krankenkasse-fehlt", page, "Prämien der Krankenkasse fehlen",
             "Die Krankenversicherung ist obligatorisch, Prämien sind aber keine erfasst. Bitte "
             "die bezahlten Prämien des ganzen Haushalts eintragen.",
             FieldPath("householdDeductions", "healthInsurancePremiums")});
    } else if (d.premiumReduction > d.healthInsurancePremiums) {
        c.warning({"praemienverbilligung-zu-hoch", page, "Prämienverbilligung über den Prämien",
                   "Die Prämienverbilligung (" + MoneyFormat::fr(d.premiumReduction)
                       + ") ist höher als die Prämien der Krankenkasse ("
                       + MoneyFormat::fr(d.healthInsurancePremiums)
                       + "). Sind die Prämien ohne Abzug der Verbilligung erfasst?",
                   FieldPath("householdDeductions", "premiumReduction")});
    }
}

void checkCapitalPayment(CheckContext& c, const CapitalPayment& payment, int index) {
    const std::string name = "Die Kapitalleistung «" + std::string(label(payment.kind))
                             + "» (Eintrag " + std::to_string(index + 1) + ")";
    if (payment.amount.isZero()) {
        c.warning({itemId("kapitalleistung-ohne-betrag", index), page,
                   "Kapitalleistung ohne Betrag",
                   name + " hat keinen Betrag. Bitte ergänzen oder den Eintrag entfernen.",
                   FieldPath("capitalPayments", "amount").at(index)});
    }
    const FieldPath path = FieldPath("capitalPayments", "date").at(index);
    if (!payment.date) {
        c.warning({itemId("kapitalleistung-ohne-datum", index), page, "Kapitalleistung ohne Datum",
                   name + " hat kein Datum der Auszahlung. Es entscheidet über das Steuerjahr.",
                   path});
    } else if (payment.date->year() != c.taxCase.year) {
        c.warning({itemId("kapitalleistung-anderes-jahr", index), page,
                   "Kapitalleistung aus einem anderen Jahr",
                   name + " wurde " + std::to_string(payment.date->year())
                       + " ausbezahlt und gehört nicht in das Steuerjahr "
                       + std::to_string(c.taxCase.year) + ". Bitte das Datum prüfen.",
                   path});
    }
}

} // namespace

void checkPension(CheckContext& c) {
    for (const Adult& adult : c.adults) {
        if (c.stGallen != nullptr) {
            checkPensionFundWithoutContributions(c, adult);
            checkContributionsWithoutPensionFund(c, adult);
            checkPillar3aBuyIn(c, adult);
            checkPillar3aGap(c, adult);
            checkPillar3aAge(c, adult);
            checkBuyInNearCapital(c, adult);
        } else {
            checkLiechtensteinPillar3a(c, adult);
        }
        checkBuyInWithoutPensionFund(c, adult);
    }
    if (c.stGallen != nullptr) {
        checkCapitalAfterBuyIn(c);
    }
    checkPremiums(c);
    forEachItem(c.taxCase.capitalPayments, [&](const CapitalPayment& payment, int index) {
        checkCapitalPayment(c, payment, index);
    });
}

} // namespace taxcore::review
