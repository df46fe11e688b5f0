#pragma once

#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <set>
#include <vector>

namespace fiscarel {

/// The wages that stand in rows of a table, its columns being what the form calls boxes: one for
/// each of several people or employers that the rows name, else the row of the total, of the newest
/// year, or the only one. Only where gross less all deductions is net; what stands above the table
/// is not read.
struct SalaryTableReading {
    std::vector<SalaryForm> forms;
    const PageRows* page = nullptr;
    std::set<std::size_t> rows; ///< all that state a wage, the parts of a total too

    /// Whether a wage read in another way is that of one of the rows.
    bool has(const SalaryForm& form) const;
};
SalaryTableReading readSalaryTable(const DocumentRows& document);

} // namespace fiscarel
