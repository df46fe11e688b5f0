#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Puts what stands in two halves of a page one below the other: blocks or tables beside each
/// other, each half under a title of its own, with names and amounts on both sides of a gutter that
/// nothing crosses. Other pages are left as they are.
void partHalves(PageRows& page);

} // namespace fiscarel
