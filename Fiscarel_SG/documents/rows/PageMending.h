#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Puts right what single rows cannot tell: an amount that goes over two lines is one, bare numbers
/// in a column of amounts are amounts, the number of a house is no pillar 3a, and on a
/// photographed sheet, which bends, amounts in a row of their own stand beside their labels again.
void mend(PageRows& page);

} // namespace fiscarel
