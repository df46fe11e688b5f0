#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Takes numbers of loans and contracts that look like amounts, "Hypothek 3146387.18", from the
/// amounts of a page that marks the thousands of all others: they have no marks, no currency, and
/// stand in no column of amounts. What is printed stays.
void dropUngroupedNumbers(PageRows& page);

} // namespace fiscarel
