#pragma once

#include "Fiscarel_SG/documents/kinds/PageRuns.h"

namespace fiscarel {

/// Whom a page concerns: the name beside or below a label for it, else the one it is addressed to,
/// else one told with a day of birth, a social security number or as a customer; empty when there
/// is none.
PlacedText findPerson(const PageRows& page);

} // namespace fiscarel
