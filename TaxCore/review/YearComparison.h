#pragma once

#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <string>
#include <vector>

namespace taxcore {

/// One line of the return in two years; francs, 0 where the line does not stand.
struct LineChange {
    std::string code;
    std::string label; ///< of the later year where it stands there
    Decimal cantonBefore;
    Decimal cantonAfter;
    Decimal federalBefore;
    Decimal federalAfter;

    bool operator==(const LineChange&) const = default;
};
TAXCORE_RECORD(LineChange, code, label, cantonBefore, cantonAfter, federalBefore, federalAfter);

/// How the tax of a household changed from one year to the next, and why. The causes follow each
/// other, each computed on the one before, so that they add up to the difference exactly.
struct YearComparison {
    Decimal before; ///< everything paid for the earlier year, francs
    Decimal after;  ///< and for the later one
    /// By the passing of time alone, under the earlier year's law: the earlier entries, a year
    /// older. Vehicles lose value, children pass limits of age; stages of education stay as
    /// entered.
    Decimal ageing;
    Decimal entries; ///< by what was entered, under the earlier year's law
    Decimal rules;   ///< by deductions and limits of the law
    Decimal tariff;  ///< by the tariffs
    /// By the multipliers of canton, municipality and church, or Liechtenstein's surcharge.
    Decimal multipliers;
    std::vector<LineChange> lines; ///< those that changed, in the order of the return

    Decimal difference() const { return after - before; }

    bool operator==(const YearComparison&) const = default;

    /// Compares two cases of a household, each computed by the rules of its year. A household that
    /// changed its region has the whole difference under `entries`. The error of the rules when
    /// those of a year do not load.
    static tl::expected<YearComparison, RuleLoadError> of(const TaxCase& earlier,
                                                          const TaxCase& later);

    /// The same where the later case is computed already: `result` is what `calculator` made of it.
    static tl::expected<YearComparison, RuleLoadError> of(const TaxCase& earlier,
                                                          const TaxCase& later,
                                                          const CaseCalculator& calculator,
                                                          const TaxResult& result);
};
TAXCORE_RECORD(YearComparison, before, after, ageing, entries, rules, tariff, multipliers, lines);

} // namespace taxcore
