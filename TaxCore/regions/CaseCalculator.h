#pragma once

#include "TaxCore/liechtenstein/LiechtensteinCalculator.h"
#include "TaxCore/stgallen/TaxCalculator.h"

#include <tl/expected.hpp>

#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace taxcore {

/// Computes cases by the rules of their region, for those who need not know which. A plain value;
/// any thread may use it.
class CaseCalculator {
  public:
    /// The calculator for the case's year and region; the error of the rules when they do not load.
    static tl::expected<CaseCalculator, RuleLoadError> forCase(const TaxCase& taxCase);

    // As the calculators of the regions; the case must be of the same region and year.
    TaxResult calculate(const TaxCase& taxCase) const;
    /// A figure that only repeats a line is explained by that line's way.
    std::optional<Derivation> explain(const TaxCase& taxCase, std::string_view code) const;
    std::vector<Derivation> explainAll(const TaxCase& taxCase) const;

    /// The bill of the same household for other taxable incomes in francs, all else as in `base`;
    /// in Liechtenstein only the canton's counts.
    TaxBill billFor(const TaxCase& taxCase, const TaxResult& base, const Decimal& incomeCanton,
                    const Decimal& incomeFederal) const;

    /// What a private vehicle is worth at the valuation day of a tax year, whole francs.
    /// StG SG Art. 53 and 54, SteG Art. 12
    Decimal vehicleValue(const Vehicle& vehicle, int year) const;

    /// The rules by region; null for the other one.
    const RuleBook* stGallen() const noexcept;
    const LIRules* liechtenstein() const noexcept;

  private:
    using Regional = std::variant<TaxCalculator, LiechtensteinCalculator>;
    explicit CaseCalculator(Regional regional) : regional_(std::move(regional)) {}

    Regional regional_;
};

} // namespace taxcore
