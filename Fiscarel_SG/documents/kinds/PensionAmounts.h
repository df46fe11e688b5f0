#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <string>
#include <vector>

namespace fiscarel {

/// An amount of a paper on pensions with what its place says of it.
struct PensionAmount {
    FoundAmount found;
    Row words; ///< those that tell of it: of its row or clause, and the heading of its column
    bool isBarred = false;             ///< of another time or no pension: capital, fees, allowances
    bool isTaxFree = false;            ///< an allowance; barred as well
    bool isFactor = false;             ///< what was paid in a month
    bool isPart = false;               ///< of a sum
    int months = 0;                    ///< by how many a month's rate makes it; 0: by none
    std::vector<ProposalCheck> checks; ///< what proves it

    bool canBePension() const { return !isBarred && !isFactor; }
    bool isProven() const { return !checks.empty(); }
};

/// The amounts of a document in the order of reading, tested by arithmetic.
std::vector<PensionAmount> pensionAmounts(const DocumentRows& document);

} // namespace fiscarel
