#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <optional>

namespace fiscarel {

/// The wage of which all amounts between the gross and the net one take off exactly what lies
/// between the two, in rows or in the sentences of a letter. Deductions that their words do not
/// name are a guess, and left out where they may be of the pension fund. Absent where nothing is
/// named.
std::optional<SalaryForm> readSalaryRun(const FoundAmount& gross, const FoundAmount& net);

} // namespace fiscarel
