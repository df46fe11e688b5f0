#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/AmountSigns.h"
#include "TaxCore/review/CheckContext.h"

#include <algorithm>
#include <array>
#include <string>
#include <type_traits>

namespace taxcore::review {

namespace {

/// More than almost any household of the region earns or pays in a year.
constexpr int highYearly = 5'000'000;
/// The same for what somebody owns or owes.
constexpr int highWealth = 100'000'000;
/// More of them hide what matters.
constexpr int mostNotices = 20;

/// What a number is measured in.
enum class Measure {
    yearly, ///< francs a year
    wealth, ///< francs owned or owed
    other,  ///< kilometres, percent, pieces, days, years
};

enum class Sign { positive, any };

/// What the checks know of a field. Every amount and count of the case has a row, so that the
/// household reads a name and never a path.
struct FieldFacts {
    std::string_view key; ///< the path without the person's number and list positions
    std::string_view page;
    std::string_view name;
    Measure measure = Measure::yearly;
    Sign sign = Sign::positive;
};

using enum Measure;

constexpr std::array facts{
    FieldFacts{"income.salaries.grossSalary", "income", "Bruttolohn"},
    FieldFacts{"income.salaries.socialContributions", "income", "Sozialabgaben (Ziffer 9)"},
    FieldFacts{"income.salaries.pensionContributions", "income", "Pensionskasse (Ziffer 10.1)"},
    FieldFacts{"income.salaries.pensionBuyIn", "income", "Einkauf Pensionskasse (Ziffer 10.2)"},
    FieldFacts{"income.salaries.netSalaryOverride", "income", "Nettolohn", yearly, Sign::any},
    FieldFacts{"income.salaries.flatRateExpenses", "income", "Pauschalspesen"},
    FieldFacts{"income.boardFees", "income", "Sitzungsgelder und Honorare"},
    FieldFacts{"income.selfEmployment", "income", "Selbständige Erwerbstätigkeit", yearly,
               Sign::any},
    FieldFacts{"income.partnership", "income", "Kollektiv- und Kommanditgesellschaften", yearly,
               Sign::any},
    FieldFacts{"income.ahvPension", "income", "AHV/IV-Rente"},
    FieldFacts{"income.pensions.amount", "income", "Rente"},
    FieldFacts{"income.pensions.taxablePercent", "income", "Steuerbarer Anteil der Rente", other},
    FieldFacts{"income.dailyAllowances", "income", "Taggelder"},
    FieldFacts{"income.unemployment", "income", "Arbeitslosenentschädigung"},
    FieldFacts{"householdIncome.familyAllowancesDirect", "income", "Familienzulagen"},
    FieldFacts{"householdIncome.alimonyReceivedSelf", "income", "Erhaltener Unterhalt für sich"},
    FieldFacts{"householdIncome.alimonyReceivedChildren", "income",
               "Erhaltener Unterhalt für Kinder"},
    FieldFacts{"householdIncome.undividedEstates", "income", "Ertrag unverteilter Erbschaften",
               yearly, Sign::any},
    FieldFacts{"householdIncome.otherIncome", "income", "Übrige Einkünfte"},
    FieldFacts{"householdIncome.qualifiedParticipationIncome", "income", "Beteiligungsertrag"},
    FieldFacts{"householdIncome.simplifiedSettlementIncome", "income",
               "Vereinfacht abgerechnete Einkünfte"},
    FieldFacts{"deductions.work.publicTransportCost", "work", "Kosten des öffentlichen Verkehrs"},
    FieldFacts{"deductions.work.bicycleCost", "work", "Kosten des Velos"},
    FieldFacts{"deductions.work.carKmOneWay", "work", "Kilometer pro Weg", other},
    FieldFacts{"deductions.work.carTripsPerDay", "work", "Fahrten pro Tag", other},
    FieldFacts{"deductions.work.carWorkDays", "work", "Arbeitstage mit dem Fahrzeug", other},
    FieldFacts{"deductions.work.mealDays", "work", "Tage mit auswärtigem Essen", other},
    FieldFacts{"deductions.work.actualOtherCosts", "work", "Übrige Berufskosten"},
    FieldFacts{"deductions.work.weeklyStayMonths", "work", "Monate mit Wochenaufenthalt", other},
    FieldFacts{"deductions.work.weeklyStayRoomPerMonth", "work", "Zimmermiete pro Monat"},
    FieldFacts{"deductions.work.weeklyStayDays", "work", "Tage mit Wochenaufenthalt", other},
    FieldFacts{"deductions.work.sideJobActualCosts", "work", "Kosten des Nebenerwerbs"},
    FieldFacts{"li.commute.kmPerDay", "work", "Kilometer pro Tag", other},
    FieldFacts{"li.commute.workDays", "work", "Arbeitstage", other},
    FieldFacts{"li.commute.reimbursed", "work", "Vergütung des Arbeitgebers"},
    FieldFacts{"li.commute.mealDays", "work", "Tage mit auswärtigem Essen", other},
    FieldFacts{"deductions.pillar3a", "pension", "Säule 3a"},
    FieldFacts{"deductions.pillar3aBuyIn", "pension", "Einkauf Säule 3a"},
    FieldFacts{"deductions.pensionBuyIn", "pension", "Einkauf Pensionskasse"},
    FieldFacts{"householdDeductions.healthInsurancePremiums", "pension", "Prämien Krankenkasse"},
    FieldFacts{"householdDeductions.accidentInsurancePremiums", "pension",
               "Prämien Unfallversicherung"},
    FieldFacts{"householdDeductions.lifeInsurancePremiums", "pension",
               "Prämien Lebensversicherung"},
    FieldFacts{"householdDeductions.premiumReduction", "pension", "Prämienverbilligung"},
    FieldFacts{"capitalPayments.amount", "pension", "Kapitalleistung"},
    FieldFacts{"deductions.furtherEducation", "other", "Weiterbildung"},
    FieldFacts{"children.childcareCosts", "other", "Kinderbetreuungskosten"},
    FieldFacts{"children.childcareDaysWithMealsIncluded", "other", "Betreuungstage mit Essen",
               other},
    FieldFacts{"children.educationCosts", "other", "Ausbildungskosten"},
    FieldFacts{"children.scholarships", "other", "Stipendien"},
    FieldFacts{"householdDeductions.alimonyPaidPartner", "other", "Bezahlter Unterhalt an Partner"},
    FieldFacts{"householdDeductions.alimonyPaidChildren", "other",
               "Bezahlter Unterhalt für Kinder"},
    FieldFacts{"householdDeductions.annuityPayments", "other", "Rentenleistungen"},
    FieldFacts{"householdDeductions.actualAssetManagementCosts", "wealth",
               "Verwaltungskosten der Wertschriften"},
    FieldFacts{"householdDeductions.otherDeductions", "other", "Übrige Abzüge"},
    FieldFacts{"householdDeductions.medicalCosts.gross", "other", "Rechnungsbetrag"},
    FieldFacts{"householdDeductions.medicalCosts.reimbursed", "other", "Rückvergütung"},
    FieldFacts{"householdDeductions.disabilityFlatRate", "other", "Pauschale für Behinderung"},
    FieldFacts{"householdDeductions.donations.amount", "other", "Spende"},
    FieldFacts{"householdDeductions.supportedPersons", "other", "Unterstützte Personen", other},
    FieldFacts{"securities.quantity", "wealth", "Anzahl", other},
    FieldFacts{"securities.taxValue", "wealth", "Steuerwert", wealth},
    FieldFacts{"securities.incomeWithWithholding", "wealth", "Ertrag mit Verrechnungssteuer"},
    FieldFacts{"securities.incomeWithoutWithholding", "wealth", "Ertrag ohne Verrechnungssteuer"},
    FieldFacts{"cash", "wealth", "Bargeld und Edelmetalle", wealth},
    FieldFacts{"insurances.startYear", "wealth", "Beginn der Versicherung", other},
    FieldFacts{"insurances.endYear", "wealth", "Ende der Versicherung", other},
    FieldFacts{"insurances.sumInsured", "wealth", "Versicherungssumme", wealth},
    FieldFacts{"insurances.surrenderValue", "wealth", "Rückkaufswert", wealth},
    FieldFacts{"vehicles.purchasePrice", "wealth", "Kaufpreis des Fahrzeugs", wealth},
    // The check of the vehicle tells it.
    FieldFacts{"vehicles.purchaseYear", "wealth", "Kaufjahr", other, Sign::any},
    FieldFacts{"vehicles.taxValueOverride", "wealth", "Steuerwert des Fahrzeugs", wealth,
               Sign::any},
    FieldFacts{"undividedEstatesWealth", "wealth", "Anteile an unverteilten Erbschaften", wealth,
               Sign::any},
    FieldFacts{"otherAssets", "wealth", "Übrige Vermögenswerte", wealth},
    FieldFacts{"realEstate.sharePerson1", "wealth", "Anteil von Person 1", other},
    FieldFacts{"realEstate.sharePerson2", "wealth", "Anteil von Person 2", other},
    FieldFacts{"realEstate.taxValue", "wealth", "Steuerwert der Liegenschaft", wealth},
    FieldFacts{"realEstate.imputedRentalValue", "wealth", "Eigenmietwert"},
    FieldFacts{"realEstate.rooms", "wealth", "Zimmer", other},
    FieldFacts{"realEstate.unusedRooms", "wealth", "Unbenutzte Zimmer", other},
    FieldFacts{"realEstate.rentalIncome", "wealth", "Mieteinnahmen"},
    FieldFacts{"realEstate.actualMaintenanceCosts", "wealth", "Unterhaltskosten"},
    FieldFacts{"businessAssets", "wealth", "Geschäftsvermögen", wealth, Sign::any},
    FieldFacts{"debts.amount", "wealth", "Schuld", wealth},
    FieldFacts{"debts.interest", "wealth", "Schuldzins"},
    FieldFacts{"li.householdGoods", "wealth", "Hausrat", wealth},
};

/// Where a value stands in the case. Records lie at most three deep, with one list among them.
class Place {
  public:
    /// A field of the record here; "income2" and its like are a person's.
    template <class T>
    Place field(std::string_view name) const {
        Place inner = *this;
        inner.names_.at(inner.depth_++) = name;
        if (Record<T> && isNumbered(name)) {
            inner.person_ = name.back() - '0';
        }
        return inner;
    }
    Place at(int index) const {
        Place item = *this;
        item.index_ = index;
        return item;
    }
    int index() const { return index_; }
    /// 1 or 2 in a person's records, else 0.
    int person() const { return person_; }

