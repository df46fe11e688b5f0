#pragma once

#include "TaxCore/review/Advisor.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace taxcore::testing {

/// A day of the tax year, so that nothing is too late.
inline Date inTheYear(const TaxCase& taxCase) { return Date::of(taxCase.year, 11, 1).value(); }

/// A household with its calculator and result.
struct Computed {
    explicit Computed(TaxCase household)
        : taxCase(std::move(household)), calculator(CaseCalculator::forCase(taxCase).value()),
          result(calculator.calculate(taxCase)) {}

    TaxCase taxCase;
    CaseCalculator calculator;
    TaxResult result;

    /// The tips on a day, by default one of the tax year, beside the household's other cases.
    std::vector<Notice> tips(std::optional<Date> today = {},
                             const std::vector<const TaxCase*>& otherYears = {}) const {
        return Advisor::tips(calculator, taxCase, result, today.value_or(inTheYear(taxCase)),
                             otherYears);
    }
    /// One of them by its id; absent when it is not among them.
    std::optional<Notice> tip(std::string_view id, std::optional<Date> today = {},
                              const std::vector<const TaxCase*>& otherYears = {}) const {
        const auto all = tips(today, otherYears);
        const auto found = std::ranges::find(all, id, &Notice::id);
        return found == all.end() ? std::nullopt : std::optional(*found);
    }
};

} // namespace taxcore::testing
