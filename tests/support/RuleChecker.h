#pragma once

#include "tests/support/RuleReport.h"

#include <filesystem>

namespace taxcore::testing {

/// Checks the rule files of a folder for slips of the pen: the files that ought to be there, their
/// keys, citations and ranges, and the shape that the law gives a tariff.
Complaints checkRuleFiles(const std::filesystem::path& folder);

} // namespace taxcore::testing