    FieldPath path() const {
        const FieldPath path = depth_ == 1   ? FieldPath(names_[0])
                               : depth_ == 2 ? FieldPath(names_[0], names_[1])
                                             : FieldPath(names_[0], names_[1], names_[2]);
        return index_ < 0 ? path : path.at(index_);
    }
    /// The key of a field's facts.
    std::string key() const {
        std::string key;
        for (std::size_t i = 0; i < depth_; ++i) {
            std::string_view name = names_.at(i);
            if (i + 1 < depth_ && isNumbered(name)) {
                name.remove_suffix(1);
            }
            key += (i == 0 ? "" : ".") + std::string(name);
        }
        return key;
    }

  private:
    static bool isNumbered(std::string_view name) {
        return name.ends_with('1') || name.ends_with('2');
    }

    std::array<std::string_view, 3> names_{};
    std::size_t depth_ = 0;
    int index_ = -1;
    int person_ = 0;
};

class AmountCheck {
  public:
    explicit AmountCheck(CheckContext& c) : c_(c) {}

    template <class T>
    void visit(const T& value, const Place& place) {
        if constexpr (std::is_same_v<T, Decimal>) {
            checkAmount(value, place);
        } else if constexpr (std::is_same_v<T, int>) {
            checkCount(value, place);
        } else if constexpr (isOptional<T>) {
            if (value) {
                visit(*value, place);
            }
        } else if constexpr (isList<T>) {
            for (std::size_t i = 0; i < value.size(); ++i) {
                visit(value[i], place.at(static_cast<int>(i)));
            }
        } else if constexpr (Record<T>) {
            if (counts(value)) {
                forEachField(value, [&](std::string_view name, const auto& field) {
                    const Place inner = place.field<std::remove_cvref_t<decltype(field)>>(name);
                    if (inner.person() <= static_cast<int>(c_.adults.size())) {
                        visit(field, inner);
                    }
                });
            }
        }
    }

