#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Recognition takes "LI" for "L1" and "0" for "O": a row's account numbers of Switzerland and
/// Liechtenstein are put right where the check digits prove what was meant.
void mendIbans(Row& row);

} // namespace fiscarel
