#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/review/PensionLimits.h"
#include "TaxCore/review/TipContext.h"
#include "TaxCore/stgallen/Adult.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Law.h"

#include <algorithm>

namespace taxcore::review {

namespace {

std::string money(const Decimal& amount) { return MoneyFormat::chf(amount, 0, true); }

/// What a person's pillar 3a allows, by the canton's rules.
struct Pillar3aRoom {
    bool withEarnings = false;
    Decimal maximum;

    Pillar3aRoom(const Adult& adult, const Saeule3aParams& params) {
        const taxcore::Adult earner(adult);
        withEarnings = earner.earned() > 0 || adult.income.unemployment > 0;
        if (withEarnings) {
            maximum = pillar3aMaximum(adult.person.hasPensionFund,
                                      earner.earned() + adult.income.unemployment, params);
        }
    }
};

/// BVV 3 Art. 7 Abs. 1
void fillPillar3a(TipContext& c, const Adult& adult) {
    const Pillar3aRoom room(adult, c.stGallen()->cantonal.saeule3a);
    const Decimal missing = room.maximum - adult.deductions.pillar3a;
    if (missing <= 0 || isTooOldForPillar3a(adult, c.taxCase().year)) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-3a"),
         .area = "pension",
         .title = "Säule 3a ausschöpfen – " + adult.called(),
         .message = "Bis zum Maximum von " + money(room.maximum) + " fehlen " + money(missing)
                    + ". Einzahlungen zählen bis zum 31. Dezember.",
         .law = cited(law::pillar3a),
         .path = adult.deductionPath("pillar3a"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pillar3a = room.maximum; },
         .inTheYear = true});
}

/// Gaps from 2025 on may be closed from 2026 on, once the year's own maximum is paid. BVV 3 Art. 7a
void buyIntoPillar3a(TipContext& c, const Adult& adult) {
    const Saeule3aParams& params = c.stGallen()->cantonal.saeule3a;
    const Pillar3aRoom room(adult, params);
    const bool maximumPaid = room.withEarnings && adult.deductions.pillar3a >= room.maximum;
    if (c.taxCase().year < firstYearOfPillar3aBuyIn || !maximumPaid
        || isTooOldForPillar3a(adult, c.taxCase().year)) {
        return;
    }
    // What last year left open where it is known, else the most that may be open.
    Decimal gap = params.mitPensionskasse;
    if (const TaxCase* before = c.caseOf(c.taxCase().year - 1)) {
        const auto& paid = adult.number == 2 ? before->deductions2 : before->deductions1;
        gap = std::min(gap, notBelowZero(room.maximum - paid.pillar3a));
    }
    if (adult.deductions.pillar3aBuyIn >= gap) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-3a-einkauf"),
         .area = "pension",
         .title = "Lücken der Säule 3a schliessen – " + adult.called(),
         .message = "Wer in einem Jahr ab 2025 mit AHV-pflichtigem Erwerb nicht den vollen "
                    "Beitrag einbezahlt hat, darf ihn innert zehn Jahren nachholen, bis "
                    + money(params.mitPensionskasse)
                    + " pro Jahr und solange keine Altersleistung der Säule 3a bezogen "
                      "wurde. Gerechnet ist mit "
                    + money(gap) + ".",
         .law = cited(law::pillar3aBuyIn),
         .path = adult.deductionPath("pillar3aBuyIn"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pillar3aBuyIn = gap; },
         .inTheYear = true});
}

/// A tenth of the earnings as an example; the room stands on the fund's certificate. BVG Art. 79b
void buyIntoPensionFund(TipContext& c, const Adult& adult) {
    const taxcore::Adult earner(adult);
    const Decimal example = (earner.earned() / 10).roundDown(-3);
    if (!mayBuyIntoPensionFund(adult, c.taxCase().year) || example <= 0 || c.drewPensionCapital()) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-pk-einkauf"),
         .area = "pension",
         .title = "Einkauf in die Pensionskasse – " + adult.called(),
         .message = "Ein Einkauf von zum Beispiel " + money(example)
                    + " ist voll abziehbar; wie viel möglich ist, steht auf dem "
                      "Vorsorgeausweis. Grössere Summen auf mehrere Jahre verteilt sparen "
                      "meist mehr. Ein Vorbezug für Wohneigentum ist vorher zurückzuzahlen; danach "
                      "ist der Bezug als Kapital drei Jahre gesperrt.",
         .law = cited(law::pillar2) + "; BVG Art. 79b",
         .path = adult.deductionPath("pensionBuyIn"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pensionBuyIn += example; },
         .inTheYear = true});
}

