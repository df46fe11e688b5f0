#pragma once

#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <optional>

namespace fiscarel {

/// A wage that stands in one row of a table, its columns being what the form calls boxes: the row
/// of the total, of the newest year, or the only one. Only where gross less all deductions is net;
/// what a heading tells is not read.
std::optional<SalaryForm> readSalaryTable(const DocumentRows& document);

} // namespace fiscarel
