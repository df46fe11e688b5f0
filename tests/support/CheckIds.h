#pragma once

#include "tests/support/ReviewCase.h"

#include <set>
#include <string>
#include <vector>

namespace taxcore::testing {

/// Asserts that every id the check files (names in TaxCore/review) can give is tried: the ids that
/// stand in the sources against those of the rows and `others`, numbers at their end left aside.
void expectEveryCheckIsTried(const std::vector<std::string>& files,
                             const std::vector<CheckRow>& rows,
                             const std::set<std::string>& others = {});

} // namespace taxcore::testing