void chooseOtherWorkCosts(TipContext& c, const Adult& adult) {
    const WorkExpenses& work = adult.deductions.work;
    if (!work.useActualOtherCosts && work.actualOtherCosts <= 0) {
        return;
    }
    const bool toFlat = work.useActualOtherCosts;
    c.suggest({.id = adult.id("tipp-uebrige-berufskosten"),
               .area = "work",
               .title = toFlat ? "Pauschale für übrige Berufskosten ist höher"
                               : "Tatsächliche übrige Berufskosten sind höher",
               .message = toFlat ? "Die Pauschale für übrige Berufskosten zieht mehr ab als die "
                                   "tatsächlichen Kosten von "
                                       + money(work.actualOtherCosts) + "."
                                 : "Die tatsächlichen übrigen Berufskosten von "
                                       + money(work.actualOtherCosts)
                                       + " sind höher als die Pauschale; mit Belegen gelten sie.",
               .law = cited(law::otherWorkCosts),
               .path = adult.workPath("useActualOtherCosts"),
               .change = [&](TaxCase& changed) {
                   deductionsOf(changed, adult.number).work.useActualOtherCosts = !toFlat;
               }});
}

void chooseSideJobCosts(TipContext& c, const Adult& adult) {
    const WorkExpenses& work = adult.deductions.work;
    if (!work.sideJobUseActual && work.sideJobActualCosts <= 0) {
        return;
    }
    const bool toFlat = work.sideJobUseActual;
    c.suggest({.id = adult.id("tipp-nebenerwerb"),
               .area = "work",
               .title = toFlat ? "Pauschale für den Nebenerwerb ist höher"
                               : "Tatsächliche Kosten des Nebenerwerbs sind höher",
               .message = "Für die Kosten des Nebenerwerbs ist "
                          + std::string(toFlat ? "die Pauschale" : "der Nachweis der Kosten")
                          + " günstiger.",
               .law = cited(law::sideJob),
               .path = adult.workPath("sideJobUseActual"),
               .change = [&](TaxCase& changed) {
                   deductionsOf(changed, adult.number).work.sideJobUseActual = !toFlat;
               }});
}

void justifyVehicle(TipContext& c, const Adult& adult) {
    const WorkExpenses& work = adult.deductions.work;
    if (work.carKmOneWay <= 0 || isVehicleJustified(work)) {
        return;
    }
    c.suggest({.id = adult.id("tipp-auto"),
               .area = "work",
               .title = "Arbeitsweg mit dem Auto begründen – " + adult.called(),
               .message = "Das Auto zählt nur mit einer Begründung: keine öffentliche Verbindung, "
                          "über eine Stunde Zeitersparnis am Tag, Krankheit oder ein Auto, das der "
                          "Beruf verlangt. Trifft eine zu, bitte eintragen.",
               .law = cited(law::privateVehicle),
               .path = adult.workPath("carJustification"),
               .change = [&](TaxCase& changed) {
                   deductionsOf(changed, adult.number).work.carJustification = "begründet";
               }});
}

void rideABicycle(TipContext& c, const Adult& adult) {
    const WorkExpenses& work = adult.deductions.work;
    const bool anyWay =
        work.publicTransportCost > 0 || work.useBicycle || work.carKmOneWay > 0 || work.weeklyStay;
    const bool main = std::ranges::any_of(adult.income.salaries, [](const auto& certificate) {
        return certificate.isMainEmployment;
    });
    if (anyWay || !main) {
        return;
    }
    c.suggest({.id = adult.id("tipp-arbeitsweg"),
               .area = "work",
               .title = "Arbeitsweg nicht vergessen – " + adult.called(),
               .message = "Es ist kein Arbeitsweg eingetragen. Wer mit dem Velo zur Arbeit fährt, "
                          "zieht "
                          + MoneyFormat::fr(c.stGallen()->cantonal.berufskosten.veloMax)
                          + " ab; Abonnemente zählen mit ihrem Preis.",
               .law = cited(law::commute),
               .path = adult.workPath("useBicycle"),
               .change = [&](TaxCase& changed) {
                   WorkExpenses& own = deductionsOf(changed, adult.number).work;
                   own.useBicycle = true;
                   own.bicycleCost = c.stGallen()->cantonal.berufskosten.veloMax;
               }});
}

