#include "Fiscarel_SG/outputs/TransferExceptions.h"

#include "Fiscarel_SG/outputs/CaseEntries.h"
#include "TaxCore/model/Household.h"

#include <charconv>
#include <cstddef>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

/// An entry that might stand on no form.
struct Candidate {
    const TaxCase& taxCase;
    const TaxResult& result;
    std::string_view path;

    int person() const {
        for (const std::string_view record : {"person", "income", "deductions", "li.commute"}) {
            if (path.starts_with(record) && path.size() > record.size()
                && (path[record.size()] == '1' || path[record.size()] == '2')) {
                return path[record.size()] - '0';
            }
        }
        return 0;
    }
    std::size_t index() const {
        std::size_t at = 0;
        const std::size_t open = path.rfind('[');
        if (open != std::string_view::npos) {
            std::from_chars(path.data() + open + 1, path.data() + path.size(), at);
        }
        return at;
    }
    const PersonDeductions& deductions() const {
        return person() == 2 ? taxCase.deductions2 : taxCase.deductions1;
    }
    const WorkExpenses& work() const { return deductions().work; }
    /// Whether the return has none of these lines: the entry comes to nothing there.
    bool lacks(std::string_view code) const {
        const std::string own = std::string(code) + std::to_string(person());
        return result.line(code) == nullptr && result.line(own) == nullptr;
    }
};

using Applies = bool (*)(const Candidate&);

/// A rule: entries whose pattern begins so stand on no form, where it applies.
struct Exception {
    std::string_view pattern;
    std::string_view reason;
    Applies applies = nullptr; ///< null: always
};

constexpr std::string_view noAmount = "Ergibt auf dem Formular keinen Betrag.";

bool isForeign(const Candidate& c) { return c.person() == 2 && !c.taxCase.isJoint(); }

constexpr Exception everywhere[] = {
    {"year", "Das Steuerjahr ist mit dem Formular gegeben."},
    {"region", "Die Steuerregion ist mit dem Formular gegeben."},
    {"person", "Person 2 wird nur bei gemeinsamer Besteuerung deklariert.", isForeign},
    {"income", "Person 2 wird nur bei gemeinsamer Besteuerung deklariert.", isForeign},
    {"deductions", "Person 2 wird nur bei gemeinsamer Besteuerung deklariert.", isForeign},
    {"li.commute", "Person 2 wird nur bei gemeinsamer Besteuerung deklariert.", isForeign},
    {"children[]", "Das Kind ist erst nach dem Steuerjahr geboren.",
     [](const Candidate& c) { return !isBornBy(c.taxCase.children[c.index()], c.taxCase.year); }},
    {"securities[]", "Gehört Person 2, die für sich besteuert wird.",
     [](const Candidate& c) {
         return !belongsToHousehold(c.taxCase.securities[c.index()], c.taxCase);
     }},
    {"person.hasPensionFund", "Bestimmt nur den Höchstbetrag der Säule 3a."},
    {"securities[].isSavingsAccount",
     "Bestimmt nur, ob der Zins als Sparzins zum Abzug der Versicherungsprämien zählt."},
    {"securities[].managedByThirdParty",
     "Bestimmt nur die Pauschale für die Verwaltung der Wertschriften."},
    {"householdDeductions.donations[].isPoliticalParty",
     "Bestimmt nur, auf welchem Formular die Zuwendung steht."},
    {"realEstate[].sharePerson", "Anteile werden nur bei gemeinsamer Besteuerung deklariert.",
     [](const Candidate& c) { return !c.taxCase.isJoint(); }},
    {"income.pensions[].taxablePercent", "Ohne Betrag gibt es keinen steuerbaren Teil.",
     [](const Candidate& c) {
         const PersonIncome& income = c.person() == 2 ? c.taxCase.income2 : c.taxCase.income1;
         return income.pensions[c.index()].amount.isZero();
     }},
};

bool isNotDriven(const Candidate& c) { return c.work().carKmOneWay.isZero(); }
bool isNotAway(const Candidate& c) { return !c.work().weeklyStay; }

