#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/result/TaxResult.h"
#include "TaxCore/rulebook/LIRules.h"

#include <tl/expected.hpp>

#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace taxcore {

/// Computes the return and the bill of a household in Liechtenstein: national tax on earnings and
/// the notional yield of the wealth, with the municipal surcharge. Amounts stand on the canton's
/// side, there is no other. A plain value; any thread may use it.
class LiechtensteinCalculator {
  public:
    /// A calculator on the rules of the year; their error when they do not load.
    static tl::expected<LiechtensteinCalculator, RuleLoadError> forYear(int year);

    explicit LiechtensteinCalculator(std::shared_ptr<const LIRules> year)
        : rules_(std::move(year)) {}

    const LIRules& rules() const noexcept { return *rules_; }

    /// The complete return. Never fails: missing entries count as 0, an unknown municipality is
    /// told in the notices and taxed with a surcharge of 150 %.
    TaxResult calculate(const TaxCase& taxCase) const;

    /// How a line (by its code) or a figure of the bill (by its field's name) came about; absent
    /// for an unknown code.
    std::optional<Derivation> explain(const TaxCase& taxCase, std::string_view code) const;

    /// The derivations of all lines and figures, in the order of the computation.
    std::vector<Derivation> explainAll(const TaxCase& taxCase) const;

    /// The bill for a taxable income and a net wealth in francs. SteG Art. 19 und 75
    TaxBill computeBill(const TaxCase& taxCase, const Decimal& taxable,
                        const Decimal& netWealth) const;

    struct WorkCosts {
        Decimal total; ///< francs
        WorkExpenseBreakdown breakdown;
    };
    /// Costs of earning a gross salary in francs; all zero without one. SteG Art. 16, SteV Art. 12
    WorkCosts workCosts(const Decimal& salary, const LICommute& commute) const;

    /// Costs of the way to work, whole francs, not below 0. SteV Art. 14
    Decimal commute(const LICommute& commute) const;

    /// Meals away from home in francs, not rounded. SteG Art. 16, SteV Art. 12
    Decimal meals(const LICommute& commute) const;

    /// Value of a vehicle on 1 January, whole francs unless overridden. SteG Art. 12
    Decimal vehicleValue(const Vehicle& vehicle, int year) const;

    /// National tax on a taxable income in francs, rounded plain to 5 Rappen. SteG Art. 19
    Decimal landessteuer(const Decimal& income, LITariffKind kind) const;

    /// The tariff of a household. SteG Art. 19 Abs. 1
    static LITariffKind tariffKind(const TaxCase& taxCase) noexcept;

  private:
    std::shared_ptr<const LIRules> rules_;
};

} // namespace taxcore
