#pragma once

#include "Fiscarel_SG/forms/Page.h"

namespace fiscarel::pages::testing {

/// What the pages of a region and year are made for, with the rules that ship.
inline forms::PageContext contextOf(taxcore::TaxRegion region, int year = 2025) {
    forms::PageContext context{.year = year, .region = region};
    if (region == taxcore::TaxRegion::stGallen) {
        context.stGallen = taxcore::RuleBook::load(year, "SG").value().get();
    } else {
        context.liechtenstein = taxcore::LIRules::load(year).value().get();
    }
    return context;
}

/// Nothing entered but a salary of each person.
inline taxcore::TaxCase salariedCouple(taxcore::TaxRegion region) {
    taxcore::TaxCase taxCase{.year = 2025, .region = region};
    taxCase.income1.salaries.emplace_back().grossSalary = 90'000;
    taxCase.income2.salaries.emplace_back().grossSalary = 60'000;
    return taxCase;
}

} // namespace fiscarel::pages::testing
