#include "TaxCore/review/YearComparison.h"

#include "TaxCore/review/Advisor.h"

#include <algorithm>
#include <memory>

namespace taxcore {

namespace {

/// The tax of a case under rules put together from two years.
Decimal taxUnder(RuleBook rules, const TaxCase& taxCase) {
    return Advisor::totalTax(
        TaxCalculator(std::make_shared<const RuleBook>(std::move(rules))).calculate(taxCase));
}
Decimal taxUnder(LIRules rules, const TaxCase& taxCase) {
    return Advisor::totalTax(
        LiechtensteinCalculator(std::make_shared<const LIRules>(std::move(rules)))
            .calculate(taxCase));
}

/// The earlier year's rules with the later one's deductions, then its tariffs as well.
RuleBook withDeductions(RuleBook rules, const RuleBook& later) {
    rules.cantonal = later.cantonal;
    rules.cantonalExtra = later.cantonalExtra;
    rules.federal = later.federal;
    return rules;
}
RuleBook withTariff(RuleBook rules, const RuleBook& later) {
    rules.federalRules = later.federalRules;
    rules.sgTariff = later.sgTariff;
    rules.municipalities.vermoegenEinfacheSteuerPromille =
        later.municipalities.vermoegenEinfacheSteuerPromille;
    return rules;
}
LIRules withDeductions(const LIRules& rules, LIRules later) {
    later.tarif = rules.tarif;
    later.gemeinden = rules.gemeinden;
    return later;
}
LIRules withTariff(LIRules rules, const LIRules& later) {
    rules.tarif = later.tarif;
    return rules;
}

/// Splits the difference by changing one thing after the other.
template <class Rules>
void split(YearComparison& comparison, const Rules& before, const Rules& after, TaxCase earlier,
           const TaxCase& later) {
    // Ages go by the year of the case, everything else by the rules.
    earlier.year = later.year;
    const Rules deductions = withDeductions(before, after);
    const Decimal byAgeing = taxUnder(before, earlier);
    const Decimal byEntries = taxUnder(before, later);
    const Decimal byRules = taxUnder(deductions, later);
    const Decimal byTariff = taxUnder(withTariff(deductions, after), later);
    comparison.ageing = byAgeing - comparison.before;
    comparison.entries = byEntries - byAgeing;
    comparison.rules = byRules - byEntries;
    comparison.tariff = byTariff - byRules;
    comparison.multipliers = comparison.after - byTariff;
}

std::vector<LineChange> changes(const TaxResult& before, const TaxResult& after) {
    std::vector<LineChange> all;
    for (const TaxLine& line : after.fields()) {
        const TaxLine* old = before.line(line.code);
        all.push_back({line.code, line.label, old != nullptr ? old->canton : Decimal(0),
                       line.canton, old != nullptr ? old->federalOrCanton() : Decimal(0),
                       line.federalOrCanton()});
    }
    // A line that fell away stands behind the one it used to follow.
    auto place = all.begin();
    for (const TaxLine& line : before.fields()) {
        const auto found = std::ranges::find(all, line.code, &LineChange::code);
        if (found != all.end()) {
            place = found + 1;
            continue;
        }
        place =
            all.insert(place, {line.code, line.label, line.canton, 0, line.federalOrCanton(), 0});
        ++place;
    }
    std::erase_if(all, [](const LineChange& line) {
        return line.cantonBefore == line.cantonAfter && line.federalBefore == line.federalAfter;
    });
    return all;
}

} // namespace

tl::expected<YearComparison, RuleLoadError> YearComparison::of(const TaxCase& earlier,
                                                               const TaxCase& later) {
    const auto calculator = CaseCalculator::forCase(later);
    if (!calculator) {
        return tl::unexpected(calculator.error());
    }
    return of(earlier, later, *calculator, calculator->calculate(later));
}

tl::expected<YearComparison, RuleLoadError> YearComparison::of(const TaxCase& earlier,
                                                               const TaxCase& later,
                                                               const CaseCalculator& calculator,
                                                               const TaxResult& result) {
    const auto before = CaseCalculator::forCase(earlier);
    if (!before) {
        return tl::unexpected(before.error());
    }
    const TaxResult old = before->calculate(earlier);
    YearComparison comparison;
    comparison.before = Advisor::totalTax(old);
    comparison.after = Advisor::totalTax(result);
    comparison.lines = changes(old, result);
    if (before->stGallen() != nullptr && calculator.stGallen() != nullptr) {
        split(comparison, *before->stGallen(), *calculator.stGallen(), earlier, later);
    } else if (before->liechtenstein() != nullptr && calculator.liechtenstein() != nullptr) {
        split(comparison, *before->liechtenstein(), *calculator.liechtenstein(), earlier, later);
    } else {
        comparison.entries = comparison.difference();
    }
    return comparison;
}

} // namespace taxcore
