#pragma once

#include "TaxCore/rulebook/LIRules.h"
#include "tests/support/RuleReport.h"

namespace taxcore::testing {

/// Looks for slips of the pen in the rules of Liechtenstein.
void checkLIRules(const LIRules& rules, RuleReport& report);

} // namespace taxcore::testing
