#pragma once

#include "TaxCore/review/Advisor.h"

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

    std::vector<Notice> tips() const {
        return Advisor::tips(calculator, taxCase, result, inTheYear(taxCase));
    }
};

} // namespace taxcore::testing
