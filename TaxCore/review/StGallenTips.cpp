#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"
#include "TaxCore/review/TipContext.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/WorkExpenses.h"

#include <algorithm>

namespace taxcore::review {

namespace {

/// A weekly stay has meals of its own. BKV Art. 6
void enterMeals(TipContext& c, const Adult& adult) {
    constexpr int example = 100; // days
    const WorkExpenses& work = adult.deductions.work;
    const EmploymentFacts facts(adult.income.salaries);
    if (work.meals != MealSituation::keine || work.mealDays > 0 || work.weeklyStay || !facts.hasMain
        || facts.subsidisedMeals) {
        return;
    }
    const BerufskostenParams& rules = c.stGallen()->cantonal.berufskosten;
    c.suggest({.id = adult.id("tipp-verpflegung"),
               .area = "work",
               .title = "Verpflegung nicht vergessen – " + adult.called(),
               .message = "Es ist keine auswärtige Verpflegung eingetragen. Wer mittags nicht nach "
                          "Hause kann, zieht für jeden Arbeitstag "
                          + MoneyFormat::chf(rules.verpflegungProTag, 2, true) + " ab, höchstens "
                          + money(rules.verpflegungMax) + " im Jahr. Zum Beispiel "
                          + std::to_string(example) + " Tage sparen so viel.",
               .law = cited(law::meals),
               .path = adult.workPath("meals"),
               .change = [&](TaxCase& changed) {
                   WorkExpenses& own = deductionsOf(changed, adult.number).work;
                   own.meals = MealSituation::auswaerts;
                   own.mealDays = example;
               }});
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
    if (work.carKmOneWay <= 0 || isVehicleJustified(work)
        || drivesDailyBesideWeeklyStay(work, c.stGallen()->cantonal.berufskosten)) {
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
    if (anyWay || !EmploymentFacts(adult.income.salaries).hasMain) {
        return;
    }
    c.suggest({.id = adult.id("tipp-arbeitsweg"),
               .area = "work",
               .title = "Arbeitsweg nicht vergessen – " + adult.called(),
               .message = "Es ist kein Arbeitsweg eingetragen. Wer mit dem Velo zur Arbeit fährt, "
                          "zieht "
                          + money(c.stGallen()->cantonal.berufskosten.veloMax)
                          + " ab; Abonnemente zählen mit ihrem Preis.",
               .law = cited(law::commute),
               .path = adult.workPath("useBicycle"),
               .change = [&](TaxCase& changed) {
                   WorkExpenses& own = deductionsOf(changed, adult.number).work;
                   own.useBicycle = true;
                   own.bicycleCost = c.stGallen()->cantonal.berufskosten.veloMax;
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

} // namespace

void suggestStGallen(TipContext& c) {
    suggestPensionInStGallen(c);
    suggestFamilyInStGallen(c);
    for (const Adult& adult : c.adults()) {
        enterMeals(c, adult);
        chooseOtherWorkCosts(c, adult);
        chooseSideJobCosts(c, adult);
        justifyVehicle(c, adult);
        rideABicycle(c, adult);
    }
    chooseMaintenance(c);
    declareHome(c);
    markManagedSecurities(c);
    chooseAssetManagement(c);
    computeVehicleValue(c, law::wealth);
}

} // namespace taxcore::review
