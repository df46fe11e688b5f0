#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/liechtenstein/Law.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/CheckText.h"
#include "TaxCore/review/PensionLimits.h"
#include "TaxCore/review/TipContext.h"

#include <algorithm>

namespace taxcore::review {

namespace {

/// Contributions count up to a share of the household's earnings. SteG Art. 16
void fillPensionFund(TipContext& c) {
    Decimal paid;
    Decimal earned;
    const Adult* payer = nullptr;
    Decimal most;
    for (const Adult& adult : c.adults()) {
        const li::Adult earner{adult, {}};
        for (const SalaryCertificate& certificate : adult.income.salaries) {
            paid += certificate.pensionContributions + certificate.pensionBuyIn;
        }
        paid += adult.deductions.pensionBuyIn;
        earned += earner.earned();
        if (mayBuyIntoPensionFund(adult, c.taxCase().year) && earner.earned() > most) {
            most = earner.earned();
            payer = &adult;
        }
    }
    const Decimal room =
        (earned * c.liechtenstein()->pensionskasseMaxProzent / 100 - paid).roundDown(0);
    if (payer == nullptr || room <= 0) {
        return;
    }
    c.suggest(
        {.id = payer->id("tipp-li-pk"),
         .area = "pension",
         .title = "Einkauf in die Pensionskasse – " + payer->called(),
         .message = "Bis zum Höchstbetrag von "
                    + MoneyFormat::number(c.liechtenstein()->pensionskasseMaxProzent)
                    + "% des Erwerbs sind noch " + money(room)
                    + " abziehbar; wie viel die Kasse annimmt, steht auf dem "
                      "Vorsorgeausweis.",
         .law = cited(li::law::insurance),
         .path = payer->deductionPath("pensionBuyIn"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, payer->number).pensionBuyIn += room; },
         .inTheYear = true});
}

/// SteG Art. 16, SteV Art. 16
void fillInsuranceAllowance(TipContext& c) {
    const InsuranceBreakdown breakdown = c.base().insurance.canton.value_or(InsuranceBreakdown{});
    const Decimal room = breakdown.maximum - breakdown.paid;
    if (room <= 0) {
        return;
    }
    c.suggest({.id = "tipp-li-versicherungen",
               .area = "pension",
               .title = "Versicherungsprämien vollständig eintragen",
               .message = "Private Versicherungen (Kranken-, Unfall-, Lebensversicherung) sind bis "
                          + money(breakdown.maximum) + " abziehbar; eingetragen sind "
                          + money(breakdown.paid)
                          + ". Wer mehr bezahlt hat, trägt es nach; die Ersparnis gilt bis zum "
                            "Höchstbetrag.",
               .law = cited(li::law::insurance),
               .path = FieldPath("householdDeductions", "healthInsurancePremiums"),
               .change = [&](TaxCase& changed) {
                   HouseholdDeductions& d = changed.householdDeductions;
                   const Decimal entered = d.healthInsurancePremiums + d.accidentInsurancePremiums
                                           + d.lifeInsurancePremiums;
                   d.healthInsurancePremiums += room + notBelowZero(d.premiumReduction - entered);
               }});
}

/// A gift counts only from the minimum on, each by itself. SteG Art. 16
void bundleDonations(TipContext& c) {
    const Decimal& minimum = c.liechtenstein()->spendeMinEinzel;
    const auto isSmall = [&](const Donation& gift) {
        return !gift.isPoliticalParty && gift.amount > 0 && gift.amount < minimum;
    };
    Decimal small;
    for (const Donation& gift : c.taxCase().householdDeductions.donations) {
        small += isSmall(gift) ? gift.amount : Decimal(0);
    }
    if (small < minimum) {
        return;
    }
    c.suggest({.id = "tipp-li-spenden",
               .area = "other",
               .title = "Kleine Spenden zusammenlegen",
               .message = "Spenden zählen einzeln erst ab " + money(minimum)
                          + ". Die kleineren ergeben zusammen " + money(small)
                          + "; als eine Spende wären sie abziehbar.",
               .law = cited(li::law::deductions),
               .path = FieldPath("householdDeductions", "donations"),
               .change =
                   [&](TaxCase& changed) {
                       auto& gifts = changed.householdDeductions.donations;
                       std::erase_if(gifts, isSmall);
                       gifts.emplace_back().amount = small;
                   },
               .inTheYear = true});
}

/// SteG Art. 16
void enterChildEducation(TipContext& c) {
    enterChildEducation(c, "tipp-li-ausbildung", li::law::deductions,
                        "Was Sie für Lehre, Mittelschule oder Studium selbst bezahlt haben, ist "
                        "mit Belegen nach Abzug der Stipendien bis "
                            + money(c.liechtenstein()->ausbildungKindMax)
                            + " abziehbar; die Kosten der öffentlichen Pflichtschule sind es "
                              "nicht.",
                        exampleCosts);
}

/// SteG Art. 16
void enterFurtherEducation(TipContext& c, const Adult& adult) {
    const li::Adult earner{adult, {}};
    if (adult.deductions.furtherEducation > 0 || earner.earned() <= 0) {
        return;
    }
    c.suggest({.id = adult.id("tipp-li-weiterbildung"),
               .area = "other",
               .title = "Aus- und Weiterbildung eintragen – " + adult.called(),
               .message = "Selbst bezahlte berufsorientierte Aus- und Weiterbildung ist bis "
                          + money(c.liechtenstein()->weiterbildungMax)
                          + " abziehbar; eingetragen ist keine." + exampleSaves(exampleCosts),
               .law = cited(li::law::deductions),
               .path = adult.deductionPath("furtherEducation"),
               .change = [&](TaxCase& changed) {
                   deductionsOf(changed, adult.number).furtherEducation = exampleCosts;
               }});
}

} // namespace

void suggestLiechtenstein(TipContext& c) {
    fillPensionFund(c);
    fillInsuranceAllowance(c);
    bundleDonations(c);
    enterChildEducation(c);
    for (const Adult& adult : c.adults()) {
        enterFurtherEducation(c, adult);
    }
    computeVehicleValue(c, li::law::wealth);
}

} // namespace taxcore::review
