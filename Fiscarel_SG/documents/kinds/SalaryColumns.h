#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// The wage that some rows tell, by the meaning of their labels; what a heading tells is not read.
std::optional<SalaryForm> readWage(const std::vector<RowRange>& ranges);

/// Wages of several people or employers that stand in columns, each headed by a name; a column of
/// them all is no wage. Empty unless each column adds up.
std::vector<SalaryForm> readSalaryColumns(const DocumentRows& document);

} // namespace fiscarel
