#pragma once

#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <map>

namespace fiscarel {

/// The number of the form's main box that a row begins with, or that closes its label: 10 for
/// "10.1", "[10.1]" and "(Ziffer 10.1)"; 0 for none.
int boxNumberOf(const Row& row);

/// The amounts of the boxes by their numbers alone, whatever the labels say and on however many
/// lines they stand: each box reaches down to the next number. Empty unless they add up.
std::map<SalaryBox, RowAmount> boxesByNumber(const PageRows& page);

} // namespace fiscarel
