#pragma once

#include "Fiscarel_SG/forms/Page.h"
#include "TaxCore/regions/CaseCalculator.h"

#include <map>
#include <utility>

namespace fiscarel::pages::testing {

/// What the pages of a region and year are made for, with the rules that ship.
inline forms::PageContext contextOf(taxcore::TaxRegion region, int year = 2025) {
    static std::map<std::pair<taxcore::TaxRegion, int>, taxcore::CaseCalculator> calculators;
    const auto [found, isNew] = calculators.try_emplace(
        {region, year},
        taxcore::CaseCalculator::forCase(taxcore::TaxCase{.year = year, .region = region}).value());
    const taxcore::CaseCalculator& calculator = found->second;
    return {.year = year,
            .region = region,
            .calculator = &calculator,
            .stGallen = calculator.stGallen(),
            .liechtenstein = calculator.liechtenstein()};
}

/// Nothing entered but a salary of each person.
inline taxcore::TaxCase salariedCouple(taxcore::TaxRegion region) {
    taxcore::TaxCase taxCase{.year = 2025, .region = region};
    taxCase.income1.salaries.emplace_back().grossSalary = 90'000;
    taxCase.income2.salaries.emplace_back().grossSalary = 60'000;
    return taxCase;
}

} // namespace fiscarel::pages::testing
