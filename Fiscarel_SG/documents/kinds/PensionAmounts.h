#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <string>
#include <vector>

namespace fiscarel {

/// What a paper certifies that somebody was paid: a pension, or allowances for days without work.
enum class Benefit { pension, allowances };

/// An amount of a paper on benefits with what its place says of it.
struct PensionAmount {
    FoundAmount found;
    Row words; ///< those that tell of it: of its row or clause, and the heading of its column
    bool isBarred = false;             ///< of another time or no pension: capital, fees, allowances
    bool isTaxFree = false;            ///< an allowance; barred as well
    bool isOthers = false;             ///< went to the employer
    bool isFactor = false;             ///< what was paid in a month or a day, or before deductions
    bool isPart = false;               ///< of a sum
    bool isForTax = false;             ///< its words say that it is what is taxed
    int months = 0;                    ///< by how many a month's rate makes it; 0: by none
    PagePlace rate;                    ///< where that rate stands
    std::vector<ProposalCheck> checks; ///< what proves it

    bool canBePension() const { return !isBarred && !isFactor; }
    bool isProven() const { return !checks.empty(); }
};

/// The amounts of a document in the order of reading, tested by arithmetic.
std::vector<PensionAmount> pensionAmounts(const DocumentRows& document,
                                          Benefit benefit = Benefit::pension);

} // namespace fiscarel
