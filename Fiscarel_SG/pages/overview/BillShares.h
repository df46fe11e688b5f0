#pragma once

#include "TaxCore/result/TaxResult.h"

#include <string>
#include <vector>

namespace fiscarel::pages {

/// Who gets how much of the year's taxes.
struct BillShare {
    std::string name; ///< German: "Gemeinde"
    std::string code; ///< of the figure, for its derivation
    taxcore::Decimal amount;
    /// Of everything, in percent with one place; 0 when nothing is to be paid.
    taxcore::Decimal percent;

    bool operator==(const BillShare&) const = default;
};

/// The recipients in the order of the bill; together they get everything paid for the year.
std::vector<BillShare> billShares(const taxcore::TaxResult& result, taxcore::TaxRegion region);

} // namespace fiscarel::pages
