#pragma once

#include "TaxCore/review/Checks.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace taxcore::testing {

/// A couple in St.Gallen with everything in order: the review finds nothing. Two jobs, one child,
/// an account, pillar 3a, premiums.
TaxCase spotlessHousehold();
/// The same in Liechtenstein, in a year without provisional surcharges.
TaxCase spotlessLiechtenstein();

/// The notices of a case, reviewed on 1 March of the year after, beside what else is known of the
/// household.
std::vector<Notice> reviewed(const TaxCase& taxCase, std::vector<const TaxCase*> otherYears = {},
                             std::vector<ReviewedDocument> documents = {});
/// Their ids.
std::set<std::string> reviewedIds(const TaxCase& taxCase);

/// A check with an entry that triggers it and one just outside, both as changes of a household in
/// order.
struct CheckRow {
    const char* id; ///< of the notice
    std::function<void(TaxCase&)> triggers;
    std::function<void(TaxCase&)> justOutside;
    std::function<TaxCase()> household = spotlessHousehold;
};

/// Asserts that each row's check speaks up exactly for its trigger, with level, page, a path that
/// leads to a field of the case (where it has one) and sentences that end in a full stop.
void expectChecks(const std::vector<CheckRow>& rows);

} // namespace taxcore::testing
