#pragma once

#include "TaxCore/model/TaxCase.h"

#include <string>
#include <vector>

namespace taxcore::testing {

/// Every household of the tests that is taxed in a region: the demos of all years and the case
/// files.
std::vector<TaxCase> householdsOf(TaxRegion region);

/// Which household a failure is about.
std::string nameOf(const TaxCase& taxCase);

/// How the test runner names the tests of a region.
std::string suiteName(TaxRegion region);

} // namespace taxcore::testing
