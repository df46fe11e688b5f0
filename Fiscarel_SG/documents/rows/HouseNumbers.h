#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Takes the number of a house with a letter, "Kirchgasse 3a", from the words that labels are
/// looked for in: it would speak of pillar 3a. What is printed stays.
void hideHouseNumbers(PageRows& page);

} // namespace fiscarel
