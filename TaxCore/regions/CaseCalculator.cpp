#include "TaxCore/regions/CaseCalculator.h"

#include "TaxCore/stgallen/DeductionRules.h"

namespace taxcore {

tl::expected<CaseCalculator, RuleLoadError> CaseCalculator::forCase(const TaxCase& taxCase) {
    const auto wrapped = [](auto calculator) { return CaseCalculator(std::move(calculator)); };
    switch (taxCase.taxRegion()) {
    case TaxRegion::liechtenstein:
        return LiechtensteinCalculator::forYear(taxCase.year).map(wrapped);
    case TaxRegion::stGallen:
        break;
    }
    return TaxCalculator::forYear(taxCase.year).map(wrapped);
}

TaxBill CaseCalculator::billFor(const TaxCase& taxCase, const TaxResult& base,
                                const Decimal& incomeCanton, const Decimal& incomeFederal) const {
    if (const auto* calculator = std::get_if<LiechtensteinCalculator>(&regional_)) {
        return calculator->computeBill(taxCase, incomeCanton, base.bill.taxableWealth);
    }
    const auto pointer = [](const auto& value) { return value ? &*value : nullptr; };
    return std::get<TaxCalculator>(regional_).computeBill(
        taxCase, incomeCanton, incomeFederal, base.bill.taxableWealth, pointer(base.municipality),
        pointer(base.parish));
}

Decimal CaseCalculator::vehicleValue(const Vehicle& vehicle, int year) const {
    if (const auto* calculator = std::get_if<LiechtensteinCalculator>(&regional_)) {
        return calculator->vehicleValue(vehicle, year);
    }
    return taxcore::vehicleValue(vehicle, year,
                                 stGallen()->cantonalExtra.fahrzeugAbschreibungProJahr);
}

const RuleBook* CaseCalculator::stGallen() const noexcept {
    const auto* calculator = std::get_if<TaxCalculator>(&regional_);
    return calculator != nullptr ? &calculator->rules() : nullptr;
}

const LIRules* CaseCalculator::liechtenstein() const noexcept {
    const auto* calculator = std::get_if<LiechtensteinCalculator>(&regional_);
    return calculator != nullptr ? &calculator->rules() : nullptr;
}

TaxResult CaseCalculator::calculate(const TaxCase& taxCase) const {
    return std::visit([&](const auto& regional) { return regional.calculate(taxCase); }, regional_);
}

std::optional<Derivation> CaseCalculator::explain(const TaxCase& taxCase,
                                                  std::string_view code) const {
    auto derivation = std::visit(
        [&](const auto& regional) { return regional.explain(taxCase, code); }, regional_);
    const DerivationStep* const line = derivation ? derivation->repeats() : nullptr;
    return line == nullptr ? derivation : explain(taxCase, std::string(*line->code));
}

std::vector<Derivation> CaseCalculator::explainAll(const TaxCase& taxCase) const {
    return std::visit([&](const auto& regional) { return regional.explainAll(taxCase); },
                      regional_);
}

} // namespace taxcore