constexpr Exception stGallen[] = {
    {"li", "Zählt nur in Liechtenstein."},
    {"income.salaries[].employerInLiechtenstein", "Zählt nur in Liechtenstein."},
    {"deductions.work.bicycleCost", "Ohne Velo gibt es keinen Abzug dafür.",
     [](const Candidate& c) { return !c.work().useBicycle; }},
    {"deductions.work.useBicycle", "Ohne Kosten gibt es keinen Abzug für das Velo.",
     [](const Candidate& c) { return c.work().bicycleCost.isZero(); }},
    {"deductions.work.car", "Ohne Kilometer gibt es keinen Abzug für ein Fahrzeug.", isNotDriven},
    {"deductions.work.carIsMotorbike", "Ohne Kilometer gibt es keinen Abzug für ein Fahrzeug.",
     isNotDriven},
    {"deductions.work.meal", "Wer zum Essen heimkehrt, hat keine Mehrkosten.",
     [](const Candidate& c) { return c.work().meals == MealSituation::keine; }},
    {"deductions.work.actualOtherCosts", "Statt der effektiven Kosten zählt die Pauschale.",
     [](const Candidate& c) { return !c.work().useActualOtherCosts; }},
    {"deductions.work.useActualOtherCosts", "Effektive Kosten sind keine eingetragen.",
     [](const Candidate& c) { return c.work().actualOtherCosts.isZero(); }},
    {"deductions.work.weeklyStay", "Ohne Wochenaufenthalt zählt diese Angabe nicht.", isNotAway},
    {"deductions.work.weeklyStay", "Zum Wochenaufenthalt ist nichts weiter eingetragen.",
     [](const Candidate& c) {
         const WorkExpenses& work = c.work();
         return c.path.ends_with("weeklyStay") && work.weeklyStayMonths == 0
                && work.weeklyStayRoomPerMonth.isZero() && work.weeklyStayDays == 0
                && !work.weeklyStayMealsReduced;
     }},
    {"deductions.work.sideJobActualCosts", "Statt der effektiven Kosten zählt die Pauschale.",
     [](const Candidate& c) { return !c.work().sideJobUseActual; }},
    {"deductions.work.sideJobUseActual", "Effektive Kosten sind keine eingetragen.",
     [](const Candidate& c) { return c.work().sideJobActualCosts.isZero(); }},
    {"securities[].code", "Ohne Code bleibt das Feld leer.",
     [](const Candidate& c) { return c.taxCase.securities[c.index()].code == AssetCode::none; }},
    {"income.dailyAllowances", noAmount, [](const Candidate& c) { return c.lacks("taggelder"); }},
    {"income.unemployment", noAmount, [](const Candidate& c) { return c.lacks("taggelder"); }},
    {"deductions.furtherEducationFlatRate",
     "Bestimmt nur, dass bei Ziffer 16.4 statt der Kosten die Pauschale zählt."},
    {"deductions.furtherEducation", noAmount,
     [](const Candidate& c) { return c.lacks("weiterbildung"); }},
    {"deductions.pillar3a", "Ohne Erwerb gibt es keinen Abzug für die Säule 3a.",
     [](const Candidate& c) { return c.lacks("saeule3a"); }},
    {"deductions.pillar3aBuyIn", noAmount, [](const Candidate& c) { return c.lacks("einkauf3a"); }},
    {"deductions.pensionBuyIn", noAmount, [](const Candidate& c) { return c.lacks("saeule2"); }},
    {"realEstate[].actualMaintenanceCosts",
     "Statt der effektiven Unterhaltskosten zählt die Pauschale.",
     [](const Candidate& c) { return c.taxCase.realEstate[c.index()].useFlatRateMaintenance; }},
    {"children[].educationCosts", "Für das Kind gibt es keinen Abzug für Ausbildungskosten.",
     [](const Candidate& c) {
         return !isDeductible(c.taxCase.children[c.index()], c.taxCase.year);
     }},
    {"children[].scholarships", "Für das Kind gibt es keinen Abzug für Ausbildungskosten.",
     [](const Candidate& c) {
         return !isDeductible(c.taxCase.children[c.index()], c.taxCase.year);
     }},
    {"householdDeductions.actualAssetManagementCosts", noAmount,
     [](const Candidate& c) { return c.lacks("verwaltungskosten"); }},
    {"householdDeductions.significantCooperation",
     "Bestimmt nur, ob und wie hoch der Zweiverdienerabzug ist."},
};

bool isWithoutWorkCosts(const Candidate& c) {
    const auto at = static_cast<std::size_t>(c.person()) - 1;
    return !c.result.work.canton || at >= c.result.work.canton->size()
           || (*c.result.work.canton)[at].total().isZero();
}

constexpr std::string_view notInLiechtenstein = "Zählt in Liechtenstein nicht.";
constexpr std::string_view notionalYield =
    "In Liechtenstein steht der Sollertrag für alle Erträge aus dem Vermögen.";

