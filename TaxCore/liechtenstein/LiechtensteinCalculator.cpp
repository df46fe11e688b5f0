#include "TaxCore/liechtenstein/LiechtensteinCalculator.h"

#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/liechtenstein/WorkCosts.h"
#include "TaxCore/rulebook/Tariffs.h"

namespace taxcore {

namespace {

template <class Recorder>
TaxResult run(const LIRules& rules, const TaxCase& taxCase, Recorder& recorder) {
    TaxResult result;
    result.year = taxCase.year;
    result.sections.reserve(4);
    li::Calculation<Recorder> c(rules, taxCase, result, recorder);
    li::addWealth(c);
    li::addIncome(c);
    li::addDeductions(c);
    li::addTaxes(c);
    c.lines.finish();
    return result;
}

} // namespace

tl::expected<LiechtensteinCalculator, RuleLoadError> LiechtensteinCalculator::forYear(int year) {
    return LIRules::load(year).map(
        [](auto rules) { return LiechtensteinCalculator(std::move(rules)); });
}

TaxResult LiechtensteinCalculator::calculate(const TaxCase& taxCase) const {
    NoRecorder recorder;
    return run(*rules_, taxCase, recorder);
}

std::vector<Derivation> LiechtensteinCalculator::explainAll(const TaxCase& taxCase) const {
    DerivationRecorder recorder;
    run(*rules_, taxCase, recorder);
    return std::move(recorder).derivations();
}

std::optional<Derivation> LiechtensteinCalculator::explain(const TaxCase& taxCase,
                                                           std::string_view code) const {
    DerivationRecorder recorder(code);
    run(*rules_, taxCase, recorder);
    return std::move(recorder).first();
}

TaxBill LiechtensteinCalculator::computeBill(const TaxCase& taxCase, const Decimal& taxable,
                                             const Decimal& netWealth) const {
    return li::makeBill(*rules_, taxCase, taxable, netWealth);
}

LiechtensteinCalculator::WorkCosts
LiechtensteinCalculator::workCosts(const Decimal& salary, const LICommute& commute) const {
    const WorkExpenseBreakdown breakdown = li::workCosts(salary, commute, *rules_);
    return {breakdown.total(), breakdown};
}

Decimal LiechtensteinCalculator::commute(const LICommute& commute) const {
    return li::commuteCosts(commute, *rules_);
}

Decimal LiechtensteinCalculator::meals(const LICommute& commute) const {
    return li::mealCosts(commute, *rules_);
}

Decimal LiechtensteinCalculator::vehicleValue(const Vehicle& vehicle, int year) const {
    return li::vehicleValue(vehicle, year, *rules_);
}

Decimal LiechtensteinCalculator::landessteuer(const Decimal& income, LITariffKind kind) const {
    return Tariffs::landessteuer(income, kind, rules_->tarif);
}

LITariffKind LiechtensteinCalculator::tariffKind(const TaxCase& taxCase) noexcept {
    return liTariffOf(taxCase);
}

} // namespace taxcore
