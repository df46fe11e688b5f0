#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Puts a narrow column at the left of a page, of words alone as a bank's portal prints its menu
/// and whom to ask, below what stands beside it. It is told by a gutter that nothing crosses and by
/// its lines, which are not those beside them as the labels of a table are. Other pages, and
/// recognised ones, whose lines are uneven, are left as they are.
void partSidebar(PageRows& page);

} // namespace fiscarel
