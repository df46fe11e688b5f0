#include "TaxCore/liechtenstein/WorkCosts.h"

#include "TaxCore/base/Rounding.h"
#include "TaxCore/liechtenstein/Law.h"

#include <algorithm>

namespace taxcore::li {

namespace {

constexpr int firstKilometres = 10'000;

Decimal kilometresOfYear(const LICommute& commute, const LIRules& rules) {
    return std::min(commute.kmPerDay, rules.fahrMaxKmProTag) * commuteDays(commute, rules);
}

void explainKilometres(DerivationRecorder::Draft& why, const FieldPath& path,
                       const LICommute& commute, const LIRules& rules) {
    why.input("Kilometer pro Tag", commute.kmPerDay, path, Unit::number);
    why.rule(law::commute, "Kilometer pro Tag höchstens", "fahrMaxKmProTag",
             both(rules.fahrMaxKmProTag), Unit::number);
    why.step("Kilometer im Jahr", both(kilometresOfYear(commute, rules)), Unit::number);
    why.rule(law::commute, "Rappen pro Kilometer bis 10’000", "fahrRappenBis10000",
             both(rules.fahrRappenBis10000), Unit::number);
    why.rule(law::commute, "Rappen pro Kilometer darüber", "fahrRappenUeber10000",
             both(rules.fahrRappenUeber10000), Unit::number);
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

void explainWorkCosts(DerivationRecorder::Draft& why, int person, const Decimal& salary,
                      const LICommute& commute, const LIRules& rules) {
    if (salary <= 0) {
        return;
    }
    const std::string_view record = person == 1 ? "commute1" : "commute2";
    const auto path = [&](std::string_view field) { return FieldPath("li", record, field); };
    const WorkExpenseBreakdown costs = workCosts(salary, commute, rules);
    why.line(person == 1 ? "500" : "505", 0, "Bruttolohn", both(salary));
    const bool abroad = commute.mode == LICommute::Mode::ausland;
    const auto fare = rules.fahrkostenInland(commute.from, commute.to);
    if (abroad) {
        explainKilometres(why, path("kmPerDay"), commute, rules);
    } else if (fare) {
        why.fact("Von " + commute.from, path("from"));
        why.fact("nach " + commute.to, path("to"));
        why.step("Fahrkosten eines vollen Jahres laut Tabelle", both(*fare));
    } else if (!commute.from.empty() || !commute.to.empty()) {
        why.fact("Die Strecke steht nicht in der Tabelle – keine Fahrkosten.", path("from"));
    }
    if (abroad || fare) {
        why.input("Arbeitstage", commute.workDays, path("workDays"), Unit::number);
        why.rule(law::commute, "Arbeitstage höchstens", "fahrMaxTage",
                 both(Decimal(rules.fahrMaxTage)), Unit::number);
        if (!commute.reimbursed.isZero()) {
            why.input("− vom Arbeitgeber vergütet", commute.reimbursed, path("reimbursed"));
        }
        why.rounding("Auf ganze Franken");
        why.step("Fahrkosten", both(costs.commute));
    }
    if (commute.mealDays != 0) {
        why.input("Tage mit auswärtiger Verpflegung", commute.mealDays, path("mealDays"),
                  Unit::number);
        why.rule(law::workCosts, "Verpflegung pro Tag", "verpflegungProTag",
                 both(rules.verpflegungProTag));
        why.rule(law::workCosts, "Verpflegung höchstens", "verpflegungMax",
                 both(rules.verpflegungMax));
        why.step("Verpflegung", both(costs.meals));
    }
    why.rule(law::workCosts, "Mindestens die Pauschale, höchstens der Lohn",
             "gewinnungskostenPauschal", both(rules.gewinnungskostenPauschal));
    why.step("Gewinnungskosten", both(costs.total()));
}

} // namespace taxcore::li
