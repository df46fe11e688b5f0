#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckText.h"
#include "TaxCore/review/TipContext.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/WorkExpenses.h"

#include <algorithm>

namespace taxcore::review {

namespace {

/// For parents who all work. StG SG Art. 45 Abs. 1 Bst. h, DBG Art. 33 Abs. 3
void enterChildcare(TipContext& c) {
    const RuleBook& rules = *c.stGallen();
    const int year = c.taxCase().year;
    if (!std::ranges::all_of(c.adults(), &Adult::works)) {
        return;
    }
    forEachItem(c.taxCase().children, [&](const Child& child, int index) {
        if (child.childcareCosts > 0 || !child.livesInHousehold || !child.birthDate
            || !isBornBy(child, year) || !isWithinChildcareAge(child, year, rules.cantonal)) {
            return;
        }
        c.suggest({.id = itemId("tipp-kinderbetreuung", index),
                   .area = "other",
                   .title = "Kinderbetreuung eintragen",
                   .message = "Für " + called(child, index)
                              + " sind keine Betreuungskosten eingetragen. Was Sie Dritten für die "
                                "Betreuung während der Arbeitszeit bezahlt haben (Kita, Hort, "
                                "Tagesfamilie), ist beim Kanton bis "
                              + money(rules.cantonal.kinderbetreuungMax) + ", beim Bund bis "
                              + money(rules.federal.kinderbetreuungMax) + " abziehbar."
                              + exampleSaves(exampleCosts),
                   .law = cited(law::childcare),
                   .path = FieldPath("children", "childcareCosts").at(index),
                   .change = [&](TaxCase& changed) {
                       changed.children[static_cast<std::size_t>(index)].childcareCosts =
                           exampleCosts;
                   }});
    });
}

/// Only what exceeds the parents' own share counts, and only for the canton. StG SG Art. 48 Abs. 1
/// Bst. a Ziff. 3
void enterChildEducation(TipContext& c) {
    const DeductionParams& rules = c.stGallen()->cantonal;
    enterChildEducation(c, "tipp-ausbildung", law::childEducation,
                        "Was Sie nach Abzug der Stipendien selbst bezahlt haben, ist beim Kanton "
                        "abziehbar, soweit es "
                            + money(rules.ausbildungskostenSelbstbehalt) + " übersteigt, höchstens "
                            + money(rules.ausbildungskostenMax) + ".",
                        rules.ausbildungskostenSelbstbehalt + exampleCosts);
}

/// The employed get it from the canton without proof of costs.
void takeFurtherEducationFlatRate(TipContext& c, const Adult& adult) {
    const EmploymentFacts facts(adult.income.salaries);
    const DeductionParams& rules = c.stGallen()->cantonal;
    if (adult.deductions.furtherEducationFlatRate || facts.mainNet + facts.sideNet <= 0) {
        return;
    }
    c.suggest({.id = adult.id("tipp-weiterbildung"),
               .area = "other",
               .title = "Pauschale für die Weiterbildung wählen – " + adult.called(),
               .message = "Für Aus- und Weiterbildung ist nichts eingetragen. Der Kanton lässt "
                          "anstelle der Kosten ohne besonderen Nachweis eine Pauschale von "
                          + money(rules.weiterbildungPauschal) + " zu.",
               .law = cited(law::furtherEducation),
               .path = adult.deductionPath("furtherEducationFlatRate"),
               .change = [&](TaxCase& changed) {
                   deductionsOf(changed, adult.number).furtherEducationFlatRate = true;
               }});
}

void chooseFurtherEducation(TipContext& c, const Adult& adult) {
    const PersonDeductions& d = adult.deductions;
    if (d.furtherEducation <= 0) {
        takeFurtherEducationFlatRate(c, adult);
        return;
    }
    const bool toFlat = !d.furtherEducationFlatRate;
    c.suggest({.id = adult.id("tipp-weiterbildung"),
               .area = "other",
               .title = toFlat ? "Pauschale für die Weiterbildung ist höher"
                               : "Tatsächliche Weiterbildungskosten sind höher",
               .message = "Für die Weiterbildung ist "
                          + std::string(toFlat ? "die Pauschale" : "der Nachweis der Kosten")
                          + " günstiger.",
               .law = cited(law::furtherEducation),
               .path = adult.deductionPath("furtherEducationFlatRate"),
               .change = [&](TaxCase& changed) {
                   deductionsOf(changed, adult.number).furtherEducationFlatRate = toFlat;
               }});
}

void reachDonationMinimum(TipContext& c) {
    Decimal gifts;
    for (const Donation& gift : c.taxCase().householdDeductions.donations) {
        gifts += gift.isPoliticalParty ? Decimal(0) : gift.amount;
    }
    const Decimal& minimum = c.stGallen()->cantonal.freiwilligeZuwendungenMin;
    if (gifts * 2 < minimum || gifts >= minimum) {
        return;
    }
    c.suggest({.id = "tipp-spenden",
               .area = "other",
               .title = "Spenden knapp unter dem Mindestbetrag",
               .message = "Es fehlen " + money(minimum - gifts) + " bis zum Mindestbetrag von "
                          + money(minimum) + ", ab dem alle Spenden abziehbar sind.",
               .law = cited(law::donations),
               .path = FieldPath("householdDeductions", "donations"),
               .change =
                   [&](TaxCase& changed) {
                       changed.householdDeductions.donations.emplace_back().amount =
                           minimum - gifts;
                   },
               .inTheYear = true});
}

/// Costs in the upper half of the threshold: what can be planned is better paid in one year.
void bundleMedicalCosts(TipContext& c) {
    const Decimal costs = c.base().value("krankheitskosten");
    const Decimal threshold = c.base().value("krankheitSelbstbehalt");
    if (costs <= 0 || costs >= threshold || costs * 2 < threshold) {
        return;
    }
    const Decimal missing = threshold - costs;
    c.suggest(
        {.id = "tipp-krankheitskosten",
         .area = "other",
         .title = "Krankheitskosten in einem Jahr bündeln",
         .message =
             "Bis zum Selbstbehalt des Kantons fehlen " + money(missing)
             + ". Planbare Behandlungen im gleichen Jahr lohnen sich: Was den Selbstbehalt um "
             + money(exampleCosts) + " übersteigt, spart so viel.",
         .law = cited(law::medicalCosts),
         .path = FieldPath("householdDeductions", "medicalCosts"),
         .change =
             [&](TaxCase& changed) {
                 changed.householdDeductions.medicalCosts.emplace_back().gross =
                     missing + exampleCosts;
             },
         .inTheYear = true});
}

void declareCooperation(TipContext& c) {
    const bool business = std::ranges::any_of(c.adults(), [](const Adult& adult) {
        return adult.income.selfEmployment > 0 || adult.income.partnership > 0;
    });
    if (c.adults().size() < 2 || !business
        || c.taxCase().householdDeductions.significantCooperation) {
        return;
    }
    c.suggest({.id = "tipp-mitarbeit",
               .area = "other",
               .title = "Mitarbeit im Betrieb des Ehegatten",
               .message =
                   "Arbeitet ein Ehegatte regelmässig und in erheblichem Mass im Betrieb des "
                   "anderen mit, steht der Zweiverdienerabzug auch dann zu.",
               .law = cited(law::twoEarners),
               .path = FieldPath("householdDeductions", "significantCooperation"),
               .change = [](TaxCase& changed) {
                   changed.householdDeductions.significantCooperation = true;
               }});
}

} // namespace

void suggestFamilyInStGallen(TipContext& c) {
    enterChildcare(c);
    enterChildEducation(c);
    for (const Adult& adult : c.adults()) {
        chooseFurtherEducation(c, adult);
    }
    reachDonationMinimum(c);
    bundleMedicalCosts(c);
    declareCooperation(c);
}

} // namespace taxcore::review