void chooseFurtherEducation(TipContext& c, const Adult& adult) {
    const PersonDeductions& d = adult.deductions;
    if (d.furtherEducation <= 0) {
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

void chooseMaintenance(TipContext& c) {
    forEachItem(c.taxCase().realEstate, [&](const RealEstate& property, int index) {
        const bool toFlat = !property.useFlatRateMaintenance;
        if (!toFlat && property.actualMaintenanceCosts <= 0) {
            return;
        }
        c.suggest(
            {.id = itemId("tipp-unterhalt", index),
             .area = "wealth",
             .title =
                 toFlat ? "Unterhaltspauschale ist höher" : "Tatsächlicher Unterhalt ist höher",
             .message =
                 (toFlat ? "Die Pauschale zieht mehr ab als die tatsächlichen Kosten"
                         : "Die tatsächlichen Kosten von " + money(property.actualMaintenanceCosts)
                               + " sind höher als die Pauschale")
                 + std::string("; gewählt werden darf jedes Jahr und für jede Liegenschaft "
                               "neu. Beim Bund beträgt die Pauschale für Gebäude bis "
                               "zehn Jahre nur 10%."),
             .law = cited(toFlat ? law::realEstateFlatRate : law::realEstateCosts),
             .path = FieldPath("realEstate", "useFlatRateMaintenance").at(index),
             .change = [&](TaxCase& changed) {
                 changed.realEstate[static_cast<std::size_t>(index)].useFlatRateMaintenance =
                     toFlat;
             }});
    });
}

void chooseAssetManagement(TipContext& c) {
    if (!c.taxCase().householdDeductions.actualAssetManagementCosts) {
        return;
    }
    c.suggest({.id = "tipp-verwaltungskosten",
               .area = "wealth",
               .title = "Pauschale für die Vermögensverwaltung ist höher",
               .message = "Für fremdverwaltete Wertschriften zieht die Pauschale mehr ab als die "
                          "eingetragenen Kosten.",
               .law = cited(law::assetManagement),
               .path = FieldPath("householdDeductions", "actualAssetManagementCosts"),
               .change = [](TaxCase& changed) {
                   changed.householdDeductions.actualAssetManagementCosts.reset();
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
                          + MoneyFormat::fr(minimum) + ", ab dem alle Spenden abziehbar sind.",
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
    constexpr int further = 1'000;
    const Decimal costs = c.base().value("krankheitskosten");
    const Decimal threshold = c.base().value("krankheitSelbstbehalt");
    if (costs <= 0 || costs >= threshold || costs * 2 < threshold) {
        return;
    }
    const Decimal missing = threshold - costs;
    c.suggest({.id = "tipp-krankheitskosten",
               .area = "other",
               .title = "Krankheitskosten in einem Jahr bündeln",
               .message = "Bis zum Selbstbehalt des Kantons fehlen " + money(missing)
                          + ". Planbare Behandlungen im gleichen Jahr lohnen sich: Was ihn um "
                          + MoneyFormat::fr(further) + " übersteigt, spart so viel.",
               .law = cited(law::medicalCosts),
               .path = FieldPath("householdDeductions", "medicalCosts"),
               .change =
                   [&](TaxCase& changed) {
                       changed.householdDeductions.medicalCosts.emplace_back().gross =
                           missing + further;
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

void suggestStGallen(TipContext& c) {
    for (const Adult& adult : c.adults()) {
        fillPillar3a(c, adult);
        buyIntoPillar3a(c, adult);
        buyIntoPensionFund(c, adult);
        chooseOtherWorkCosts(c, adult);
        chooseSideJobCosts(c, adult);
        justifyVehicle(c, adult);
        rideABicycle(c, adult);
        chooseFurtherEducation(c, adult);
    }
    chooseMaintenance(c);
    chooseAssetManagement(c);
    reachDonationMinimum(c);
    bundleMedicalCosts(c);
    declareCooperation(c);
    computeVehicleValue(c, law::wealth);
}

} // namespace taxcore::review
