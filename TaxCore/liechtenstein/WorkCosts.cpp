#include "TaxCore/liechtenstein/WorkCosts.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/liechtenstein/Law.h"
#include "TaxCore/result/Figure.h"

#include <algorithm>

namespace taxcore::li {

namespace {

constexpr int firstKilometres = 10'000;

Decimal kilometresOfYear(const LICommute& commute, const LIRules& rules) {
    return std::min(commute.kmPerDay, rules.fahrMaxKmProTag) * commuteDays(commute, rules);
}

using Draft = DerivationRecorder::Draft;

/// Where the entries of a way to work stand in the case.
struct CommutePath {
    std::string_view record;

    FieldPath operator()(std::string_view field) const { return {"li", record, field}; }
};

void explainDays(Draft& why, const CommutePath& path, const LICommute& commute,
                 const LIRules& rules) {
    why.input("Arbeitstage", commute.workDays, path("workDays"), Unit::number);
    why.rule(law::commute, "Arbeitstage höchstens", "fahrMaxTage", both(Decimal(rules.fahrMaxTage)),
             Unit::number);
}

void explainKilometres(Draft& why, const CommutePath& path, const LICommute& commute,
                       const LIRules& rules) {
    why.input("Kilometer pro Tag", commute.kmPerDay, path("kmPerDay"), Unit::number);
    why.rule(law::commute, "Kilometer pro Tag höchstens", "fahrMaxKmProTag",
             both(rules.fahrMaxKmProTag), Unit::number);
    explainDays(why, path, commute, rules);
    why.step("Kilometer im Jahr", both(kilometresOfYear(commute, rules)), Unit::number);
    why.rule(law::commute, "Rappen pro Kilometer, bis 10’000 im Jahr", "fahrRappenBis10000",
             both(rules.fahrRappenBis10000), Unit::number);
    why.rule(law::commute, "Rappen pro Kilometer, über 10’000 im Jahr", "fahrRappenUeber10000",
             both(rules.fahrRappenUeber10000), Unit::number);
}

/// The cell of the table of fares that answers for the way.
std::string fareKey(const LICommute& commute, const LIRules& rules) {
    const auto position = [&](const std::string& place) {
        const auto& places = rules.fahrkostenOrte;
        return static_cast<std::size_t>(std::ranges::find(places, place) - places.begin());
    };
    return itemKey(itemKey("fahrkostenMatrix", position(commute.from)), position(commute.to));
}

void explainFare(Draft& why, const CommutePath& path, const LICommute& commute,
                 const LIRules& rules, const Decimal& fare) {
    why.fact("Von " + commute.from, path("from"));
    why.fact("Nach " + commute.to, path("to"));
    why.rule(law::commute, "Fahrkosten eines vollen Jahres laut Tabelle", fareKey(commute, rules),
             both(fare));
    explainDays(why, path, commute, rules);
}

/// The way to work with its costs as they count.
void explainCommute(Draft& why, const CommutePath& path, const LICommute& commute,
                    const LIRules& rules, const Decimal& costs) {
    const auto fare = rules.fahrkostenInland(commute.from, commute.to);
    if (commute.mode == LICommute::Mode::ausland) {
        explainKilometres(why, path, commute, rules);
    } else if (fare) {
        explainFare(why, path, commute, rules, *fare);
    } else {
        if (!commute.from.empty() || !commute.to.empty()) {
            why.fact("Die Strecke steht nicht in der Tabelle – keine Fahrkosten.", path("from"));
        }
        return;
    }
    if (!commute.reimbursed.isZero()) {
        why.input("− vom Arbeitgeber vergütet", commute.reimbursed, path("reimbursed"));
    }
    why.rounding("Nie unter 0, auf ganze Franken");
    why.step("Fahrkosten", both(costs));
}

void explainMeals(Draft& why, const CommutePath& path, const LICommute& commute,
                  const LIRules& rules, const Decimal& costs) {
    why.input("Tage mit auswärtiger Verpflegung", commute.mealDays, path("mealDays"), Unit::number);
    why.rule(law::workCosts, "Verpflegung pro Tag", "verpflegungProTag",
             both(rules.verpflegungProTag));
    why.rule(law::workCosts, "Verpflegung höchstens", "verpflegungMax", both(rules.verpflegungMax));
    why.step("Verpflegung", both(costs));
}

} // namespace

int commuteDays(const LICommute& commute, const LIRules& rules) noexcept {
    return std::min(std::max(commute.workDays, 0), rules.fahrMaxTage);
}

bool usesFareTable(const LICommute& commute, const LIRules& rules) {
    return commute.mode == LICommute::Mode::inland
           && rules.fahrkostenInland(commute.from, commute.to).has_value();
}

Decimal commuteCosts(const LICommute& commute, const LIRules& rules) {
    Decimal cost;
    if (commute.mode == LICommute::Mode::ausland) {
        const Decimal kilometres = kilometresOfYear(commute, rules);
        const Decimal first = std::min(kilometres, Decimal(firstKilometres));
        cost = first * rules.fahrRappenBis10000 / 100
               + (kilometres - first) * rules.fahrRappenUeber10000 / 100;
    } else {
        const auto fare = rules.fahrkostenInland(commute.from, commute.to);
        if (!fare) {
            return 0;
        }
        cost = *fare * commuteDays(commute, rules) / rules.fahrMaxTage;
    }
    return toWholeFrancs(notBelowZero(cost - commute.reimbursed));
}

Decimal mealCosts(const LICommute& commute, const LIRules& rules) {
    return std::min(Decimal(std::max(commute.mealDays, 0)) * rules.verpflegungProTag,
                    rules.verpflegungMax);
}

WorkExpenseBreakdown workCosts(const Decimal& salary, const LICommute& commute,
                               const LIRules& rules) {
    WorkExpenseBreakdown costs;
    if (salary <= 0) {
        return costs;
    }
    costs.commute = commuteCosts(commute, rules);
    costs.meals = mealCosts(commute, rules);
    const Decimal flat = std::min(salary, rules.gewinnungskostenPauschal);
    costs.other = notBelowZero(flat - costs.commute - costs.meals);
    return costs;
}

void explainWorkCosts(Draft& why, const Adult& adult, const LIRules& rules) {
    const Decimal salary = adult.grossSalary();
    if (salary <= 0) {
        return;
    }
    const CommutePath path{adult.code("commute1", "commute2")};
    const WorkExpenseBreakdown costs = workCosts(salary, adult.commute, rules);
    why.line(adult.code("500", "505"), 0, "Bruttolohn – " + adult.person.displayName(),
             both(salary));
    explainCommute(why, path, adult.commute, rules, costs.commute);
    if (adult.commute.mealDays != 0) {
        explainMeals(why, path, adult.commute, rules, costs.meals);
    }
    why.rule(law::workCosts, "Mindestens die Pauschale (höchstens der Lohn)",
             "gewinnungskostenPauschal", both(rules.gewinnungskostenPauschal));
    why.step("Gewinnungskosten", both(costs.total()));
}

} // namespace taxcore::li
