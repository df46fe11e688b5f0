#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <optional>

namespace fiscarel {

/// The wage of which all amounts between the gross and the net one take off exactly what lies
/// between the two, in rows or in the sentences of a letter. What is kept back besides
/// contributions counts to the net wage. Deductions that their words do not name are a guess, and
/// left out with the net wage where they are too much for one. Absent where nothing is named.
std::optional<SalaryForm> readSalaryRun(const FoundAmount& gross, const FoundAmount& net);

} // namespace fiscarel
