#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <cstddef>

namespace fiscarel {

// What the words right beside an amount of a sentence say of it.

/// Whether the words before an amount, which begins with word `first`, make it a bound of others
/// and no amount of its own: "bis CHF 70'000", "mindestens", "plus de". The currency may stand
/// between.
bool followsBound(const Row& row, std::size_t first);

/// Whether a word joins an amount to what it is for behind it: "CHF 1'027.45 auf Zinsen", "4'739.40
/// di interessi".
bool joinsLabel(const RowWord& word);

} // namespace fiscarel