constexpr Exception liechtenstein[] = {
    {"parish", notInLiechtenstein},
    {"person.confession", notInLiechtenstein},
    {"children[].childcare", notInLiechtenstein},
    {"householdIncome.familyAllowancesDirect", "In Liechtenstein sind Familienzulagen steuerfrei."},
    {"householdIncome.qualifiedParticipationIncome", notionalYield},
    {"householdIncome.simplifiedSettlementIncome", notInLiechtenstein},
    {"deductions.work", "In Liechtenstein gelten die Angaben zum Arbeitsweg."},
    {"deductions.pillar3a", notInLiechtenstein},
    {"deductions.furtherEducationFlatRate", notInLiechtenstein},
    {"householdDeductions.annuityPayments", notInLiechtenstein},
    {"householdDeductions.actualAssetManagementCosts", notInLiechtenstein},
    {"householdDeductions.otherDeductions", notInLiechtenstein},
    {"householdDeductions.significantCooperation", notInLiechtenstein},
    {"householdDeductions.dietFlatRate", notInLiechtenstein},
    {"householdDeductions.disabilityFlatRate", notInLiechtenstein},
    {"householdDeductions.supportedPersons", notInLiechtenstein},
    {"householdDeductions.donations[]",
     "Zuwendungen an politische Parteien zählen in Liechtenstein nicht.",
     [](const Candidate& c) {
         return c.taxCase.householdDeductions.donations[c.index()].isPoliticalParty;
     }},
    {"securities[]", "Gehört zum Geschäft und steht in dessen Aktiven.",
     [](const Candidate& c) { return isBusinessAsset(c.taxCase.securities[c.index()]); }},
    {"securities[].code", "Der Code gehört zum Verzeichnis des Kantons St.Gallen."},
    {"securities[].incomeWith", notionalYield},
    {"debts[].interest", "In Liechtenstein sind Schuldzinsen nicht abziehbar; der Sollertrag wird "
                         "auf dem Vermögen nach Abzug der Schulden berechnet."},
    {"realEstate[]", "Die Grundstücke in Liechtenstein werden nicht aus der Liste übernommen.",
     [](const Candidate& c) {
         return isInLiechtenstein(c.taxCase.realEstate[c.index()])
                && !c.taxCase.liExtras().useRealEstateFromList;
     }},
    {"realEstate[].use", notionalYield},
    {"realEstate[].imputedRentalValue", notionalYield},
    {"realEstate[].rentalIncome", notionalYield},
    {"realEstate[].isPrimaryResidence", notInLiechtenstein},
    {"realEstate[].rooms", notInLiechtenstein},
    {"realEstate[].unusedRooms", notInLiechtenstein},
    {"realEstate[].useFlatRateMaintenance", notInLiechtenstein},
    {"realEstate[].actualMaintenanceCosts", notInLiechtenstein},
    {"li.useRealEstateFromList", "Bestimmt nur, woher der Wert der Grundstücke kommt."},
    {"li.commute", "Ohne Lohn gibt es keine Gewinnungskosten.", isWithoutWorkCosts},
    {"li.commute.kmPerDay", "Für Fahrten im Inland zählt die Tabelle der Fahrkosten.",
     [](const Candidate& c) {
         const LIExtras extras = c.taxCase.liExtras();
         return (c.person() == 2 ? extras.commute2 : extras.commute1).mode
                == LICommute::Mode::inland;
     }},
    {"deductions.pensionBuyIn", noAmount, [](const Candidate& c) { return c.lacks("590"); }},
};

template <std::size_t N>
std::optional<std::string> firstReason(const Exception (&exceptions)[N], const Candidate& c) {
    const std::string pattern = patternOf(c.path);
    for (const Exception& exception : exceptions) {
        const std::string_view begin = exception.pattern;
        // A pattern that ends within a name stands for all names beginning so.
        if (std::string_view(pattern).starts_with(begin)
            && (exception.applies == nullptr || exception.applies(c))) {
            return std::string(exception.reason);
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> reasonNotTransferred(const TaxCase& taxCase, const TaxResult& result,
                                                std::string_view path) {
    const Candidate candidate{taxCase, result, path};
    if (auto reason = firstReason(everywhere, candidate)) {
        return reason;
    }
    return taxCase.taxRegion() == TaxRegion::liechtenstein ? firstReason(liechtenstein, candidate)
                                                           : firstReason(stGallen, candidate);
}

} // namespace fiscarel::outputs
