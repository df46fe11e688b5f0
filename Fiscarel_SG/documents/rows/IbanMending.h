#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"

namespace fiscarel {

/// Recognition takes "LI" for "L1" and "0" for "O": a row's account numbers of Switzerland and
/// Liechtenstein are put right where the check digits prove what was meant.
void mendIbans(Row& row);

/// An account number that breaks off at the end of a line and goes on with the next one, as its
/// check digits prove, moves to the first of both.
void joinIbans(PageRows& page);

} // namespace fiscarel