    /// What is beyond the limit of single notices.
    void finish() {
        if (left_ > 0) {
            c_.warning({"betraege-weitere", leftPage_, "Weitere auffällige Beträge",
                        (left_ == 1 ? std::string("Bei einem weiteren Feld")
                                    : "Bei " + std::to_string(left_) + " weiteren Feldern")
                            + " ist der Betrag negativ oder sehr hoch. Wurde eine "
                              "falsche Datei eingelesen?",
                        std::nullopt});
        }
    }

  private:
    /// Whether a record is part of the return: the household's, and of its region.
    template <class T>
    bool counts(const T& record) const {
        if constexpr (std::is_same_v<T, SecurityEntry>) {
            return belongsToHousehold(record, c_.taxCase);
        } else if constexpr (std::is_same_v<T, WorkExpenses>) {
            return c_.stGallen != nullptr;
        } else if constexpr (std::is_same_v<T, LIExtras>) {
            return c_.liechtenstein != nullptr;
        } else {
            return true;
        }
    }

    static FieldFacts factsOf(const Place& place) {
        const std::string key = place.key();
        const auto* const found = std::ranges::find(facts, key, &FieldFacts::key);
        return found != facts.end() ? *found : FieldFacts{"", "other", "Ein Betrag"};
    }

    /// "betrag-hoch-income1.salaries[0].grossSalary": it stays with its field whatever else is
    /// entered.
    static std::string id(std::string_view stem, const Place& place) {
        return std::string(stem) + "-" + place.path().toString();
    }

