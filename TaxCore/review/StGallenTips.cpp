#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/CheckText.h"
#include "TaxCore/review/PensionLimits.h"
#include "TaxCore/review/TipContext.h"
#include "TaxCore/stgallen/Adult.h"
#include "TaxCore/stgallen/Law.h"

#include <algorithm>

namespace taxcore::review {

namespace {

/// BVV 3 Art. 7 Abs. 1
void fillPillar3a(TipContext& c, const Adult& adult) {
    const Decimal maximum = pillar3aMaximumOf(adult, c.stGallen()->cantonal.saeule3a).value_or(0);
    const Decimal missing = maximum - adult.deductions.pillar3a;
    if (missing <= 0 || isTooOldForPillar3a(adult, c.taxCase().year)) {
        return;
    }
    c.suggest(
        {.id = adult.id("tipp-3a"),
         .area = "pension",
         .title = "Säule 3a ausschöpfen – " + adult.called(),
         .message = "Bis zum Maximum von " + money(maximum) + " fehlen " + money(missing)
                    + ". Einzahlungen zählen bis zum 31. Dezember.",
         .law = cited(law::pillar3a),
         .path = adult.deductionPath("pillar3a"),
         .change =
             [&](TaxCase& changed) { deductionsOf(changed, adult.number).pillar3a = maximum; },
         .inTheYear = true});
}

/// Gaps from 2025 on may be closed from 2026 on, once the year's own maximum is paid. BVV 3 Art. 7a
void buyIntoPillar3a(TipContext& c, const Adult& adult) {
    const Saeule3aParams& params = c.stGallen()->cantonal.saeule3a;
    const auto maximum = pillar3aMaximumOf(adult, params);
    const bool maximumPaid = maximum && adult.deductions.pillar3a >= *maximum;
    if (c.taxCase().year < firstYearOfPillar3aBuyIn || !maximumPaid
        || isTooOldForPillar3a(adult, c.taxCase().year)) {
        return;
    }
    // What last year left open where it is known, else the most that may be open.
    Decimal gap = params.mitPensionskasse;
    if (const TaxCase* before = c.caseOf(c.taxCase().year - 1)) {
        const auto& paid = adult.number == 2 ? before->deductions2 : before->deductions1;
        gap = std::min(gap, notBelowZero(*maximum - paid.pillar3a));
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

/// The car instead of train or bicycle: both count only for different ways or days.
void justifyVehicle(TipContext& c, const Adult& adult) {
    const WorkExpenses& work = adult.deductions.work;
    if (work.carKmOneWay <= 0 || isVehicleJustified(work)) {
        return;
    }
    const bool instead = work.publicTransportCost > 0 || work.useBicycle;
    const std::string vehicle = work.carIsMotorbike ? "Motorrad" : "Auto";
    c.suggest(
        {.id = adult.id("tipp-auto"),
         .area = "work",
         .title = "Arbeitsweg mit dem " + vehicle + " begründen – " + adult.called(),
         .message = "Das " + vehicle
                    + " zählt nur mit einer Begründung: keine öffentliche Verbindung, über "
                      "eine Stunde Zeitersparnis am Tag, Krankheit oder ein Fahrzeug, das der "
                      "Beruf verlangt. Trifft eine zu, bitte eintragen"
                    + (instead ? "; gerechnet ist mit dem " + vehicle
                                     + " anstelle von öffentlichem Verkehr und Velo."
                               : "; sonst zählen die Kosten des öffentlichen Verkehrs."),
         .law = cited(law::privateVehicle),
         .path = adult.workPath("carJustification"),
         .change = [&](TaxCase& changed) {
             WorkExpenses& own = deductionsOf(changed, adult.number).work;
             own.carJustification = "begründet";
             own.publicTransportCost = 0;
             own.useBicycle = false;
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

/// The flat rate is not for what third parties use mainly for business. Liegenschaftskosten-
/// verordnung (SR 642.116) Art. 5 Abs. 3
void chooseMaintenance(TipContext& c) {
    forEachItem(c.taxCase().realEstate, [&](const RealEstate& property, int index) {
        const bool toFlat = !property.useFlatRateMaintenance;
        if (!toFlat && property.actualMaintenanceCosts <= 0) {
            return;
        }
        const bool mayBeBusiness = toFlat && property.use != PropertyUse::selbstbewohnt;
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
                               "zehn Jahre nur 10%.")
                 + (mayBeBusiness ? " Für eine Liegenschaft, die Dritte vorwiegend geschäftlich "
                                    "nutzen, gilt sie nicht."
                                  : ""),
             .law = cited(toFlat ? law::realEstateFlatRate : law::realEstateCosts)
                    + (mayBeBusiness ? "; SR 642.116 Art. 5 Abs. 3" : ""),
             .path = FieldPath("realEstate", "useFlatRateMaintenance").at(index),
             .change = [&](TaxCase& changed) {
                 changed.realEstate[static_cast<std::size_t>(index)].useFlatRateMaintenance =
                     toFlat;
             }});
    });
}

/// The rental value of the home is reduced; of which property that is, only the household knows.
void declareHome(TipContext& c) {
    const MunicipalityList& list = c.stGallen()->municipalities;
    const Municipality* const residence = list.municipality(c.taxCase().municipality);
    const auto& properties = c.taxCase().realEstate;
    const auto livedIn = [](const RealEstate& property) {
        return property.use != PropertyUse::vermietet;
    };
    const auto mayBeHome = [&](const RealEstate& property) {
        return livedIn(property) && isInStGallen(property)
               && list.municipality(property.municipality) == residence;
    };
    const bool hasHome = std::ranges::any_of(properties, [&](const RealEstate& property) {
        return livedIn(property) && property.isPrimaryResidence;
    });
    const auto found = std::ranges::find_if(properties, mayBeHome);
    if (residence == nullptr || hasHome || std::ranges::count_if(properties, mayBeHome) != 1) {
        return;
    }
    const int index = static_cast<int>(found - properties.begin());
    c.suggest(
        {.id = itemId("tipp-hauptwohnsitz", index),
         .area = "wealth",
         .title = "Hauptwohnsitz bezeichnen",
         .message = itemName(found->description, "Liegenschaft", index)
                    + " liegt in der Wohngemeinde und ist nicht als Hauptwohnsitz bezeichnet. "
                      "Wohnen Sie dauernd dort, gilt der tiefere Eigenmietwert; für eine "
                      "Ferien- oder Zweitwohnung gilt er nicht.",
         .law = cited(law::imputedRent),
         .path = FieldPath("realEstate", "isPrimaryResidence").at(index),
         .change = [&](TaxCase& changed) {
             changed.realEstate[static_cast<std::size_t>(index)].isPrimaryResidence = true;
         }});
}

/// Securities in a bank's care, which the flat rate is for; accounts are not, and holdings of at
/// least 10 % are rarely.
void markManagedSecurities(TipContext& c) {
    const auto mayBeManaged = [&](const SecurityEntry& entry) {
        return entry.kind == AssetKind::wertschrift && !entry.managedByThirdParty
               && entry.code != AssetCode::privateParticipation && entry.taxValue > 0
               && isPrivateAsset(entry, c.taxCase());
    };
    const auto& entries = c.taxCase().securities;
    const auto first = std::ranges::find_if(entries, mayBeManaged);
    if (first == entries.end() || c.taxCase().householdDeductions.actualAssetManagementCosts) {
        return;
    }
    Decimal value;
    for (const SecurityEntry& entry : entries) {
        value += mayBeManaged(entry) ? entry.taxValue : Decimal(0);
    }
    c.suggest({.id = "tipp-fremdverwaltung",
               .area = "wealth",
               .title = "Pauschale für die Vermögensverwaltung",
               .message = "Wertschriften von " + money(value)
                          + " sind nicht als fremdverwaltet bezeichnet. Für solche, die eine Bank "
                            "oder ein Vermögensverwalter im Depot verwaltet, ist eine Pauschale "
                            "abziehbar; für selbst verwahrte gilt sie nicht. Gerechnet ist mit "
                            "allen.",
               .law = cited(law::assetManagement),
               .path = FieldPath("securities", "managedByThirdParty")
                           .at(static_cast<int>(first - entries.begin())),
               .change = [&](TaxCase& changed) {
                   for (SecurityEntry& entry : changed.securities) {
                       entry.managedByThirdParty = entry.managedByThirdParty || mayBeManaged(entry);
                   }
               }});
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
    declareHome(c);
    markManagedSecurities(c);
    chooseAssetManagement(c);
    reachDonationMinimum(c);
    bundleMedicalCosts(c);
    declareCooperation(c);
    computeVehicleValue(c, law::wealth);
}

} // namespace taxcore::review
