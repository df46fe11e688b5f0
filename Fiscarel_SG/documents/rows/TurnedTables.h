#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Puts what the rows of a table are about before their amounts where it stands behind them all:
/// the last column becomes the first, beyond the page's left edge, in the heading as well. A table
/// is meant where two rows have two amounts and then words below each other.
void turnTables(PageRows& page);

} // namespace fiscarel
