#pragma once

#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <vector>

namespace fiscarel {

/// The wages that stand in rows of a table, its columns being what the form calls boxes: one for
/// each of several people or employers that the rows name, else the row of the total, of the newest
/// year, or the only one. Only where gross less all deductions is net; what stands above the table
/// is not read.
std::vector<SalaryForm> readSalaryTable(const DocumentRows& document);

} // namespace fiscarel