    /// "«Bruttolohn» (Anna Muster, Eintrag 2)"
    std::string described(const FieldFacts& field, const Place& place) const {
        const int person = place.person();
        std::string where =
            person > 0 ? c_.adults[static_cast<std::size_t>(person) - 1].called() : "";
        if (place.index() >= 0) {
            where += (where.empty() ? "" : ", ") + std::string("Eintrag ")
                     + std::to_string(place.index() + 1);
        }
        return "«" + std::string(field.name) + "»" + (where.empty() ? "" : " (" + where + ")");
    }

    void checkAmount(const Decimal& amount, const Place& place) {
        if (amount >= 0 && amount < highYearly) {
            return;
        }
        const FieldFacts field = factsOf(place);
        const bool isMoney = field.measure != other;
        const std::string text =
            isMoney ? MoneyFormat::chf(amount, 0, true) : MoneyFormat::number(amount);
        if (amount < 0 && field.sign == Sign::positive && takesOne(field)) {
            c_.warning({id("betrag-negativ", place), field.page, "Negativer Wert",
                        described(field, place) + " ist mit " + text
                            + " eingetragen. Hier gehören Werte ohne Minuszeichen hin.",
                        place.path()});
        }
        const int high = field.measure == wealth ? highWealth : highYearly;
        if (amount >= high && isMoney && takesOne(field)) {
            c_.warning(
                {id("betrag-hoch", place), field.page, "Sehr hoher Betrag",
                 described(field, place) + " ist mit " + text + " eingetragen. Stimmt der Betrag?",
                 place.path()});
        }
    }

    void checkCount(int count, const Place& place) {
        const FieldFacts field = factsOf(place);
        if (count < 0 && field.sign == Sign::positive && takesOne(field)) {
            c_.warning({id("anzahl-negativ", place), field.page, "Negative Zahl",
                        described(field, place) + " ist mit " + std::to_string(count)
                            + " eingetragen. Hier gehört eine Zahl ohne Minuszeichen hin.",
                        place.path()});
        }
    }

    /// Whether one more notice may stand alone; counts it.
    bool takesOne(const FieldFacts& field) {
        if (told_ < mostNotices) {
            ++told_;
            return true;
        }
        if (left_++ == 0) {
            leftPage_ = field.page;
        }
        return false;
    }

    CheckContext& c_;
    int told_ = 0;
    int left_ = 0;
    std::string_view leftPage_;
};

/// The key of the facts for a path as text.
std::string keyOf(std::string_view path) {
    std::string key;
    bool isPosition = false;
    for (const char c : path) {
        if (c == '.' && (key.ends_with('1') || key.ends_with('2'))) {
            key.pop_back(); // the person
        }
        isPosition = c == '[' || isPosition;
        if (!isPosition) {
            key += c;
        }
        isPosition = isPosition && c != ']';
    }
    return key;
}

} // namespace

bool mayBeNegative(std::string_view path) {
    const std::string key = keyOf(path);
    const auto* const found = std::ranges::find(facts, std::string_view(key), &FieldFacts::key);
    return found == facts.end() || found->sign == Sign::any;
}

void checkAmounts(CheckContext& c) {
    AmountCheck check(c);
    check.visit(c.taxCase, Place());
    check.finish();
}

} // namespace taxcore::review
